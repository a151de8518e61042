// Which commands are on: by the kind of document that comes forward and the view it shows,
// with no document at all, and the view toggles with the settings they write.
#include "editor/text_pane.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QSet>
#include <QTemporaryDir>

using namespace tsl;
using namespace tsl::test;

namespace {

// The document commands: off with no document and in Preview.
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

QStringList itemsOn(ShellMDI& shell, const QStringList& names) {
    QStringList on;
    for (const QString& name : names)
        if (shell.menu(name).Enabled()) on.append(name);
    return on;
}

// The buttons of a toolbar that are on, as "0 1 2 ...".
QString buttonsOn(const cToolbar& bar) {
    QStringList on;
    for (int i = 0; i < bar.ButtonCount(); ++i)
        if (bar.button(i).style != cToolbar::Separator && bar.ButtonEnabled(i))
            on.append(QString::number(i));
    return on.join(u' ');
}

QString bits(std::initializer_list<bool> values) {
    QString out;
    for (bool on : values)
        out += on ? u'1' : u'0';
    return out;
}

// The view in one line: bands Standard, Tags, Forms and the tag list pane; the four flags;
// the four View menu checks; the Forms and Tag List check buttons.
QString viewState(ShellMDI& s) {
    return bits({s.cReBar1.BandVisible(0), s.cReBar1.BandVisible(1), s.cReBar1.BandVisible(2),
                 s.Picture1.Visible()}) +
           u' ' +
           bits({s.bStandardToolbarOpen, s.bTagsToolbarOpen, s.bFormsToolbarOpen, s.bTagListOpen}) +
           u' ' +
           bits({s.menu("mnuViewStdTlb").Checked(), s.menu("mnuViewFmtTlb").Checked(),
                 s.menu("mnuViewForms").Checked(), s.menu("mnuViewTagList").Checked()}) +
           u' ' + bits({s.tbrMain.ButtonChecked(16), s.tbrMain.ButtonChecked(17)});
}

// The view state when everything agrees with the flags Standard, Tags, Forms, Tag List.
QString synced(const QString& stfl) {
    return stfl + u' ' + stfl + u' ' + stfl + u' ' + stfl.mid(2);
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
    // The stored Standard, Tags, Forms, TagList ("-" none written; only "Yes" is on), and
    // the flags that follow. The start writes nothing.
    void startShowsTheBandsTheSettingsSay_data() {
        columns<QString, QString>({"stored", "flags"});
        for (const char* row : {"-|-|-|-|1100", "Yes|Yes|Yes|Yes|1111", "No|No|No|No|0000",
                                "No|No|Yes|Yes|0011", "Yes|No|No|No|1000", "1||yes|YES|0000"}) {
            const QStringList f = QString::fromUtf8(row).split(u'|');
            QTest::newRow(row) << f.mid(0, 4).join(u'|') << f.at(4);
        }
    }
    void startShowsTheBandsTheSettingsSay() {
        QFETCH(QString, stored);
        const char* const keys[] = {"Standard Toolbar Open", "Tags Toolbar Open",
                                    "Forms Toolbar Open", "TagListOpen"};
        TestShell ts;
        const QStringList values = stored.split(u'|');
        for (int k = 0; k < 4; ++k)
            if (values.at(k) != QLatin1String("-"))
                ts.settings.save("Fuzzies", keys[k], values.at(k));
        const int writes = ts.settings.writeCount();
        ts.load();
        QTEST(viewState(*ts).left(4), "flags");
        QCOMPARE(viewState(*ts), synced(viewState(*ts).left(4)));
        QCOMPARE(ts.settings.writeCount(), writes);
    }

    // Each door to a view toggle, the flag it flips, and the key it writes at once (the
    // toolbars write nothing until exit).
    void viewToggles_data() {
        columns<QString, int, QString>({"door", "flag", "key"});
        QTest::newRow("Standard") << "mnuViewStdTlb" << 0 << "";
        QTest::newRow("Tags") << "mnuViewFmtTlb" << 1 << "";
        QTest::newRow("Forms") << "mnuViewForms" << 2 << "";
        QTest::newRow("Forms button") << "16" << 2 << "";
        QTest::newRow("Tag List") << "mnuViewTagList" << 3 << "TagListOpen";
        QTest::newRow("Tag List button") << "17" << 3 << "TagListOpen";
    }
    void viewToggles() {
        QFETCH(QString, door);
        QFETCH(int, flag);
        QFETCH(QString, key);
        TestShell ts;
        ts.load();
        QString flags = QStringLiteral("1100");
        for (int round = 1; round <= 2; ++round) {
            bool isButton = false;
            const int button = door.toInt(&isButton);
            if (isButton)
                ts->tbrMain.press(button);
            else
                QVERIFY(ts->dispatch(ts->menu(door).Click));
            flags[flag] = flags.at(flag) == u'1' ? u'0' : u'1';
            QCOMPARE(viewState(*ts), synced(flags));
            QCOMPARE(ts.settings.writeCount(), key.isEmpty() ? 0 : round);
            if (!key.isEmpty())
                QCOMPARE(ts.settings.get("Fuzzies", key),
                         flags.at(flag) == u'1' ? QStringLiteral("Yes") : QStringLiteral("No"));
        }
        QVERIFY(ts.platform.messages.isEmpty());
    }

    void exitWritesTheViewStateButNeverTheFormattingToolbar() {
        TestShell ts;
        ts.load();
        for (const char* item : {"mnuViewFmtTlb", "mnuViewStdTlb", "mnuViewForms"})
            ts.run(item);
        QVERIFY(ts->requestExit());
        QCOMPARE(ts.settings.get("Fuzzies", "Standard Toolbar Open"), QStringLiteral("No"));
        QCOMPARE(ts.settings.get("Fuzzies", "Forms Toolbar Open"), QStringLiteral("Yes"));
        QCOMPARE(ts.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("No"));
        QCOMPARE(ts.settings.get("Fuzzies", "Tags Toolbar Open", "never"), QStringLiteral("never"));
        // So the formatting toolbar is back at the next start.
        TestShell next;
        next.settings = ts.settings;
        next.load();
        QCOMPARE(viewState(*next), synced("0110"));
    }

    // ---- which commands are on ----

    void aPageInSourceView() {
        TestShell ts;
        ts.load();
        QStringList on = kDocumentItems;
        for (const char* off :
             {"mnuEditUndo", "mnuFormatRemove", "mnuEditCut", "mnuEditCopy", "mnuEditPaste"})
            on.removeOne(QString::fromUtf8(off));
        QCOMPARE(itemsOn(*ts, kDocumentItems), on);
        QVERIFY(ts->menu("mnuInsertSC").Enabled() && ts->menu("mnuHeadings").Enabled());
        // Cut, Copy: no selection; Paste: the clipboard is empty; Undo, Redo: a fresh history.
        QCOMPARE(buttonsOn(ts->tbrMain), "0 1 2 3 5 14 16 17 19 20 22 24");
        QCOMPARE(buttonsOn(ts->tbrTags), "0 2 4 5 6 8 9 11 13 14 16 17 18 19 21 22 24");
        QCOMPARE(buttonsOn(ts->tbrForms), "0 2 3 4 5 6 7 9 10");
        QVERIFY(ts->TabStrip1.Visible() && !ts->bCommandsDisabled && !ts->bLayoutActive);
        QCOMPARE(ts->OpenSave.FilterIndex, ShellMDI::kHtmlFilterIndex);
    }

    // Style sheet?, selection length, clipboard: Cut and Copy follow the selection; a page
    // sets Paste by the clipboard, a style sheet leaves it as it was (on).
    void cutCopyAndPasteWhenADocumentComesForward_data() {
        columns<bool, int, QString>({"css", "selLength", "clipboard"});
        QTest::newRow("page") << false << 0 << QString();
        QTest::newRow("page, selection, clipboard") << false << 3 << "x";
        QTest::newRow("sheet, clipboard") << true << 0 << "x";
        QTest::newRow("sheet, selection") << true << 3 << QString();
    }
    void cutCopyAndPasteWhenADocumentComesForward() {
        QFETCH(bool, css);
        QFETCH(int, selLength);
        QFETCH(QString, clipboard);
        TestShell ts;
        codeEditor& doc = css ? withStyleSheet(ts) : (ts.load(), ts.active());
        ts.platform.clipboard = clipboard;
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(selLength);
        ts->tbrMain.setButtonEnabled(9, true);
        ts->menu("mnuEditPaste").setEnabled(true);
        doc.Form_Activate();
        const QString on = bits({selLength > 0, css || !clipboard.isEmpty()});
        QCOMPARE(bits({ts->menu("mnuEditCut").Enabled(), ts->menu("mnuEditPaste").Enabled()}), on);
        QCOMPARE(bits({ts->menu("mnuEditCopy").Enabled(), ts->tbrMain.ButtonEnabled(9)}), on);
        QCOMPARE(bits({ts->tbrMain.ButtonEnabled(7), ts->tbrMain.ButtonEnabled(8)}),
                 QString(2, on.at(0)));
    }

    void aStyleSheetKeepsOnlyWhatCssCanUse() {
        TestShell ts;
        ts.settings.save("Fuzzies", "Forms Toolbar Open", "Yes");
        ts.settings.save("Fuzzies", "TagListOpen", "Yes");
        withStyleSheet(ts);
        QCOMPARE(ts.active().CSSDoc, QStringLiteral("Yes"));
        QCOMPARE(itemsOn(*ts, kCssOff), QStringList());
        QVERIFY(ts->menu("mnuInsertCSS").Enabled());
        QCOMPARE(buttonsOn(ts->tbrMain), "0 1 2 3 5 19 22");
        // What the list leaves alone stays on.
        const QStringList stayOn = words("mnuFileSave mnuFilePrint mnuEditFind mnuTagsRight mnuSub "
                                         "mnuSup mnuInsertDate1 mnuH1 mnuViewStdTlb");
        QCOMPARE(itemsOn(*ts, stayOn), stayOn);
        // Bands and pane hidden, flags untouched, check marks as they were.
        QCOMPARE(viewState(*ts), "1000 1111 1111 11");
        QCOMPARE(ts->OpenSave.FilterIndex, ShellMDI::kCssFilterIndex);
    }

    void aCommandThatChangesTheKindOfTheDocumentInFrontSetsItsCommands() {
        QTemporaryDir dir;
        TestShell ts;
        ts.load();
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

    void aPageAfterAStyleSheetShowsWhatTheFlagsSay_data() {
        columns<QString, QString>({"forms", "tagList"});
        QTest::newRow("both") << "Yes"
                              << "Yes";
        QTest::newRow("none") << "No"
                              << "No";
        QTest::newRow("tag list") << "No"
                                  << "Yes";
    }
    void aPageAfterAStyleSheetShowsWhatTheFlagsSay() {
        QFETCH(QString, forms);
        QFETCH(QString, tagList);
        TestShell ts;
        ts.settings.save("Fuzzies", "Forms Toolbar Open", forms);
        ts.settings.save("Fuzzies", "TagListOpen", tagList);
        ts.load();
        codeEditor& page = ts.active();
        const QString before = viewState(*ts);
        withStyleSheet(ts);
        QVERIFY(!ts->cReBar1.BandVisible(1));
        const int writes = ts.settings.writeCount();
        page.ZOrder();
        QCOMPARE(viewState(*ts), before);
        QCOMPARE(ts.settings.writeCount(), writes);
        QCOMPARE(itemsOn(*ts, kCssOff), kCssOff);
        QCOMPARE(buttonsOn(ts->tbrMain), "0 1 2 3 5 14 16 17 19 20 22 24");
        QCOMPARE(ts->OpenSave.FilterIndex, ShellMDI::kHtmlFilterIndex);
    }

    void aToolbarToggledOverAStyleSheetComesBackByItsFlag() {
        TestShell ts;
        withStyleSheet(ts);
        ts->mnuViewStdTlb_Click();
        ts->documents().front()->ZOrder();
        QCOMPARE(viewState(*ts), synced("0100"));
    }

    void aPageInLayoutView() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setSelLength(6);
        doc.SelectedTab = 2;
        doc.Form_Activate();
        QVERIFY(ts->bLayoutActive);
        QVERIFY(!ts->tbrMain.ButtonEnabled(22) && !ts->tbrTags.ButtonEnabled(18));
        QVERIFY(ts->tbrMain.ButtonEnabled(19) && ts->tbrMain.ButtonEnabled(7));
        QVERIFY(ts->menu("mnuInsertComment").Enabled() && ts->menu("mnuEditCut").Enabled());
        QVERIFY(ts->TabStrip1.Visible());
        // Back in Source view the flag clears and the buttons return.
        doc.SelectedTab = 1;
        doc.Form_Activate();
        QVERIFY(!ts->bLayoutActive);
        QVERIFY(ts->tbrMain.ButtonEnabled(22) && ts->tbrTags.ButtonEnabled(18));
    }

    void inPreviewOnlyPrintAndPreviewRemain() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        ts.platform.clipboard = QStringLiteral("x");
        doc.codebox().setSelLength(6);
        ts->setRedoEnabled(true);
        ts->tbrMain.setButtonEnabled(12, true);
        doc.SelectedTab = 3;
        doc.Form_Activate();
        QCOMPARE(itemsOn(*ts, kDocumentItems), words("mnuFilePrint mnuFilePreview"));
        QCOMPARE(buttonsOn(ts->tbrMain), "0 1 2 5 14 16 17");
        QVERIFY(!ts->menu("mnuEditRedo").Enabled());
        QCOMPARE(buttonsOn(ts->tbrTags), "");
        QCOMPARE(buttonsOn(ts->tbrForms), "");
        // The document tabs stay, and the commands do not count as disabled.
        QVERIFY(ts->TabStrip1.Visible() && !ts->bCommandsDisabled);
        QCOMPARE(itemsOn(*ts, kAlwaysOn), kAlwaysOn);
        // Disabling again in Preview keeps the tabs; in Layout view it hides them.
        ts->DisableDocumentCommands();
        QVERIFY(ts->TabStrip1.Visible() && !ts->bCommandsDisabled);
        doc.SelectedTab = 2;
        ts->DisableDocumentCommands();
        QVERIFY(!ts->TabStrip1.Visible() && ts->bCommandsDisabled);
    }

