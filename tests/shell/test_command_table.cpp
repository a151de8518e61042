// The command vocabulary: the shape of the menu tree, the menu icons, the three toolbars
// button by button, the band strip, and what each toolbar button runs.
#include "editor/text_pane.h"
#include "gadgets/rebar.h"
#include "runtime/runtime_error.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QSignalSpy>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {

// One menu item as the tree shows it.
struct Row {
    QString name, caption, shortcut, parent;
    bool separator = false;
};

void flatten(const std::vector<MenuNode>& nodes, const QString& parent, QList<Row>& rows) {
    for (const MenuNode& node : nodes) {
        const MenuItem* item = node.item;
        rows.append({item->name(), item->isSeparator() ? QString() : item->Caption(),
                     item->shortcut(), parent, item->isSeparator()});
        flatten(node.children, item->name(), rows);
    }
}

QList<Row> menuRows(const ShellMDI& shell) {
    QList<Row> rows;
    flatten(shell.menuBar(), QString(), rows);
    return rows;
}

// The toolbars, button by button: "tip,style,item" with style C a check button, D one with an
// arrow, and the menu item a press runs in Source view ("" none: the button has work of its
// own, or none there); "-" a separator, which does nothing.
const char* const kToolbars[] = {
    "tbrMain;New,D,mnuFileNewHTML;Open,,mnuFileOpen;Open On-line File,,mnuNet;Save,,mnuFileSave;-;"
    "Print,,mnuFilePrint;-;Cut,,mnuEditCut;Copy,,mnuEditCopy;Paste,,mnuEditPaste;-;"
    "Undo,,mnuEditUndo;Redo,,mnuEditRedo;-;Preview in Browser,D,mnuFilePrevDef;-;"
    "Show Forms Toolbar,C,mnuViewForms;Show Tag List,C,mnuViewTagList;-;"
    "Style Settings,,mnuInsertCSS;Link to Style Sheet,,mnuInsertLink;-;"
    "Insert Comment,,mnuInsertComment;-;Tell the world about Tessaline!,,",
    "tbrTags;Heading Tags,,;-;Font Settings,,mnuInsertFont;-;Bold,,mnuTagsBold;"
    "Italic,,mnuTagsItalic;Underline,,mnuTagsUnderline;-;Center,C,mnuTagsCenter;Right,C,;-;"
    "Page Properties,,mnuEditProperties;-;Insert Anchor,,mnuInsertAnchor;"
    "Insert Hyperlink,,mnuInsertHyperlink;-;Insert Image,,mnuInsertImage;"
    "Insert Marquee,,mnuInsertMarquee;Insert List,,mnuInsertBullet;"
    "Insert Blockquote,,mnuTagsBlock;-;Insert Table,,mnuInsertTable;Draw Table,,;-;"
    "Insert Paragraph,,mnuInsertParagraph",
    "tbrForms;Insert Form,,mnuInsertFormSettings;-;Insert Button,,;Insert Checkbox,,;"
    "Insert Combo Box,,;Insert Radio Button,,;Insert Text Box,,;Insert Multi-row Text Box,,;-;"
    "Insert Image,,;Insert Hidden Field,,"};

cToolbar& toolbarNamed(ShellMDI& shell, const QString& name) {
    if (name == QLatin1String("tbrMain")) return shell.tbrMain;
    if (name == QLatin1String("tbrTags")) return shell.tbrTags;
    return shell.tbrForms;
}

// Replaces every menu item's handler by a recorder, to see which handler a button runs.
void recordClicks(ShellMDI& shell, QStringList& clicked) {
    for (const Row& row : menuRows(shell))
        shell.menu(row.name).Click = [&clicked, name = row.name] { clicked.append(name); };
}

// A loaded shell whose document holds "word", all selected.
codeEditor& withWordSelected(TestShell& ts) {
    ts.load();
    codeEditor& doc = ts.active();
    doc.codebox().setText(QStringLiteral("word"));
    doc.codebox().setSelStart(0);
    doc.codebox().setSelLength(4);
    return doc;
}

const QString kNotYet = QStringLiteral("This command is not available yet.");

QString layoutCommands(TestShell& ts) {
    QStringList out;
    for (const auto& c : layoutOf(ts.active()).commands)
        out << QString::number(c.id);
    return out.join(u' ');
}

} // namespace

