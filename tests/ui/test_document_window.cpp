// The real window on the offscreen platform: typing in a Source pane, saving and closing
// through the menus, the bytes of the files, and the keys that belong to the window.
#include "markup/tag_list.h"
#include "program_fixture.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "test_shell.h"
#include "ui/window/main_window.h"
#include "ui/source/source_editor.h"
#include "ui/window/workbench.h"
#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
struct Program : ProgramFixture {
    explicit Program(const QString& commandLine = QString()) {
        start(commandLine);
        window().activateWindow();
    }
    codeEditor& active() { return *shell().ActiveForm(); }
    CodeBox* codebox(codeEditor& doc) {
        return dynamic_cast<QtSourcePane&>(doc.codebox()).widget();
    }
    CodeBox* codebox() { return codebox(active()); }
    void trigger(const QString& name) {
        auto* action = window().findChild<QAction*>(name);
        QVERIFY2(action, qPrintable(name));
        action->trigger();
    }
    QStringList tabTexts() {
        QStringList texts;
        for (int i = 0; i < window().documentTabs()->count(); ++i)
            texts.append(window().documentTabs()->tabText(i));
        return texts;
    }
};
} // namespace

class DocumentWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void startsWithDocumentOneInTheWindow() {
        Program p;
        // A maximised document adds its name to the title, as document windows do.
        QVERIFY(p.window().windowTitle().startsWith(QStringLiteral("Tessaline")));
        QCOMPARE(p.window().mdiArea()->subWindowList().size(), 1);
        QCOMPARE(p.window().mdiArea()->activeSubWindow()->windowTitle(),
                 QStringLiteral("Document 1"));
        QCOMPARE(p.tabTexts(), QStringList{QStringLiteral("Document 1")});
        QCOMPARE(p.codebox()->position(), 106);
        QVERIFY(p.codebox()->text().startsWith(QStringLiteral("<html>\n<head>")));
    }

    void typingReachesTheDocumentAndSaveWritesItsBytes() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("typed.htm"));
        Program p;
        p.codebox()->setFocus();
        QTest::keyClicks(p.codebox(), QStringLiteral("Hello"));
        QCOMPARE(p.active().Tag, QStringLiteral("Dirty"));
        QVERIFY(p.active().codebox().Text().contains(QStringLiteral("<body>\nHello\n</body>")));
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        p.trigger(QStringLiteral("mnuFileSave"));
        QCOMPARE(readFile(path), p.active().codebox().Text().toUtf8());
        QCOMPARE(p.active().Tag, QStringLiteral("Clean"));
        QCOMPARE(p.window().mdiArea()->activeSubWindow()->windowTitle(), path);
        QCOMPARE(p.tabTexts(), QStringList{QStringLiteral("typed.htm")});
    }

    void filesRoundTripByteForByte_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("LF") << QByteArray("<p>one</p>\n<p>two</p>\n");
        QTest::newRow("CRLF") << QByteArray("<p>one</p>\r\n<p>two</p>\r\n");
        QTest::newRow("mixed ends") << QByteArray("a\rb\r\nc\nd\r");
        QTest::newRow("UTF-8 BOM") << QByteArray("\xEF\xBB\xBF<p>caf\xC3\xA9</p>\r\n");
        QTest::newRow("no-break space") << QByteArray("a\xC2\xA0"
                                                      "b\n");
        QTest::newRow("Latin-1") << QByteArray("caf\xE9 \xA0\xFF\n");
        QTest::newRow("separators") << QByteArray("x\xE2\x80\xA8y\xE2\x80\xA9z");
    }
    void filesRoundTripByteForByte() {
        QFETCH(QByteArray, bytes);
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), bytes);
        Program p(path);
        QCOMPARE(p.active().codebox().length(), p.codebox()->rows().length());
        QCOMPARE(TextRows::check(p.codebox()->rows(), p.active().codebox().Text()), QString());
        p.active().Tag = QStringLiteral("Dirty");
        p.trigger(QStringLiteral("mnuFileSave"));
        QCOMPARE(readFile(path), bytes);
    }

    void typingBesideACarriageReturnKeepsIt() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("mixed.txt"), "ab\rcd\r\nef\n");
        Program p(path);
        p.codebox()->setSelection(3, 3); // after the lone carriage return
        QTest::keyClicks(p.codebox(), QStringLiteral("XY"));
        QTest::keyClick(p.codebox(), Qt::Key_Return);
        QCOMPARE(p.active().codebox().Text(), QStringLiteral("ab\rXY\ncd\r\nef\n"));
        QTest::keyClick(p.codebox(), Qt::Key_Backspace);
        QTest::keyClick(p.codebox(), Qt::Key_Backspace);
        QCOMPARE(p.active().codebox().Text(), QStringLiteral("ab\rXcd\r\nef\n"));
        p.trigger(QStringLiteral("mnuFileSave"));
        QCOMPARE(readFile(path), QByteArray("ab\rXcd\r\nef\n"));
    }

    void closingAskedAndAnsweredNoRemovesWindowAndTab() {
        Program p;
        QTest::keyClicks(p.codebox(), QStringLiteral("x"));
        p.platform.messageAnswers.enqueue(MsgResult::No);
        p.trigger(QStringLiteral("mnuFileClose"));
        QCOMPARE(
            p.platform.messageTexts(),
            QStringList{QStringLiteral("Do you want to save the changes made to Document 1?")});
        QCOMPARE(p.platform.messages.first().buttons, MsgButtons::YesNoCancel);
        QCOMPARE(p.platform.messages.first().icon, MsgIcon::Exclamation);
        QTRY_COMPARE(p.window().mdiArea()->subWindowList().size(), 0);
        QCOMPARE(p.window().documentTabs()->count(), 0);
        QVERIFY(!p.window().findChild<QAction*>(QStringLiteral("mnuFileSave"))->isEnabled());
    }

    void theCloseBoxOfADocumentAsksAndCancelKeepsIt() {
        Program p;
        QTest::keyClicks(p.codebox(), QStringLiteral("x"));
        p.platform.messageAnswers.enqueue(MsgResult::Cancel);
        QMdiSubWindow* window = p.window().mdiArea()->activeSubWindow();
        window->close();
        QCOMPARE(p.platform.messages.size(), 1);
        QCOMPARE(p.window().mdiArea()->subWindowList().size(), 1);
        QCOMPARE(p.tabTexts(), QStringList{QStringLiteral("Document 1")});
        QVERIFY(p.window().mdiArea()->updatesEnabled());
    }

    void newDocumentsGetWindowsAndTabsInOrder() {
        Program p;
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        p.trigger(QStringLiteral("mnuFileNewCSS"));
        QCOMPARE(p.tabTexts(),
                 (QStringList{QStringLiteral("Document 1"), QStringLiteral("Document 2"),
                              QStringLiteral("Document 3")}));
        QCOMPARE(p.window().documentTabs()->currentIndex(), 2);
        QCOMPARE(p.window().mdiArea()->activeSubWindow()->windowTitle(),
                 QStringLiteral("Document 3"));
        QCOMPARE(p.active().CSSDoc, QStringLiteral("Yes"));
        // A click on a tab brings its window forward.
        emit p.window().documentTabs()->tabBarClicked(0);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 1"));
        QCOMPARE(p.window().mdiArea()->activeSubWindow()->windowTitle(),
                 QStringLiteral("Document 1"));
        QCOMPARE(p.window().documentTabs()->currentIndex(), 0);
    }

    void tilingSetsTheDocumentsSideBySideOrStacked() {
        Program p;
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        const QList<QMdiSubWindow*> windows = p.window().mdiArea()->subWindowList();
        QCOMPARE(windows.size(), 2);
        p.trigger(QStringLiteral("mnuWindowTileV"));
        QVERIFY(!windows[0]->isMaximized() && !windows[1]->isMaximized());
        QCOMPARE(windows[0]->y(), windows[1]->y());
        QVERIFY(windows[0]->x() + windows[0]->width() <= windows[1]->x());
        p.trigger(QStringLiteral("mnuWindowTileH"));
        QCOMPARE(windows[0]->x(), windows[1]->x());
        QVERIFY(windows[0]->y() + windows[0]->height() <= windows[1]->y());
    }

    void aTagDroppedFromTheListLandsWithTheCaretInside() {
        Program p;
        ShellMDI& shell = p.shell();
        p.active().codebox().setText(QStringLiteral("one two"));
        const int node =
            static_cast<int>(shell.part<TagList>().tvwTags.items().indexOf(QStringLiteral("<B>  </B>")));
        QVERIFY(node >= 0);
        shell.part<TagList>().tvwTags_MouseDown(node);
        QString data;
        QVERIFY(shell.part<TagList>().tvwTags_OLEStartDrag(data));
        // The drop itself is the editor's: the text goes in where the pointer lets go.
        CodeBox* box = p.codebox();
        const QPoint where = box->cursorRect(4).center();
        QMimeData mime;
        mime.setText(data);
        QDragEnterEvent enter(where, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(box->viewport(), &enter);
        QDragMoveEvent move(where, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(box->viewport(), &move);
        QDropEvent drop(where, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(box->viewport(), &drop);
        shell.part<TagList>().tvwTags_OLECompleteDrag(1);
        QCOMPARE(p.active().codebox().Text(), QStringLiteral("one <b></b>two"));
        QCOMPARE(p.active().codebox().SelStart(), 7);
        QCOMPARE(p.active().codebox().SelLength(), 0);
    }

    void typingAnOpeningBracketAddsTheClosingOne() {
        Program p;
        p.codebox()->setFocus();
        QTest::keyClicks(p.codebox(), QStringLiteral("<b"));
        QVERIFY(p.active().codebox().Text().contains(QStringLiteral("<body>\n<b>\n</body>")));
        QCOMPARE(p.active().codebox().SelStart(), 108);
        // Undo takes the pair and the letter back to the skeleton.
        QTest::keyClick(p.codebox(), Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(p.codebox(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(p.active().codebox().Text().contains(QStringLiteral("<body>\n\n</body>")));
    }

    void cutAndCopyFollowTheSelectionInThePane() {
        Program p;
        auto* cut = p.window().findChild<QAction*>(QStringLiteral("mnuEditCut"));
        QTest::keyClick(p.codebox(), Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(cut->isEnabled());
        QTest::keyClick(p.codebox(), Qt::Key_Right);
        QVERIFY(!cut->isEnabled());
        QVERIFY(!p.shell().tbrMain.ButtonEnabled(8));
    }

    void ctrlF6MovesThroughTheDocumentsAndCtrlF4Closes() {
        Program p;
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 2"));
        QTest::keyClick(p.codebox(), Qt::Key_F6, Qt::ControlModifier);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 1"));
        QTest::keyClick(p.codebox(), Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 2"));
        QTest::keyClick(p.codebox(), Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(p.window().mdiArea()->subWindowList().size(), 1);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 1"));
    }

    void menuShortcutsWorkFromThePane() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("keys.htm"));
        Program p;
        p.codebox()->setFocus();
        QTest::keyClicks(p.codebox(), QStringLiteral("k"));
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        QTest::keyClick(p.codebox(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(p.platform.fileDialogsShown.size(), 1);
        QVERIFY(readFile(path).contains("<body>\nk\n</body>"));
        // Ctrl+Z belongs to the pane: the document's own history takes the letter back.
        QTest::keyClick(p.codebox(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(p.active().codebox().Text().contains(QStringLiteral("<body>\n\n</body>")));
    }

    void theDocumentInFrontHasTheKeyboardWhicheverWayItCame() {
        Program p;
        QVERIFY(QTest::qWaitForWindowActive(&p.window()));
        QTest::keyClick(p.codebox(), Qt::Key_N, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 3"));
        QCOMPARE(QApplication::focusWidget(), p.codebox());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("c"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ControlModifier);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 1"));
        QCOMPARE(QApplication::focusWidget(), p.codebox());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("a"));
        QVERIFY(p.active().codebox().Text().contains(QStringLiteral("<body>\na\n</body>")));
        // Right moves the caret, not the view.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(p.active().tabEditor.SelectedTab(), 1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ControlModifier);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 2"));
        QCOMPARE(QApplication::focusWidget(), p.codebox());
        // A click on a document tab.
        emit p.window().documentTabs()->tabBarClicked(2);
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 3"));
        QCOMPARE(QApplication::focusWidget(), p.codebox());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("d"));
        QVERIFY(p.active().codebox().Text().contains(QStringLiteral("<body>\ncd\n</body>")));
    }

    void closingADocumentLeavesTheOthersAsTheyWere() {
        Program p;
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        QTest::keyClick(p.codebox(), Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(p.window().mdiArea()->subWindowList().size(), 1);
        QVERIFY(p.window().mdiArea()->subWindowList().first()->isMaximized());
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        QVERIFY(p.window().mdiArea()->activeSubWindow()->isMaximized());
        // Side by side they stay side by side.
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        p.trigger(QStringLiteral("mnuWindowTileV"));
        QTest::keyClick(p.codebox(), Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(p.window().mdiArea()->subWindowList().size(), 2);
        for (QMdiSubWindow* window : p.window().mdiArea()->subWindowList())
            QVERIFY(!window->isMaximized());
    }

    void theTitleNamesTheDocumentInFront() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), "<p>x</p>");
        Program p(path);
        QCOMPARE(p.window().windowTitle(), QStringLiteral("Tessaline - [%1]").arg(path));
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        QCOMPARE(p.window().windowTitle(), QStringLiteral("Tessaline - [Document 2]"));
        const QString saved = dir.filePath(QStringLiteral("saved.htm"));
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(saved));
        p.trigger(QStringLiteral("mnuFileSave"));
        QCOMPARE(p.window().windowTitle(), QStringLiteral("Tessaline - [%1]").arg(saved));
    }

    void ctrlEnterWritesABreakAndALineEnd_data() {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("written");
        QTest::newRow("Ctrl+Enter") << int(Qt::ControlModifier) << QStringLiteral("<br>\n");
        QTest::newRow("Enter") << int(Qt::NoModifier) << QStringLiteral("\n");
        QTest::newRow("Shift+Enter") << int(Qt::ShiftModifier) << QStringLiteral("\n");
    }
    void ctrlEnterWritesABreakAndALineEnd() {
        QFETCH(int, modifiers);
        QFETCH(QString, written);
        Program p;
        p.active().codebox().setText(QStringLiteral("ab"));
        p.active().codebox().setSelStart(1);
        QTest::keyClick(p.codebox(), Qt::Key_Return, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(p.active().codebox().Text(), QStringLiteral("a") + written + QStringLiteral("b"));
        QCOMPARE(p.active().codebox().SelStart(), 1 + written.size());
    }

    void exitAsksForEveryChangedDocumentAndCancelStaysRunning() {
        Program p;
        QTest::keyClicks(p.codebox(), QStringLiteral("a"));
        p.trigger(QStringLiteral("mnuFileNewHTML"));
        QTest::keyClicks(p.codebox(), QStringLiteral("b"));
        p.platform.messageAnswers.enqueue(MsgResult::No);
        p.platform.messageAnswers.enqueue(MsgResult::Cancel);
        QVERIFY(!p.window().close());
        QCOMPARE(p.platform.messages.size(), 2);
        QTRY_COMPARE(p.window().mdiArea()->subWindowList().size(), 1);
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::TagListOpen), QStringLiteral("No"));
        QVERIFY(p.window().mdiArea()->updatesEnabled());
        p.platform.messageAnswers.enqueue(MsgResult::No);
        QVERIFY(p.window().close());
    }
};

QTEST_MAIN(DocumentWindowTest)
#include "test_document_window.moc"
