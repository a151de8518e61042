// The menu tree, the toolbars' presses, the popups; which commands are on by the document in
// front and its view; the view toggles and the settings they write.
#include "shell_helpers.h"
#include "test_rows.h"
#include <QSignalSpy>
#include <QTemporaryDir>

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
const QString kPageButtons = QStringLiteral("0 1 2 3 5 14 16 17 19 20 22 24");

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

// Bands and tag list pane; the four flags; the View menu checks; the Forms and Tag List buttons.
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

// "Document 1" and the style sheet "Document 2" in front (brought forward again, as a sheet).
codeEditor& withStyleSheet(TestShell& ts, bool load = true) {
    if (load) ts.load();
    codeEditor& page = ts.active();
    ts->mnuFileNewCSS_Click();
    codeEditor& sheet = ts.active();
    page.ZOrder();
    sheet.ZOrder();
    return sheet;
}
} // namespace

class CommandsTest : public QObject {
    Q_OBJECT

  private slots:
    // The menus in order; no name or accelerator twice; every leaf has a handler; the start state.
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

    // Shortcut text only for show: the Source pane handles these keys.
    void theLoadShowsShortcutTextBehindATab() {
        Loaded ts;
        QStringList captions;
        for (const char* item : {"mnuEditUndo", "mnuEditCut", "mnuEditCopy", "mnuEditPaste",
                                 "mnuInsertBreak", "mnuInsertParagraph", "mnuInsertSpace"})
            captions << ts->menu(item).Caption() + ts->menu(item).shortcut();
        QCOMPARE(captions.join(u'|'),
                 "&Undo\tCtrl+Z|&Cut\tCtrl+X|C&opy\tCtrl+C|&Paste\tCtrl+V|&Line "
                 "Break\tCtrl+Enter|&Paragraph\tCtrl+Shift+P|&Non-breaking "
                 "Space\tCtrl+Shift+Space");
    }

    // In Source view a press runs at most one item, no two buttons the same; an on button an on
    // item.
    void eachPressRunsAtMostOneItem() {
        Loaded ts;
        QStringList clicked, ran;
        recordClicks(*ts, clicked);
        // The forms toolbar's eight kinds open Form Components with no menu item between.
        for (int i = 0; i < 8; ++i)
            ts.forms.scripts.enqueue([](Form& form) { form.Unload(); });
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
        QCOMPARE(ts.forms.shown, QStringList(8, QStringLiteral("frmForm")));
    }

