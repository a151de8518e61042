// The three views of a document with engine-free surfaces: what each switch does to the text,
// the temporary file, the undo history and the commands, and how the Layout surface's state
// reaches the toolbars.
#include "dialogs/table_chooser.h"
#include "shell_helpers.h"
#include "test_rows.h"
#include <QDir>
#include <QTemporaryDir>

using namespace tsl;
using namespace tsl::test;

namespace {
const QString kPage = QStringLiteral("<html>\n<body>\n<p>x</p>\n</body>\n</html>");

// A shell whose active document is a page opened from a file of a temporary folder.
struct Views {
    QTemporaryDir dir;
    TestShell ts;
    codeEditor* doc = nullptr;

    explicit Views(const QString& name = QStringLiteral("page.htm"), const QString& text = kPage) {
        ts.platform.temp = dir.filePath(QStringLiteral("temp"));
        QDir().mkpath(ts.platform.temp);
        ts.load();
        doc = &ts.open(writeFile(dir, name, text.toUtf8()));
    }
    DetachedLayout& layout() { return layoutOf(*doc); }
    DetachedBrowser& browser() { return static_cast<DetachedBrowser&>(doc->WebBrowser1()); }
    void show(int view) { doc->tabEditor.SelectTab(view); }
    QString folder() const { return dir.path() + QLatin1Char('/'); }
    bool menuOn(const char* name) { return ts->menu(QLatin1String(name)).Enabled(); }
    // Layout view, then the surface edited to `html`.
    void editInLayout(const QString& html) {
        show(2);
        layout().edit(html);
    }
};
} // namespace

class ViewSwitchTest : public QObject {
    Q_OBJECT

  private slots:
    void toLayoutCopiesTheTextAndSetsTheStrips() {
        Views v;
        QCOMPARE(v.doc->tabEditor.TabCount(), 3);
        QCOMPARE(v.doc->tabEditor.TabCaption(2), "  Layout  ");
        QCOMPARE(errorOf([&] { v.show(4); }), 5);
        QCOMPARE(errorOf([&] { v.show(0); }), 5);
        v.show(2);
        QVERIFY(v.layout().Visible() && v.ts->bLayoutActive);
        QCOMPARE(v.layout().DocumentHTML(), kPage);
        QCOMPARE(v.layout().BaseURL(), v.folder());
        for (const ComboBox* combo : {&v.doc->cmbStyles, &v.doc->cmbFonts, &v.doc->cmbFontSize})
            QVERIFY(combo->Visible());
        QVERIFY(!v.ts->tbrTags.ButtonEnabled(18) && !v.ts->tbrMain.ButtonEnabled(22));
        QVERIFY(!v.menuOn("mnuInsertFrames") && !v.menuOn("mnuInsertComment"));
        QVERIFY(v.ts->tbrMain.ButtonVisible(12));
        QCOMPARE(v.ts.platform.messages.size(), 0);
    }

    // Borders show unless the setting says exactly "No"; the button turns them round and
    // remembers the choice.
    void showBordersReadsItsSetting_data() {
        columns<QString, bool>({"stored", "on"});
        QTest::newRow("never written") << QString() << true;
        QTest::newRow("No") << "No" << false;
        QTest::newRow("no") << "no" << true;
        QTest::newRow("Yes") << "Yes" << true;
    }
    void showBordersReadsItsSetting() {
        QFETCH(QString, stored);
        QFETCH(bool, on);
        Views v;
        if (!stored.isNull()) v.ts.settings.save(keys::Fuzzies, keys::ShowBorders, stored);
        v.show(2);
        QCOMPARE(v.layout().ShowBorders(), on);
        QCOMPARE(v.doc->tbrTable.ButtonChecked(12), on);
        v.doc->tbrTable.press(12);
        QCOMPARE(v.layout().ShowBorders(), !on);
        QCOMPARE(v.doc->tbrTable.ButtonChecked(12), !on);
        QCOMPARE(v.ts.settings.get(keys::Fuzzies, keys::ShowBorders), on ? "No" : "Yes");
    }

