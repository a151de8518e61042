// The command vocabulary: the shape of the menu tree, the menu icons, the three toolbars
// button by button, the band strip, and what each toolbar button runs.
#include "editor/text_pane.h"
#include "gadgets/rebar.h"
#include "runtime/runtime_error.h"
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

// The toolbars: "tip,image,style" per button, style C a check button, D one with an arrow;
// "-" a separator. Center and Right are check buttons: their state after a press picks the
// alignment.
const char* const kToolbars[] = {
    "tbrMain;New,0,D;Open,1;Open On-line File,2;Save,3;-;Print,4;-;Cut,5;Copy,6;Paste,7;-;"
    "Undo,8;Redo,16;-;Preview in Browser,9,D;-;Show Forms Toolbar,10,C;Show Tag List,11,C;-;"
    "Style Settings,12;Link to Style Sheet,13;-;Insert Comment,14;-;"
    "Tell the world about Tessaline!,15",
    "tbrTags;Heading Tags,0;-;Font Settings,2;-;Bold,3;Italic,4;Underline,5;-;Center,6,C;"
    "Right,7,C;-;Page Properties,8;-;Insert Anchor,9;Insert Hyperlink,10;-;Insert Image,11;"
    "Insert Marquee,12;Insert List,13;Insert Blockquote,17;-;Insert Table,14;Draw Table,15;-;"
    "Insert Paragraph,16",
    "tbrForms;Insert Form,0;-;Insert Button,1;Insert Checkbox,2;Insert Combo Box,3;"
    "Insert Radio Button,4;Insert Text Box,5;Insert Multi-row Text Box,6;-;Insert Image,7;"
    "Insert Hidden Field,8"};

cToolbar& toolbarNamed(ShellMDI& shell, const QString& name) {
    if (name == QLatin1String("tbrMain")) return shell.tbrMain;
    if (name == QLatin1String("tbrTags")) return shell.tbrTags;
    return shell.tbrForms;
}

// Replaces menu items' handlers by a recorder, to see which handler a button runs.
struct ClickRecorder {
    QStringList clicked;
    void watch(ShellMDI& shell, const QStringList& names) {
        for (const QString& name : names)
            shell.menu(name).Click = [this, name] { clicked.append(name); };
    }
};

// A loaded shell whose document holds "word", all selected.
codeEditor& withWordSelected(TestShell& ts) {
    ts.load();
    codeEditor& doc = ts.active();
    doc.codebox().setText(QStringLiteral("word"));
    doc.codebox().setSelStart(0);
    doc.codebox().setSelLength(4);
    return doc;
}

DetachedLayout& layoutOf(TestShell& ts) {
    return static_cast<DetachedLayout&>(ts.active().DHTMLEdit1());
}

const QString kNotYet = QStringLiteral("This command is not available yet.");

} // namespace

class CommandTableTest : public QObject {
    Q_OBJECT

  private slots:
    // The menus of the bar in order; no name and no accelerator twice.
    void theMenuTree() {
        TestShell ts;
        QStringList bar;
        for (const MenuNode& node : ts->menuBar())
            bar.append(node.item->name());
        QCOMPARE(bar, words("mnuFile mnuEdit mnuInsert mnuTags mnuView mnuWindow mnuHelp"));
        QStringList names, shortcuts;
        for (const Row& row : menuRows(*ts)) {
            QVERIFY2(!names.contains(row.name), qPrintable(row.name));
            names.append(row.name);
            if (row.shortcut.isEmpty()) continue;
            QVERIFY2(!shortcuts.contains(row.shortcut), qPrintable(row.shortcut));
            shortcuts.append(row.shortcut);
        }
        QVERIFY(shortcuts.contains(QStringLiteral("Ctrl+N")));
    }

