// Commands that write markup without a dialog: wraps, paragraph and line break, entities,
// dates, the comment, the badge, and Cut, Copy, Paste, Select All, Undo and Redo.
#include "markup/insert_commands.h"
#include "markup/markup_steps.h"
#include "runtime/resume.h"
#include "shell/command_registry.h"
#include "shell/shell_core.h"
#include <QLocale>

namespace tsl {

namespace {} // namespace

MarkupCommands::MarkupCommands(DialogContext& context) : shell_(static_cast<ShellCore&>(context)) {}

const QString MarkupCommands::kBadgeMarkup = QStringLiteral(
    "<p><a href=\"https://www.tessaline.org/\">\n<img "
    "src=\"https://www.tessaline.org/images/tessaline-88x31.png\" width=\"88\" height=\"31\" "
    "border=\"0\" alt=\"Tessaline Home Page\"></a>");

// The Source view of a wrap command: around the selection, or an empty pair with the caret
// between the tags. Its block flag is read by no step.
void MarkupCommands::wrap(const QString& open, const QString& close, bool addSelection, bool) {
    codeEditor& doc = required(shell_.ActiveForm());
    wrapInSource(shell_, doc, {open, close, addSelection, true});
    doc.codebox().SetFocus();
    shell_.bInsertingMarkup = false;
    shell_.bCaretStepTaken = false;
}

void MarkupCommands::mnuH_Click(int level) {
    // Heading 1 sets the markup flag; 2 to 6 set the caret flag, which the first write clears.
    if (level == 1)
        shell_.bInsertingMarkup = true;
    else
        shell_.bCaretStepTaken = true;
    silentExit([&] {
        const QString n = QString::number(level);
        if (shell_.bLayoutActive) {
            required(shell_.ActiveForm())
                .DHTMLEdit1()
                .ExecCommand(layoutcmd::SetBlockFormat, 2, QStringLiteral("Heading ") + n);
            return;
        }
        wrap(QStringLiteral("<h") + n + QLatin1Char('>'),
             QStringLiteral("</h") + n + QLatin1Char('>'), true, false);
    });
}

void MarkupCommands::mnuSub_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] { wrap(QStringLiteral("<sub>"), QStringLiteral("</sub>"), true, false); });
}

void MarkupCommands::mnuSup_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] { wrap(QStringLiteral("<sup>"), QStringLiteral("</sup>"), true, false); });
}

void MarkupCommands::mnuTagsBlock_Click() {
    shell_.bInsertingMarkup = true;
    codeEditor& doc = required(shell_.ActiveForm());
    if (shell_.bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::Indent);
        return;
    }
    wrap(QStringLiteral("<blockquote>"), QStringLiteral("</blockquote>"), true, true);
    doc.codebox().SetFocus();
}

// In Layout view a wrap command sends one command to the surface and clears both flags.
bool MarkupCommands::sendToLayout(int id) {
    if (!shell_.bLayoutActive) return false;
    required(shell_.ActiveForm()).DHTMLEdit1().ExecCommand(id, 2);
    shell_.bInsertingMarkup = false;
    shell_.bCaretStepTaken = false;
    return true;
}

void MarkupCommands::mnuTagsBold_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<b>"), QStringLiteral("</b>"), true, false);
    });
}

void MarkupCommands::mnuTagsItalic_Click() {
    // Cleared, not set: the first write then clears the caret flag too. The menu sends the bold
    // command to the Layout surface; the toolbar button sends italic.
    shell_.bInsertingMarkup = false;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<i>"), QStringLiteral("</i>"), true, false);
    });
}

void MarkupCommands::mnuTagsStrike_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<strike>"), QStringLiteral("</strike>"), true, false);
    });
}

void MarkupCommands::mnuTagsUnderline_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] {
        if (!sendToLayout(layoutcmd::Bold))
            wrap(QStringLiteral("<u>"), QStringLiteral("</u>"), true, false);
    });
}

void MarkupCommands::mnuTagsCenter_Click() {
    shell_.bInsertingMarkup = true;
    codeEditor& doc = required(shell_.ActiveForm());
    if (shell_.bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::JustifyCenter, 2);
        doc.DHTMLEdit1().SetFocus();
        shell_.bInsertingMarkup = false;
        shell_.bCaretStepTaken = false;
        return;
    }
    wrap(QStringLiteral("<center>"), QStringLiteral("</center>"), true, false);
}

