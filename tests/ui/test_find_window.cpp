// The real Find & Replace window beside the documents: typed into, its buttons pressed, the
// document in front changed under it, and closed.
#include "program_fixture.h"
#include "search/find_replace.h"
#include "search/frm_find.h"
#include "ui/kit/form_host.h"
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
struct Program : ProgramFixture {
    Program() { start(); }
    codeEditor& active() { return *shell().ActiveForm(); }
    void trigger(const char* name) {
        window().findChild<QAction*>(QString::fromLatin1(name))->trigger();
    }
    FormDialog* findWindow() { return window().findChild<FormDialog*>(QStringLiteral("frmFind")); }
    void press(const char* button) {
        QTest::mouseClick(child<QPushButton>(*findWindow(), button), Qt::LeftButton);
    }
};
} // namespace

class FindWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void findReplaceAndReplaceAllInTheDocumentInFront() {
        Program p;
        SourcePane& pane = p.active().codebox();
        pane.setText(QStringLiteral("one two one two one"));
        pane.setSelStart(0);
        p.trigger("mnuEditFind");
        FormDialog* dialog = p.findWindow();
        QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
        QCOMPARE(dialog->parentWidget(), &p.window());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Find & Replace"));
        auto* what = Program::child<QLineEdit>(*dialog, "txtFind");
        QCOMPARE(what->accessibleName(), QStringLiteral("Find What:"));
        QVERIFY(!Program::child<QPushButton>(*dialog, "cmdFind")->isEnabled());

        QTest::keyClicks(what, QStringLiteral("one"));
        p.press("cmdFind");
        QCOMPARE(pane.SelStart(), 0);
        QCOMPARE(pane.SelText(), QStringLiteral("one"));
        QTest::keyClicks(Program::child<QLineEdit>(*dialog, "txtReplace"), QStringLiteral("1"));
        p.press("cmdReplace");
        QCOMPARE(pane.Text(), QStringLiteral("1 two one two one"));
        QCOMPARE(pane.SelStart(), 6);
        p.press("Command1");
        QCOMPARE(pane.Text(), QStringLiteral("1 two 1 two 1"));
        QCOMPARE(p.platform.messageTexts().last(),
                 QStringLiteral("Tessaline has finished searching the document and replaced 2 "
                                "items."));

        // A new document in front: the window stays and works on it.
        p.trigger("mnuFileNewHTML");
        QCOMPARE(p.findWindow(), dialog);
        what->selectAll();
        QTest::keyClicks(what, QStringLiteral("body"));
        p.press("cmdFind");
        QCOMPARE(p.active().Caption(), QStringLiteral("Document 2"));
        QCOMPARE(p.active().codebox().SelText(), QStringLiteral("body"));

        p.press("cmdCancel");
        QTRY_VERIFY(!p.findWindow());
        QCOMPARE(p.shell().part<SearchSession>().Search.FindText, QStringLiteral("body"));
        QVERIFY(!p.shell().bFindOpen);
    }

    void closingADocumentClosesTheWindow() {
        Program p;
        p.trigger("mnuEditFind");
        QVERIFY(p.findWindow());
        p.trigger("mnuFileClose");
        QTRY_VERIFY(!p.findWindow());
    }
};

QTEST_MAIN(FindWindowTest)
#include "test_find_window.moc"
