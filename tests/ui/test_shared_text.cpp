// A large document holds its text once: the undo slot of an unchanged page shares the Source
// pane's own copy, from opening through an undo, rather than keeping a second one; and the
// steps of small edits keep only what they changed, leaning on that one whole text.
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

        // Edits spread over the page: each step keeps its few characters and leans on the
        // text of the first; none holds a copy of the page.
        const QString original = pane.Text();
        constexpr int kEdits = 6;
        for (int i = 0; i < kEdits; ++i)
            p.shell().dispatch([&] {
                pane.setSelStart(i * 1600000);
                pane.setSelText(QStringLiteral("<b>%1</b>").arg(i));
                doc.AddStep();
            });
        QCOMPARE(doc.nDoneIndex, Int16(kEdits + 1));
        const QString first = doc.step(1).Text;
        for (int i = 2; i <= kEdits + 1; ++i) {
            const StepText& slot = doc.step(i).Text;
            QVERIFY2(!slot.isWhole(), qPrintable(QString::number(i)));
            QVERIFY2(slot.charactersBeyond(first) < 1000, qPrintable(QString::number(i)));
        }
        QVERIFY(doc.step(kEdits + 1).Text == pane.Text());
        QVERIFY(!shared(doc.step(1).Text, pane.Text()));

        // Undo goes back step by step to the page as it was, which the pane then shares with
        // the first slot again.
        for (int i = 0; i < kEdits; ++i)
            p.shell().dispatch([&] { doc.Undo(); });
        QCOMPARE(doc.nDoneIndex, Int16(1));
        QCOMPARE(pane.Text(), original);
        QVERIFY(shared(doc.step(1).Text, pane.Text()));
    }
};

QTEST_MAIN(SharedTextTest)
#include "test_shared_text.moc"
