// The text of an undo slot in pieces: whatever the pieces, it reads back, compares and sizes as
// the text it was given, and a large text's steps keep only what their edits put in.
#include "editor/step_text.h"
#include "test_rows.h"
#include <QRandomGenerator>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
// A large text with no two lines alike, so that a wrong piece cannot read back right.
QString largeText(int lines = 4000) {
    QString text;
    for (int i = 0; i < lines; ++i)
        text += QStringLiteral("<p id=\"%1\">line %1 of the page</p>\n").arg(i);
    return text;
}
} // namespace

class StepTextTest : public QObject {
    Q_OBJECT

  private slots:
    // One edit against a whole text: the pieces read back as the edited text.
    void anEditReadsBack_data() {
        columns<int, int, QString>({"at", "removed", "inserted"});
        QTest::newRow("insert at the start") << 0 << 0 << "<b>";
        QTest::newRow("insert in the middle") << 60000 << 0 << "x";
        QTest::newRow("insert at the end") << -1 << 0 << "</html>";
        QTest::newRow("delete at the start") << 0 << 10 << "";
        QTest::newRow("delete in the middle") << 70000 << 500 << "";
        QTest::newRow("delete at the end") << -10 << 10 << "";
        QTest::newRow("replace") << 80000 << 3 << "abcdef";
        QTest::newRow("a repeated character") << 5 << 0 << "<";
    }
    void anEditReadsBack() {
        QFETCH(int, at);
        QFETCH(int, removed);
        QFETCH(QString, inserted);
        const QString before = largeText();
        const int position = at < 0 ? int(before.size()) + at + (removed ? 0 : 1) : at;
        QString after = before;
        after.replace(position, removed, inserted);

        const StepText below(before);
        StepText step;
        step.assign(after, below);
        QVERIFY(!step.isWhole());
        QCOMPARE(step.toString(), after);
        QCOMPARE(step.size(), after.size());
        QVERIFY(step == after);
        QVERIFY(step != before);
        QVERIFY(below != step);
        QVERIFY(step.charactersBeyond(before) <= inserted.size());
    }

    // A run of edits, each step kept against the one below, as the undo stack keeps them.
    void manyStepsReadBackAndCompare() {
        QRandomGenerator random(20261123);
        QString model = largeText();
        const QString first = model;
        std::vector<StepText> steps{StepText(model)};
        for (int i = 0; i < 200; ++i) {
            const int at = int(random.bounded(int(model.size()) + 1));
            const int removed = int(random.bounded(std::min<qsizetype>(40, model.size() - at) + 1));
            const QString inserted = QString(int(random.bounded(6)), QChar(u'a' + i % 26));
            model.replace(at, removed, inserted);
            StepText step;
            step.assign(model, steps.back());
            QCOMPARE(step.toString(), model);
            QVERIFY(step == model);
            QVERIFY(step == StepText(model));
            steps.push_back(step);
        }
        // Every older step still reads as it was, and neighbours tell each other apart.
        QVERIFY(steps.front() == first);
        for (size_t i = 1; i < steps.size(); ++i)
            QVERIFY((steps[i] == steps[i - 1]) == (steps[i].toString() == steps[i - 1].toString()));
        // Only now and then is a step whole again (when its pieces grow many); the newest holds
        // little beyond the last whole one, which it shares.
        QString lastWhole;
        int wholeSteps = 0;
        for (const StepText& step : steps)
            if (step.isWhole()) {
                ++wholeSteps;
                lastWhole = step.toString();
            }
        QVERIFY2(wholeSteps <= 3, qPrintable(QString::number(wholeSteps)));
        QVERIFY(steps.back().charactersBeyond(lastWhole) < 200 * 6);
    }

    // Small texts and edits that change much are kept whole, as a plain shared string.
    void keptWhole_data() {
        columns<QString, QString>({"below", "text"});
        QTest::newRow("small") << "<p>a</p>"
                               << "<p>ab</p>";
        QTest::newRow("empty") << ""
                               << "";
        const QString large = largeText();
        QTest::newRow("most of it new")
            << large << QString(large).replace(10, 10, QString(100000, QLatin1Char('y')));
        QTest::newRow("a small text below a large one") << "<p>" << large;
    }
    void keptWhole() {
        QFETCH(QString, below);
        QFETCH(QString, text);
        StepText step;
        step.assign(text, StepText(below));
        QVERIFY(step.isWhole());
        if (!text.isEmpty()) QCOMPARE(step.toString().constData(), text.constData());
        QVERIFY(step == text);
    }
};

QTEST_GUILESS_MAIN(StepTextTest)
#include "test_step_text.moc"
