// Find & Replace in the Source text and Extended Replace in files, windows driven as by a user.
#include "dialogs_helpers.h"
#include "search/find_replace.h"
#include "search/frm_choose_files.h"
#include "search/frm_ext_find.h"
#include "search/frm_find.h"
#include "search/replace_in_files.h"
#include "search_helpers.h"
#include "test_rows.h"
#include "test_shell.h"

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kText = QStringLiteral("one two one two");
const QString kFinished = QStringLiteral("Tessaline has finished searching the document.");
const QString kNotFound = kFinished + QStringLiteral(" The search item was not found.");
const QString kDone = QStringLiteral("Done! Tessaline completed the operation in 0 seconds.");
const QString kNoFiles = QStringLiteral("There are no files in the selected folder.");
const QString kQuestion = QStringLiteral("You are about to replace strings in %1 files. This "
                                         "action is not undoable. Do you want to continue?");

struct Search {
    FindState state;
    TextPane codebox;
    ScriptedPlatform platform;
    Search(const QString& text, int caret, const QString& what, int direction = 1) {
        codebox.setText(text);
        codebox.setSelStart(caret);
        state.FindText = what;
        state.FindChanged = true;
        state.FindDirection = Int16(direction);
    }
    void findNext() { FindNextMatch(state, codebox, codebox.SelStart(), platform); }
    int replaceAll(const QString& with) {
        return ReplaceAllMatches(state, codebox, with, platform);
    }
};

struct FindRow {
    QString what;
    int caret, lastPos;
    bool changed;
    int direction, matchCase, hits, selStart, selLength;
    QString message; // none: found
};
struct ReplaceRow {
    QString text;
    int caret, direction; // or, in files, the options: 2 whole word, 4 match case
    QString what, with, result;
    int count;
};

struct FindWindow : TestShell {
    FindWindow(const QString& text, int caret, int length = 0) {
        load();
        pane().setText(text);
        pane().select(caret, length);
        active().AddStep();
    }
    frmFind* open() {
        run("mnuEditFind");
        return forms.modeless<frmFind>();
    }
    SourcePane& pane() { return active().codebox(); }
    FindState& search() { return shell->part<SearchSession>().Search; }
};

// A folder picker that cannot start, as when the device is gone.
struct NoFolderPicker : ScriptedPlatform {
    std::optional<QString> browseForFolder(const QString&) override { raise(ErrDeviceUnavailable); }
};

struct ExtReplace : TestShell {
    QTemporaryDir dir;
    std::unique_ptr<frmExtFind> form;
    ExtReplace() {
        load();
        form = std::make_unique<frmExtFind>(*shell);
        form->Form_Load();
    }
    QString page(const char* name, const QByteArray& bytes = "foo") {
        return writeFile(dir, fileNameFromBytes(name), bytes);
    }
    void replace(const char* what, const char* with, MsgResult answer = MsgResult::Yes) {
        if (form->optSpecFolder.Value()) form->txtPath.setText(dir.path());
        form->FindBox.setText(what);
        form->ReplaceBox.setText(with);
        if (answer != MsgResult::OK) platform.messageAnswers.enqueue(answer);
        form->ReplaceButton.press();
    }
};
} // namespace

class SearchTest : public QObject {
    Q_OBJECT