class CommandTableTest : public QObject {
    Q_OBJECT

  private slots:
    // The menus of the bar in order; no name and no accelerator twice; every item that opens
    // no submenu has a handler.
    void theMenuTree() {
        TestShell ts;
        QStringList bar;
        for (const MenuNode& node : ts->menuBar())
            bar.append(node.item->name());
        QCOMPARE(bar, words("mnuFile mnuEdit mnuInsert mnuTags mnuView mnuWindow mnuHelp"));
        QStringList names, shortcuts;
        const QList<Row> rows = menuRows(*ts);
        for (const Row& row : rows) {
            QVERIFY2(!names.contains(row.name), qPrintable(row.name));
            names.append(row.name);
            const bool submenu = std::any_of(rows.begin(), rows.end(),
                                             [&](const Row& o) { return o.parent == row.name; });
            if (!row.separator && !submenu)
                QVERIFY2(ts->menu(row.name).Click, qPrintable(row.name));
            if (row.shortcut.isEmpty()) continue;
            QVERIFY2(!shortcuts.contains(row.shortcut), qPrintable(row.shortcut));
            shortcuts.append(row.shortcut);
        }
        QVERIFY(shortcuts.contains(QStringLiteral("Ctrl+N")));
    }

    void startingStates() {
        TestShell ts;
        const QStringList offAtStart = words("mnuEditUndo mnuEditRedo mnuFormatRemove");
        const QStringList checkedAtStart = words("mnuViewStdTlb mnuViewFmtTlb");
        const QStringList hiddenAtStart =
            words("mnuFileMRU(0) mnuFileMRU(1) mnuFileMRU(2) mnuFileMRU(3) mnuFileBar6");
        for (const Row& row : menuRows(*ts)) {
            const MenuItem& item = ts->menu(row.name);
            QVERIFY2(item.Enabled() != offAtStart.contains(row.name), qPrintable(row.name));
            QVERIFY2(item.Checked() == checkedAtStart.contains(row.name), qPrintable(row.name));
            QVERIFY2(item.Visible() != hiddenAtStart.contains(row.name), qPrintable(row.name));
        }
    }

    void theLoadShowsShortcutTextBehindATab() {
        TestShell ts;
        ts.load();
        const QStringList captions =
            QStringLiteral(
                "mnuEditUndo|&Undo\tCtrl+Z|mnuEditCut|&Cut\tCtrl+X|mnuEditCopy|C&opy\tCtrl+C|"
                "mnuEditPaste|&Paste\tCtrl+V|mnuInsertBreak|&Line Break\tCtrl+Enter|"
                "mnuInsertParagraph|&Paragraph\tCtrl+Shift+P|"
                "mnuInsertSpace|&Non-breaking Space\tCtrl+Shift+Space")
                .split(u'|');
        for (int i = 0; i < captions.size(); i += 2) {
            QCOMPARE(ts->menu(captions.at(i)).Caption(), captions.at(i + 1));
            // Only for show: the Source pane handles these keys.
            QVERIFY(ts->menu(captions.at(i)).shortcut().isEmpty());
        }
    }

    // Each icon goes to its item; no other item has one.
    void menuIcons() {
        TestShell ts;
        const auto& iconPairs = ShellMDI::MenuIconPairs();
        for (const auto& [key, item] : iconPairs)
            QCOMPARE(ts->menu(item).iconKey(), key);
        int withIcon = 0;
        for (const Row& row : menuRows(*ts))
            if (!ts->menu(row.name).iconKey().isEmpty()) ++withIcon;
        QCOMPARE(withIcon, int(iconPairs.size()));
        QCOMPARE(ts->menu("mnuHelpContents").iconKey(), QStringLiteral("Help"));
    }

