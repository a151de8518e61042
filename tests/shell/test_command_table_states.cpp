// Which commands are on: by the kind of document that comes forward and the view it shows,
// with no document at all, and the view toggles with the settings they write.
#include "editor/text_pane.h"
#include "test_shell.h"
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {

// The document commands DisableDocumentCommands turns off, in its order.
const QStringList kDocumentItems = words(
    "mnuFileClose mnuFileSave mnuFileSaveas mnuFilePrint mnuFilePreview mnuFileCloseAll "
    "mnuFileSaveAll mnuEditUndo mnuEditCut mnuEditCopy mnuEditPaste mnuEditFind mnuEditSelectall "
    "mnuEditProperties mnuInsertAnchor mnuInsertHR mnuInsertHyperlink mnuInsertImage "
    "mnuInsertMarquee mnuInsertTrade mnuInsertCopyright mnuInsertAmpersand mnuInsertLess "
    "mnuInsertGreater mnuInsertQuote mnuInsertReg mnuInsertFormSettings mnuInsertForm "
    "mnuInsertFrames mnuInsertBullet mnuInsertTable mnuInsertComment mnuInsertCSS mnuInsertLink "
    "mnuInsertBasefont mnuInsertFont mnuTagsBold mnuTagsItalic mnuTagsUnderline mnuTagsStrike "
    "mnuSup mnuSub mnuInsertBreak mnuInsertParagraph mnuInsertSpace mnuTagsCenter mnuTagsRight "
    "mnuTagsBlock mnuInsertDate1 mnuInsertDate2 mnuInsertDate3 mnuInsertDate4 mnuH1 mnuH2 mnuH3 "
    "mnuH4 mnuH5 mnuH6 mnuFormatRemove");
const QList<int> kMainOff = {3, 5, 7, 8, 9, 11, 13, 14, 19, 20, 22, 24};
const QList<int> kTags = {0, 2, 4, 5, 6, 8, 9, 11, 13, 14, 16, 17, 18, 19, 21, 22, 24};
const QList<int> kForms = {0, 2, 3, 4, 5, 6, 7, 9, 10};

// What a style sheet turns off, besides tbrMain 14, 16, 17, 20, 24.
const QStringList kCssOff =
    words("mnuFilePreview mnuEditProperties mnuInsertAnchor mnuInsertHR mnuInsertHyperlink "
          "mnuInsertImage mnuInsertMarquee mnuInsertSC mnuInsertFormSettings mnuInsertForm "
          "mnuInsertFrames mnuInsertBullet mnuInsertTable mnuInsertComment mnuInsertBasefont "
          "mnuInsertFont mnuTagsBold mnuTagsItalic mnuTagsUnderline mnuTagsStrike mnuInsertBreak "
          "mnuInsertParagraph mnuInsertSpace mnuTagsCenter mnuTagsBlock mnuViewFmtTlb mnuViewForms "
          "mnuViewTagList mnuInsertLink mnuHeadings");

// The commands that work with no document at all.
const QStringList kAlwaysOn = words(
    "mnuFile mnuFileNew mnuFileNewHTML mnuFileNewCSS mnuFileOpen mnuNet mnuFileExit mnuEditPrefs "
    "mnuViewStdTlb mnuViewFmtTlb mnuViewForms mnuViewTagList mnuHelpContents mnuHelpAbout "
    "mnuWindowCascade");

QSet<QString> itemsOn(ShellMDI& shell, const QStringList& names) {
    QSet<QString> on;
    for (const QString& name : names)
        if (shell.menu(name).Enabled()) on.insert(name);
    return on;
}

QSet<int> buttonsOn(const cToolbar& bar, const QList<int>& indexes) {
    QSet<int> on;
    for (int i : indexes)
        if (bar.ButtonEnabled(i)) on.insert(i);
    return on;
}

QSet<QString> setOf(const QStringList& names) {
    return QSet<QString>(names.begin(), names.end());
}

QSet<int> setOf(const QList<int>& indexes) {
    return QSet<int>(indexes.begin(), indexes.end());
}

// Every band, pane and flag of the view as one line, to compare before and after.
QString viewState(ShellMDI& shell) {
    return QStringLiteral("bands %1%2%3 pane %4 flags %5%6%7%8")
        .arg(shell.cReBar1.BandVisible(0))
        .arg(shell.cReBar1.BandVisible(1))
        .arg(shell.cReBar1.BandVisible(2))
        .arg(shell.Picture1.Visible())
        .arg(shell.bStandardToolbarOpen)
        .arg(shell.bTagsToolbarOpen)
        .arg(shell.bFormsToolbarOpen)
        .arg(shell.bTagListOpen);
}

// A loaded shell with "Document 1" (HTML) and "Document 2", a style sheet, in front. The new
// window came forward before it was marked a style sheet, so it is brought forward again.
codeEditor& withStyleSheet(TestShell& ts) {
    ts.load();
    codeEditor& page = ts.active();
    ts->mnuFileNewCSS_Click();
    codeEditor& sheet = ts.active();
    page.ZOrder();
    sheet.ZOrder();
    return sheet;
}

} // namespace