    void backFromLayoutUneditedKeepsTheTextAndDropsTheHistory() {
        Views v;
        v.doc->codebox().setSelText(QStringLiteral("edit "));
        v.doc->AddStep();
        v.show(2);
        v.show(1);
        const QString text = QStringLiteral("edit ") + kPage;
        QCOMPARE(v.doc->codebox().Text(), text);
        QCOMPARE(v.doc->codebox().SelStart(), text.indexOf("<body>") + 6);
        QCOMPARE(v.doc->nDoneIndex, 1);
        QCOMPARE(v.doc->nTopIndex, 1);
        QCOMPARE(v.doc->step(1).Text, text);
        QVERIFY(!v.menuOn("mnuEditUndo") && !v.ts->tbrMain.ButtonEnabled(11));
        QVERIFY(!v.layout().Visible() && !v.ts->bLayoutActive);
        QCOMPARE(v.layout().newDocuments, 1);
        for (const ComboBox* combo : {&v.doc->cmbStyles, &v.doc->cmbFonts, &v.doc->cmbFontSize})
            QVERIFY(!combo->Visible());
    }

    // An edited page comes back without the blanks before the body's end; the caret goes past
    // "<body" and the ">" after it, or one on from where the text left it when either is missing.
    void anEditedPageComesBack_data() {
        columns<QString, QString, int>({"edited", "text", "caret"});
        QTest::newRow("with a body") << "<html><body>\n<p>y</p> \n \n</body></html>"
                                     << "<html><body>\n<p>y</p></body></html>" << 12;
        QTest::newRow("no body, no >") << "just words"
                                       << "just words" << 1;
        QTest::newRow("no body") << "<b>no body</b>"
                                 << "<b>no body</b>" << 3;
    }
    void anEditedPageComesBack() {
        Views v;
        QFETCH(QString, edited);
        v.editInLayout(edited);
        v.show(1);
        QTEST(v.doc->codebox().Text(), "text");
        QTEST(v.doc->codebox().SelStart(), "caret");
    }

    void aStyleSheetHasNoLayoutAndNoPreview_data() {
        columns<int, QString>({"view", "message"});
        QTest::newRow("Layout") << 2 << "Layout view can not be used with CSS documents.";
        QTest::newRow("Preview") << 3 << "Preview mode can not be used with CSS documents.";
    }
    void aStyleSheetHasNoLayoutAndNoPreview() {
        QFETCH(int, view);
        QFETCH(QString, message);
        Views v(QStringLiteral("site.css"), QStringLiteral("p { color: red }"));
        QCOMPARE(v.doc->CSSDoc, QStringLiteral("Yes"));
        v.show(view);
        QCOMPARE(v.ts.platform.messageTexts(), QStringList{message});
        QCOMPARE(v.ts.platform.messages.first().icon, MsgIcon::Exclamation);
        QCOMPARE(v.doc->SelectedTab, 1);
        QVERIFY(!v.layout().Visible() && !v.ts->bLayoutActive);
        QCOMPARE(v.doc->codebox().Text(), QStringLiteral("p { color: red }"));
        QVERIFY(v.browser().navigated.isEmpty());
    }

    void previewWritesTheFileBesideTheDocument() {
        Views v;
        const QString page = QStringLiteral("<html><body>z \n</body></html>");
        v.editInLayout(page);
        v.show(3);
        // From Layout straight to Preview the page comes back untrimmed.
        QCOMPARE(v.doc->codebox().Text(), page);
        const QString preview = v.folder() + QStringLiteral("~tssln.htm");
        QCOMPARE(readFile(preview), page.toUtf8());
        QCOMPARE(v.browser().navigated, QStringList{preview});
        QCOMPARE(v.doc->codebox().FileName(), v.folder() + QStringLiteral("page.htm"));
        QVERIFY(!v.ts->bLayoutActive);
        QVERIFY(v.doc->tbrWebBrowser.ButtonEnabled(2));
        // Only printing, previewing and the file commands stay on.
        QVERIFY(!v.menuOn("mnuTagsBold") && !v.menuOn("mnuEditUndo") && !v.menuOn("mnuEditRedo"));
        for (const char* name : {"mnuFilePrint", "mnuFilePreview", "mnuFileSave", "mnuFileSaveas",
                                 "mnuFileSaveAll", "mnuFileClose", "mnuFileCloseAll"})
            QVERIFY2(v.menuOn(name), name);
        for (int button : {3, 5, 14})
            QVERIFY(v.ts->tbrMain.ButtonEnabled(button));
        // The browser's strip passes over an empty history.
        v.doc->tbrWebBrowser.press(0);
        v.doc->tbrWebBrowser.press(3);
        QCOMPARE(v.browser().calls, QStringList({"GoBack", "Refresh"}));
        QCOMPARE(v.ts.platform.messages.size(), 0);
        // Back in Source both preview files beside the document are gone.
        writeFile(v.dir, QStringLiteral("~tssln2.htm"), "x");
        v.show(1);
        QVERIFY(!QFile::exists(preview));
        QVERIFY(!QFile::exists(v.folder() + QStringLiteral("~tssln2.htm")));
        QVERIFY(v.menuOn("mnuTagsBold"));
    }

