// The real main window: windows and tabs, closing, keys, toolbars, menus, table chooser, tag list.
#include "dialogs/table_chooser.h"
#include "ui/desktop/icons.h"
#include "ui/kit/menu_binder.h"
#include "ui/window/tag_pane.h"
#include "ui_helpers.h"
#include <unistd.h>

using namespace tsl;
using namespace tsl::test;
using namespace Qt::StringLiterals;

namespace {
struct Program : UiProgram {
    explicit Program(bool started = true) {
        if (started) start();
    }
    QMdiArea* mdi() { return window().mdiArea(); }
    QString front() { return mdi()->activeSubWindow()->windowTitle(); }
    QStringList tabTexts() {
        QStringList texts;
        for (int i = 0; i < window().documentTabs()->count(); ++i)
            texts.append(window().documentTabs()->tabText(i));
        return texts;
    }
    QString text() { return pane().Text(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    bool shown(const QString& bar) {
        return !child<QToolBar>(window(), qPrintable(bar))->isHidden();
    }
};

// Opaque pixels of an image: a picture that draws next to nothing is as bad as none.
int inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 128;
    return count;
}

QImage argb(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class DocumentWindowTest : public QObject {
    Q_OBJECT

    std::optional<QTemporaryDir> dir;

  private slots:
    void init() { dir.emplace(); }
    // New documents get a window and tab each; typing is saved byte for byte under the name.
    void documentsGetWindowsAndTabsAndSaveTheirBytes() {
        const QString path = dir->filePath(u"typed.htm"_s);
        Program p;
        QCOMPARE(p.front(), u"Document 1"_s);
        QCOMPARE(p.box()->position(), 106);
        p.trigger(u"mnuFileNewHTML"_s);
        p.trigger(u"mnuFileNewCSS"_s);
        QCOMPARE(p.tabTexts(), (QStringList{"Document 1", "Document 2", "Document 3"}));
        QCOMPARE(p.window().documentTabs()->currentIndex(), 2);
        // A maximised document names itself in the title.
        QCOMPARE(p.window().windowTitle(), u"Tessaline - [Document 3]"_s);
        emit p.window().documentTabs()->tabBarClicked(0);
        QCOMPARE(p.active().Caption(), u"Document 1"_s);
        QCOMPARE(p.front(), u"Document 1"_s);
        QCOMPARE(p.window().documentTabs()->currentIndex(), 0);
        QTest::keyClicks(p.box(), u"Hello"_s);
        QCOMPARE(p.active().Tag, u"Dirty"_s);
        QVERIFY(p.text().contains(u"<body>\nHello\n</body>"_s));
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        p.trigger(u"mnuFileSave"_s);
        QCOMPARE(readFile(path), p.text().toUtf8());
        QCOMPARE(p.front(), path);
        QCOMPARE(p.window().windowTitle(), u"Tessaline - [%1]"_s.arg(path));
        QCOMPARE(p.tabTexts().first(), u"typed.htm"_s);
        p.shell().StatusBar1.setPanelText(1, u"Saved."_s);
        QCOMPARE(Program::child<QLabel>(p.window(), "StatusBar1")->text(), u"Saved."_s);
    }

    // Closing a document, or the main window, asks first; Cancel keeps, No closes.
    void closingAsksFirst() {
        Program p;
        QTest::keyClicks(p.box(), u"x"_s);
        p.platform.messageAnswers.enqueue(MsgResult::Cancel);
        p.mdi()->activeSubWindow()->close();
        QCOMPARE(p.platform.messages.size(), 1);
        QCOMPARE(p.tabTexts(), QStringList{u"Document 1"_s});
        QVERIFY(p.mdi()->updatesEnabled());
        p.platform.messageAnswers.enqueue(MsgResult::No);
        p.trigger(u"mnuFileClose"_s);
        QTRY_COMPARE(p.mdi()->subWindowList().size(), 0);
        QCOMPARE(p.window().documentTabs()->count(), 0);

        p.trigger(u"mnuFileNewHTML"_s);
        QTest::keyClicks(p.box(), u"a"_s);
        p.trigger(u"mnuFileNewHTML"_s);
        QTest::keyClicks(p.box(), u"b"_s);
        p.platform.messageAnswers.enqueue(MsgResult::No);
        p.platform.messageAnswers.enqueue(MsgResult::Cancel);
        QVERIFY(!p.window().close());
        QTRY_COMPARE(p.mdi()->subWindowList().size(), 1);
        p.platform.messageAnswers.enqueue(MsgResult::No);
        QVERIFY(p.window().close());
    }

    // Alone, a document is maximised; tiled, documents stay so when one closes.
    void tilingSetsTheDocumentsSideBySideOrStacked() {
        Program p;
        p.trigger(u"mnuFileNewHTML"_s);
        p.key(Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(p.mdi()->subWindowList().size(), 1);
        QVERIFY(p.mdi()->subWindowList().first()->isMaximized());
        p.trigger(u"mnuFileNewHTML"_s);
        QVERIFY(p.mdi()->activeSubWindow()->isMaximized());
        p.trigger(u"mnuFileNewHTML"_s);
        const QList<QMdiSubWindow*> w = p.mdi()->subWindowList();
        p.trigger(u"mnuWindowTileV"_s);
        QVERIFY(!w[0]->isMaximized() && w[0]->y() == w[1]->y());
        QVERIFY(w[0]->x() + w[0]->width() <= w[1]->x());
        p.trigger(u"mnuWindowTileH"_s);
        QCOMPARE(w[0]->x(), w[1]->x());
        QVERIFY(w[0]->y() + w[0]->height() <= w[1]->y());
        p.key(Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(p.mdi()->subWindowList().size(), 2);
        for (QMdiSubWindow* window : p.mdi()->subWindowList())
            QVERIFY(!window->isMaximized());
    }

    // Ctrl+N, Ctrl+(Shift+)F6 and a tab click bring a document forward with the keyboard in it.
    void theDocumentInFrontHasTheKeyboardWhicheverWayItCame() {
        Program p;
        QVERIFY(QTest::qWaitForWindowActive(&p.window()));
        p.key(Qt::Key_N, Qt::ControlModifier);
        p.key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(p.active().Caption(), u"Document 3"_s);
        QCOMPARE(QApplication::focusWidget(), p.box());
        p.key(Qt::Key_F6, Qt::ControlModifier);
        QCOMPARE(p.active().Caption(), u"Document 1"_s);
        QCOMPARE(QApplication::focusWidget(), p.box());
        QTest::keyClicks(QApplication::focusWidget(), u"a"_s);
        QVERIFY(p.text().contains(u"<body>\na\n</body>"_s));
        p.key(Qt::Key_Right);
        QCOMPARE(p.active().tabEditor.SelectedTab(), 1);
        p.key(Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(p.active().Caption(), u"Document 3"_s);
        p.key(Qt::Key_F6, Qt::ControlModifier);
        p.key(Qt::Key_F6, Qt::ControlModifier);
        QCOMPARE(p.active().Caption(), u"Document 2"_s);
        QCOMPARE(QApplication::focusWidget(), p.box());
        emit p.window().documentTabs()->tabBarClicked(2);
        QCOMPARE(QApplication::focusWidget(), p.box());
        QTest::keyClicks(QApplication::focusWidget(), u"d"_s);
        QVERIFY(p.text().contains(u"<body>\nd\n</body>"_s));
        p.platform.messageAnswers.enqueue(MsgResult::No);
        p.key(Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(p.mdi()->subWindowList().size(), 2);
        QCOMPARE(p.active().Caption(), u"Document 2"_s);
    }

    // Ctrl+Z and Ctrl+V are the pane's, done once; Ctrl+S the menu's; one Undo takes "<>".
    void keysReachTheDocumentFirst() {
        const QString path = dir->filePath(u"keys.htm"_s);
        Program p;
        p.box()->setFocus();
        QTest::keyClicks(p.box(), u"<b"_s);
        QVERIFY(p.text().contains(u"<body>\n<b>\n</body>"_s));
        QCOMPARE(p.pane().SelStart(), 108);
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        p.key(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(p.platform.fileDialogsShown.size(), 1);
        QVERIFY(readFile(path).contains("<body>\n<b>\n</body>"));
        p.key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(p.text().contains(u"<body>\n<>\n</body>"_s));
        p.platform.clipboard = u"v"_s;
        p.key(Qt::Key_V, Qt::ControlModifier);
        QVERIFY(p.text().contains(u"<body>\n<v>\n</body>"_s));
    }

    // The window comes back as it was left, with the tag pane's width; the first time it fits
    // the screen.
    void theWindowComesBackAsItWasLeft() {
        MemorySettingsStore kept;
        {
            Program p;
            const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
            QVERIFY(screen.contains(p.window().frameGeometry().topLeft()));
            QVERIFY(p.window().width() <= screen.width() && p.window().height() <= screen.height());
            p.window().resize(640, 480);
            p.shell().Picture1Width = 3300;
            p.trigger(u"mnuFileExit"_s);
            QTRY_VERIFY(!p.window().isVisible());
            kept = p.settings;
        }
        Program again(false);
        again.settings = kept;
        again.start();
        QCOMPARE(again.window().size(), QSize(640, 480));
        QCOMPARE(again.shell().Picture1Width, 3300);
    }

    // In a dark theme the tag names and the toolbar pictures stay readable; the tag pane starts
    // wide enough for its widest tag, and colour boxes for a whole colour.
    void aDarkThemeStaysReadable() {
        const QPalette light = QApplication::palette();
        QPalette dark = light;
        dark.setColor(QPalette::Window, QColor(0x2D, 0x2D, 0x2D));
        dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
        QApplication::setPalette(dark);
        const auto restore = qScopeGuard([&] { QApplication::setPalette(light); });
        Program p;
        TagListView* tags = p.window().tagPane()->list();
        const QColor text = tags->palette().color(QPalette::Text);
        QVERIFY2(text.lightness() > 128 && text.hue() > 200 && text.hue() < 260,
                 qPrintable(text.name()));
        QVERIFY(readableOnBase(QColor(0, 0, 255), light) == QColor(0, 0, 255));
        QPixmap glyph(2, 1);
        glyph.fill(Qt::black);
        QCOMPARE(forTheme(glyph).toImage().pixelColor(0, 0).lightness(), 255);
        QVERIFY(p.window().tagPane()->minimumWidth() > tags->sizeHintForColumn(0));
        QVERIFY(p.fromMenu("mnuEditProperties", [](FormDialog& d) {
            auto* back = UiProgram::child<QLineEdit>(d, "Back");
            QVERIFY(back->width() > back->fontMetrics().horizontalAdvance(back->text()));
            press(d, "Cancel");
        }));
    }

    // Files dragged from a file manager open as documents; the text under them stays.
    void droppedFilesOpen() {
        Program p;
        p.box()->setFocus();
        QTest::keyClicks(p.box(), u"x"_s);
        const QString typed = p.text();
        const QString page = writeFile(*dir, u"a page.htm"_s, "<p>dropped</p>");
        const QString sheet = writeFile(*dir, fileNameFromBytes("caf\xE9.css"), "p {}");
        QMimeData mime;
        // A name that is not UTF-8 comes percent-encoded, as file managers send it.
        mime.setUrls(
            {QUrl::fromLocalFile(page),
             QUrl::fromEncoded("file://" + QFile::encodeName(dir->path()).toPercentEncoding("/") +
                               "/caf%E9.css")});
        mime.setText(u"file:///somewhere"_s);
        QWidget* target = p.box()->viewport();
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(target, &drop);
        QStringList opened;
        for (codeEditor* doc : p.shell().documents())
            opened.append(doc->codebox().Text());
        QCOMPARE(opened, QStringList({typed, "<p>dropped</p>", "p {}"}));
        QCOMPARE(p.shell().ActiveForm()->codebox().FileName(), sheet);
        ::unlink(fileNameBytes(sheet).constData()); // a name the toolkit cannot remove
    }

    // The keyboard opens the Edit popup at the caret, by the menu key or by Shift+F10.
    void theKeyboardOpensThePopupAtTheCaret() {
        Program p;
        p.box()->setFocus();
        p.pane().setSelStart(60);
        const QPoint caret = p.box()->viewport()->mapToGlobal(p.box()->cursorRect(60).bottomLeft());
        QCursor::setPos(caret + QPoint(300, 200));
        for (bool menuKey : {true, false}) {
            // The desktop turns the menu key into a keyboard context menu event.
            QContextMenuEvent fromMenuKey(QContextMenuEvent::Keyboard, QPoint());
            if (menuKey)
                QApplication::sendEvent(p.box(), &fromMenuKey);
            else
                QTest::keyClick(p.box(), Qt::Key_F10, Qt::ShiftModifier);
            QMenu* menu = nullptr;
            QTRY_VERIFY((menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())));
            QCOMPARE(menu->pos(), caret);
            menu->close();
        }
    }

    // Cut is there while text is selected, by keys or by the mouse, from the moment it presses.
    void cutFollowsTheSelectionInThePane() {
        Program p;
        QTest::keyClick(p.box(), Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(p.action(u"mnuEditCut"_s)->isEnabled());
        const QPoint at = p.box()->cursorRect(3).center();
        QTest::mousePress(p.box()->viewport(), Qt::LeftButton, {}, at);
        QVERIFY(!p.action(u"mnuEditCut"_s)->isEnabled());
        QVERIFY(!p.shell().tbrMain.ButtonEnabled(8));
        QTest::mouseRelease(p.box()->viewport(), Qt::LeftButton, {}, at);
    }

    // Menus, buttons and the toolbars' context menu (the View menu) show and hide toolbars.
    void theToolbarsFollowTheirBands_data() {
        columns<QString, QString, QString>({"item", "toolbar", "band"});
        row("Standard", u"mnuViewStdTlb"_s, u"tbrMain"_s, u"Toolbar1"_s);
        row("Formatting", u"mnuViewFmtTlb"_s, u"tbrTags"_s, u"Toolbar2"_s);
        row("Forms", u"mnuViewForms"_s, u"tbrForms"_s, u"Toolbar3"_s);
        row("Forms button", u"tbrMain_16"_s, u"tbrForms"_s, u"Toolbar3"_s);
        row("context menu", u"2"_s, u"tbrForms"_s, u"Toolbar3"_s);
    }
    void theToolbarsFollowTheirBands() {
        QFETCH(QString, item);
        QFETCH(QString, toolbar);
        QFETCH(QString, band);
        Program p;
        std::unique_ptr<QMenu> popup(p.window().createPopupMenu());
        QStringList names;
        for (QAction* action : popup->actions())
            names.append(action->objectName());
        QCOMPARE(names, words("mnuViewStdTlb mnuViewFmtTlb mnuViewForms mnuViewTagList"));
        const bool before = p.shown(toolbar);
        for (bool now : {!before, before}) {
            if (item.size() == 1)
                popup->actions().at(item.toInt())->trigger();
            else
                p.trigger(item);
            QCOMPARE(p.shown(toolbar), now);
            QCOMPARE(p.shell().cReBar1.BandVisible(p.shell().cReBar1.BandIndexForKey(band)), now);
            if (toolbar == QLatin1String("tbrForms"))
                QCOMPARE(p.action("tbrMain_16")->isChecked(), now);
        }
        QVERIFY(!p.child<QToolBar>(p.window(), "tbrMain")->isFloatable());
    }

    // A button shows its model's pressed state and visibility; a press leaves them to the model.
    void aButtonShowsThePressedStateOfItsModel() {
        Program p;
        QAction* bold = p.action("tbrTags_4");
        for (bool on : {true, false}) {
            p.shell().tbrTags.setButtonChecked(4, on);
            QCOMPARE(bold->isChecked(), on);
            bold->trigger();
            QCOMPARE(bold->isChecked(), on);
            p.shell().tbrTags.setButtonVisible(4, on);
            QCOMPARE(bold->isVisible(), on);
        }
    }

    // A button shows its strip's own pixels at scale 2 and a filled 16-pixel picture at scale 1.
    void everyButtonShowsItsPictureFromTheStrip() {
        Program p(false);
        p.platform.appFolder = QCoreApplication::applicationDirPath() + u"/.."_s;
        p.start();
        ShellMDI& shell = p.shell();
        for (cToolbar* model : {&shell.tbrMain, &shell.tbrTags, &shell.tbrForms}) {
            const QPixmap strip(p.platform.appFolder + QLatin1Char('/') + model->ImageFile);
            QVERIFY2(strip.height() == 32, "the build has not made the strips beside the program");
            for (int i = 0; i < model->ButtonCount(); ++i) {
                const cToolbar::Button& b = model->button(i);
                if (b.style == cToolbar::Separator) continue;
                const QByteArray where = model->name().toLatin1() + ' ' + QByteArray::number(i);
                const QIcon icon = p.action(model->name() + u"_%1"_s.arg(i))->icon();
                const QImage wanted = argb(strip.copy(b.image * 32, 0, 32, 32).toImage());
                QVERIFY2(argb(icon.pixmap(QSize(16, 16), 2.0).toImage()) == wanted, where);
                QVERIFY2(inked(wanted) > 40, where);
                const QImage small = icon.pixmap(QSize(16, 16), 1.0).toImage();
                QVERIFY2(small.size() == QSize(16, 16) && inked(small) > 10, where);
            }
        }
        // A strip too short: the button shows letters (square), not nothing or a squeezed strip.
        QDir(dir->path()).mkpath(u"resources"_s);
        QPixmap(p.platform.appFolder + QLatin1Char('/') + shell.tbrMain.ImageFile)
            .copy(0, 0, 64, 32)
            .save(dir->filePath(shell.tbrMain.ImageFile), "PNG");
        MenuBinder binder(shell);
        std::unique_ptr<QToolBar> bar(binder.buildToolBar(shell.tbrMain, {}, dir->path(), nullptr));
        for (QAction* action : bar->actions()) {
            const QImage small = action->icon().pixmap(QSize(16, 16), 1.0).toImage();
            const QSize big = action->icon().pixmap(QSize(16, 16), 2.0).size();
            QVERIFY2(action->isSeparator() || (big.width() == big.height() && inked(small) > 10),
                     qPrintable(action->objectName()));
        }
    }

    // A recent file gets the picture the logic picks for its new caption; the first gets none.
    void aRecentFileShowsThePictureTheLogicPicks() {
        Program p(false);
        p.settings.save("Recent File List", "1stRecentFile", "/w/a.htm");
        p.start();
        ShellMDI& shell = p.shell();
        // The logic's next pick made the first picture of the set, "New".
        for (quint32 state = shell.nRndState;; state = shell.nRndState)
            if (std::nearbyint(shell.nMenuIconCount * shell.Rnd() - 1) == 0) {
                shell.nRndState = state;
                break;
            }
        shell.AddRecentFile(u"/w/b & c.htm"_s, QString());
        // A path is shown as it stands: an ampersand is no access key.
        QCOMPARE(p.action("mnuFileMRU(0)")->text(), u"/w/b && c.htm"_s);
        QVERIFY(p.action("mnuFileMRU(0)")->icon().isNull());
        QCOMPARE(p.action("mnuFileMRU(1)")->text(), u"/w/a.htm"_s);
        QCOMPARE(p.action("mnuFileMRU(1)")->icon().pixmap(16).toImage(),
                 menuIcon(u"New"_s).pixmap(16).toImage());
        QVERIFY(menuIcon(u"NoSuchKey"_s).isNull());
    }

    void theTableChooserDropsDownUnderItsButtonAndInserts() {
        Program p;
        const QString before = p.text();
        const int caret = p.pane().SelStart();
        QWidget* button =
            p.child<QToolBar>(p.window(), "tbrTags")->widgetForAction(p.action("tbrTags_22"));
        QTest::mouseClick(button, Qt::LeftButton);
        auto* popup = Program::child<QWidget>(p.window(), "picDropDown");
        QTRY_VERIFY(popup->isVisible());
        QCOMPARE(popup->size(), QSize(126, 126));
        // 205 twips left of the button and 500 below it; a window frame may add a pixel or two.
        const QPoint corner = button->mapToGlobal(QPoint(0, 0));
        const int perPixel = 1440 / popup->logicalDpiX();
        const QPoint expected((corner.x() * perPixel - 205) / perPixel,
                              (corner.y() * perPixel + 500) / perPixel);
        QVERIFY((popup->geometry().topLeft() - expected).manhattanLength() <= 4);
        QVERIFY(popup->geometry().top() >= button->mapToGlobal(QPoint(0, button->height())).y());
        QTest::mouseMove(popup, QPoint(130, 40)); // beyond the right edge the grid grows
        QCOMPARE(popup->width(), 150);
        QTest::mouseMove(popup, QPoint(60, 40));
        QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier, QPoint(60, 40));
        QTRY_VERIFY(!popup->isVisible());
        const QString row = "   <tr>\n" + u"      <td>&nbsp;</td>\n"_s.repeated(3) + "   </tr>\n";
        QCOMPARE(p.text(),
                 insertedAt(before, caret, "<table width=\"100%\">\n" + row + row + "</table>"));
        // Closed without a choice, it writes nothing.
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(popup->isVisible());
        popup->close();
        QVERIFY(!p.shell().part<TableChooser>().DropDown.IsShowing());
        QCOMPARE(p.text().count(u"<table"_s), 1);
    }

    // The list inserts the tag in front by a double click, Enter or Space, once each.
    void theTagListPutsTagsInTheDocument() {
        Program p;
        p.trigger(u"mnuViewTagList"_s);
        TagListView* list = p.window().tagPane()->list();
        QListWidgetItem* bold = list->findItems(u"<B>  </B>"_s, Qt::MatchExactly)[0];
        list->scrollToItem(bold);
        p.pane().setText(QString());
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                           list->visualItemRect(bold).center());
        QCOMPARE(p.text(), u"<b></b>"_s);
        list->setCurrentItem(bold);
        for (auto key : {Qt::Key_Return, Qt::Key_Space}) {
            p.pane().setText(QString());
            QTest::keyClick(list, key);
            QCOMPARE(p.text(), u"<b></b>"_s);
        }
    }

    // The pane opens as stored, is as wide as the logic says, and its close button hides it.
    void theTagPaneFollowsItsSettingItsSizerAndItsCloseButton() {
        Program p(false);
        p.settings.save(keys::Fuzzies, keys::TagListOpen, u"Yes"_s);
        p.start();
        TagPane* pane = p.window().tagPane();
        QVERIFY(pane->isVisible() && p.action("mnuViewTagList")->isChecked());
        QWidget* sizer = Program::child<QWidget>(p.window(), "imgSizer");
        QTest::mousePress(sizer, Qt::LeftButton, {}, QPoint(2, 5));
        QMouseEvent move(QEvent::MouseMove, QPointF(400, 5), sizer->mapToGlobal(QPointF(400, 5)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(sizer, &move);
        QTest::mouseRelease(sizer, Qt::LeftButton, {}, QPoint(2, 5));
        QCOMPARE(p.shell().Picture1Width, ShellMDI::kPaneMinWidth);
        QCOMPARE(pane->width(), ShellMDI::kPaneMinWidth * pane->logicalDpiX() / 1440);
        pane->findChild<QToolButton*>(u"cmdClose"_s)->click();
        QVERIFY(!pane->isVisible());
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::TagListOpen), u"No"_s);
        QVERIFY(!p.action("mnuViewTagList")->isChecked());
    }
};

QTEST_MAIN(DocumentWindowTest)
#include "test_document_window.moc"