  private slots:
    void findNext_data() {
        rowsOf<FindRow>({
            {"down, changed: the match at the caret", {"one", 0, 0, true, 1, 0, 0, 0, 3, {}}},
            {"down again, not moved: the next", {"one", 0, 0, false, 1, 0, 0, 8, 3, {}}},
            {"past the last, none before", {"one", 9, 9, false, 1, 0, 0, 9, 0, kNotFound}},
            {"past the last after a success", {"one", 9, 9, false, 1, 0, 3, 9, 0, kFinished}},
            {"up: the one before", {"one", 12, 0, false, 0, 0, 0, 8, 3, {}}},
            {"up skips a letter before the caret", {"e", 11, 0, false, 0, 0, 0, 2, 1, {}}},
            {"up takes a changed letter", {"e", 11, 0, true, 0, 0, 0, 10, 1, {}}},
            {"case matters when asked", {"ONE", 0, 0, true, 1, 1, 0, 0, 0, kNotFound}},
            {"case folds otherwise", {"ONE", 0, 0, true, 1, 0, 0, 0, 3, {}}},
        });
    }
    void findNext() {
        QFETCH(FindRow, row);
        Search s(kText, row.caret, row.what, row.direction);
        s.state.FindChanged = row.changed;
        s.state.FindLastPos = Int16(row.lastPos);
        s.state.FindMatchCase = Int16(row.matchCase);
        s.state.FindHits = Int16(row.hits);
        s.findNext();
        QCOMPARE(s.codebox.SelStart(), row.selStart);
        QCOMPARE(s.codebox.SelLength(), row.selLength);
        const bool found = row.message.isEmpty();
        QCOMPARE(s.platform.messageTexts(), found ? QStringList() : QStringList{row.message});
        for (const ShownMessage& m : s.platform.messages)
            QVERIFY(m.icon == MsgIcon::Information && m.systemModal && m.title.isEmpty());
        QCOMPARE(s.state.FindHits, Int16(row.hits + found));
        QCOMPARE(s.state.FindLastPos, Int16(row.selStart));
        QVERIFY(!s.state.FindChanged);
        QCOMPARE(s.codebox.focusCount(), int(found));
    }

    // Up from the start: not found, the state kept, no negative position.
    void upFromTheStart() {
        Search s(kText, 0, QStringLiteral("one"), 0);
        s.state.FindLastPos = 5;
        s.findNext();
        QCOMPARE(s.platform.messageTexts(), QStringList{kNotFound});
        QVERIFY(s.state.FindLastPos == 5 && s.state.FindChanged);
        QCOMPARE(errorOf([&] { s.replaceAll(QStringLiteral("y")); }), int(ErrInvalidPropertyValue));
    }

    void replaceAll_data() {
        rowsOf<ReplaceRow>({
            {"growing text ends behind each insert", {"a b a", 0, 1, "a", "aa", "aa b aa", 2}},
            {"the first pass starts one before the caret", {"ab ab", 1, 1, "a", "X", "Xb Xb", 2}},
            {"from the caret to the end only", {"ab ab ab", 4, 1, "ab", "c", "ab c c", 2}},
            {"nothing deletes", {"a-a-a", 0, 1, "-", "", "aaa", 2}},
            {"upward from the end", {"a a a", 5, 0, "a", "bb", "bb bb bb", 3}},
            {"case folds", {"One one", 0, 1, "ONE", "two", "two two", 2}},
            {"no match", {"one", 0, 1, "zz", "y", "one", 0}},
        });
    }
    void replaceAll() {
        QFETCH(ReplaceRow, row);
        Search s(row.text, row.caret, row.what, row.direction);
        QCOMPARE(s.replaceAll(row.with), row.count);
        QCOMPARE(s.codebox.Text(), row.result);
        QCOMPARE(s.platform.messageTexts(),
                 QStringList{row.count ? QStringLiteral("Tessaline has finished searching the "
                                                        "document and replaced %1 items.")
                                             .arg(row.count)
                                       : QStringLiteral("Tessaline has finished searching for "
                                                        "zz. The search item was not found.")});
        const ShownMessage& m = s.platform.messages.first();
        QVERIFY(m.systemModal && m.title == (row.count ? "Tessaline" : ""));
        QCOMPARE(m.icon, row.count ? MsgIcon::Exclamation : MsgIcon::Information);
        QCOMPARE(s.state.FindChanged, !row.count);
    }