    void everyCommandHasAHandler() {
        TestShell ts;
        const QList<Row> rows = menuRows(*ts);
        for (const Row& row : rows) {
            const bool submenu = std::any_of(rows.begin(), rows.end(),
                                             [&](const Row& o) { return o.parent == row.name; });
            if (!row.separator && !submenu)
                QVERIFY2(ts->menu(row.name).Click, qPrintable(row.name));
        }
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

    void dateCaptionsFollowTheClockEachTimeTheInsertMenuOpens() {
        TestShell ts;
        ts.load();
        for (int i = 1; i <= 4; ++i)
            QCOMPARE(ts->menu(QStringLiteral("mnuInsertDate%1").arg(i)).Caption(), ts->dateText(i));
        QVERIFY(ts->menu("mnuInsertDate2").Caption().endsWith(QStringLiteral(" 10:30:00")));
        ts.platform.clock = ts.platform.clock.addSecs(3725);
        QVERIFY(ts->dispatch(ts->menu("mnuInsert").Click));
        QVERIFY(ts->menu("mnuInsertDate2").Caption().endsWith(QStringLiteral(" 11:32:05")));
        QVERIFY(ts->menu("mnuInsertDate4").Caption().endsWith(QStringLiteral(" 11:32:05")));
        QCOMPARE(ts->menu("mnuInsertDate3").Caption(),
                 QLocale::system().toString(ts.platform.clock.date(), QStringLiteral("dd/MM/yy")));
    }

    void theFirstDateItemsStateGoesToAllFour() {
        TestShell ts;
        ts.load();
        ts->menu("mnuInsertDate1").setEnabled(false);
        ts->menu("mnuInsertDate3").setEnabled(true);
        ts->mnuInsert_Click();
        for (int i = 1; i <= 4; ++i)
            QVERIFY(!ts->menu(QStringLiteral("mnuInsertDate%1").arg(i)).Enabled());
    }

    // The icon pairs in their order; no other item has an icon.
    void menuIcons() {
        const QStringList pairs = words(
            "New mnuFileNew Open mnuFileOpen Save mnuFileSave Print mnuFilePrint Undo mnuEditUndo "
            "Redo mnuEditRedo Cut mnuEditCut Copy mnuEditCopy Paste mnuEditPaste Find mnuEditFind "
            "Hyperlink mnuInsertHyperlink Style mnuInsertCSS LinkToCSS mnuInsertLink "
            "Anchor mnuInsertAnchor Table mnuInsertTable Image mnuInsertImage "
            "Marquee mnuInsertMarquee Paragraph mnuInsertParagraph Form mnuInsertFormSettings "
            "Comment mnuInsertComment Font mnuInsertFont Bold mnuTagsBold Italic mnuTagsItalic "
            "Underline mnuTagsUnderline Heading mnuHeadings Help mnuHelpContents");
        TestShell ts;
        const auto& iconPairs = ShellMDI::MenuIconPairs();
        QCOMPARE(int(iconPairs.size()) * 2, pairs.size());
        for (int i = 0; i < pairs.size(); i += 2) {
            QCOMPARE(ts->menu(pairs.at(i + 1)).iconKey(), pairs.at(i));
            QCOMPARE(iconPairs.at(i / 2).first, pairs.at(i));
        }
        int withIcon = 0;
        for (const Row& row : menuRows(*ts))
            if (!ts->menu(row.name).iconKey().isEmpty()) ++withIcon;
        QCOMPARE(withIcon, 26);
    }

    void toolbarButtons() {
        TestShell ts;
        for (const char* table : kToolbars) {
            QStringList buttons = QString::fromUtf8(table).split(u';');
            const QString name = buttons.takeFirst();
            cToolbar& bar = toolbarNamed(*ts, name);
            QCOMPARE(bar.ButtonCount(), buttons.size());
            QCOMPARE(bar.imageSize(), 16);
            for (int i = 0; i < buttons.size(); ++i) {
                const QStringList f = buttons.at(i).split(u',');
                const bool sep = f.at(0) == QLatin1String("-");
                const QString style = f.value(2);
                const int wantStyle = sep                           ? cToolbar::Separator
                                      : style == QLatin1String("C") ? cToolbar::Check
                                      : style == QLatin1String("D") ? cToolbar::DropDown
                                                                    : cToolbar::Normal;
                const cToolbar::Button& b = bar.button(i);
                const QByteArray where = name.toUtf8() + ' ' + QByteArray::number(i);
                QVERIFY2(b.toolTip == (sep ? QString() : f.at(0)), where);
                QVERIFY2(b.image == (sep ? -1 : f.at(1).toInt()), where);
                QVERIFY2(b.style == wantStyle, where);
            }
        }
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
        try {
            strip.BandVisible(1);
            QFAIL("a band that is not there answered");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.number(), int(ErrSubscriptOutOfRange));
        }
    }

