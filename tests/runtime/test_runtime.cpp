// 16-bit narrowing, numbered errors, resuming, the dispatcher, and the readings Val and toNumber.
#include "runtime/dispatcher.h"
#include "runtime/int16.h"
#include "runtime/resume.h"
#include "runtime/vb_strings.h"
#include "search_helpers.h"
#include "test_rows.h"
#include <stdexcept>

using namespace tsl;
using namespace tsl::test;

namespace {
struct NumberRow {
    QString text;
    double value; // of Val, which reads the leading number
    int error;    // of toNumber, which takes a whole number only
};
} // namespace

class RuntimeTest : public QObject {
    Q_OBJECT

  private slots:
    void toInt16RaisesOverflowPastItsRange() {
        for (qlonglong inside : {0LL, 32767LL, -32768LL})
            QCOMPARE(qlonglong(toInt16(inside)), inside);
        // 65536 is one a plain cast would make 0.
        for (qlonglong outside : {32768LL, -32769LL, 65536LL, 4294967296LL})
            QCOMPARE(errorOf([&] { toInt16(outside); }), int(ErrOverflow));
        QCOMPARE(incrementInt16(-32768), Int16(-32767));
        QCOMPARE(errorOf([] { incrementInt16(32767); }), int(ErrOverflow));
    }

    void resumeNextAndSilentExitAnswerTheError() {
        int ran = 0;
        QCOMPARE(resumeNext([&] { ++ran; }), 0);
        QCOMPARE(resumeNext([] { raise(ErrPathFileAccess); }), 75);
        QCOMPARE(silentExit([] { toInt16(40000); }), 6);
        QCOMPARE(ran, 1);
    }

    void dispatcherShowsWhatEscapesAndGoesOn() {
        QStringList shown;
        Dispatcher dispatcher([&](const QString& text) { shown << text; });
        QVERIFY(!dispatcher.run([] { toInt16(32768); }));
        QCOMPARE(dispatcher.lastError(), 6);
        QVERIFY(dispatcher.run([] {}));
        QCOMPARE(dispatcher.lastError(), 0);
        dispatcher.run([] { tsl::toNumber(QStringLiteral("x")); });
        dispatcher.run([] { raise(ErrPathFileAccess); });
        dispatcher.run([] { raise(1234); });
        dispatcher.run([] { raise(380, QStringLiteral("Bad value")); });
        dispatcher.run([] { throw std::out_of_range("index 7"); });
        QCOMPARE(dispatcher.lastError(), -1);
        QCOMPARE(
            shown,
            QStringList({"Run-time error '6':\n\nOverflow", "Run-time error '13':\n\nType mismatch",
                         "Run-time error '75':\n\nPath/File access error",
                         "Run-time error '1234':\n\nApplication-defined or "
                         "object-defined error",
                         "Run-time error '380':\n\nBad value", "Unexpected error:\n\nindex 7"}));
        QCOMPARE(RuntimeError(ErrCancelled).what(), "Run-time error 32755: Cancel was selected.");
    }

    void readingNumbers_data() {
        QTest::addColumn<NumberRow>("row");
        const NumberRow rows[] = {
            {"10", 10, 0},       {" 7 ", 7, 0},      {"-3.5", -3.5, 0},  {"1e3", 1000, 0},
            {"2.5E-1", 0.25, 0}, {"+4", 4, 0},       {".5", 0.5, 0},     {"09.050", 9.05, 0},
            {"12px", 12, 13},    {"", 0, 13},        {"   ", 0, 13},     {"-3.5e", -3.5, 13},
            {"abc", 0, 13},      {"inf", 0, 13},     {"nan", 0, 13},     {"-", 0, 13},
            {".", 0, 13},        {"1.2.3", 1.2, 13}, {"1 2 3", 123, 13}, {"\t1\n2", 12, 13},
            {"1d2", 100, 13},    {"7e+", 7, 13},     {"4e1x", 40, 13},   {"3em", 3, 13},
        };
        for (const NumberRow& row : rows)
            QTest::addRow("'%s'", qPrintable(row.text)) << row;
        QTest::newRow("not an ASCII digit") << NumberRow{QString(QChar(0x0663)), 0, 13};
        QTest::newRow("then one") << NumberRow{QString("5") + QChar(0x0663), 5, 13};
    }
    void readingNumbers() {
        QFETCH(NumberRow, row);
        QCOMPARE(Val(row.text), row.value);
        double value = 0;
        QCOMPARE(errorOf([&] { value = tsl::toNumber(row.text); }), row.error);
        QCOMPARE(value, row.error ? 0.0 : row.value);
        // Too large for a double: both overflow.
        QCOMPARE(errorOf([] { Val(QStringLiteral("1e999")); }), 6);
        QCOMPARE(errorOf([] { tsl::toNumber(QStringLiteral("1e999")); }), 6);
    }
};

TSL_TEST_MAIN(RuntimeTest)
#include "test_runtime.moc"
