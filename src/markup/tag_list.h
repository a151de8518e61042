#pragma once
// The tag list: HTML tags as the text they insert, put in by double click or by drag.
#include "gadgets/controls.h"
#include "shell/dialog_context.h"

namespace tsl {

class TagList {
  public:
    explicit TagList(DialogContext& context);

    ListBox tvwTags{QStringLiteral("tvwTags")};
    QString sDraggedTag;
    void LoadTagList();
    void tvwTags_DblClick();
    void tvwTags_MouseDown(int nodeIndex);
    // Starts a drag of the node last pressed: answers the text to drop, and whether the drop
    // may copy at all.
    bool tvwTags_OLEStartDrag(QString& data);
    void tvwTags_OLECompleteDrag(int effect);

  private:
    DialogContext& shell_;
};

} // namespace tsl