    // The window takes the selection, or the last search; the actions wait for a text.
    void theFindWindowOpensOnTheSelectionOrTheLastSearch() {
        FindWindow w(QStringLiteral("one two one"), 4, 3);
        w.search().FindMatchCase = 1;
        frmFind& form = *w.open();
        QCOMPARE(form.Caption(), QStringLiteral("Find & Replace"));
        QCOMPARE(form.txtFind.Text(), QStringLiteral("two"));
        QVERIFY(w->bFindOpen && w.search().FindChanged && form.chkCase.Value() == 1);
        QVERIFY(form.optDirectionDown.Value() && form.cmdFind.Enabled());
        for (const char* text : {"", "b"}) {
            form.txtFind.setText(text);
            for (Control* c :
                 std::initializer_list<Control*>{&form.cmdFind, &form.txtReplace, &form.cmdReplace,
                                                 &form.Command1, &form.Label2})
                QCOMPARE(c->Enabled(), *text != 0);
        }
        form.cmdCancel.press();
        QVERIFY(!w->bFindOpen);
        QCOMPARE(w.search().FindText, QStringLiteral("b"));
        w.pane().setSelStart(0);
        w.search().FindDirection = 0;
        QCOMPARE(w.open()->txtFind.Text(), QStringLiteral("b"));
        QCOMPARE(w.search().FindDirection, Int16(1));
    }

    // Replace changes a matching selection and finds the next; each change is one undo step.
    void theWindowReplaces_data() {
        columns<int, int, bool, QString>({"selStart", "matchCase", "all", "text"});
        row("same but for case", 0, 0, false, QString("XY one ONE"));
        row("case must match", 0, 1, false, QString("One one ONE"));
        row("no selection", 3, 0, false, QString("One one ONE"));
        row("all", 0, 0, true, QString("XY XY XY"));
    }
    void theWindowReplaces() {
        QFETCH(int, selStart);
        QFETCH(int, matchCase);
        QFETCH(bool, all);
        QFETCH(QString, text);
        FindWindow w(QStringLiteral("One one ONE"), 0, 3);
        frmFind& form = *w.open();
        form.txtFind.setText(QStringLiteral("one"));
        form.txtReplace.setText(QStringLiteral("XY"));
        form.chkCase.setValue(matchCase);
        w.pane().select(selStart, selStart == 0 ? 3 : 0);
        const Int16 done = w.active().nDoneIndex;
        (all ? form.Command1 : form.cmdReplace).press();
        QCOMPARE(w.pane().Text(), text);
        if (!all) QCOMPARE(w.pane().SelText(), QStringLiteral("one"));
        const bool changed = text != QLatin1String("One one ONE");
        QCOMPARE(w.active().nDoneIndex, Int16(done + changed));
        if (changed) w.active().Undo();
        QCOMPARE(w.pane().Text(), QStringLiteral("One one ONE"));
    }
    void everyMatch_data() {
        rowsOf<ReplaceRow>({
            {"case folds", {"Foo foo FOO", 0, 0, "foo", "x", "x x x", 3}},
            {"match case", {"Foo foo FOO", 4, 0, "foo", "x", "Foo x FOO", 1}},
            {"whole word", {"foo food foo_ (foo)", 2, 0, "foo", "x", "x food x_ (x)", 3}},
            {"nothing deletes", {"a-b-c", 0, 0, "-", "", "abc", 2}},
            {"empty search text", {"abc", 0, 0, "", "x", "abc", 0}},
            // The word test sees the text as already changed: the "x" now stands before "-".
            {"word after a replacement", {"--a", 2, 0, "-", "x", "x-a", 1}},
            {"word after a deletion", {"a--", 2, 0, "-", "", "a-", 1}},
        });
    }
    void everyMatch() {
        QFETCH(ReplaceRow, row);
        int count = -1;
        QCOMPARE(replaceEveryMatch(row.text, row.what, row.with, row.caret, &count), row.result);
        QCOMPARE(count, row.count);
    }