    // Preview turns Undo and Redo off; back in Source they follow the history again.
    void undoAndRedoThroughPreview() {
        Views v;
        v.doc->codebox().setSelText(QStringLiteral("a"));
        v.doc->AddStep();
        v.doc->Undo();
        const auto state = [&] {
            return QString::number(v.menuOn("mnuEditUndo")) +
                   QString::number(v.ts->tbrMain.ButtonEnabled(11)) +
                   QString::number(v.menuOn("mnuEditRedo")) +
                   QString::number(v.ts->tbrMain.ButtonEnabled(12));
        };
        QCOMPARE(state(), "0011");
        v.show(3);
        QCOMPARE(state(), "0000");
        v.show(1);
        QCOMPARE(state(), "0011");
    }

    void anUntitledPagePreviewsFromTheTemporaryFolder() {
        Views v;
        v.ts->mnuFileNewHTML_Click();
        codeEditor& untitled = v.ts.active();
        untitled.tabEditor.SelectTab(3);
        const QString preview = v.ts.platform.temp + QStringLiteral("/~tssln.htm");
        QCOMPARE(static_cast<DetachedBrowser&>(untitled.WebBrowser1()).navigated,
                 QStringList{preview});
        untitled.tabEditor.SelectTab(1);
        QVERIFY(QFile::exists(preview)); // files of the temporary folder stay
    }

    // A command's status (1 disabled, 3 enabled, 7 latched) and the control that shows it.
    void displayChangedBringsTheToolbarsUpToDate_data() {
        columns<int, int, QString, bool>({"command", "status", "target", "expected"});
        const QStringList rows =
            words("5000 7 tags.checked:4 1  5000 3 tags.checked:4 0  5023 7 tags.checked:5 1 "
                  "5048 7 tags.checked:6 1  5024 7 tags.checked:8 1  5026 7 tags.checked:9 1 "
                  "5034 3 menu:mnuFormatRemove 1  5034 7 menu:mnuFormatRemove 0 "
                  "5021 3 table.enabled:2 1  5020 1 table.enabled:3 0  5005 3 table.enabled:5 1 "
                  "5007 3 table.enabled:6 1  5006 3 table.enabled:7 1  5029 3 table.enabled:9 1 "
                  "5047 3 table.enabled:10 1  5030 7 layout.checked:5 1  5051 7 layout.checked:6 1 "
                  "5049 0 menu:mnuEditUndo 1  5049 1 menu:mnuEditUndo 0  5033 3 main.enabled:12 1 "
                  "5003 1 main.enabled:7 0  5002 7 menu:mnuEditCopy 1  5032 1 main.enabled:9 0");
        for (int i = 0; i < rows.size(); i += 4)
            QTest::newRow(qPrintable(rows.mid(i, 3).join(u' ')))
                << rows[i].toInt() << rows[i + 1].toInt() << rows[i + 2] << (rows[i + 3] == "1");
    }
    void displayChangedBringsTheToolbarsUpToDate() {
        QFETCH(int, command);
        QFETCH(int, status);
        QFETCH(QString, target);
        Views v;
        v.show(2);
        v.layout().statuses.insert(command, status);
        v.doc->Tag = QStringLiteral("Clean");
        v.layout().edit(kPage);
        QCOMPARE(v.doc->Tag, "Dirty"); // any change on the surface
        const QString where = target.section(u':', 0, 0), what = target.section(u':', 1);
        const int button = what.toInt();
        const bool actual = where == "menu"             ? v.ts->menu(what).Enabled()
                            : where == "tags.checked"   ? v.ts->tbrTags.ButtonChecked(button)
                            : where == "table.enabled"  ? v.doc->tbrTable.ButtonEnabled(button)
                            : where == "layout.checked" ? v.doc->tbrLayout.ButtonChecked(button)
                                                        : v.ts->tbrMain.ButtonEnabled(button);
        QTEST(actual, "expected");
    }