void MarkupCommands::mnuTagsRight_Click() {
    shell_.bInsertingMarkup = true;
    codeEditor& doc = required(shell_.ActiveForm());
    if (shell_.bLayoutActive) {
        doc.DHTMLEdit1().ExecCommand(layoutcmd::JustifyRight, 2);
        doc.DHTMLEdit1().SetFocus();
        shell_.bInsertingMarkup = false;
        shell_.bCaretStepTaken = false;
        return;
    }
    wrap(QStringLiteral("<p align=\"right\">"), QStringLiteral("</p>"), false, false);
}

void MarkupCommands::mnuInsertParagraph_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] {
        if (shell_.bLayoutActive) {
            shell_.InsertMarkup(QStringLiteral("<p>"));
        } else {
            codeEditor& doc = required(shell_.ActiveForm());
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
        shell_.bInsertingMarkup = false;
        shell_.bCaretStepTaken = false;
    });
}

void MarkupCommands::mnuInsertBreak_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] {
        if (shell_.bLayoutActive) {
            shell_.InsertMarkup(QStringLiteral("<br>"));
        } else {
            codeEditor& doc = required(shell_.ActiveForm());
            // A line feed alone, whatever line end the Enter key would write.
            doc.codebox().setSelText(QStringLiteral("<br>\n"));
            doc.codebox().SetFocus();
            doc.AddInsertStep();
        }
        shell_.bInsertingMarkup = false;
        shell_.bCaretStepTaken = false;
    });
}

void MarkupCommands::mnuInsertComment_Click() {
    shell_.bInsertingMarkup = true;
    silentExit([&] {
        codeEditor& doc = required(shell_.ActiveForm());
        const bool html = doc.CSSDoc == QLatin1String("No");
        const QString open = html ? QStringLiteral("<!-- ") : QStringLiteral("/* ");
        const QString close = html ? QStringLiteral(" -->") : QStringLiteral(" */");
        writePair(shell_, doc, {open, close, true, true});
        doc.codebox().SetFocus();
        doc.AddInsertStep();
        shell_.nStepCaretAdvance = 0;
        shell_.nStepCaretBack = 0;
        shell_.bInsertingMarkup = false;
        shell_.bCaretStepTaken = false;
    });
}

void MarkupCommands::mnuFormatRemove_Click() {
    required(shell_.ActiveForm()).DHTMLEdit1().ExecCommand(layoutcmd::RemoveFormat);
}

// Groups of the single inserts: A and D touch no flag and add a step only without a caret step;
// B and C take the full step protocol; A and B first record the selection.
void MarkupCommands::singleInsert(const QString& text, char group) {
    const bool fullProtocol = group == 'B' || group == 'C';
    if (shell_.bLayoutActive) {
        if (fullProtocol) shell_.bInsertingMarkup = true;
        shell_.InsertMarkup(text);
        if (fullProtocol) {
            shell_.bInsertingMarkup = false;
            shell_.bCaretStepTaken = false;
        }
        return;
    }
    codeEditor& doc = required(shell_.ActiveForm());
    if (fullProtocol) shell_.bInsertingMarkup = true;
    if (group == 'A' || group == 'B') doc.AddSelectionToStack();
    doc.codebox().setSelText(text);
    if (fullProtocol) {
        doc.AddInsertStep();
        shell_.bInsertingMarkup = false;
        shell_.bCaretStepTaken = false;
    } else if (!shell_.bCaretStepTaken) {
        doc.CheckToAddStep(false);
    }
}

void MarkupCommands::mnuInsertAmpersand_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&amp;"), 'A'); });
}
void MarkupCommands::mnuInsertCopyright_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&copy;"), 'A'); });
}
void MarkupCommands::mnuInsertGreater_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&gt;"), 'A'); });
}
void MarkupCommands::mnuInsertLess_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&lt;"), 'A'); });
}
void MarkupCommands::mnuInsertQuote_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&quot;"), 'B'); });
}
void MarkupCommands::mnuInsertReg_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&reg;"), 'B'); });
}
void MarkupCommands::mnuInsertTrade_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&trade;"), 'B'); });
}
void MarkupCommands::mnuInsertSpace_Click() {
    silentExit([&] { singleInsert(QStringLiteral("&nbsp;"), 'C'); });
}

// Dates have no guard: a failure reaches the dispatcher.
void MarkupCommands::mnuInsertDate_Click(int which) {
    singleInsert(dateText(which), 'D');
}