    // Each button's tip and style, and what a press runs in Source view.
    void toolbarButtons_data() {
        columns<QString, int, QString, QString, QString>(
            {"toolbar", "index", "tip", "style", "item"});
        for (const char* table : kToolbars) {
            QStringList buttons = QString::fromUtf8(table).split(u';');
            const QString name = buttons.takeFirst();
            for (int i = 0; i < buttons.size(); ++i) {
                const QStringList f = buttons.at(i).split(u',');
                QTest::addRow("%s %d", qPrintable(name), i)
                    << name << i << f.at(0) << f.value(1) << f.value(2);
            }
        }
    }
    void toolbarButtons() {
        QFETCH(QString, toolbar);
        QFETCH(int, index);
        QFETCH(QString, tip);
        QFETCH(QString, style);
        QFETCH(QString, item);
        TestShell ts;
        ts.load();
        cToolbar& bar = toolbarNamed(*ts, toolbar);
        const cToolbar::Button& b = bar.button(index);
        const bool sep = tip == QLatin1String("-");
        QCOMPARE(b.toolTip, sep ? QString() : tip);
        QCOMPARE(b.style, sep                           ? int(cToolbar::Separator)
                          : style == QLatin1String("C") ? int(cToolbar::Check)
                          : style == QLatin1String("D") ? int(cToolbar::DropDown)
                                                        : int(cToolbar::Normal));
        QCOMPARE(bar.imageSize(), 16);
        QStringList clicked;
        recordClicks(*ts, clicked);
        const QString before = ts.active().codebox().Text();
        bar.ButtonClick(index); // the handler, whether the button is on or not
        QCOMPARE(clicked, item.isEmpty() ? QStringList() : QStringList{item});
        if (sep) QCOMPARE(ts.active().codebox().Text(), before);
    }

    void toolbarStrips() {
        TestShell ts;
        QCOMPARE(ts->tbrMain.ButtonCount(), 25);
        QCOMPARE(ts->tbrTags.ButtonCount(), 25);
        QCOMPARE(ts->tbrForms.ButtonCount(), 11);
        QCOMPARE(ts->tbrMain.ImageFile, QStringLiteral("resources/toolbar1.tbr"));
        QCOMPARE(ts->tbrTags.ImageFile, QStringLiteral("resources/toolbar2.tbr"));
        QCOMPARE(ts->tbrForms.ImageFile, QStringLiteral("resources/toolbar3.tbr"));
    }

    // ---- the band strip ----