    void underlineIsLeftAloneInsideALink() {
        Views v;
        v.show(2);
        v.ts->tbrTags.setButtonChecked(6, true);
        v.layout().statuses = {{5016, 7}, {5048, 3}};
        v.layout().edit(kPage);
        QVERIFY(v.ts->tbrTags.ButtonChecked(6));
        v.layout().statuses = {{5016, 3}, {5048, 3}};
        v.layout().edit(kPage);
        QVERIFY(!v.ts->tbrTags.ButtonChecked(6));
    }

    void theCombosFollowTheirGetCommands() {
        Views v;
        v.show(2);
        DetachedLayout& layout = v.layout();
        layout.statuses = {{5013, 3}, {5014, 7}, {5011, 11}};
        layout.values = {{5013, QStringLiteral("Arial")}, {5014, QStringLiteral("0")}};
        v.doc->cmbStyles.setEnabled(false);
        v.doc->cmbFonts.setEnabled(false);
        layout.edit(kPage);
        QCOMPARE(v.doc->cmbFonts.Text(), QStringLiteral("Arial"));
        QCOMPARE(v.doc->cmbFontSize.Text(), QString()); // a size below 1 shows nothing
        QVERIFY(v.doc->cmbFontSize.Enabled());
        // A mixed block format clears the styles, enables the fonts, leaves the styles be.
        QCOMPARE(v.doc->cmbStyles.Text(), QString());
        QVERIFY(!v.doc->cmbStyles.Enabled());
        QVERIFY(v.doc->cmbFonts.Enabled());
        layout.statuses = {{5013, 1}};
        layout.edit(kPage);
        QCOMPARE(v.doc->cmbFonts.Text(), QString());
        QVERIFY(!v.doc->cmbFonts.Enabled());
    }

    // The list buttons send each other's command; the combos send their choice.
    void theStripsSendTheirCommands() {
        Views v;
        v.show(2);
        DetachedLayout& layout = v.layout();
        layout.commands.clear();
        for (int button : {2, 3, 5, 6})
            v.doc->tbrLayout.press(button);
        for (int button : {2, 3, 5, 6, 7, 9, 10})
            v.doc->tbrTable.press(button);
        v.doc->cmbFontSize.setListIndex(2);
        v.doc->cmbStyles.setListIndex(6);
        QStringList sent;
        for (const DetachedLayout::Command& c : layout.commands)
            sent << QStringLiteral("%1,%2,%3").arg(c.id).arg(c.option).arg(c.value);
        QCOMPARE(sent.join(u' '), "5031,2, 5018,2, 5030,2, 5051,2, 5021,2, 5020,2, 5005,2, "
                                  "5007,2, 5006,2, 5029,2, 5047,2, 5045,2,3 5043,2,Heading 1");
        // Draw Table opens the chooser below its own button.
        auto& dropDown = v.ts->part<TableChooser>().DropDown;
        dropDown.ButtonPosition = [](const QString& toolbar, int index) {
            return toolbar == QLatin1String("tbrTable") && index == 0 ? QPoint(3000, 2000)
                                                                      : QPoint();
        };
        v.doc->tbrTable.press(0);
        QVERIFY(dropDown.IsShowing());
        QCOMPARE(QPoint(dropDown.left(), dropDown.top()), QPoint(3100, 3000));
    }
};

QTEST_MAIN(ViewSwitchTest)
#include "test_view_switch.moc"
