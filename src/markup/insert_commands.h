#pragma once
// Commands that write markup without a dialog: wraps, paragraph and line break, entities,
// dates, the comment and the badge. They act on the document in front of the main window.
#include <QString>

namespace tsl {

class ShellCore;
class DialogContext;

class MarkupCommands {
  public:
    explicit MarkupCommands(DialogContext& context);

    // Wrapping commands.
    void mnuH_Click(int level);
    void mnuSub_Click();
    void mnuSup_Click();
    void mnuTagsBlock_Click();
    void mnuTagsBold_Click();
    void mnuTagsCenter_Click();
    void mnuTagsItalic_Click();
    void mnuTagsRight_Click();
    void mnuTagsStrike_Click();
    void mnuTagsUnderline_Click();
    void mnuInsertParagraph_Click();
    void mnuInsertBreak_Click();
    void mnuInsertComment_Click();
    void mnuFormatRemove_Click();
    // Single inserts.
    void mnuInsertAmpersand_Click();
    void mnuInsertCopyright_Click();
    void mnuInsertGreater_Click();
    void mnuInsertLess_Click();
    void mnuInsertQuote_Click();
    void mnuInsertReg_Click();
    void mnuInsertTrade_Click();
    void mnuInsertSpace_Click();
    void mnuInsertDate_Click(int which);
    // The text a date item inserts now (1 to 4).
    QString dateText(int which);
    // The Insert menu as it opens: the date items show the dates they would insert.
    void mnuInsert_Click();
    // The badge button: a link to the product's home page around its logo.
    void insertBadge();
    static const QString kBadgeMarkup;

  private:
    void wrap(const QString& open, const QString& close, bool addSelection, bool blockFlag);
    void singleInsert(const QString& text, char group);
    bool sendToLayout(int id);

    ShellCore& shell_;
};

} // namespace tsl
