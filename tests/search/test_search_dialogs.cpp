// The Find & Replace window and Extended Replace with its file chooser, driven as the user
// drives them: what they enable, what they ask and say, and what they change.
#include "search/find_replace.h"
#include "search/frm_choose_files.h"
#include "search/frm_ext_find.h"
#include "search/frm_find.h"
#include "shell/code_editor.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QDir>

using namespace tsl;
using namespace tsl::test;

namespace {
struct FindWindow : TestShell {
    FindWindow(const QString& text, int caret, int length = 0) {
        load();
        active().codebox().setText(text);
        active().codebox().setSelStart(caret);
        active().codebox().setSelLength(length);
        active().AddStep();
    }
    frmFind& open() {
        run("mnuEditFind");
        frmFind* form = forms.modeless<frmFind>();
        if (!form) throw std::runtime_error("no find window");
        return *form;
    }
    SourcePane& pane() { return active().codebox(); }
};

// Extended Replace on a fresh program, with a folder of pages.
struct ExtReplace : TestShell {
    QTemporaryDir dir;
    std::unique_ptr<frmExtFind> form;
    ExtReplace() {
        load();
        form = std::make_unique<frmExtFind>(*shell);
        form->Form_Load();
    }
    QString page(const char* name, const QByteArray& bytes) {
        return writeFile(dir, QString::fromLatin1(name), bytes);
    }
};

const QString kAlreadyOpen =
    QStringLiteral("The following files you selected are already open in Tessaline:\n");
} // namespace

class SearchDialogsTest : public QObject {
    Q_OBJECT

  private slots:
    void findTakesTheSelectionOrTheLastSearch() {
        FindWindow w(QStringLiteral("one two one"), 4, 3);
        w->part<SearchSession>().Search.FindMatchCase = 1;
        frmFind& form = w.open();
        QCOMPARE(form.txtFind.Text(), QStringLiteral("two"));
        QVERIFY(w->bFindOpen && w->part<SearchSession>().Search.FindChanged);
        QCOMPARE(form.chkCase.Value(), 1);
        QVERIFY(form.optDirectionDown.Value() && form.cmdFind.Enabled());
        QCOMPARE(form.Caption(), QStringLiteral("Find & Replace"));
        form.cmdCancel.press();
        QVERIFY(!w->bFindOpen);
        QCOMPARE(w->part<SearchSession>().Search.FindText, QStringLiteral("two"));
        // Reopened without a selection, it brings back the last search, direction down.
        w.pane().setSelStart(0);
        w->part<SearchSession>().Search.FindDirection = 0;
        QCOMPARE(w.open().txtFind.Text(), QStringLiteral("two"));
        QCOMPARE(w->part<SearchSession>().Search.FindDirection, Int16(1));
    }

    void anEmptySearchTextTurnsTheActionsOff() {
        FindWindow w(QStringLiteral("abc"), 0);
        frmFind& form = w.open();
        // Nothing typed yet: only Find waits for a text.
        QVERIFY(!form.cmdFind.Enabled() && form.Command1.Enabled());
        form.txtFind.setText(QStringLiteral("b"));
        for (Control* c : std::initializer_list<Control*>{
                 &form.cmdFind, &form.txtReplace, &form.cmdReplace, &form.Command1, &form.Label2})
            QVERIFY(c->Enabled());
        form.txtFind.setText(QString());
        for (Control* c : std::initializer_list<Control*>{
                 &form.cmdFind, &form.txtReplace, &form.cmdReplace, &form.Command1, &form.Label2})
            QVERIFY(!c->Enabled());
    }