    void aBandTellsWhenItIsShownOrHidden() {
        cReBar strip(QStringLiteral("cReBar1"));
        cToolbar one(QStringLiteral("one")), two(QStringLiteral("two"));
        strip.CreateRebar();
        strip.AddBandByHwnd(&one, QString(), QStringLiteral("Toolbar1"));
        strip.AddBandByHwnd(&two, QString(), QStringLiteral("Toolbar2"));
        QVERIFY(strip.BandVisible(0) && strip.BandVisible(1));
        QSignalSpy changed(&strip, &Control::changed);
        QSignalSpy band(&strip, &cReBar::bandVisibleChanged);
        strip.setBandVisible(1, false);
        strip.setBandVisible(1, false); // no change, no signal
        QCOMPARE(changed.count(), 1);
        QCOMPARE(band.count(), 1);
        QCOMPARE(band.at(0).at(0).toInt(), 1);
        QCOMPARE(band.at(0).at(1).toBool(), false);
        QVERIFY(strip.BandVisible(0) && !strip.BandVisible(1));
    }

    // ---- what the buttons run ----

    // "toolbar index item" per button whose press runs a menu item's handler in Source view.
    void buttonsRunTheirMenuCommands() {
        const QStringList rows = words(
            "tbrMain 2 mnuNet tbrMain 5 mnuFilePrint tbrMain 14 mnuFilePrevDef "
            "tbrMain 19 mnuInsertCSS tbrMain 20 mnuInsertLink tbrTags 2 mnuInsertFont "
            "tbrTags 11 mnuEditProperties tbrTags 13 mnuInsertAnchor "
            "tbrTags 14 mnuInsertHyperlink tbrTags 16 mnuInsertImage tbrTags 17 mnuInsertMarquee "
            "tbrTags 18 mnuInsertBullet tbrForms 0 mnuInsertFormSettings");
        QStringList items;
        for (int i = 2; i < rows.size(); i += 3)
            items.append(rows.at(i));
        for (int i = 0; i < rows.size(); i += 3) {
            TestShell ts;
            ts.load();
            ClickRecorder recorder;
            recorder.watch(*ts, items);
            toolbarNamed(*ts, rows.at(i)).press(rows.at(i + 1).toInt());
            QVERIFY2(recorder.clicked == QStringList{rows.at(i + 2)},
                     qPrintable(rows.at(i) + ' ' + rows.at(i + 1)));
        }
    }

    void newAndItsArrow() {
        TestShell ts;
        ts.load();
        QSignalSpy popups(ts.shell.get(), &ShellMDI::popupMenuRequested);
        ts->tbrMain.press(0);
        QCOMPARE(ts->documents().size(), size_t(2));
        QCOMPARE(ts.active().Caption(), QStringLiteral("Document 2"));
        QCOMPARE(ts.active().CSSDoc, QStringLiteral("No"));
        QCOMPARE(popups.count(), 0);
        ts->tbrMain.pressArrow(0);
        ts->tbrMain.pressArrow(14);
        ts->tbrMain.pressArrow(1); // no arrow
        QCOMPARE(popups.count(), 2);
        QCOMPARE(popups.at(0).at(0).toString(), QStringLiteral("mnuFileNew"));
        QCOMPARE(popups.at(1).at(0).toString(), QStringLiteral("mnuFilePreview"));
    }

    void openSaveAndTheEditButtons() {
        TestShell ts;
        ts.load();
        codeEditor& doc = ts.active();
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::cancel());
        ts->tbrMain.press(1);
        QCOMPARE(ts.platform.fileDialogsShown.size(), 1);
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

    void separatorsDoNothing() {
        TestShell ts;
        ts.load();
        const QString before = ts.active().codebox().Text();
        for (int i : {4, 6, 10, 13, 15, 18, 21, 23})
            ts->tbrMain_ButtonClick(i);
        for (int i : {1, 3, 7, 10, 12, 15, 20, 23})
            ts->tbrTags_ButtonClick(i);
        for (int i : {1, 8})
            ts->tbrForms_ButtonClick(i);
        QCOMPARE(ts.active().codebox().Text(), before);
        QVERIFY(ts.platform.messages.isEmpty());
        QCOMPARE(ts->documents().size(), size_t(1));
    }

