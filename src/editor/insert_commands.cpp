// Commands that write markup without a dialog: wraps, paragraph and line break, entities,
// dates, the comment, the badge, and Cut, Copy, Paste, Select All, Undo and Redo.
#include "editor/markup_steps.h"
#include "runtime/resume.h"
#include "shell/shell_mdi.h"
#include <QLocale>

namespace tsl {

namespace {
codeEditor& activeDocument(ShellMDI& shell) {
    codeEditor* doc = shell.ActiveForm();
    if (!doc)
        raise(ErrObjectRequired, QStringLiteral("Object variable or With block variable not set"));
    return *doc;
}
} // namespace

const QString ShellMDI::kBadgeMarkup = QStringLiteral(
    "<p><a href=\"https://www.tessaline.org/\">\n<img "
    "src=\"https://www.tessaline.org/images/tessaline-88x31.png\" width=\"88\" height=\"31\" "
    "border=\"0\" alt=\"Tessaline Home Page\"></a>");

void ShellMDI::InsertMarkup(const QString& markup) {
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive)
        doc.DHTMLEdit1().pasteHTML(markup);
    else
        doc.codebox().setSelText(markup);
}

// The Source view of a wrap command: around the selection, or an empty pair with the caret
// between the tags. Its block flag is read by no step.
void ShellMDI::wrap(const QString& open, const QString& close, bool addSelection, bool) {
    codeEditor& doc = activeDocument(*this);
    wrapInSource(*this, doc, {open, close, addSelection, true});
    doc.codebox().SetFocus();
    bInsertingMarkup = false;
    bCaretStepTaken = false;
}

void ShellMDI::mnuH_Click(int level) {
    // Heading 1 sets the markup flag; 2 to 6 set the caret flag, which the first write clears.
    if (level == 1)
        bInsertingMarkup = true;
    else
        bCaretStepTaken = true;
    silentExit([&] {
        const QString n = QString::number(level);
        if (bLayoutActive) {
            activeDocument(*this).DHTMLEdit1().ExecCommand(layoutcmd::SetBlockFormat, 2,
                                                           QStringLiteral("Heading ") + n);
            return;
        }
        wrap(QStringLiteral("<h") + n + QLatin1Char('>'),
             QStringLiteral("</h") + n + QLatin1Char('>'), true, false);
    });
}

void ShellMDI::mnuSub_Click() {
    bInsertingMarkup = true;
    silentExit([&] { wrap(QStringLiteral("<sub>"), QStringLiteral("</sub>"), true, false); });
}

void ShellMDI::mnuSup_Click() {
    bInsertingMarkup = true;
    silentExit([&] { wrap(QStringLiteral("<sup>"), QStringLiteral("</sup>"), true, false); });
}

void ShellMDI::mnuTagsBlock_Click() {
    bInsertingMarkup = true;
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Indent);
        return;
    }
    wrap(QStringLiteral("<blockquote>"), QStringLiteral("</blockquote>"), true, true);
    doc.codebox().SetFocus();
}

// In Layout view a wrap command sends one command to the surface and clears both flags.
bool ShellMDI::sendToLayout(int id) {
    if (!bLayoutActive) return false;
    activeDocument(*this).DHTMLEdit1().ExecCommand(id, 2);
    bInsertingMarkup = false;
    bCaretStepTaken = false;
    return true;
}

void ShellMDI::mnuTagsBold_Click() {
    bInsertingMarkup = true;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<b>"), QStringLiteral("</b>"), true, false);
    });
}

void ShellMDI::mnuTagsItalic_Click() {
    // Cleared, not set: the first write then clears the caret flag too. The menu sends the bold
    // command to the Layout surface; the toolbar button sends italic.
    bInsertingMarkup = false;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<i>"), QStringLiteral("</i>"), true, false);
    });
}

void ShellMDI::mnuTagsStrike_Click() {
    bInsertingMarkup = true;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<strike>"), QStringLiteral("</strike>"), true, false);
    });
}

void ShellMDI::mnuTagsUnderline_Click() {
    bInsertingMarkup = true;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<u>"), QStringLiteral("</u>"), true, false);
    });
}

void ShellMDI::mnuTagsCenter_Click() {
    bInsertingMarkup = true;
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::JustifyCenter, 2);
        doc.DHTMLEdit1().SetFocus();
        bInsertingMarkup = false;
        bCaretStepTaken = false;
        return;
    }
    wrap(QStringLiteral("<center>"), QStringLiteral("</center>"), true, false);
}

void ShellMDI::mnuTagsRight_Click() {
    bInsertingMarkup = true;
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::JustifyRight, 2);
        doc.DHTMLEdit1().SetFocus();
        bInsertingMarkup = false;
        bCaretStepTaken = false;
        return;
    }
    wrap(QStringLiteral("<p align=\"right\">"), QStringLiteral("</p>"), false, false);
}