    void replaceReplacesAMatchingSelectionAndFindsTheNext_data() {
        columns<int, int, QString, QString, int>(
            {"selStart", "matchCase", "text", "next", "steps"});
        QTest::newRow("same but for case") << 0 << 0 << "XY one ONE"
                                           << "one" << 1;
        QTest::newRow("case must match") << 0 << 1 << "One one ONE"
                                         << "one" << 0;
        QTest::newRow("no selection") << 3 << 0 << "One one ONE"
                                      << "one" << 0;
    }
    void replaceReplacesAMatchingSelectionAndFindsTheNext() {
        QFETCH(int, selStart);
        QFETCH(int, matchCase);
        FindWindow w(QStringLiteral("One one ONE"), 0, 3);
        frmFind& form = w.open();
        form.txtFind.setText(QStringLiteral("one"));
        form.txtReplace.setText(QStringLiteral("XY"));
        form.chkCase.setValue(matchCase);
        w.pane().setSelStart(selStart);
        if (selStart == 0) w.pane().setSelLength(3);
        const Int16 done = w.active().nDoneIndex;
        form.cmdReplace.press();
        QTEST(w.pane().Text(), "text");
        QTEST(w.pane().SelText(), "next");
        QFETCH(int, steps);
        QCOMPARE(w.active().nDoneIndex, Int16(done + steps));
    }

    void replaceAllIsOneUndoStep() {
        FindWindow w(QStringLiteral("a a a"), 0);
        frmFind& form = w.open();
        form.txtFind.setText(QStringLiteral("a"));
        form.txtReplace.setText(QStringLiteral("b"));
        const Int16 done = w.active().nDoneIndex;
        form.Command1.press();
        QCOMPARE(w.pane().Text(), QStringLiteral("b b b"));
        QCOMPARE(w.active().nDoneIndex, Int16(done + 1));
        w.active().Undo();
        QCOMPARE(w.pane().Text(), QStringLiteral("a a a"));
    }

    void theWindowWorksOnTheDocumentInFrontAndGoesWithAnyDocument() {
        FindWindow w(QStringLiteral("first"), 0);
        frmFind& form = w.open();
        w.run("mnuFileNewHTML");
        form.txtFind.setText(QStringLiteral("body"));
        form.cmdFind.press();
        QCOMPARE(w.active().Caption(), QStringLiteral("Document 2"));
        QCOMPARE(w.pane().SelText(), QStringLiteral("body"));
        w.run("mnuFileClose");
        QVERIFY(!w.forms.modeless<frmFind>());
        QVERIFY(!w->bFindOpen);
        // Exit closes it too, before the documents are asked.
        w.open();
        bool openWhenAsked = true;
        w.platform.messageAnswers.enqueue(MsgResult::Cancel);
        w.platform.onMessage = [&] { openWhenAsked = w->bFindOpen; };
        QVERIFY(!w->requestExit());
        QVERIFY(!openWhenAsked);
    }

    void aSearchPastThe16BitRangeFailsAndTheProgramGoesOn() {
        FindWindow w(QString(40000, QLatin1Char('x')) + QStringLiteral("one"), 0);
        frmFind& form = w.open();
        form.txtFind.setText(QStringLiteral("one"));
        w->dispatch([&] { form.cmdFind.press(); });
        QCOMPARE(w.platform.messageTexts().size(), 1);
        QVERIFY(w.platform.messageTexts().first().contains(QStringLiteral("Overflow")));
        QCOMPARE(w.pane().length(), 40003);
        QVERIFY(form.isLoaded());
    }

    void inLayoutTheSurfaceFindsForItself() {
        FindWindow w(QStringLiteral("<p>x</p>"), 0);
        w->bLayoutActive = true;
        w.run("mnuEditFind");
        QVERIFY(!w.forms.modeless<frmFind>());
        QCOMPARE(layoutOf(w.active()).commands.size(), 1);
        QCOMPARE(layoutOf(w.active()).commands.first().id, int(layoutcmd::FindText));
    }