    void tagsWrappersInSourceView() {
        const std::pair<int, const char*> cases[] = {{4, "<b>word</b>"},
                                                     {5, "<i>word</i>"},
                                                     {6, "<u>word</u>"},
                                                     {8, "<center>word</center>"},
                                                     {19, "<blockquote>word</blockquote>"},
                                                     {24, "<p>word"}};
        for (const auto& [index, wrapped] : cases) {
            TestShell ts;
            codeEditor& doc = withWordSelected(ts);
            ts->tbrTags_ButtonClick(index);
            QCOMPARE(doc.codebox().Text(), QString::fromUtf8(wrapped));
        }
    }

    void rightDoesNothingInSourceView() {
        TestShell ts;
        codeEditor& doc = withWordSelected(ts);
        ClickRecorder recorder;
        recorder.watch(*ts, {QStringLiteral("mnuTagsRight")});
        ts->tbrTags.press(9);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("word"));
        QVERIFY(recorder.clicked.isEmpty());
        QVERIFY(ts.platform.messages.isEmpty());
        // While the menu item does wrap.
        ts->mnuTagsRight_Click();
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p align=\"right\">word</p>"));
    }

    void headingsPopsUpItsMenu() {
        TestShell ts;
        ts.load();
        QSignalSpy popups(ts.shell.get(), &ShellMDI::popupMenuRequested);
        ts->tbrTags.press(0);
        QCOMPARE(popups.count(), 1);
        QCOMPARE(popups.at(0).at(0).toString(), QStringLiteral("mnuHeadings"));
    }

    void tagsButtonsInLayoutView() {
        for (const auto& [index, command] :
             {std::pair{4, int(layoutcmd::Bold)}, std::pair{5, int(layoutcmd::Italic)},
              std::pair{6, int(layoutcmd::Underline)}}) {
            TestShell ts;
            ts.load();
            ts->bLayoutActive = true;
            const QString before = ts.active().codebox().Text();
            ts->tbrTags.press(index);
            QCOMPARE(layoutOf(ts).commands.size(), 1);
            QCOMPARE(layoutOf(ts).commands.at(0).id, command);
            QCOMPARE(ts.active().codebox().Text(), before);
        }
    }

    void fontSettingsInLayoutViewOpensTheSurfacesDialog() {
        TestShell ts;
        ts.load();
        ts->bLayoutActive = true;
        ClickRecorder recorder;
        recorder.watch(*ts, {QStringLiteral("mnuInsertFont")});
        ts->tbrTags.press(2);
        QCOMPARE(layoutOf(ts).commands.size(), 1);
        QCOMPARE(layoutOf(ts).commands.at(0).id, int(layoutcmd::FontDialog));
        QCOMPARE(layoutOf(ts).focusCount, 1);
        QVERIFY(recorder.clicked.isEmpty());
    }

    void centerAndRightPickByTheirPressedState() {
        for (const auto& [index, on] : {std::pair{8, int(layoutcmd::JustifyCenter)},
                                        std::pair{9, int(layoutcmd::JustifyRight)}}) {
            TestShell ts;
            ts.load();
            ts->bLayoutActive = true;
            // A press turns the button on: the alignment goes on.
            ts->tbrTags.press(index);
            QVERIFY(ts->tbrTags.ButtonChecked(index));
            // The next turns it off: back to the left.
            ts->tbrTags.press(index);
            QVERIFY(!ts->tbrTags.ButtonChecked(index));
            // The handler alone reads the state as it stands.
            ts->tbrTags.setButtonChecked(index, true);
            ts->tbrTags_ButtonClick(index);
            const auto& commands = layoutOf(ts).commands;
            QCOMPARE(commands.size(), 3);
            QCOMPARE(commands.at(0).id, on);
            QCOMPARE(commands.at(1).id, int(layoutcmd::JustifyLeft));
            QCOMPARE(commands.at(2).id, on);
        }
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

    void theBadgeButton() {
        TestShell ts;
        ts.load();
        ts->tbrMain.press(24);
        QVERIFY(
            ts.active().codebox().Text().contains(QStringLiteral("\n") + ShellMDI::kBadgeMarkup));
    }
};

QTEST_GUILESS_MAIN(CommandTableTest)
#include "test_command_table.moc"