void ShellMDI::mnuInsertParagraph_Click() {
    bInsertingMarkup = true;
    silentExit([&] {
        if (bLayoutActive) {
            InsertMarkup(QStringLiteral("<p>"));
        } else {
            codeEditor& doc = activeDocument(*this);
            SourcePane& pane = doc.codebox();
            const bool selection = pane.SelLength() > 0;
            if (selection) {
                doc.AddSelectionToStack();
                const int selected = pane.SelLength();
                pane.setSelStart(pane.SelStart());
                pane.setSelText(QStringLiteral("<p>"));
                pane.setSelLength(selected);
            } else {
                pane.setSelText(QStringLiteral("<p>"));
            }
            pane.SetFocus();
            doc.AddInsertStep();
        }
        bInsertingMarkup = false;
        bCaretStepTaken = false;
    });
}

void ShellMDI::mnuInsertBreak_Click() {
    bInsertingMarkup = true;
    silentExit([&] {
        if (bLayoutActive) {
            InsertMarkup(QStringLiteral("<br>"));
        } else {
            codeEditor& doc = activeDocument(*this);
            // A line feed alone, whatever line end the Enter key would write.
            doc.codebox().setSelText(QStringLiteral("<br>\n"));
            doc.codebox().SetFocus();
            doc.AddInsertStep();
        }
        bInsertingMarkup = false;
        bCaretStepTaken = false;
    });
}

void ShellMDI::mnuInsertComment_Click() {
    bInsertingMarkup = true;
    silentExit([&] {
        codeEditor& doc = activeDocument(*this);
        const bool html = doc.CSSDoc == QLatin1String("No");
        const QString open = html ? QStringLiteral("<!-- ") : QStringLiteral("/* ");
        const QString close = html ? QStringLiteral(" -->") : QStringLiteral(" */");
        writePair(*this, doc, {open, close, true, true});
        doc.codebox().SetFocus();
        doc.AddInsertStep();
        nStepCaretAdvance = 0;
        nStepCaretBack = 0;
        bInsertingMarkup = false;
        bCaretStepTaken = false;
    });
}

void ShellMDI::mnuFormatRemove_Click() {
    activeDocument(*this).DHTMLEdit1().ExecCommand(layoutcmd::RemoveFormat);
}

// Groups of the single inserts: A and D touch no flag and add a step only without a caret step;
// B and C take the full step protocol; A and B first record the selection.
void ShellMDI::singleInsert(const QString& text, char group) {
    const bool fullProtocol = group == 'B' || group == 'C';
    if (bLayoutActive) {
        if (fullProtocol) bInsertingMarkup = true;
        InsertMarkup(text);
        if (fullProtocol) {
            bInsertingMarkup = false;
            bCaretStepTaken = false;
        }
        return;
    }
    codeEditor& doc = activeDocument(*this);
    if (fullProtocol) bInsertingMarkup = true;
    if (group == 'A' || group == 'B') doc.AddSelectionToStack();
    doc.codebox().setSelText(text);
    if (fullProtocol) {
        doc.AddInsertStep();
        bInsertingMarkup = false;
        bCaretStepTaken = false;
    } else if (!bCaretStepTaken) {
        doc.CheckToAddStep(false);
    }
}

void ShellMDI::mnuInsertAmpersand_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&amp;"), 'A'); });
}
void ShellMDI::mnuInsertCopyright_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&copy;"), 'A'); });
}
void ShellMDI::mnuInsertGreater_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&gt;"), 'A'); });
}
void ShellMDI::mnuInsertLess_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&lt;"), 'A'); });
}
void ShellMDI::mnuInsertQuote_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&quot;"), 'B'); });
}
void ShellMDI::mnuInsertReg_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&reg;"), 'B'); });
}
void ShellMDI::mnuInsertTrade_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&trade;"), 'B'); });
}
void ShellMDI::mnuInsertSpace_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&nbsp;"), 'C'); });
}

// Dates have no guard: a failure reaches the dispatcher.
void ShellMDI::mnuInsertDate_Click(int which) {
    singleInsert(dateText(which), 'D');
}

// One reading of the clock per text, so a date and its time belong together.
QString ShellMDI::dateText(int which) {
    const QDateTime now = platform_.now();
    const QLocale locale = QLocale::system();
    const bool longDate = which <= 2;
    const QString date = locale.toString(now.date(), longDate ? QStringLiteral("dddd d MMMM yyyy")
                                                              : QStringLiteral("dd/MM/yy"));
    if (which == 1 || which == 3) return date;
    return date + QLatin1Char(' ') + locale.toString(now.time(), QStringLiteral("H:mm:ss"));
}

void ShellMDI::mnuInsert_Click() {
    const bool enabled = menu(QStringLiteral("mnuInsertDate1")).Enabled();
    for (int i = 1; i <= 4; ++i) {
        MenuItem& item = menu(QStringLiteral("mnuInsertDate%1").arg(i));
        item.setCaption(dateText(i));
        item.setEnabled(enabled);
    }
}

void ShellMDI::insertBadge() {
    if (bLayoutActive) {
        InsertMarkup(kBadgeMarkup);
        return;
    }
    codeEditor& doc = activeDocument(*this);
    bInsertingMarkup = true;
    doc.codebox().setSelText(QStringLiteral("\n") + kBadgeMarkup);
    doc.AddInsertStep();
    bInsertingMarkup = false;
    bCaretStepTaken = false;
    doc.codebox().SetFocus();
}