    void extendedReplaceEnabling_data() {
        columns<bool, QString, int, QString, bool>({"selected", "path", "files", "find", "on"});
        QTest::newRow("folder, no path") << false << "" << 0 << "x" << false;
        QTest::newRow("folder, path, no text") << false << "/tmp" << 0 << "" << false;
        QTest::newRow("folder, path, text") << false << "/tmp" << 0 << "x" << true;
        QTest::newRow("files, none") << true << "" << 0 << "x" << false;
        QTest::newRow("files, one") << true << "" << 1 << "x" << true;
        QTest::newRow("files, one, no text") << true << "" << 1 << "" << false;
    }
    void extendedReplaceEnabling() {
        QFETCH(bool, selected);
        QFETCH(QString, path);
        QFETCH(int, files);
        QFETCH(QString, find);
        ExtReplace e;
        frmExtFind& f = *e.form;
        f.txtPath.setText(path);
        if (files) f.lstFiles.AddItem(QStringLiteral("/tmp/a.htm"));
        (selected ? f.optSelected : f.optSpecFolder).setValue(true);
        // The options alone look only at the target, not at the text.
        QCOMPARE(f.ReplaceButton.Enabled(), selected ? files > 0 : !path.isEmpty());
        QCOMPARE(f.txtPath.Enabled(), !selected);
        QCOMPARE(f.lstFiles.Enabled(), selected);
        f.FindBox.setText(QStringLiteral("seed"));
        f.FindBox.setText(find);
        QTEST(f.ReplaceButton.Enabled(), "on");
    }

    void aFolderIsReplacedWholeWithItsBytesKept() {
        ExtReplace e;
        const QString crlf = e.page("crlf.htm", "<p>Foo food</p>\r\n<p>foo</p>\r\n");
        const QString bom = e.page("bom.html", "\xEF\xBB\xBF<p>foo caf\xC3\xA9</p>");
        const QString latin1 = e.page("latin1.asp", "foo caf\xE9\n");
        const QString other = e.page("notes.txt", "foo");
        frmExtFind& f = *e.form;
        f.txtPath.setText(e.dir.path());
        f.FindBox.setText(QStringLiteral("foo"));
        f.ReplaceBox.setText(QStringLiteral("b\u00E4r"));
        f.chkWholeWord.setValue(1);
        e.platform.messageAnswers.enqueue(MsgResult::Yes);
        f.ReplaceButton.press();
        QCOMPARE(e.platform.messageTexts(),
                 (QStringList{QStringLiteral("You are about to replace strings in 3 files. This "
                                             "action is not undoable. Do you want to continue?"),
                              QStringLiteral("Done! Tessaline completed the operation in 0 "
                                             "seconds.")}));
        QCOMPARE(e.platform.messages.first().buttons, MsgButtons::YesNo);
        QCOMPARE(readFile(crlf), QByteArray("<p>b\xC3\xA4r food</p>\r\n<p>b\xC3\xA4r</p>\r\n"));
        QCOMPARE(readFile(bom), QByteArray("\xEF\xBB\xBF<p>b\xC3\xA4r caf\xC3\xA9</p>"));
        QCOMPARE(readFile(latin1), QByteArray("b\xE4r caf\xE9\n"));
        QCOMPARE(readFile(other), QByteArray("foo"));
        QCOMPARE(f.pbProgress.Value(), 3);
        QVERIFY(!f.pbProgress.Visible());
    }

    void oneOpenFileStopsTheWholeFolder() {
        ExtReplace e;
        const QString a = e.page("a.htm", "foo");
        const QString b = e.page("b.htm", "foo");
        e.open(b);
        frmExtFind& f = *e.form;
        f.txtPath.setText(e.dir.path());
        f.FindBox.setText(QStringLiteral("foo"));
        f.ReplaceButton.press();
        QCOMPARE(e.platform.messageTexts(),
                 QStringList{kAlreadyOpen + QLatin1Char('\n') + b +
                             QStringLiteral("\n\nThese files were not modified.")});
        QCOMPARE(readFile(a), QByteArray("foo"));
    }

    void aFolderWithoutPagesSaysSo() {
        ExtReplace e;
        e.page("notes.txt", "foo");
        frmExtFind& f = *e.form;
        f.txtPath.setText(e.dir.path());
        f.FindBox.setText(QStringLiteral("foo"));
        f.ReplaceButton.press();
        QCOMPARE(e.platform.messageTexts(),
                 QStringList{QStringLiteral("There are no files in the selected folder.")});
    }

