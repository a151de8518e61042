// Extended Replace: the rules of a whole word and of case, files that keep their bytes, a
// failure that keeps what was done, and the dialog with its file chooser as the user drives it.
#include "search/find_replace.h"
#include "search/frm_choose_files.h"
#include "search/frm_ext_find.h"
#include "search/replace_in_files.h"
#include "search_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
// Extended Replace on a fresh program, with a folder of pages.
struct ExtReplace : TestShell {
    QTemporaryDir dir;
    std::unique_ptr<frmExtFind> form;
    ExtReplace() {
        load();
        form = std::make_unique<frmExtFind>(*shell);
        form->Form_Load();
    }
    QString page(const char* name, const QByteArray& bytes = "foo") {
        return writeFile(dir, QString::fromLatin1(name), bytes);
    }
    // Presses Replace on the folder, or on the chosen files, answering the question if asked.
    void replace(const char* what, const char* with, MsgResult answer = MsgResult::Yes) {
        if (form->optSpecFolder.Value()) form->txtPath.setText(dir.path());
        form->FindBox.setText(what);
        form->ReplaceBox.setText(with);
        platform.messageAnswers.enqueue(answer);
        form->ReplaceButton.press();
    }
};

struct MatchRow {
    QString text, what, with;
    int options;
    QString result;
    int count;
};

QString question(int files) {
    return QStringLiteral("You are about to replace strings in %1 files. This action is not "
                          "undoable. Do you want to continue?")
        .arg(files);
}
const QString kDone = QStringLiteral("Done! Tessaline completed the operation in 0 seconds.");
const QString kNoFiles = QStringLiteral("There are no files in the selected folder.");
} // namespace

class ReplaceInFilesTest : public QObject {
    Q_OBJECT

  private slots:
    // Options: 2 whole word, 4 match case.
    void everyMatch_data() {
        rowsOf<MatchRow>({
            {"case folds", {"Foo foo FOO", "foo", "x", 0, "x x x", 3}},
            {"match case", {"Foo foo FOO", "foo", "x", 4, "Foo x FOO", 1}},
            {"whole word", {"foo food foo_ (foo)", "foo", "x", 2, "x food x_ (x)", 3}},
            {"both", {"Foo foo food", "foo", "x", 6, "Foo x food", 1}},
            {"growing text ends", {"a a", "a", "aa", 0, "aa aa", 2}},
            {"nothing deletes", {"a-b-c", "-", "", 0, "abc", 2}},
            {"empty search text", {"abc", "", "x", 0, "abc", 0}},
            // The word test sees the text as already changed: the "x" now stands before "-".
            {"word after a replacement", {"--a", "-", "x", 2, "x-a", 1}},
            {"word after a deletion", {"a--", "-", "", 2, "a-", 1}},
        });
    }
    void everyMatch() {
        QFETCH(MatchRow, row);
        int count = -1;
        QCOMPARE(replaceEveryMatch(row.text, row.what, row.with, row.options, &count), row.result);
        QCOMPARE(count, row.count);
    }

    // The menu opens the dialog on the folder option; Close unloads it.
    void theDialogOpensOnTheFolderAndCloses() {
        ExtReplace e;
        e.forms.then<frmExtFind>([](frmExtFind& f) {
            QCOMPARE(f.Caption(), QStringLiteral("Extended Replace"));
            QVERIFY(f.optSpecFolder.Value() && !f.optSelected.Value());
            QVERIFY(!f.pbProgress.Visible() && !f.filesInFolder.Visible());
            QCOMPARE(f.txtFilter.items(), words("*.htm;*.html;*.asp *.txt *.css"));
            QCOMPARE(f.txtFilter.Text(), QStringLiteral("*.htm;*.html;*.asp"));
            f.CancelButton.press();
            QVERIFY(!f.isLoaded());
        });
        e.run("mnuExtFind");
        QCOMPARE(e.forms.shown, QStringList{"frmExtFind"});
        QCOMPARE(e->CurrentDocument, &e.active());
    }

    // Replace is on when there is a text and a target: a folder, or chosen files. The options
    // alone look only at the target, not at the text.
    void replaceIsOnWithATextAndATarget_data() {
        columns<bool, QString, int, QString, bool>({"selected", "path", "files", "find", "on"});
        QTest::newRow("folder, no path") << false << "" << 0 << "x" << false;
        QTest::newRow("folder, path, no text") << false << "/tmp" << 0 << "" << false;
        QTest::newRow("folder, path, text") << false << "/tmp" << 0 << "x" << true;
        QTest::newRow("files, none") << true << "" << 0 << "x" << false;
        QTest::newRow("files, one") << true << "" << 1 << "x" << true;
        QTest::newRow("files, one, no text") << true << "" << 1 << "" << false;
    }
    void replaceIsOnWithATextAndATarget() {
        QFETCH(bool, selected);
        QFETCH(QString, path);
        QFETCH(int, files);
        ExtReplace e;
        frmExtFind& f = *e.form;
        f.txtPath.setText(path);
        if (files) f.lstFiles.AddItem(QStringLiteral("/tmp/a.htm"));
        (selected ? f.optSelected : f.optSpecFolder).setValue(true);
        QCOMPARE(f.ReplaceButton.Enabled(), selected ? files > 0 : !path.isEmpty());
        QStringList on;
        for (const QString& name : words("txtPath cmdSelectDocFolder Label3 txtFilter lstFiles "
                                         "cmdSelectDocFiles"))
            if (f.control(name)->Enabled()) on << name;
        QCOMPARE(on, words(selected ? "lstFiles cmdSelectDocFiles"
                                    : "txtPath cmdSelectDocFolder Label3 txtFilter"));
        f.FindBox.setText(QStringLiteral("seed"));
        QFETCH(QString, find);
        f.FindBox.setText(find);
        QTEST(f.ReplaceButton.Enabled(), "on");
    }

