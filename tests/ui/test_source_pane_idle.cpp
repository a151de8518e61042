// A program left alone does no work: the Source pane repaints nothing while nobody types,
// however long the line the caret stands in (each repaint lays the caret's whole line out again).
#include "program_fixture.h"
#include "shell/code_editor.h"
#include "shell/shell_mdi.h"
#include "ui/source/source_editor.h"
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
// Counts the paint events a widget receives.
class PaintCounter : public QObject {
  public:
    int paints = 0;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};
} // namespace

class SourcePaneIdleTest : public QObject {
    Q_OBJECT

  private slots:
    void anIdlePaneRepaintsNothing() {
        ProgramFixture p;
        p.start();
        p.window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&p.window()));
        auto& pane = dynamic_cast<QtSourcePane&>(p.shell().ActiveForm()->codebox());
        pane.setText(QStringLiteral("<p>") + QString(200000, QLatin1Char('x')) +
                     QStringLiteral("</p>"));
        pane.widget()->setFocus();
        QTRY_VERIFY(pane.widget()->hasFocus());
        QTest::qWait(100); // the repaints of the load itself
        PaintCounter counter;
        pane.widget()->viewport()->installEventFilter(&counter);
        QTest::qWait(1300);
        QCOMPARE(counter.paints, 0);
    }
};

QTEST_MAIN(SourcePaneIdleTest)
#include "test_source_pane_idle.moc"