// One reading of the clock per text, so a date and its time belong together.
QString MarkupCommands::dateText(int which) {
    const QDateTime now = shell_.platform().now();
    const QLocale locale = QLocale::system();
    const bool longDate = which <= 2;
    const QString date = locale.toString(now.date(), longDate ? QStringLiteral("dddd d MMMM yyyy")
                                                              : QStringLiteral("dd/MM/yy"));
    if (which == 1 || which == 3) return date;
    return date + QLatin1Char(' ') + locale.toString(now.time(), QStringLiteral("H:mm:ss"));
}

void MarkupCommands::mnuInsert_Click() {
    const bool enabled = shell_.menu(QStringLiteral("mnuInsertDate1")).Enabled();
    for (int i = 1; i <= 4; ++i) {
        MenuItem& item = shell_.menu(QStringLiteral("mnuInsertDate%1").arg(i));
        item.setCaption(dateText(i));
        item.setEnabled(enabled);
    }
}

void MarkupCommands::insertBadge() {
    if (shell_.bLayoutActive) {
        shell_.InsertMarkup(kBadgeMarkup);
        return;
    }
    codeEditor& doc = required(shell_.ActiveForm());
    shell_.bInsertingMarkup = true;
    doc.codebox().setSelText(QStringLiteral("\n") + kBadgeMarkup);
    doc.AddInsertStep();
    shell_.bInsertingMarkup = false;
    shell_.bCaretStepTaken = false;
    doc.codebox().SetFocus();
}

void bindMarkupCommands(ShellCore& shell, Commands& commands) {
    MarkupCommands* s = &shell.part<MarkupCommands>();
    const std::pair<const char*, void (MarkupCommands::*)()> items[] = {
        {"mnuInsert", &MarkupCommands::mnuInsert_Click},
        {"mnuInsertBreak", &MarkupCommands::mnuInsertBreak_Click},
        {"mnuInsertParagraph", &MarkupCommands::mnuInsertParagraph_Click},
        {"mnuInsertSpace", &MarkupCommands::mnuInsertSpace_Click},
        {"mnuInsertTrade", &MarkupCommands::mnuInsertTrade_Click},
        {"mnuInsertCopyright", &MarkupCommands::mnuInsertCopyright_Click},
        {"mnuInsertGreater", &MarkupCommands::mnuInsertGreater_Click},
        {"mnuInsertLess", &MarkupCommands::mnuInsertLess_Click},
        {"mnuInsertQuote", &MarkupCommands::mnuInsertQuote_Click},
        {"mnuInsertAmpersand", &MarkupCommands::mnuInsertAmpersand_Click},
        {"mnuInsertReg", &MarkupCommands::mnuInsertReg_Click},
        {"mnuInsertComment", &MarkupCommands::mnuInsertComment_Click},
        {"mnuTagsBold", &MarkupCommands::mnuTagsBold_Click},
        {"mnuTagsItalic", &MarkupCommands::mnuTagsItalic_Click},
        {"mnuTagsUnderline", &MarkupCommands::mnuTagsUnderline_Click},
        {"mnuTagsStrike", &MarkupCommands::mnuTagsStrike_Click},
        {"mnuSub", &MarkupCommands::mnuSub_Click},
        {"mnuSup", &MarkupCommands::mnuSup_Click},
        {"mnuTagsCenter", &MarkupCommands::mnuTagsCenter_Click},
        {"mnuTagsRight", &MarkupCommands::mnuTagsRight_Click},
        {"mnuTagsBlock", &MarkupCommands::mnuTagsBlock_Click},
        {"mnuFormatRemove", &MarkupCommands::mnuFormatRemove_Click},
    };
    for (const auto& [item, handler] : items)
        commands.bind(QLatin1String(item), [s, handler = handler] { (s->*handler)(); });
    for (int n = 1; n <= 6; ++n)
        commands.bind(QStringLiteral("mnuH%1").arg(n), [s, n] { s->mnuH_Click(n); });
    for (int n = 1; n <= 4; ++n)
        commands.bind(QStringLiteral("mnuInsertDate%1").arg(n),
                      [s, n] { s->mnuInsertDate_Click(n); });
    commands.bindAction(QStringLiteral("insertBadge"), [s] { s->insertBadge(); });
}

static const CommandSet markupCommands{bindMarkupCommands};

} // namespace tsl
