// The Source pane's row index follows every edit: a row after each line break, long lines cut
// into rows of at most a few thousand characters between surrogate pairs, and the rows kept
// up edit by edit always valid for the text.
#include "random_documents.h"
#include "test_rows.h"
#include "ui/source/text_rows.h"
#include <QRandomGenerator>
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
// Text with lines short and long, every kind of break, and characters outside the basic plane.
QString randomPiece(QRandomGenerator& random) {
    static const QString pieces[] = {
        QStringLiteral("\n"),   QStringLiteral("\r\n"),
        QStringLiteral("\r"),   QString(QChar(0x2028)),
        QString(QChar(0x2029)), QString(QChar(0xFDD0)),
        QString(QChar(0xFDD1)), QString::fromUtf16(u"\U0001F600"),
        QStringLiteral("a"),
    };
    const int kind = random.bounded(12);
    if (kind < 9) return pieces[kind];
    // A run long enough to make several rows now and then.
    const int length = kind == 11 ? random.bounded(3 * TextRows::kMaxRow) : random.bounded(40);
    QString run;
    for (int i = 0; i < length; ++i)
        run += random.bounded(50) == 0 ? QString::fromUtf16(u"\U0001F600") : QStringLiteral("x");
    return run;
}

// A position that does not split a surrogate pair.
int whole(const QString& text, int position) {
    if (position > 0 && position < text.size() && text.at(position).isLowSurrogate()) --position;
    return position;
}
} // namespace

class TextRowsTest : public QObject {
    Q_OBJECT

  private slots:
    void rowsOfAText_data() {
        columns<QString, QList<int>>({"text", "starts"});
        QTest::newRow("empty") << QString() << QList<int>{0};
        QTest::newRow("one line") << QStringLiteral("abc") << QList<int>{0};
        QTest::newRow("a break at the end") << QStringLiteral("ab\n") << QList<int>{0, 3};
        QTest::newRow("every break") << QString::fromUtf16(u"a\nb\u2028c\u2029d\uFDD0e\uFDD1f")
                                     << QList<int>{0, 2, 4, 6, 8, 10};
        QTest::newRow("no break at a carriage return")
            << QStringLiteral("a\rb\r\nc") << QList<int>{0, 5};
        const QString longLine(TextRows::kMaxRow + 2, QLatin1Char('x'));
        QTest::newRow("a long line in two rows")
            << longLine << QList<int>{0, (TextRows::kMaxRow + 2) / 2};
        QString pairs;
        while (pairs.size() < TextRows::kMaxRow + 2) // the cut falls inside a pair
            pairs += QString::fromUtf16(u"\U0001F600");
        QTest::newRow("a cut between surrogate pairs")
            << pairs << QList<int>{0, static_cast<int>(pairs.size()) / 2 - 1};
    }
    void rowsOfAText() {
        QFETCH(QString, text);
        QFETCH(QList<int>, starts);
        TextRows rows;
        rows.reset(text);
        QCOMPARE(QList<int>(rows.starts().begin(), rows.starts().end()), starts);
        QCOMPARE(TextRows::check(rows, text), QString());
    }

    // Random edits of texts with short and long lines: after each, the rows kept up are valid
    // for the new text, and a caret at each row's start is found in that row.
    void rowsFollowRandomEdits() {
        const FuzzRun run(400);
        for (int c = 0; c < run.cases; ++c) {
            QRandomGenerator random(run.seed + static_cast<quint32>(c));
            QString text;
            for (int i = random.bounded(6); i > 0; --i)
                text += randomPiece(random);
            TextRows rows;
            rows.reset(text);
            for (int e = 0; e < 20; ++e) {
                const int length = static_cast<int>(text.size());
                const int start = whole(text, random.bounded(length + 1));
                const int end = random.bounded(3) == 0
                                    ? start
                                    : whole(text, start + random.bounded(length - start + 1));
                const QString added = random.bounded(3) == 0 ? QString() : randomPiece(random);
                text.replace(start, end - start, added);
                const TextRows::Change change =
                    rows.replaced(text, start, end - start, static_cast<int>(added.size()));
                const QString problem = TextRows::check(rows, text);
                if (!problem.isEmpty())
                    QFAIL(qPrintable(QStringLiteral("seed %1 case %2 edit %3: %4")
                                         .arg(run.seed)
                                         .arg(c)
                                         .arg(e)
                                         .arg(problem)));
                QVERIFY(change.first <= change.newEnd && change.newEnd <= rows.count());
                for (int r = change.first; r < change.newEnd; ++r)
                    QCOMPARE(rows.rowOf(rows.start(r)), r);
            }
        }
    }
};

QTEST_MAIN(TextRowsTest)
#include "test_text_rows.moc"