    void theBandsHoldTheToolbarsInOrder() {
        TestShell ts;
        const cReBar& bands = ts->cReBar1;
        QVERIFY(bands.created());
        QCOMPARE(bands.BandCount(), 3);
        const cToolbar* bars[] = {&ts->tbrMain, &ts->tbrTags, &ts->tbrForms};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(bands.BandKey(i), QStringLiteral("Toolbar%1").arg(i + 1));
            QCOMPARE(bands.BandChild(i), bars[i]);
        }
        QCOMPARE(bands.BandIndexForKey(QStringLiteral("Toolbar3")), 2);
        QCOMPARE(bands.BandIndexForKey(QStringLiteral("Toolbar9")), -1);
    }

    void aBandStripBeforeItExistsFails() {
        cReBar strip(QStringLiteral("cReBar1"));
        cToolbar bar(QStringLiteral("tbrMain")), two(QStringLiteral("two"));
        try {
            strip.AddBandByHwnd(&bar, QString(), QStringLiteral("Toolbar1"));
            QFAIL("a band was added before the strip existed");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.description(), QStringLiteral("No hWndRebar!"));
        }
        QVERIFY_THROWS_EXCEPTION(RuntimeError, strip.setBandVisible(0, false));
        strip.CreateRebar();
        QCOMPARE(strip.AddBandByHwnd(&bar, QString(), QStringLiteral("Toolbar1")), 0);
        QCOMPARE(errorOf([&] { strip.BandVisible(1); }), int(ErrSubscriptOutOfRange));
        // A band tells when it is shown or hidden, once per change.
        strip.AddBandByHwnd(&two, QString(), QStringLiteral("Toolbar2"));
        QSignalSpy changed(&strip, &Control::changed);
        QSignalSpy band(&strip, &cReBar::bandVisibleChanged);
        strip.setBandVisible(1, false);
        strip.setBandVisible(1, false);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(band.count(), 1);
        QCOMPARE(band.at(0), QVariantList({1, false}));
        QVERIFY(strip.BandVisible(0) && !strip.BandVisible(1));
    }

    // ---- what the buttons do besides running a menu item ----

    void theArrowsAndHeadingsPopUpTheirMenus() {
        TestShell ts;
        ts.load();
        QSignalSpy popups(ts.shell.get(), &ShellMDI::popupMenuRequested);
        ts->tbrMain.press(0);
        QCOMPARE(ts->documents().size(), size_t(2));
        QCOMPARE(ts.active().CSSDoc, QStringLiteral("No"));
        QCOMPARE(popups.count(), 0);
        ts->tbrMain.pressArrow(0);
        ts->tbrMain.pressArrow(14);
        ts->tbrMain.pressArrow(1); // no arrow
        ts->tbrTags.press(0);
        QStringList menus;
        for (const auto& popup : popups)
            menus.append(popup.at(0).toString());
        QCOMPARE(menus, words("mnuFileNew mnuFilePreview mnuHeadings"));
    }

    void theEditButtonsWorkThroughTheirItems() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(6);
        ts->tbrMain_ButtonClick(8); // Copy
        QCOMPARE(ts.platform.clipboard, QStringLiteral("<html>"));
        ts->tbrMain_ButtonClick(22); // comment
        QVERIFY(doc.codebox().Text().startsWith(QStringLiteral("<!-- <html> -->")));
        ts->tbrMain_ButtonClick(11); // undo
        QVERIFY(doc.codebox().Text().startsWith(QStringLiteral("<html>\n")));
        ts->tbrMain_ButtonClick(12); // redo
        QVERIFY(doc.codebox().Text().startsWith(QStringLiteral("<!-- <html> -->")));
        QVERIFY(ts.platform.messages.isEmpty());
    }

    // In Layout view: button, presses, the surface's commands; the text stays.
    void tagsButtonsInLayoutView_data() {
        columns<int, int, QString>({"index", "presses", "commands"});
        QTest::newRow("bold") << 4 << 1 << QString::number(layoutcmd::Bold);
        QTest::newRow("italic") << 5 << 1 << QString::number(layoutcmd::Italic);
        QTest::newRow("underline") << 6 << 1 << QString::number(layoutcmd::Underline);
        QTest::newRow("font") << 2 << 1 << QString::number(layoutcmd::FontDialog);
        // A press turns Center or Right over; its state after the press picks the alignment.
        QTest::newRow("center")
            << 8 << 2
            << QStringLiteral("%1 %2").arg(layoutcmd::JustifyCenter).arg(layoutcmd::JustifyLeft);
        QTest::newRow("right")
            << 9 << 2
            << QStringLiteral("%1 %2").arg(layoutcmd::JustifyRight).arg(layoutcmd::JustifyLeft);
    }
    void tagsButtonsInLayoutView() {
        QFETCH(int, index);
        QFETCH(int, presses);
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        QStringList clicked;
        recordClicks(*ts, clicked);
        const QString before = ts.active().codebox().Text();
        for (int i = 0; i < presses; ++i)
            ts->tbrTags.press(index);
        QTEST(layoutCommands(ts), "commands");
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(clicked.isEmpty());
        QCOMPARE(layoutOf(ts.active()).focusCount, index == 2 ? 1 : 0);
        QVERIFY(!ts->tbrTags.ButtonChecked(index));
    }

    // The Right button does nothing in Source view (its row above), while the item wraps.
    void rightWrapsFromTheMenuOnly() {
        TestShell ts;
        codeEditor& doc = withWordSelected(ts);
        ts->tbrTags.press(9);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("word"));
        ts->runMenuClick(QStringLiteral("mnuTagsRight"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p align=\"right\">word</p>"));
    }

    void formsButtons() {
        TestShell ts;
        ts.load();
        const QStringList kinds = QStringLiteral(",,Button,Check Box,List,Radio Button,Text Box,"
                                                 "Multi-row Text Box,,Image,Hidden Field,")
                                      .split(u',');
        for (int i = 0; i < kinds.size(); ++i)
            QCOMPARE(ShellMDI::FormsButtonKind(i), kinds.at(i));
        // The form component dialog is not there yet.
        ts->tbrForms.press(10);
        QCOMPARE(ts.platform.messageTexts(), QStringList{kNotYet});
    }
};

QTEST_GUILESS_MAIN(CommandTableTest)
#include "test_command_table.moc"