    // The pages of the folder under the filter, each keeping its bytes but for the
    // replacements: line ends, byte-order mark, 8-bit text. No leaves the files alone.
    void aFolderIsReplacedUnderItsFilter() {
        ExtReplace e;
        const QStringList pages = {e.page("a.htm", "<p>Foo foo food</p>\r\n<p>foo</p>\r\n"),
                                   e.page("b.html", "\xEF\xBB\xBF<p>foo caf\xC3\xA9</p>\n"),
                                   e.page("c.asp", "foo caf\xE9\r\n"), e.page("d.htm", "none")};
        const QString other = e.page("notes.txt");
        frmExtFind& f = *e.form;
        QList<int> progress;
        QObject::connect(&f.pbProgress, &Control::changed, [&] {
            if (f.pbProgress.Visible()) progress << f.pbProgress.Value();
        });
        f.chkWholeWord.setValue(1);
        f.chkMatchCase.setValue(1);
        e.replace("foo", "fu\u00DF");
        QCOMPARE(e.platform.messageTexts(), (QStringList{question(4), kDone}));
        QCOMPARE(e.platform.messages.first().buttons, MsgButtons::YesNo);
        QCOMPARE(e.platform.messages.first().icon, MsgIcon::Exclamation);
        QCOMPARE(readFile(pages[0]), "<p>Foo fu\xC3\x9F food</p>\r\n<p>fu\xC3\x9F</p>\r\n");
        QCOMPARE(readFile(pages[1]), "\xEF\xBB\xBF<p>fu\xC3\x9F caf\xC3\xA9</p>\n");
        QCOMPARE(readFile(pages[2]), "fu\xDF caf\xE9\r\n");
        QCOMPARE(readFile(pages[3]), "none");
        QCOMPARE(readFile(other), "foo");
        QCOMPARE(progress, QList<int>({0, 1, 2, 3, 4})); // shown, then before each file
        QVERIFY(!f.pbProgress.Visible());
        f.txtFilter.setText(QStringLiteral("*.txt"));
        e.replace("foo", "bar", MsgResult::No);
        QCOMPARE(e.platform.messageTexts().last(), question(1));
        QCOMPARE(readFile(other), "foo");
    }

    // Chosen files are done once each, in order; the first failure ends the run with its
    // message, keeping what was done.
    void chosenFilesAreDoneOnceEachUntilAFailure() {
        ExtReplace e;
        frmExtFind& f = *e.form;
        f.optSelected.setValue(true);
        const QString a = e.page("a.txt"), c = e.page("c.txt");
        for (const QString& path : {c, a, e.dir.filePath("b-gone.txt"), a})
            f.lstFiles.AddItem(path);
        e.replace("foo", "bar");
        QCOMPARE(e.platform.messageTexts(),
                 (QStringList{question(3), "There was an error replacing strings in one or more "
                                           "files. Replacing has been canceled. Make sure that "
                                           "you have write access to the selected files."}));
        QCOMPARE(e.platform.messages.last().icon, MsgIcon::Critical);
        QCOMPARE(readFile(a), "bar");
        QCOMPARE(readFile(c), "foo");
        // After a failure, a run that succeeds says so again.
        f.lstFiles.RemoveItem(2);
        e.replace("bar", "baz");
        QCOMPARE(e.platform.messageTexts().mid(2), (QStringList{question(2), kDone}));
        QCOMPARE(readFile(a), "baz");
    }

    // One open page stops the whole folder; a folder with no page under the filter says so.
    void whatStopsAFolder() {
        ExtReplace e;
        const QString a = e.page("a.htm");
        const QString b = e.page("b.htm");
        e.open(b);
        e.form->txtPath.setText(e.dir.path());
        e.form->FindBox.setText(QStringLiteral("foo"));
        e.form->ReplaceButton.press();
        QCOMPARE(readFile(a), "foo");
        e.run("mnuFileClose");
        e.form->txtFilter.setText(QStringLiteral("*.css"));
        e.form->ReplaceButton.press();
        QFile::remove(a);
        QFile::remove(b);
        e.form->ReplaceButton.press();
        QCOMPARE(
            e.platform.messageTexts(),
            QStringList({"The following files you selected are already open in Tessaline:\n\n" + b +
                             "\n\nThese files were not modified.",
                         kNoFiles, kNoFiles}));
        QCOMPARE(e.platform.messages.first().icon, MsgIcon::Exclamation);
    }

