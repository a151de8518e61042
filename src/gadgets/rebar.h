#pragma once
// The band strip of the main window (cReBar1): one band per main toolbar, addressed by a
// 0-based index in the order the bands were added. The logic shows and hides bands; the view
// shows the toolbars as the bands say and follows changed().
#include "gadgets/controls.h"
#include <vector>

namespace tsl {

class cToolbar;

class cReBar : public Control {
    Q_OBJECT
  public:
    using Control::Control;

    // Makes the strip; before it, every band operation fails with "No hWndRebar!".
    void CreateRebar() { created_ = true; }
    bool created() const { return created_; }
    // Adds a band that holds a toolbar, visible, with its text and key; answers its index.
    int AddBandByHwnd(cToolbar* child, const QString& text, const QString& key);

    int BandCount() const;
    bool BandVisible(int index) const;
    void setBandVisible(int index, bool on);
    cToolbar* BandChild(int index) const;
    QString BandKey(int index) const;
    // The index of the band with this key; -1 when there is none.
    int BandIndexForKey(const QString& key) const;

  signals:
    // One band was shown or hidden (changed() follows too).
    void bandVisibleChanged(int index, bool visible);

  private:
    struct Band {
        cToolbar* child = nullptr;
        QString text;
        QString key;
        bool visible = true;
    };
    const Band& band(int index) const;
    void requireRebar() const;
    bool created_ = false;
    std::vector<Band> bands_;
};

} // namespace tsl
