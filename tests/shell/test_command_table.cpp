// The command vocabulary: the menu tree's rules, the toolbars' presses in each view, the bands
// and the popups.
#include "gadgets/rebar.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QSignalSpy>

using namespace tsl;
using namespace tsl::test;

namespace {
// Every item of the menu tree, with whether it opens a submenu.
void flatten(const std::vector<MenuNode>& nodes, QList<std::pair<MenuItem*, bool>>& out) {
    for (const MenuNode& node : nodes) {
        out.append({node.item, !node.children.empty()});
        flatten(node.children, out);
    }
}
QList<std::pair<MenuItem*, bool>> menuItems(const ShellMDI& shell) {
    QList<std::pair<MenuItem*, bool>> out;
    flatten(shell.menuBar(), out);
    return out;
}

// Replaces every menu item's handler by a recorder, to see which handler a button runs.
void recordClicks(ShellMDI& shell, QStringList& clicked) {
    for (const auto& [item, submenu] : menuItems(shell))
        item->Click = [&clicked, name = item->name()] { clicked.append(name); };
}

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
    // no submenu has a handler; what is off, checked and hidden at start.
    void theMenuTree() {
        TestShell ts;
        QStringList bar, names, shortcuts;
        for (const MenuNode& node : ts->menuBar())
            bar.append(node.item->name());
        QCOMPARE(bar, words("mnuFile mnuEdit mnuInsert mnuTags mnuView mnuWindow mnuHelp"));
        const QStringList off = words("mnuEditUndo mnuEditRedo mnuFormatRemove");
        const QStringList checked = words("mnuViewStdTlb mnuViewFmtTlb");
        const QStringList hidden =
            words("mnuFileMRU(0) mnuFileMRU(1) mnuFileMRU(2) mnuFileMRU(3) mnuFileBar6");
        for (const auto& [item, submenu] : menuItems(*ts)) {
            const QString name = item->name();
            QVERIFY2(!names.contains(name), qPrintable(name));
            names.append(name);
            QVERIFY2(item->isSeparator() || submenu || item->Click, qPrintable(name));
            QVERIFY2(item->Enabled() != off.contains(name), qPrintable(name));
            QVERIFY2(item->Checked() == checked.contains(name), qPrintable(name));
            QVERIFY2(item->Visible() != hidden.contains(name), qPrintable(name));
            if (item->shortcut().isEmpty()) continue;
            QVERIFY2(!shortcuts.contains(item->shortcut()), qPrintable(item->shortcut()));
            shortcuts.append(item->shortcut());
        }
        QVERIFY(shortcuts.contains(QStringLiteral("Ctrl+N")));
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

    // In Source view a press runs one menu item at most, no two buttons the same one, and a
    // separator does nothing. A button that is on runs an item that is on.
    void eachPressRunsAtMostOneItem() {
        TestShell ts;
        ts.load();
        QStringList clicked, ran;
        recordClicks(*ts, clicked);
        for (cToolbar* bar : {&ts->tbrMain, &ts->tbrTags, &ts->tbrForms}) {
            QCOMPARE(bar->imageSize(), 16);
            for (int i = 0; i < bar->ButtonCount(); ++i) {
                const QString at = bar->name() + QString::number(i);
                clicked.clear();
                bar->ButtonClick(i); // the handler, whether the button is on or not
                QVERIFY2(clicked.size() <= 1, qPrintable(at));
                if (bar->button(i).style == cToolbar::Separator)
                    QVERIFY2(clicked.isEmpty() && bar->button(i).toolTip.isEmpty(), qPrintable(at));
                for (const QString& item : clicked) {
                    QVERIFY2(!ran.contains(item), qPrintable(at));
                    QVERIFY2(!bar->ButtonEnabled(i) || ts->menu(item).Enabled(), qPrintable(at));
                }
                ran += clicked;
            }
        }
        QVERIFY(ran.contains(QStringLiteral("mnuFileNewHTML")));
    }

    void theBandsHoldTheToolbarsInOrder() {
        TestShell ts;
        const cReBar& bands = ts->cReBar1;
        QVERIFY(bands.created());
        QCOMPARE(bands.BandCount(), 3);
        const cToolbar* bars[] = {&ts->tbrMain, &ts->tbrTags, &ts->tbrForms};
        const int buttons[] = {25, 25, 11};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(bands.BandKey(i), QStringLiteral("Toolbar%1").arg(i + 1));
            QCOMPARE(bands.BandChild(i), bars[i]);
            QCOMPARE(bars[i]->ImageFile, QStringLiteral("resources/toolbar%1.tbr").arg(i + 1));
            QCOMPARE(bars[i]->ButtonCount(), buttons[i]);
        }
        QCOMPARE(bands.BandIndexForKey(QStringLiteral("Toolbar3")), 2);
        QCOMPARE(bands.BandIndexForKey(QStringLiteral("Toolbar9")), -1);
        // A strip not created yet refuses bands with its own message.
        cReBar strip(QStringLiteral("cReBar1"));
        cToolbar bar(QStringLiteral("tbrMain"));
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
        QSignalSpy changed(&strip, &Control::changed);
        strip.setBandVisible(0, false);
        strip.setBandVisible(0, false);
        QCOMPARE(changed.count(), 1);
    }

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