    // Each option enables its target's controls; Replace needs a text and a target.
    void extendedReplaceEnablesItsTargetAndCloses() {
        ExtReplace e;
        e.forms.then<frmExtFind>([&](frmExtFind& f) {
            QCOMPARE(f.Caption(), QStringLiteral("Extended Replace"));
            const auto enabled = [&f] {
                return enabledOf(f, "txtPath;cmdSelectDocFolder;Label3;txtFilter;lstFiles;"
                                    "cmdSelectDocFiles;ReplaceButton");
            };
            const QString folder = "txtPath;cmdSelectDocFolder;Label3;txtFilter";
            const QString files = "lstFiles;cmdSelectDocFiles";
            QStringList seen;
            f.FindBox.setText(QStringLiteral("x"));
            seen << enabled(); // no folder
            f.optSelected.setValue(true);
            seen << enabled(); // no file
            f.lstFiles.AddItem(QStringLiteral("/tmp/a.htm"));
            f.FindBox.setText(QString());
            seen << enabled();            // no text
            f.optSelected.setValue(true); // the option looks at the target alone
            seen << enabled();
            f.optSpecFolder.setValue(true);
            seen << enabled(); // no folder
            e.platform.folderAnswers.enqueue(QStringLiteral("/srv/www"));
            f.cmdSelectDocFolder.press(); // a folder picked: on, text or none
            seen << enabled() + f.txtPath.Text();
            f.FindBox.setText(QStringLiteral("z"));
            f.FindBox.setText(QString());
            seen << enabled();
            QCOMPARE(seen, QStringList({folder, files, files, files + ";ReplaceButton", folder,
                                        folder + ";ReplaceButton/srv/www", folder}));
            QCOMPARE(e.platform.folderTitles, QStringList{"Please select a default folder"});
            f.txtFilter.receiveText(QStringLiteral("*.h tm")); // no blank in a filter
            QCOMPARE(f.txtFilter.Text(), QStringLiteral("*.htm"));
            f.CancelButton.press();
            QVERIFY(!f.isLoaded());
        });
        e.run("mnuExtFind");
        QCOMPARE(e->CurrentDocument, &e.active());
    }

    void aFolderPickerThatFailsSaysSo() {
        NoFolderPicker platform;
        MemorySettingsStore settings;
        TextPaneFactory surfaces;
        ScriptedForms forms;
        ShellMDI shell(platform, settings, surfaces, forms);
        frmExtFind f(shell);
        f.Form_Load();
        f.cmdSelectDocFolder.press();
        QCOMPARE(platform.messageTexts(), QStringList{"The device is unavailable."});
        QVERIFY(platform.messages[0].icon == MsgIcon::Critical && f.txtPath.Text().isEmpty());
    }

    // The folder's pages under the filter keep their bytes but for the replacements; a name
    // that is not UTF-8 is one of them.
    void aFolderIsReplacedUnderItsFilter() {
        ExtReplace e;
        const QStringList pages = {e.page("a.htm", "<p>Foo foo food</p>\r\n<p>foo</p>\r\n"),
                                   e.page("caf\xE9.ASP", "foo caf\xE9\r\n"),
                                   e.page("c.html", "none")};
        const QString other = e.page("notes.txt");
        frmExtFind& f = *e.form;
        f.chkWholeWord.setValue(1);
        f.chkMatchCase.setValue(1);
        e.open(pages[2]);
        e.replace("foo", "fu\u00DF", MsgResult::OK);
        QCOMPARE(readFile(pages[0]), "<p>Foo foo food</p>\r\n<p>foo</p>\r\n");
        QCOMPARE(e.platform.messageTexts(),
                 QStringList{"The following files you selected are already open in Tessaline:\n\n" +
                             pages[2] + "\n\nThese files were not modified."});
        e.run("mnuFileClose");
        e.platform.messages.clear();
        e.replace("foo", "fu\u00DF");
        QCOMPARE(e.platform.messageTexts(), (QStringList{kQuestion.arg(3), kDone}));
        QVERIFY(e.platform.messages[0].buttons == MsgButtons::YesNo &&
                e.platform.messages[0].icon == MsgIcon::Exclamation);
        QCOMPARE(readFile(pages[0]), "<p>Foo fu\xC3\x9F food</p>\r\n<p>fu\xC3\x9F</p>\r\n");
        QCOMPARE(readFile(pages[1]), "fu\xDF caf\xE9\r\n");
        QCOMPARE(readFile(pages[2]), "none");
        QVERIFY(f.pbProgress.Value() == 3 && !f.pbProgress.Visible());
        f.txtFilter.setText(QStringLiteral("*.txt"));
        e.replace("foo", "bar", MsgResult::No);
        QCOMPARE(readFile(other), "foo");
        f.txtFilter.setText(QStringLiteral("*.css"));
        f.ReplaceButton.press();
        QCOMPARE(e.platform.messageTexts().mid(2), (QStringList{kQuestion.arg(1), kNoFiles}));
    }