class CommandStateTest : public QObject {
    Q_OBJECT

  private slots:
    // ---- start-up ----

    // Forms, Standard, Tags, TagList as the settings hold them; null for none written.
    void startShowsTheBandsTheSettingsSay() {
        const char* const rows[][4] = {{nullptr, nullptr, nullptr, nullptr},
                                       {"Yes", "Yes", "Yes", "Yes"},
                                       {"No", "No", "No", "No"},
                                       {"Yes", "No", "No", "Yes"},
                                       {"No", "Yes", "No", "No"},
                                       {"yes", "1", "", "YES"}}; // not "Yes" is off
        const char* const keys[] = {"Forms Toolbar Open", "Standard Toolbar Open",
                                    "Tags Toolbar Open", "TagListOpen"};
        for (const auto& row : rows) {
            TestShell ts;
            for (int k = 0; k < 4; ++k)
                if (row[k]) ts.settings.save("Fuzzies", keys[k], row[k]);
            const int writes = ts.settings.writeCount();
            ts.load();
            const auto on = [&](int k, bool byDefault) {
                return row[k] ? QByteArray(row[k]) == "Yes" : byDefault;
            };
            const bool f = on(0, false), s = on(1, true), t = on(2, true), l = on(3, false);
            QCOMPARE(ts->bFormsToolbarOpen, f);
            QCOMPARE(ts->bStandardToolbarOpen, s);
            QCOMPARE(ts->bTagsToolbarOpen, t);
            QCOMPARE(ts->bTagListOpen, l);
            QCOMPARE(ts->cReBar1.BandVisible(ShellMDI::BandForms), f);
            QCOMPARE(ts->cReBar1.BandVisible(ShellMDI::BandStandard), s);
            QCOMPARE(ts->cReBar1.BandVisible(ShellMDI::BandTags), t);
            QCOMPARE(ts->Picture1.Visible(), l);
            QCOMPARE(ts->menu("mnuViewForms").Checked(), f);
            QCOMPARE(ts->menu("mnuViewStdTlb").Checked(), s);
            QCOMPARE(ts->menu("mnuViewFmtTlb").Checked(), t);
            QCOMPARE(ts->menu("mnuViewTagList").Checked(), l);
            QCOMPARE(ts->tbrMain.ButtonChecked(16), f);
            QCOMPARE(ts->tbrMain.ButtonChecked(17), l);
            QCOMPARE(ts.settings.writeCount(), writes); // the start writes nothing
        }
    }

    // ---- the view toggles ----

    void toolbarToggles() {
        for (const auto& [item, band] : {std::pair{"mnuViewStdTlb", int(ShellMDI::BandStandard)},
                                         std::pair{"mnuViewFmtTlb", int(ShellMDI::BandTags)},
                                         std::pair{"mnuViewForms", int(ShellMDI::BandForms)}}) {
            TestShell ts;
            ts.load();
            const auto flag = [&]() -> bool {
                if (band == ShellMDI::BandStandard) return ts->bStandardToolbarOpen;
                if (band == ShellMDI::BandTags) return ts->bTagsToolbarOpen;
                return ts->bFormsToolbarOpen;
            };
            const int writes = ts.settings.writeCount();
            const bool before = ts->menu(item).Checked();
            for (int round = 1; round <= 2; ++round) {
                QVERIFY(ts->dispatch(ts->menu(item).Click));
                const bool open = round == 1 ? !before : before;
                QCOMPARE(ts->menu(item).Checked(), open);
                QCOMPARE(ts->cReBar1.BandVisible(band), open);
                QCOMPARE(flag(), open);
                if (band == ShellMDI::BandForms) QCOMPARE(ts->tbrMain.ButtonChecked(16), open);
            }
            // The toolbar toggles write nothing; exit writes two of the three.
            QCOMPARE(ts.settings.writeCount(), writes);
            QVERIFY(ts.platform.messages.isEmpty());
        }
    }