    void aStyleSheetAfterAPreviewTurnsNothingBackOn() {
        // A style sheet coming forward does not turn the document commands on, so what
        // Preview turned off stays off.
        TestShell ts;
        codeEditor& sheet = withStyleSheet(ts);
        codeEditor& page = *ts->documents().front();
        page.SelectedTab = 3;
        page.ZOrder();
        sheet.ZOrder();
        QVERIFY(!ts->menu("mnuFileSave").Enabled());
        QVERIFY(ts->menu("mnuInsertCSS").Enabled() && ts->tbrMain.ButtonEnabled(19));
    }

    void theLastDocumentClosed() {
        TestShell ts;
        ts.load();
        ts->tbrTags.setButtonChecked(4, true);
        ts->tbrTags.setButtonChecked(8, true);
        const bool redoButton = ts->tbrMain.ButtonEnabled(12);
        ts->mnuFileClose_Click();
        QVERIFY(ts->documents().empty());
        QCOMPARE(itemsOn(*ts, kDocumentItems), QStringList());
        // New, Open, the view toggles, Preferences, Exit and Help still work; Redo's button
        // is not touched.
        QCOMPARE(itemsOn(*ts, kAlwaysOn), kAlwaysOn);
        QCOMPARE(buttonsOn(ts->tbrMain), redoButton ? "0 1 2 12 16 17" : "0 1 2 16 17");
        QCOMPARE(buttonsOn(ts->tbrTags), "");
        QCOMPARE(buttonsOn(ts->tbrForms), "");
        for (int i = 0; i < ts->tbrTags.ButtonCount(); ++i)
            QVERIFY(!ts->tbrTags.ButtonChecked(i));
        QVERIFY(!ts->TabStrip1.Visible() && ts->bCommandsDisabled);
        ts->mnuViewFmtTlb_Click();
        ts->tbrMain.press(17);
        QCOMPARE(viewState(*ts), synced("1001"));
        // A new document brings the commands back, Paste by the clipboard.
        ts.platform.clipboard = QStringLiteral("x");
        ts->tbrMain.press(0);
        QCOMPARE(ts->documents().size(), size_t(1));
        QVERIFY(ts->TabStrip1.Visible() && !ts->bCommandsDisabled);
        QVERIFY(ts->menu("mnuFileSave").Enabled() && ts->menu("mnuEditPaste").Enabled());
        QVERIFY(ts->tbrMain.ButtonEnabled(9));
        QVERIFY(!ts->menu("mnuEditUndo").Enabled() && !ts->menu("mnuFormatRemove").Enabled());
        QCOMPARE(viewState(*ts), synced("1001"));
        ts.platform.clipboard.clear();
        ts->EnableDocumentCommands();
        QVERIFY(!ts->menu("mnuEditPaste").Enabled() && !ts->tbrMain.ButtonEnabled(9));
    }
};

QTEST_GUILESS_MAIN(CommandStateTest)
#include "test_command_table_states.moc"