    // Several entries picked, others between: a loop over marks that stalls fails by the timeout.
    void theChooserAddsRemovesAndHandsBackItsFiles() {
        ExtReplace e;
        QStringList p;
        for (const char* name : {"a.htm", "b.htm", "c.htm", "d.htm", "open.htm", "e.txt"})
            p << e.page(name, "x");
        e.open(p[4]);
        e.settings.save(keys::Fuzzies, keys::DefaultDir, e.dir.path());
        frmExtFind& f = *e.form;
        f.FindBox.setText(QStringLiteral("x"));
        e.forms.then<frmChooseFiles>([&](frmChooseFiles& c) {
            QCOMPARE(c.Caption(), QStringLiteral("Choose files"));
            QCOMPARE(c.dirHTML.Path(), e.dir.path());
            QCOMPARE(c.fileList.items(), words("a.htm b.htm c.htm d.htm open.htm"));
            for (int i : {0, 2, 4})
                c.fileList.setSelected(i, true);
            c.cmdAdd.press();
            for (int i : {1, 3, 4}) {
                c.fileList.setListIndex(i);
                c.fileList.DblClick();
            }
            QCOMPARE(c.lstHTMLFiles.items(), (QStringList{p[0], p[2], p[1], p[3]}));
            QVERIFY(c.lstHTMLFiles.ListIndex() == 0 && c.cmdDelete2.Enabled());
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
                 QStringList({"The following file(s) you selected are already open.\n\n   " + p[4] +
                                  "\n\nFiles must be closed before this operation can be "
                                  "executed on them.",
                              "The file you selected, " + p[4] +
                                  ", is already open.\n\nFiles must be closed before using this "
                                  "procedure."}));
        QCOMPARE(f.lstFiles.items(), QStringList{p[3]});
        QVERIFY(f.ReplaceButton.Enabled());
        QCOMPARE(e->part<SearchSession>().sLastChooseDir, e.dir.path());
        e.forms.then<frmChooseFiles>([&](frmChooseFiles& c) {
            QCOMPARE(c.lstHTMLFiles.items(), QStringList{p[3]});
            QVERIFY(c.lstHTMLFiles.Selected(0) && c.cmdDelete2.Enabled());
            c.lstHTMLFiles.DblClick();
            QVERIFY(!c.cmdDelete2.Enabled());
            c.cmdCancel.press();
        });
        f.cmdSelectDocFiles.press();
        QCOMPARE(f.lstFiles.items(), QStringList{p[3]});
        // The chosen files are done once each, in order, until the first failure.
        e.platform.messages.clear();
        for (const QString& path : {p[0], e.dir.filePath("c-gone.htm"), p[0]})
            f.lstFiles.AddItem(path);
        e.replace("x", "y");
        QCOMPARE(readFile(p[0]) + readFile(p[3]), "yx");
        f.lstFiles.RemoveItem(2);
        e.replace("x", "z");
        QCOMPARE(QStringList({readFile(p[0]), readFile(p[3])}), QStringList({"y", "z"}));
        QCOMPARE(e.platform.messageTexts(),
                 (QStringList{kQuestion.arg(3),
                              "There was an error replacing strings in one or more files. "
                              "Replacing has been canceled. Make sure that you have write access "
                              "to the selected files.",
                              kQuestion.arg(2), kDone}));
        QCOMPARE(e.platform.messages[1].icon, MsgIcon::Critical);
    }
};

TSL_TEST_MAIN(SearchTest)
#include "test_search.moc"