    void theTagListToggleWritesAtOnce() {
        TestShell ts;
        ts.load();
        ts->mnuViewTagList_Click();
        QVERIFY(ts->Picture1.Visible());
        QVERIFY(ts->bTagListOpen);
        QVERIFY(ts->menu("mnuViewTagList").Checked());
        QVERIFY(ts->tbrMain.ButtonChecked(17));
        QCOMPARE(ts.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("Yes"));
        QCOMPARE(ts.settings.writeCount(), 1);
        ts->mnuViewTagList_Click();
        QVERIFY(!ts->Picture1.Visible());
        QVERIFY(!ts->bTagListOpen);
        QVERIFY(!ts->tbrMain.ButtonChecked(17));
        QCOMPARE(ts.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("No"));
        QCOMPARE(ts.settings.writeCount(), 2);
    }

    void theCheckButtonsToggleLikeTheMenu() {
        TestShell ts;
        ts.load();
        ts->tbrMain.press(16);
        QVERIFY(ts->cReBar1.BandVisible(2));
        QVERIFY(ts->bFormsToolbarOpen);
        QVERIFY(ts->menu("mnuViewForms").Checked());
        QVERIFY(ts->tbrMain.ButtonChecked(16));
        ts->tbrMain.press(16);
        QVERIFY(!ts->cReBar1.BandVisible(2));
        QVERIFY(!ts->tbrMain.ButtonChecked(16));
        QVERIFY(!ts->menu("mnuViewForms").Checked());
        ts->tbrMain.press(17);
        QVERIFY(ts->Picture1.Visible());
        QVERIFY(ts->tbrMain.ButtonChecked(17));
        QCOMPARE(ts.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("Yes"));
        // The pane's own close button runs the same toggle.
        ts->mnuViewTagList_Click();
        QVERIFY(!ts->tbrMain.ButtonChecked(17));
    }

    void exitWritesTheViewStateButNeverTheFormattingToolbar() {
        TestShell ts;
        ts.load();
        ts->mnuViewFmtTlb_Click();
        ts->mnuViewStdTlb_Click();
        ts->mnuViewForms_Click();
        QVERIFY(ts->requestExit());
        QCOMPARE(ts.settings.get("Fuzzies", "Standard Toolbar Open"), QStringLiteral("No"));
        QCOMPARE(ts.settings.get("Fuzzies", "Forms Toolbar Open"), QStringLiteral("Yes"));
        QCOMPARE(ts.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("No"));
        QCOMPARE(ts.settings.get("Fuzzies", "Tags Toolbar Open", "never"), QStringLiteral("never"));
        // So the formatting toolbar is back at the next start.
        TestShell next;
        next.settings = ts.settings;
        next.load();
        QVERIFY(next->cReBar1.BandVisible(ShellMDI::BandTags));
        QVERIFY(!next->cReBar1.BandVisible(ShellMDI::BandStandard));
        QVERIFY(next->cReBar1.BandVisible(ShellMDI::BandForms));
    }

    // ---- an HTML document in Source view ----

    void aPageInSourceView() {
        TestShell ts;
        ts.load();
        const QSet<QString> off = {"mnuEditUndo", "mnuFormatRemove", "mnuEditCut", "mnuEditCopy",
                                   "mnuEditPaste"};
        QCOMPARE(itemsOn(*ts, kDocumentItems), setOf(kDocumentItems) - off);
        QVERIFY(ts->menu("mnuInsertSC").Enabled());
        QVERIFY(ts->menu("mnuHeadings").Enabled());
        // Cut, Copy: no selection; Paste: the clipboard is empty; Undo: a fresh history.
        const QSet<int> buttonsOff = {7, 8, 9, 11};
        QCOMPARE(buttonsOn(ts->tbrMain, kMainOff), setOf(kMainOff) - buttonsOff);
        QCOMPARE(buttonsOn(ts->tbrTags, kTags), setOf(kTags));
        QCOMPARE(buttonsOn(ts->tbrForms, kForms), setOf(kForms));
        QVERIFY(ts->tbrMain.ButtonEnabled(16) && ts->tbrMain.ButtonEnabled(17));
        QVERIFY(ts->TabStrip1.Visible());
        QVERIFY(!ts->bCommandsDisabled);
        QVERIFY(!ts->bLayoutActive);
        QCOMPARE(ts->OpenSave.FilterIndex, ShellMDI::kHtmlFilterIndex);
    }

