// The run-time model: 16-bit narrowing, numbered errors, resuming past errors, the dispatcher
// that shows what escapes a handler, and the number readings Val and toNumber.
#include "runtime/dispatcher.h"
#include "runtime/int16.h"
#include "runtime/resume.h"
#include "runtime/runtime_error.h"
#include "runtime/vb_strings.h"
#include "scripted_platform.h"
#include "test_rows.h"
#include <stdexcept>

using namespace tsl;
using namespace tsl::test;

class RuntimeTest : public QObject {
    Q_OBJECT

  private slots:
    void toInt16Limits_data() {
        columns<qlonglong, int>({"value", "error"});
        QTest::newRow("0") << 0LL << 0;
        QTest::newRow("32767") << 32767LL << 0;
        QTest::newRow("32768") << 32768LL << int(ErrOverflow);
        QTest::newRow("-32768") << -32768LL << 0;
        QTest::newRow("-32769") << -32769LL << int(ErrOverflow);
        QTest::newRow("65536, which a plain cast would make 0") << 65536LL << int(ErrOverflow);
        QTest::newRow("a large position") << 4294967296LL << int(ErrOverflow);
    }
    void toInt16Limits() {
        QFETCH(qlonglong, value);
        QFETCH(int, error);
        Int16 narrowed = 12345;
        QCOMPARE(errorOf([&] { narrowed = toInt16(value); }), error);
        if (error == 0)
            QCOMPARE(qlonglong(narrowed), value);
        else
            QCOMPARE(narrowed, Int16(12345)); // the assignment never happened
    }

    void incrementPastTheTopOverflows() {
        QCOMPARE(incrementInt16(32766), Int16(32767));
        QCOMPARE(errorOf([] { incrementInt16(32767); }), int(ErrOverflow));
        QCOMPARE(incrementInt16(-32768), Int16(-32767));
    }

    void errorDescriptions_data() {
        columns<int, QString>({"number", "description"});
        QTest::newRow("5") << 5 << "Invalid procedure call or argument";
        QTest::newRow("6") << 6 << "Overflow";
        QTest::newRow("9") << 9 << "Subscript out of range";
        QTest::newRow("13") << 13 << "Type mismatch";
        QTest::newRow("53") << 53 << "File not found";
        QTest::newRow("55") << 55 << "File already open";
        QTest::newRow("70") << 70 << "Permission denied";
        QTest::newRow("75") << 75 << "Path/File access error";
        QTest::newRow("76") << 76 << "Path not found";
        QTest::newRow("380") << 380 << "Invalid property value";
        QTest::newRow("383") << 383 << "Property is read-only";
        QTest::newRow("424") << 424 << "Object required";
        QTest::newRow("32755") << 32755 << "Cancel was selected.";
        QTest::newRow("unknown") << 1234 << "Application-defined or object-defined error";
    }
    void errorDescriptions() {
        QFETCH(int, number);
        QFETCH(QString, description);
        QCOMPARE(errorDescription(number), description);
        const RuntimeError e(number);
        QCOMPARE(e.number(), number);
        QCOMPARE(e.description(), description);
        QVERIFY(QByteArray(e.what()).contains(QByteArray::number(number)));
    }

    void resumeNextGoesOn() {
        QStringList ran;
        QList<int> errors;
        errors << resumeNext([&] { ran << "first"; });
        errors << resumeNext([&] {
            ran << "second";
            raise(ErrPathFileAccess);
            ran << "never";
        });
        errors << resumeNext([&] {
            ran << "third";
            toInt16(40000);
        });
        errors << resumeNext([&] { ran << "fourth"; });
        QCOMPARE(ran, QStringList({"first", "second", "third", "fourth"}));
        QCOMPARE(errors, QList<int>({0, 75, 6, 0}));
    }

    void silentExitStopsAtTheFirstError() {
        QStringList ran;
        const int error = silentExit([&] {
            ran << "one";
            raise(ErrCancelled);
            ran << "two";
        });
        QCOMPARE(error, 32755);
        QCOMPARE(ran, QStringList({"one"}));
        QCOMPARE(silentExit([&] { ran << "clean"; }), 0);
    }