    void theFolderPickerFillsThePathAndTheFilterTakesNoBlank() {
        ExtReplace e;
        frmExtFind& f = *e.form;
        e.platform.folderAnswers.enqueue(QStringLiteral("/srv/www"));
        f.cmdSelectDocFolder.press();
        QCOMPARE(e.platform.folderTitles, QStringList{"Please select a default folder"});
        QCOMPARE(f.txtPath.Text(), QStringLiteral("/srv/www"));
        QVERIFY(f.ReplaceButton.Enabled());
        f.txtFilter.receiveText(QStringLiteral("*.h tm"));
        QCOMPARE(f.txtFilter.Text(), QStringLiteral("*.htm"));
    }

    // The chooser adds the picked files that are not open, removes the picked ones, and hands
    // its list back on OK. Several entries are picked with others between and after them: a
    // loop over the marks that does not move on never returns (the watchdog below ends it).
    void theChooserAddsRemovesAndHandsBackItsFiles() {
        ExtReplace e;
        QStringList p;
        for (const char* name : {"a.htm", "b.htm", "c.htm", "d.htm", "open.htm", "e.txt"})
            p << e.page(name);
        e.open(p[4]);
        e.settings.save(keys::Fuzzies, keys::DefaultDir, e.dir.path());
        frmExtFind& f = *e.form;
        f.FindBox.setText(QStringLiteral("x"));
        e.forms.then<frmChooseFiles>([&](frmChooseFiles& c) {
            QCOMPARE(c.Caption(), QStringLiteral("Choose files"));
            QCOMPARE(c.dirHTML.Path(), e.dir.path());
            QCOMPARE(c.fileList.items(), words("a.htm b.htm c.htm d.htm open.htm"));
            QVERIFY(!c.cmdDelete2.Enabled());
            for (int i : {0, 2, 4})
                c.fileList.setSelected(i, true);
            c.cmdAdd.press();
            for (int i : {1, 3}) {
                c.fileList.setListIndex(i);
                c.fileList.DblClick();
            }
            QCOMPARE(c.lstHTMLFiles.items(), (QStringList{p[0], p[2], p[1], p[3]}));
            QCOMPARE(c.lstHTMLFiles.ListIndex(), 0);
            QVERIFY(c.cmdDelete2.Enabled());
            for (int i : {0, 2})
                c.lstHTMLFiles.setSelected(i, true);
            c.cmdDelete2.press();
            QCOMPARE(c.lstHTMLFiles.items(), (QStringList{p[2], p[3]}));
            c.lstHTMLFiles.DblClick();
            QCOMPARE(c.lstHTMLFiles.items(), QStringList{p[3]});
            c.txtFilter.setText(QStringLiteral("*.txt"));
            QCOMPARE(c.fileList.items(), QStringList{"e.txt"});
            c.cmdOK.press();
        });
        f.optSelected.setValue(true);
        f.cmdSelectDocFiles.press();
        QCOMPARE(e.platform.messageTexts(),
                 QStringList{"The following file(s) you selected are already open.\n\n   " + p[4] +
                             "\n\nFiles must be closed before this operation can be executed on "
                             "them."});
        QCOMPARE(f.lstFiles.items(), QStringList{p[3]});
        QVERIFY(f.ReplaceButton.Enabled());
        QCOMPARE(e->part<SearchSession>().sLastChooseDir, e.dir.path());
        // Cancel keeps the list; reopened, the chooser starts with it, the first one picked.
        e.forms.then<frmChooseFiles>([&](frmChooseFiles& c) {
            QCOMPARE(c.lstHTMLFiles.items(), QStringList{p[3]});
            QVERIFY(c.lstHTMLFiles.Selected(0) && c.cmdDelete2.Enabled());
            c.fileList.setListIndex(4);
            c.fileList.DblClick();
            c.lstHTMLFiles.DblClick();
            c.lstHTMLFiles.DblClick();
            QVERIFY(!c.cmdDelete2.Enabled());
            c.cmdCancel.press();
        });
        f.cmdSelectDocFiles.press();
        QCOMPARE(f.lstFiles.items(), QStringList{p[3]});
        QCOMPARE(e.platform.messageTexts().last(),
                 "The file you selected, " + p[4] +
                     ", is already open.\n\nFiles must be closed before using this procedure.");
    }
};

int main(int argc, char** argv) {
    // A loop that never ends fails its test here rather than stalling the whole run.
    if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))
        qputenv("QTEST_FUNCTION_TIMEOUT", "15000");
    QCoreApplication app(argc, argv);
    ReplaceInFilesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_replace_in_files.moc"
