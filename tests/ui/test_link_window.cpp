// The real Insert Hyperlink dialog: filled through its widgets, its OK pressed, the link in
// the document with the word still selected.
#include "program_fixture.h"
#include "ui/kit/form_host.h"
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace tsl;
using namespace tsl::test;

class LinkWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void aLinkIsMadeThroughTheDialogsWidgets() {
        ProgramFixture p;
        p.start();
        SourcePane& pane = p.shell().ActiveForm()->codebox();
        pane.setText(QStringLiteral("see here"));
        pane.setSelStart(4);
        pane.setSelLength(4);
        bool shown = false;
        QTimer::singleShot(0, [&] {
            FormDialog* dialog = p.bench->forms().current();
            QVERIFY(dialog);
            shown = true;
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Insert Hyperlink"));
            auto* url = ProgramFixture::child<QLineEdit>(*dialog, "URLBox");
            QCOMPARE(url->accessibleName(), QStringLiteral("URL:"));
            url->selectAll();
            QTest::keyClicks(url, QStringLiteral("a.htm"));
            auto* target = ProgramFixture::child<QComboBox>(*dialog, "cmbTarget");
            target->setCurrentIndex(2);
            emit target->activated(2);
            QTest::mouseClick(ProgramFixture::child<QPushButton>(*dialog, "OK"), Qt::LeftButton);
        });
        p.window().findChild<QAction*>(QStringLiteral("mnuInsertHyperlink"))->trigger();
        QVERIFY(shown);
        QCOMPARE(pane.Text(), QStringLiteral("see <a href=\"a.htm\" target=\"_blank\">here</a>"));
        QCOMPARE(pane.SelText(), QStringLiteral("here"));
    }
};

QTEST_MAIN(LinkWindowTest)
#include "test_link_window.moc"