    // Copy, comment, undo, redo by their buttons, and Undo and Redo turning on and off.
    void theEditButtonsWorkThroughTheirItems() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        const auto undoRedo = [&] {
            return QString::number(ts->menu("mnuEditUndo").Enabled()) +
                   QString::number(ts->tbrMain.ButtonEnabled(11)) +
                   QString::number(ts->menu("mnuEditRedo").Enabled()) +
                   QString::number(ts->tbrMain.ButtonEnabled(12));
        };
        const QString skeleton = doc.codebox().Text();
        const QString commented = QStringLiteral("<!-- <html> -->") + skeleton.mid(6);
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(6);
        ts->tbrMain_ButtonClick(8); // Copy
        QCOMPARE(ts.platform.clipboard, QStringLiteral("<html>"));
        QCOMPARE(undoRedo(), "0000");
        ts->tbrMain_ButtonClick(22); // comment
        QCOMPARE(doc.codebox().Text(), commented);
        QCOMPARE(undoRedo(), "1100");
        ts->tbrMain_ButtonClick(11); // undo
        QCOMPARE(doc.codebox().Text(), skeleton);
        QCOMPARE(undoRedo(), "0011");
        ts->tbrMain_ButtonClick(12); // redo
        QCOMPARE(doc.codebox().Text(), commented);
        QCOMPARE(undoRedo(), "1100");
        // A new step after an undo leaves nothing to redo.
        ts->tbrMain_ButtonClick(11);
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(6);
        ts->tbrMain_ButtonClick(22);
        QCOMPARE(doc.codebox().Text(), commented);
        QCOMPARE(undoRedo(), "1100");
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

    // The Right button does nothing in Source view, while the item wraps.
    void rightWrapsFromTheMenuOnly() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        doc.codebox().setText(QStringLiteral("word"));
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(4);
        ts->tbrTags.press(9);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("word"));
        ts->runMenuClick(QStringLiteral("mnuTagsRight"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p align=\"right\">word</p>"));
    }

    // The form component buttons say the dialog is not there yet.
    void formsButtons() {
        TestShell ts;
        ts.load();
        for (int i : {2, 3, 4, 5, 6, 7, 9, 10})
            ts->tbrForms.press(i);
        QCOMPARE(ts.platform.messageTexts(),
                 QStringList(8, QStringLiteral("This command is not available yet.")));
    }
};

QTEST_GUILESS_MAIN(CommandTableTest)
#include "test_command_table.moc"
