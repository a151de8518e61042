// A large document holds its text once: the undo slot of an unchanged page shares the Source
// pane's own copy, from opening through an undo, rather than keeping a second one.
#include "program_fixture.h"
#include "shell/code_editor.h"
#include "test_shell.h"
#include <QTemporaryDir>

using namespace tsl;
using namespace tsl::test;

namespace {
// True when two strings are one block of memory, not two equal ones.
bool shared(const QString& a, const QString& b) {
    return a.size() == b.size() && a.constData() == b.constData();
}
} // namespace

class SharedTextTest : public QObject {
    Q_OBJECT

  private slots:
    void anUnchangedPageIsHeldOnce() {
        QTemporaryDir dir;
        QByteArray page = "<html><body>\n";
        while (page.size() < 10 * 1024 * 1024)
            page += "<p>a line of a large page</p>\n";
        const QString path = writeFile(dir, QStringLiteral("large.htm"), page);
        ProgramFixture p;
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        p.start();
        p.shell().dispatch([&] { p.shell().mnuFileOpen_Click(); });
        codeEditor& doc = *p.shell().ActiveForm();
        SourcePane& pane = doc.codebox();
        QCOMPARE(pane.length(), page.size());
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QVERIFY(shared(doc.step(1).Text, pane.Text()));

        // An edit parts them; its undo brings the pane back to the slot's own copy.
        p.shell().dispatch([&] {
            pane.setSelStart(20);
            pane.setSelText(QStringLiteral("x"));
            doc.AddStep();
        });
        QVERIFY(!shared(doc.step(1).Text, pane.Text()));
        QVERIFY(shared(doc.step(2).Text, pane.Text()));
        p.shell().dispatch([&] { doc.Undo(); });
        QCOMPARE(pane.length(), page.size());
        QVERIFY(shared(doc.step(1).Text, pane.Text()));
    }
};

QTEST_MAIN(SharedTextTest)
#include "test_shared_text.moc"