    void chosenFilesAreDoneOnceAndNoLeavesThemAlone() {
        ExtReplace e;
        const QString a = e.page("a.txt", "foo");
        frmExtFind& f = *e.form;
        f.optSelected.setValue(true);
        f.lstFiles.AddItem(a);
        f.lstFiles.AddItem(a);
        f.FindBox.setText(QStringLiteral("foo"));
        e.platform.messageAnswers.enqueue(MsgResult::No);
        f.ReplaceButton.press();
        QVERIFY(e.platform.messageTexts().first().contains(QStringLiteral(" in 1 files.")));
        QCOMPARE(readFile(a), QByteArray("foo"));
    }

    void theFolderPickerFillsThePathAndTheFilterTakesNoBlank() {
        ExtReplace e;
        frmExtFind& f = *e.form;
        e.platform.folderAnswers.enqueue(QStringLiteral("/srv/www"));
        f.cmdSelectDocFolder.press();
        QCOMPARE(e.platform.folderTitles,
                 QStringList{QStringLiteral("Please select a default folder")});
        QCOMPARE(f.txtPath.Text(), QStringLiteral("/srv/www"));
        QVERIFY(f.ReplaceButton.Enabled());
        int key = ' ';
        f.txtFilter.KeyPress(key);
        QCOMPARE(key, 0);
        QCOMPARE(f.txtFilter.items(), fileFilters());
        QCOMPARE(f.txtFilter.Text(), QStringLiteral("*.htm;*.html;*.asp"));
    }

    void theChooserAddsRemovesAndHandsBackItsFiles() {
        ExtReplace e;
        const QString a = e.page("a.htm", "x");
        const QString b = e.page("b.htm", "x");
        const QString open = e.page("open.htm", "x");
        e.page("c.txt", "x");
        e.open(open);
        e->part<SearchSession>().sLastChooseDir = e.dir.path();
        frmExtFind& f = *e.form;
        f.FindBox.setText(QStringLiteral("x"));
        e.forms.then<frmChooseFiles>([&](frmChooseFiles& c) {
            QCOMPARE(c.dirHTML.Path(), e.dir.path());
            QCOMPARE(c.fileList.items(), words("a.htm b.htm open.htm"));
            for (int i = 0; i < 3; ++i)
                c.fileList.setSelected(i, true);
            c.cmdAdd.press();
            QCOMPARE(c.lstHTMLFiles.items(), (QStringList{a, b}));
            QVERIFY(c.cmdDelete2.Enabled());
            c.lstHTMLFiles.setSelected(0, true);
            c.cmdDelete2.press();
            QCOMPARE(c.lstHTMLFiles.items(), QStringList{b});
            c.cmdOK.press();
        });
        f.optSelected.setValue(true);
        f.cmdSelectDocFiles.press();
        QCOMPARE(e.platform.messageTexts(),
                 QStringList{QStringLiteral("The following file(s) you selected are already "
                                            "open.\n\n   ") +
                             open +
                             QStringLiteral("\n\nFiles must be closed before this operation can "
                                            "be executed on them.")});
        QCOMPARE(f.lstFiles.items(), QStringList{b});
        QVERIFY(f.ReplaceButton.Enabled());
        QCOMPARE(e->part<SearchSession>().sLastChooseDir, e.dir.path());
        // Cancel keeps the list; reopened, the chooser starts with it.
        e.forms.then<frmChooseFiles>([&](frmChooseFiles& c) {
            QCOMPARE(c.lstHTMLFiles.items(), QStringList{b});
            QCOMPARE(c.lstHTMLFiles.ListIndex(), 0);
            c.lstHTMLFiles_DblClick();
            QVERIFY(!c.cmdDelete2.Enabled());
            c.cmdCancel.press();
        });
        f.cmdSelectDocFiles.press();
        QCOMPARE(f.lstFiles.items(), QStringList{b});
    }
};

QTEST_GUILESS_MAIN(SearchDialogsTest)
#include "test_search_dialogs.moc"