    void theArrowsAndHeadingsPopUpTheirMenus() {
        Loaded ts;
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
        Loaded ts;
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
        QCOMPARE(ts.platform.clipboard + undoRedo(), "<html>0000");
        for (auto [button, after, state] : {std::tuple{22, commented, "1100"},
                                            {11, skeleton, "0011"},
                                            {12, commented, "1100"},
                                            {11, skeleton, "0011"},
                                            {-22, commented, "1100"}}) {
            if (button < 0) doc.codebox().setSelStart(0), doc.codebox().setSelLength(6);
            ts->tbrMain_ButtonClick(qAbs(button));
            QCOMPARE(doc.codebox().Text() + undoRedo(), after + state);
        }
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
        Loaded ts;
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
        Loaded ts;
        codeEditor& doc = ts.active();
        doc.codebox().setText(QStringLiteral("word"));
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(4);
        ts->tbrTags.press(9);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("word"));
        ts->runMenuClick(QStringLiteral("mnuTagsRight"));
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p align=\"right\">word</p>"));
    }

    // Every item of the menus runs a command of its own: none is left unbound.
    void everyItemIsBound() {
        Loaded ts;
        QStringList unbound;
        std::function<void(const std::vector<MenuNode>&)> walk = [&](const auto& nodes) {
            for (const MenuNode& node : nodes) {
                if (!node.children.empty())
                    walk(node.children);
                else if (!node.item->isSeparator() && !node.item->Click)
                    unbound.append(node.item->name());
            }
        };
        walk(ts->menuBar());
        QCOMPARE(unbound, QStringList());
    }

    // Stored Standard, Tags, Forms, TagList ("-" unwritten; only "Yes" is on) and the flags.
    void startShowsTheBandsTheSettingsSay_data() {
        columns<QStringList>({"row"});
        for (const char* row : {"-|-|-|-|1100", "Yes|Yes|Yes|Yes|1111", "No|No|No|No|0000",
                                "No|No|Yes|Yes|0011", "Yes|No|No|No|1000", "1||yes|YES|0000"})
            QTest::newRow(row) << QString(row).split(u'|');
    }
    void startShowsTheBandsTheSettingsSay() {
        QFETCH(QStringList, row);
        const char* const keys[] = {"Standard Toolbar Open", "Tags Toolbar Open",
                                    "Forms Toolbar Open", "TagListOpen"};
        TestShell ts;
        for (int k = 0; k < 4; ++k)
            if (row.at(k) != QLatin1String("-")) ts.settings.save("Fuzzies", keys[k], row.at(k));
        const int writes = ts.settings.writeCount();
        ts.load();
        QCOMPARE(viewState(*ts), synced(row.at(4)));
        QCOMPARE(ts.settings.writeCount(), writes);
    }

    // Each view toggle, the flag it flips, and the key it writes at once (toolbars: at exit).
    void viewToggles_data() {
        columns<QStringList>({"row"});
        for (const char* row : {"mnuViewStdTlb|0|", "mnuViewFmtTlb|1|", "mnuViewForms|2|", "16|2|",
                                "mnuViewTagList|3|TagListOpen", "17|3|TagListOpen"})
            QTest::newRow(row) << QString(row).split(u'|');
    }
    void viewToggles() {
        QFETCH(QStringList, row);
        const int flag = row.at(1).toInt();
        const QString key = row.at(2);
        Loaded ts;
        QString flags = QStringLiteral("1100");
        for (int round = 1; round <= 2; ++round) {
            bool isButton = false;
            const int button = row.at(0).toInt(&isButton);
            if (isButton)
                ts->tbrMain.press(button);
            else
                QVERIFY(ts->dispatch(ts->menu(row.at(0)).Click));
            flags[flag] = flags.at(flag) == u'1' ? u'0' : u'1';
            QCOMPARE(viewState(*ts), synced(flags));
            QCOMPARE(ts.settings.writeCount(), key.isEmpty() ? 0 : round);
            if (!key.isEmpty())
                QCOMPARE(ts.settings.get("Fuzzies", key), flags.at(flag) == u'1' ? "Yes" : "No");
        }
        QVERIFY(ts.platform.messages.isEmpty());
    }

    // With the Forms toolbar and the tag list open, a row a situation: the document commands
    // on ("all" but those named; "-css" those a style sheet turns off), the buttons on of the
    // three toolbars ("T", "F" all), tabs shown|commands disabled|Layout active|Redo on, the
    // view, the file dialog's filter. Layout and Preview have text selected and a step to redo.
    void byKindAndView_data() {
        columns<QString, QStringList>({"setup", "expected"});
        const QString off = QStringLiteral("-mnuEditUndo -mnuFormatRemove -mnuEditPaste");
        for (const QString& row :
             {"source|all -mnuEditCut -mnuEditCopy " + off + u'|' + kPageButtons +
                  "|T|F|1000|1111 1111 1111 11|1",
              "layout|all " + off +
                  "|0 1 2 3 5 7 8 12 14 16 17 19 20 24|0 2 4 5 6 8 9 11 13 14 16 17 19 21 22 "
                  "24|F|1011|1111 1111 1111 11|1",
              QStringLiteral("preview|mnuFilePrint mnuFilePreview|0 1 2 5 14 16 17|||1000|1111 "
                             "1111 1111 11|1"),
              // Bands and pane hidden, flags untouched, check marks as they were.
              "sheet|all -css -mnuEditCut -mnuEditCopy " + off +
                  "|0 1 2 3 5 19 22|T|F|1000|1000 1111 1111 11|2",
              // Redo's button is not touched.
              QStringLiteral("none||0 1 2 16 17|||0100|1111 1111 1111 11|1")}) {
            QStringList f = QString(row).split(u'|');
            if (f.at(3) == u'T')
                f[3] = QStringLiteral("0 2 4 5 6 8 9 11 13 14 16 17 18 19 21 22 24");
            if (f.at(4) == u'F') f[4] = QStringLiteral("0 2 3 4 5 6 7 9 10");
            QTest::newRow(qPrintable(f.at(0))) << f.takeFirst() << f;
        }
    }
    void byKindAndView() {
        QFETCH(QString, setup);
        QFETCH(QStringList, expected);
        TestShell ts;
        ts.settings.save("Fuzzies", "Forms Toolbar Open", "Yes");
        ts.settings.save("Fuzzies", "TagListOpen", "Yes");
        if (setup == QLatin1String("sheet")) {
            QCOMPARE(withStyleSheet(ts).CSSDoc, QStringLiteral("Yes"));
        } else {
            ts.load();
            if (setup == QLatin1String("none")) {
                ts->tbrTags.setButtonChecked(4, true);
                ts->tbrTags.setButtonChecked(8, true);
                ts->mnuFileClose_Click();
            } else if (setup != QLatin1String("source")) {
                ts->tbrMain.press(22); // a comment, undone
                ts->tbrMain.press(11);
                ts.active().codebox().setSelLength(6);
                ts.active().SelectedTab = setup == QLatin1String("layout") ? 2 : 3;
                ts.active().Form_Activate();
            }
        }
        QStringList on = expected.at(0).split(u' ', Qt::SkipEmptyParts);
        if (on.value(0) == QLatin1String("all")) {
            const QStringList off = on.mid(1);
            on = kDocumentItems;
            for (const QString& item : off)
                for (const QString& name :
                     item == QLatin1String("-css") ? kCssOff : QStringList{item.mid(1)})
                    on.removeOne(name);
        }
        expected[0] = on.join(u' ');
        QCOMPARE((QStringList{itemsOn(*ts, kDocumentItems).join(u' '), buttonsOn(ts->tbrMain),
                              buttonsOn(ts->tbrTags), buttonsOn(ts->tbrForms),
                              bits({ts->TabStrip1.Visible(), ts->bCommandsDisabled,
                                    ts->bLayoutActive, ts->menu("mnuEditRedo").Enabled()}),
                              viewState(*ts), QString::number(ts->OpenSave.FilterIndex)}),
                 expected);
        const bool sheet = setup == QLatin1String("sheet");
        if (setup != QLatin1String("preview") && setup != QLatin1String("none"))
            QCOMPARE(itemsOn(*ts, kCssOff), sheet ? QStringList() : kCssOff);
        if (!sheet) QCOMPARE(itemsOn(*ts, kAlwaysOn), kAlwaysOn);
        for (int i = 0; i < ts->tbrTags.ButtonCount(); ++i)
            QVERIFY(!ts->tbrTags.ButtonChecked(i));
    }

    // Sheet?|selection|clipboard: Cut and Copy follow the selection, a page's Paste the clipboard.
    void cutCopyAndPasteWhenADocumentComesForward_data() {
        columns<QStringList>({"row"});
        for (const char* row : {"0|0|", "0|3|x", "1|0|x", "1|3|"})
            QTest::newRow(row) << QString(row).split(u'|');
    }
    void cutCopyAndPasteWhenADocumentComesForward() {
        QFETCH(QStringList, row);
        const bool css = row.at(0) == u'1';
        TestShell ts;
        codeEditor& doc = css ? withStyleSheet(ts) : (ts.load(), ts.active());
        ts.platform.clipboard = row.at(2);
        doc.codebox().setSelStart(0);
        doc.codebox().setSelLength(row.at(1).toInt());
        ts->tbrMain.setButtonEnabled(9, true);
        ts->menu("mnuEditPaste").setEnabled(true);
        doc.Form_Activate();
        const QString on = bits({row.at(1) != u'0', css || !row.at(2).isEmpty()});
        QCOMPARE(bits({ts->menu("mnuEditCut").Enabled(), ts->menu("mnuEditPaste").Enabled()}), on);
        QCOMPARE(bits({ts->menu("mnuEditCopy").Enabled(), ts->tbrMain.ButtonEnabled(9)}), on);
        QCOMPARE(bits({ts->tbrMain.ButtonEnabled(7), ts->tbrMain.ButtonEnabled(8)}),
                 QString(2, on.at(0)));
    }

    void aCommandThatChangesTheKindOfTheDocumentInFrontSetsItsCommands() {
        QTemporaryDir dir;
        Loaded ts;
        ts->dispatch([&] { ts->mnuFileNewCSS_Click(); });
        QVERIFY(!ts->menu("mnuTagsBold").Enabled() && !ts->cReBar1.BandVisible(1));
        // Saved under a page's name the page's commands come back.
        ts.platform.fileAnswers.enqueue(FileDialogAnswer::file(dir.filePath("now.htm")));
        ts->dispatch([&] { ts->mnuFileSaveas_Click(); });
        QCOMPARE(ts.active().CSSDoc, QStringLiteral("No"));
        QVERIFY(ts->menu("mnuTagsBold").Enabled() && ts->cReBar1.BandVisible(1));
    }

    // Forms|TagList|sheet closes: the page after a style sheet shows what the flags say.
    void aPageAfterAStyleSheetShowsWhatTheFlagsSay_data() {
        columns<QStringList>({"row"});
        for (const char* row : {"Yes|Yes|0", "No|No|0", "No|Yes|0", "Yes|No|1"})
            QTest::newRow(row) << QString(row).split(u'|');
    }
    void aPageAfterAStyleSheetShowsWhatTheFlagsSay() {
        QFETCH(QStringList, row);
        TestShell ts;
        ts.settings.save("Fuzzies", "Forms Toolbar Open", row.at(0));
        ts.settings.save("Fuzzies", "TagListOpen", row.at(1));
        ts.load();
        codeEditor& page = ts.active();
        const QString before = viewState(*ts);
        withStyleSheet(ts, false);
        QVERIFY(!ts->cReBar1.BandVisible(1));
        const int writes = ts.settings.writeCount();
        if (row.at(2) == u'1')
            ts->mnuFileClose_Click();
        else
            page.ZOrder();
        QCOMPARE(ts->ActiveForm(), &page);
        QCOMPARE(viewState(*ts), before);
        QCOMPARE(ts.settings.writeCount(), writes);
        QCOMPARE(itemsOn(*ts, kCssOff), kCssOff);
        QCOMPARE(buttonsOn(ts->tbrMain), kPageButtons);
        QCOMPARE(ts->OpenSave.FilterIndex, ShellMDI::kHtmlFilterIndex);
        // The page's state by itself turns back on what a style sheet's turned off.
        ts->SetCssCommandState();
        ts->SetHtmlCommandState();
        QCOMPARE(itemsOn(*ts, kCssOff), kCssOff);
    }

    void aToolbarToggledOverAStyleSheetComesBackByItsFlag() {
        TestShell ts;
        withStyleSheet(ts);
        ts->mnuViewStdTlb_Click();
        ts->documents().front()->ZOrder();
        QCOMPARE(viewState(*ts), synced("0100"));
    }

    // Back from Layout the buttons return; disabling in Preview keeps the tabs, in Layout not.
    void leavingLayoutAndPreview() {
        TestShell ts;
        codeEditor& doc = (ts.load(), ts.active());
        for (int tab : {2, 1, 3}) {
            if (tab == 3)
                QVERIFY(!ts->bLayoutActive && ts->tbrMain.ButtonEnabled(22) &&
                        ts->tbrTags.ButtonEnabled(18));
            doc.SelectedTab = tab;
            doc.Form_Activate();
        }
        ts->DisableDocumentCommands();
        QVERIFY(ts->TabStrip1.Visible() && !ts->bCommandsDisabled);
        doc.SelectedTab = 2;
        ts->DisableDocumentCommands();
        QVERIFY(!ts->TabStrip1.Visible() && ts->bCommandsDisabled);
    }

    // A style sheet coming forward does not turn back on what Preview turned off.
    void aStyleSheetAfterAPreviewTurnsNothingBackOn() {
        TestShell ts;
        codeEditor& sheet = withStyleSheet(ts);
        codeEditor& page = *ts->documents().front();
        page.SelectedTab = 3;
        page.ZOrder();
        sheet.ZOrder();
        QVERIFY(!ts->menu("mnuFileSave").Enabled());
        QVERIFY(ts->menu("mnuInsertCSS").Enabled() && ts->tbrMain.ButtonEnabled(19));
    }

    // With no document the toggles work; a new document brings the commands back.
    void aNewDocumentAfterTheLast() {
        Loaded ts;
        ts->mnuFileClose_Click();
        ts->mnuViewFmtTlb_Click();
        ts->tbrMain.press(17);
        QCOMPARE(viewState(*ts), synced("1001"));
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

QTEST_GUILESS_MAIN(CommandsTest)
#include "test_commands.moc"