void ShellMDI::mnuEditCut_Click() {
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Cut);
        doc.DHTMLEdit1().SetFocus();
    } else {
        SourcePane& pane = doc.codebox();
        doc.AddSelectionToStack();
        platform_.setClipboardText(pane.SelText());
        pane.setSelText(QString());
        doc.AddStep();
        setUndoEnabled(true);
    }
    setPasteEnabled(true);
}

void ShellMDI::mnuEditCopy_Click() {
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Copy);
        doc.DHTMLEdit1().SetFocus();
    } else {
        platform_.setClipboardText(QString());
        platform_.setClipboardText(doc.codebox().SelText());
    }
    setPasteEnabled(true);
}

void ShellMDI::mnuEditPaste_Click() {
    codeEditor& doc = activeDocument(*this);
    // The markup flag stays set when this command ends; the next change reads it.
    bInsertingMarkup = true;
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Paste);
        doc.DHTMLEdit1().SetFocus();
        return;
    }
    doc.AddSelectionToStack();
    doc.codebox().setSelText(platform_.clipboardText());
    if (!bCaretStepTaken) doc.CheckToAddStep(false);
    setUndoEnabled(true);
}

void ShellMDI::mnuEditSelectall_Click() {
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::SelectAll);
        return;
    }
    SourcePane& pane = doc.codebox();
    pane.setSelStart(0);
    pane.setSelLength(pane.length());
    pane.SetFocus();
}

void ShellMDI::mnuEditUndo_Click() {
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive)
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Undo);
    else
        doc.Undo();
}

void ShellMDI::mnuEditRedo_Click() {
    codeEditor& doc = activeDocument(*this);
    if (bLayoutActive)
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Redo);
    else
        doc.Redo();
}

void bindEditorCommands(ShellMDI& shell, Commands& commands) {
    ShellMDI* s = &shell;
    const std::pair<const char*, void (ShellMDI::*)()> items[] = {
        {"mnuEditUndo", &ShellMDI::mnuEditUndo_Click},
        {"mnuEditRedo", &ShellMDI::mnuEditRedo_Click},
        {"mnuEditCut", &ShellMDI::mnuEditCut_Click},
        {"mnuEditCopy", &ShellMDI::mnuEditCopy_Click},
        {"mnuEditPaste", &ShellMDI::mnuEditPaste_Click},
        {"mnuEditSelectall", &ShellMDI::mnuEditSelectall_Click},
        {"mnuInsert", &ShellMDI::mnuInsert_Click},
        {"mnuInsertBreak", &ShellMDI::mnuInsertBreak_Click},
        {"mnuInsertParagraph", &ShellMDI::mnuInsertParagraph_Click},
        {"mnuInsertSpace", &ShellMDI::mnuInsertSpace_Click},
        {"mnuInsertTrade", &ShellMDI::mnuInsertTrade_Click},
        {"mnuInsertCopyright", &ShellMDI::mnuInsertCopyright_Click},
        {"mnuInsertGreater", &ShellMDI::mnuInsertGreater_Click},
        {"mnuInsertLess", &ShellMDI::mnuInsertLess_Click},
        {"mnuInsertQuote", &ShellMDI::mnuInsertQuote_Click},
        {"mnuInsertAmpersand", &ShellMDI::mnuInsertAmpersand_Click},
        {"mnuInsertReg", &ShellMDI::mnuInsertReg_Click},
        {"mnuInsertComment", &ShellMDI::mnuInsertComment_Click},
        {"mnuTagsBold", &ShellMDI::mnuTagsBold_Click},
        {"mnuTagsItalic", &ShellMDI::mnuTagsItalic_Click},
        {"mnuTagsUnderline", &ShellMDI::mnuTagsUnderline_Click},
        {"mnuTagsStrike", &ShellMDI::mnuTagsStrike_Click},
        {"mnuSub", &ShellMDI::mnuSub_Click},
        {"mnuSup", &ShellMDI::mnuSup_Click},
        {"mnuTagsCenter", &ShellMDI::mnuTagsCenter_Click},
        {"mnuTagsRight", &ShellMDI::mnuTagsRight_Click},
        {"mnuTagsBlock", &ShellMDI::mnuTagsBlock_Click},
        {"mnuFormatRemove", &ShellMDI::mnuFormatRemove_Click},
    };
    for (const auto& [item, handler] : items)
        commands.bind(QLatin1String(item), [s, handler = handler] { (s->*handler)(); });
    for (int n = 1; n <= 6; ++n)
        commands.bind(QStringLiteral("mnuH%1").arg(n), [s, n] { s->mnuH_Click(n); });
    for (int n = 1; n <= 4; ++n)
        commands.bind(QStringLiteral("mnuInsertDate%1").arg(n),
                      [s, n] { s->mnuInsertDate_Click(n); });
}

} // namespace tsl