    void cutCopyAndPasteWhenAPageComesForward() {
        struct Case {
            bool css;
            int selLength;
            QString clipboard;
        };
        for (const auto& [css, selLength, clipboard] :
             {Case{false, 0, QString()}, Case{false, 3, "x"}, Case{true, 0, "x"},
              Case{true, 3, QString()}}) {
            TestShell ts;
            codeEditor& doc = css ? withStyleSheet(ts) : (ts.load(), ts.active());
            ts.platform.clipboard = clipboard;
            doc.codebox().setSelStart(0);
            doc.codebox().setSelLength(selLength);
            ts->tbrMain.setButtonEnabled(9, true);
            ts->menu("mnuEditPaste").setEnabled(true);
            doc.Form_Activate();
            const bool selected = selLength > 0;
            QCOMPARE(ts->menu("mnuEditCut").Enabled(), selected);
            QCOMPARE(ts->menu("mnuEditCopy").Enabled(), selected);
            QCOMPARE(ts->tbrMain.ButtonEnabled(7), selected);
            QCOMPARE(ts->tbrMain.ButtonEnabled(8), selected);
            // A style sheet leaves Paste as it was; a page sets it by the clipboard.
            const bool paste = css || !clipboard.isEmpty();
            QCOMPARE(ts->menu("mnuEditPaste").Enabled(), paste);
            QCOMPARE(ts->tbrMain.ButtonEnabled(9), paste);
        }
    }

    // ---- style sheets ----

    void aStyleSheetKeepsOnlyWhatCssCanUse() {
        TestShell ts;
        ts.settings.save("Fuzzies", "Forms Toolbar Open", "Yes");
        ts.settings.save("Fuzzies", "TagListOpen", "Yes");
        withStyleSheet(ts);
        QCOMPARE(ts.active().CSSDoc, QStringLiteral("Yes"));
        for (const QString& name : kCssOff)
            QVERIFY2(!ts->menu(name).Enabled(), qPrintable(name));
        QVERIFY(ts->menu("mnuInsertCSS").Enabled());
        QVERIFY(ts->tbrMain.ButtonEnabled(19));
        for (int i : {14, 16, 17, 20, 24})
            QVERIFY2(!ts->tbrMain.ButtonEnabled(i), qPrintable(QString::number(i)));
        // What the list leaves alone stays on.
        for (const char* name : {"mnuFileSave", "mnuFilePrint", "mnuEditFind", "mnuTagsRight",
                                 "mnuSub", "mnuSup", "mnuInsertDate1", "mnuH1", "mnuViewStdTlb"})
            QVERIFY2(ts->menu(name).Enabled(), name);
        // Bands and pane hidden, flags untouched, check marks as they were.
        QVERIFY(ts->cReBar1.BandVisible(0));
        QVERIFY(!ts->cReBar1.BandVisible(1));
        QVERIFY(!ts->cReBar1.BandVisible(2));
        QVERIFY(!ts->Picture1.Visible());
        QVERIFY(ts->bTagsToolbarOpen && ts->bFormsToolbarOpen && ts->bTagListOpen);
        QVERIFY(ts->menu("mnuViewFmtTlb").Checked());
        QVERIFY(ts->menu("mnuViewForms").Checked());
        QCOMPARE(ts->OpenSave.FilterIndex, ShellMDI::kCssFilterIndex);
    }

