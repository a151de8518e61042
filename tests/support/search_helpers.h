#pragma once
// Helpers of the search, preview, print, runtime and gadgets tests: data rows that are structs,
// and a test program whose test functions each have a time limit.
#include <QCoreApplication>
#include <QTest>
#include <initializer_list>
#include <utility>

namespace tsl::test {

// A data table whose rows are structs: one column, so that a test reads its row in one QFETCH
// and a row is written in one line.
template <typename Row> void rowsOf(std::initializer_list<std::pair<const char*, Row>> rows) {
    QTest::addColumn<Row>("row");
    for (const auto& [name, row] : rows)
        QTest::newRow(name) << row;
}

} // namespace tsl::test

// Runs the tests of `TestClass`, each test function within 20 seconds unless the environment
// sets another limit: a loop that never ends fails its test instead of stalling the run.
#define TSL_TEST_MAIN(TestClass)                                                                \
    int main(int argc, char** argv) {                                                           \
        if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))                               \
            qputenv("QTEST_FUNCTION_TIMEOUT", "20000");                                         \
        QCoreApplication app(argc, argv);                                                       \
        TestClass test;                                                                         \
        return QTest::qExec(&test, argc, argv);                                                 \
    }