    void dispatcherShowsTheError() {
        QStringList shown;
        Dispatcher dispatcher([&](const QString& text) { shown << text; });
        int state = 0;
        const bool ok = dispatcher.run([&] {
            state = 1;
            toInt16(32768);
            state = 2;
        });
        QVERIFY(!ok);
        QCOMPARE(dispatcher.lastError(), 6);
        QCOMPARE(state, 1); // what ran before the error stays done
        QCOMPARE(shown, QStringList{QStringLiteral("Run-time error '6':\n\nOverflow")});

        // The program goes on: the next handler runs and a clean one clears the last error.
        QVERIFY(dispatcher.run([&] { state = 3; }));
        QCOMPARE(state, 3);
        QCOMPARE(dispatcher.lastError(), 0);
        QCOMPARE(shown.size(), 1);
        // A raised error shows its standard description, or its own.
        QVERIFY(!dispatcher.run([] { raise(ErrPathFileAccess); }));
        QCOMPARE(shown.last(),
                 QStringLiteral("Run-time error '75':\n\nPath/File access error"));
        QVERIFY(!dispatcher.run([] { raise(380, QStringLiteral("Bad value")); }));
        QCOMPARE(shown.last(),
                 QStringLiteral("Run-time error '380':\n\nBad value"));
    }

    void dispatcherCatchesOtherExceptions() {
        QStringList shown;
        Dispatcher dispatcher([&](const QString& text) { shown << text; });
        QStringList kept{"the user's text"};
        const bool ok = dispatcher.run([&] {
            kept << "more";
            throw std::out_of_range("index 7");
        });
        QVERIFY(!ok);
        QCOMPARE(dispatcher.lastError(), -1);
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown[0].contains(QStringLiteral("index 7")));
        QCOMPARE(kept, QStringList({"the user's text", "more"}));
        QVERIFY(dispatcher.run([&] { kept.clear(); }));
        QVERIFY(kept.isEmpty());
    }

    void val_data() {
        columns<QString, double>({"text", "value"});
        QTest::newRow("12px") << "12px" << 12.0;
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("blanks around") << " 7 " << 7.0;
        QTest::newRow("dangling exponent") << "-3.5e" << -3.5;
        QTest::newRow("letters") << "abc" << 0.0;
        QTest::newRow("plus") << "+4" << 4.0;
        QTest::newRow("sign alone") << "-" << 0.0;
        QTest::newRow("point alone") << "." << 0.0;
        QTest::newRow("leading point") << ".5" << 0.5;
        QTest::newRow("second point ends") << "1.2.3" << 1.2;
        QTest::newRow("blanks inside") << "1 2 3" << 123.0;
        QTest::newRow("tab and line feed inside") << "\t1\n2" << 12.0;
        QTest::newRow("exponent") << "1e3" << 1000.0;
        QTest::newRow("exponent with sign") << "2.5E-1" << 0.25;
        QTest::newRow("D exponent") << "1d2" << 100.0;
        QTest::newRow("exponent sign alone") << "7e+" << 7.0;
        QTest::newRow("exponent then letters") << "4e1x" << 40.0;
        QTest::newRow("unit after exponent-like letter") << "3em" << 3.0;
        QTest::newRow("not an ASCII digit") << QString(QChar(0x0663)) << 0.0;
        QTest::newRow("digits then other digit") << QString("5") + QChar(0x0663) << 5.0;
    }
    void val() {
        QFETCH(QString, text);
        QTEST(Val(text), "value");
    }
    void valOverflows() {
        QCOMPARE(errorOf([] { Val(QStringLiteral("1e999")); }), 6);
    }

    // toNumber reads a whole number or refuses: Type mismatch, or Overflow when too large.
    void toNumber_data() {
        columns<QString, double, int>({"text", "value", "error"});
        QTest::newRow("digits") << "12" << 12.0 << 0;
        QTest::newRow("blanks around") << " 7 " << 7.0 << 0;
        QTest::newRow("negative fraction") << "-3.5" << -3.5 << 0;
        QTest::newRow("exponent") << "1e3" << 1000.0 << 0;
        for (const char* text : {"abc", "", "   ", "12px", "inf", "nan"})
            QTest::addRow("'%s'", text) << text << 0.0 << 13;
        QTest::newRow("too large") << "1e999" << 0.0 << 6;
    }
    void toNumber() {
        QFETCH(QString, text);
        QFETCH(int, error);
        double value = 0;
        QCOMPARE(errorOf([&] { value = tsl::toNumber(text); }), error);
        QTEST(value, "value");
    }
};

QTEST_GUILESS_MAIN(RuntimeTest)
#include "test_runtime.moc"