    void aCommandThatChangesTheKindOfTheDocumentInFrontSetsItsCommands() {
        QTemporaryDir dir;
        TestShell ts;
        ts.load();
        QVERIFY(ts->menu("mnuTagsBold").Enabled());
        // A new style sheet comes forward with the style sheet's commands at once.
        ts->dispatch([&] { ts->mnuFileNewCSS_Click(); });
        QVERIFY(!ts->menu("mnuTagsBold").Enabled());
        QVERIFY(!ts->cReBar1.BandVisible(1));
        // Saved under a page's name it becomes a page, and the page's commands come back.
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(dir.filePath("now.htm")));
        ts->dispatch([&] { ts->mnuFileSaveas_Click(); });
        QCOMPARE(ts.active().CSSDoc, QStringLiteral("No"));
        QVERIFY(ts->menu("mnuTagsBold").Enabled());
        QVERIFY(ts->cReBar1.BandVisible(1));
    }

    void aPageAfterAStyleSheetShowsWhatTheFlagsSay() {
        for (const auto& [forms, tagList] :
             {std::pair{"Yes", "Yes"}, std::pair{"No", "No"}, std::pair{"No", "Yes"}}) {
            TestShell ts;
            ts.settings.save("Fuzzies", "Forms Toolbar Open", forms);
            ts.settings.save("Fuzzies", "TagListOpen", tagList);
            ts.load();
            codeEditor& page = ts.active();
            const QString before = viewState(*ts);
            ts->mnuFileNewCSS_Click();
            codeEditor& sheet = ts.active();
            page.ZOrder();
            sheet.ZOrder();
            QVERIFY(!ts->cReBar1.BandVisible(1));
            const int writes = ts.settings.writeCount();
            page.ZOrder();
            QCOMPARE(viewState(*ts), before);
            QCOMPARE(ts.settings.writeCount(), writes);
            for (const QString& name : kCssOff)
                QVERIFY2(ts->menu(name).Enabled(), qPrintable(name));
            for (int i : {14, 16, 17, 19, 20, 24})
                QVERIFY(ts->tbrMain.ButtonEnabled(i));
            QCOMPARE(ts->tbrMain.ButtonChecked(16), QByteArray(forms) == "Yes");
            QCOMPARE(ts->tbrMain.ButtonChecked(17), QByteArray(tagList) == "Yes");
            QCOMPARE(ts->menu("mnuViewTagList").Checked(), QByteArray(tagList) == "Yes");
            QCOMPARE(ts->OpenSave.FilterIndex, ShellMDI::kHtmlFilterIndex);
        }
    }

    void aToolbarToggledOverAStyleSheetComesBackByItsFlag() {
        TestShell ts;
        withStyleSheet(ts);
        codeEditor& page = *ts->documents().front();
        ts->mnuViewStdTlb_Click();
        QVERIFY(!ts->cReBar1.BandVisible(0));
        page.ZOrder();
        QVERIFY(!ts->cReBar1.BandVisible(0));
        QVERIFY(!ts->menu("mnuViewStdTlb").Checked());
        QVERIFY(ts->cReBar1.BandVisible(1));
    }

    // ---- Layout and Preview ----

    void aPageInLayoutView() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(6);
        doc.SelectedTab = 2;
        doc.Form_Activate();
        QVERIFY(ts->bLayoutActive);
        QVERIFY(!ts->tbrMain.ButtonEnabled(22));
        QVERIFY(!ts->tbrTags.ButtonEnabled(18));
        QVERIFY(ts->tbrMain.ButtonEnabled(19));
        QVERIFY(ts->menu("mnuInsertComment").Enabled());
        QVERIFY(ts->menu("mnuEditCut").Enabled());
        QVERIFY(ts->tbrMain.ButtonEnabled(7));
        QVERIFY(ts->TabStrip1.Visible());
        // Back in Source view the flag clears and the buttons return.
        doc.SelectedTab = 1;
        doc.Form_Activate();
        QVERIFY(!ts->bLayoutActive);
        QVERIFY(ts->tbrMain.ButtonEnabled(22));
        QVERIFY(ts->tbrTags.ButtonEnabled(18));
    }

    void inPreviewOnlyPrintAndPreviewRemain() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        ts.platform.clipboard = QStringLiteral("x");
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(6);
        ts->setRedoEnabled(true);
        ts->tbrMain.setButtonEnabled(12, true);
        doc.SelectedTab = 3;
        doc.Form_Activate();
        QCOMPARE(itemsOn(*ts, kDocumentItems), QSet<QString>({"mnuFilePrint", "mnuFilePreview"}));
        QCOMPARE(buttonsOn(ts->tbrMain, kMainOff), QSet<int>({5, 14}));
        QVERIFY(!ts->menu("mnuEditRedo").Enabled());
        QVERIFY(!ts->tbrMain.ButtonEnabled(12));
        QCOMPARE(buttonsOn(ts->tbrTags, kTags), QSet<int>());
        QCOMPARE(buttonsOn(ts->tbrForms, kForms), QSet<int>());
        // The document tabs stay, and the commands do not count as disabled.
        QVERIFY(ts->TabStrip1.Visible());
        QVERIFY(!ts->bCommandsDisabled);
        // Commands that are not the document's stay on.
        for (const QString& name : kAlwaysOn)
            QVERIFY2(ts->menu(name).Enabled(), qPrintable(name));
    }

    void aStyleSheetAfterAPreviewTurnsNothingBackOn() {
        // Step 1 of Form_Activate goes straight to step 5: a style sheet does not run
        // EnableDocumentCommands, so what Preview turned off stays off.
        TestShell ts;
        codeEditor& sheet = withStyleSheet(ts);
        codeEditor& page = *ts->documents().front();
        page.SelectedTab = 3;
        page.ZOrder();
        QVERIFY(!ts->menu("mnuFileSave").Enabled());
        sheet.ZOrder();
        QVERIFY(!ts->menu("mnuFileSave").Enabled());
        QVERIFY(ts->menu("mnuInsertCSS").Enabled());
        QVERIFY(ts->tbrMain.ButtonEnabled(19));
    }

    // ---- with no document ----

    void theLastDocumentClosed() {
        TestShell ts;
        ts.load();
        ts->tbrTags.setButtonChecked(4, true);
        ts->tbrTags.setButtonChecked(8, true);
        const bool redoButton = ts->tbrMain.ButtonEnabled(12);
        ts->mnuFileClose_Click();
        QVERIFY(ts->documents().empty());
        QCOMPARE(itemsOn(*ts, kDocumentItems), QSet<QString>());
        QCOMPARE(buttonsOn(ts->tbrMain, kMainOff), QSet<int>());
        QCOMPARE(buttonsOn(ts->tbrTags, kTags), QSet<int>());
        QCOMPARE(buttonsOn(ts->tbrForms, kForms), QSet<int>());
        for (int i = 0; i < ts->tbrTags.ButtonCount(); ++i)
            QVERIFY(!ts->tbrTags.ButtonChecked(i));
        // Redo's button is not in the list.
        QCOMPARE(ts->tbrMain.ButtonEnabled(12), redoButton);
        QVERIFY(!ts->TabStrip1.Visible());
        QVERIFY(ts->bCommandsDisabled);
        // New, Open, the view toggles, Preferences, Exit and Help still work.
        for (const QString& name : kAlwaysOn)
            QVERIFY2(ts->menu(name).Enabled(), qPrintable(name));
        for (int i : {0, 1, 2, 16, 17})
            QVERIFY(ts->tbrMain.ButtonEnabled(i));
        ts->mnuViewFmtTlb_Click();
        QVERIFY(!ts->cReBar1.BandVisible(ShellMDI::BandTags));
        ts->tbrMain.press(17);
        QVERIFY(ts->Picture1.Visible());
        // A new document brings the commands back.
        ts.platform.clipboard = QStringLiteral("x");
        ts->tbrMain.press(0);
        QCOMPARE(ts->documents().size(), size_t(1));
        QVERIFY(ts->TabStrip1.Visible());
        QVERIFY(!ts->bCommandsDisabled);
        QVERIFY(ts->menu("mnuFileSave").Enabled());
        QVERIFY(ts->menu("mnuEditPaste").Enabled());
        QVERIFY(ts->tbrMain.ButtonEnabled(9));
        QVERIFY(!ts->cReBar1.BandVisible(ShellMDI::BandTags));
        QVERIFY(ts->Picture1.Visible());
    }

    void enableSetsPasteByTheClipboardAndLeavesUndo() {
        TestShell ts;
        ts.load();
        ts->DisableDocumentCommands();
        ts.platform.clipboard = QStringLiteral("text");
        ts->EnableDocumentCommands();
        QVERIFY(ts->menu("mnuEditPaste").Enabled());
        QVERIFY(ts->tbrMain.ButtonEnabled(9));
        QVERIFY(!ts->menu("mnuEditUndo").Enabled());
        QVERIFY(!ts->tbrMain.ButtonEnabled(11));
        QVERIFY(!ts->menu("mnuFormatRemove").Enabled());
        QVERIFY(ts->menu("mnuInsertSC").Enabled());
        QVERIFY(ts->TabStrip1.Visible());
        QVERIFY(!ts->bCommandsDisabled);
        ts.platform.clipboard.clear();
        ts->EnableDocumentCommands();
        QVERIFY(!ts->menu("mnuEditPaste").Enabled());
        QVERIFY(!ts->tbrMain.ButtonEnabled(9));
    }

    void disablingInPreviewKeepsTheTabs() {
        TestShell ts;
        ts.load();
        ts.active().SelectedTab = 3;
        ts->DisableDocumentCommands();
        QVERIFY(ts->TabStrip1.Visible());
        QVERIFY(!ts->bCommandsDisabled);
        ts.active().SelectedTab = 2;
        ts->DisableDocumentCommands();
        QVERIFY(!ts->TabStrip1.Visible());
        QVERIFY(ts->bCommandsDisabled);
    }
};

QTEST_GUILESS_MAIN(CommandStateTest)
#include "test_command_table_states.moc"
