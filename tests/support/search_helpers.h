#pragma once
// Shared by the search, preview, print, runtime and gadgets tests.
#include <QCoreApplication>
#include <QTest>
#include <initializer_list>
#include <utility>

namespace tsl::test {
// A data table of struct rows in one column: a row is one line, read in one QFETCH.
template <typename Row> void rowsOf(std::initializer_list<std::pair<const char*, Row>> rows) {
    QTest::addColumn<Row>("row");
    for (const auto& [name, row] : rows)
        QTest::newRow(name) << row;
}
} // namespace tsl::test

// Each test function gets 20 seconds unless the environment says otherwise: a loop that never
// ends fails its test instead of stalling the run.
#define TSL_TEST_MAIN(TestClass)                                                                   \
    int main(int argc, char** argv) {                                                              \
        if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))                                  \
            qputenv("QTEST_FUNCTION_TIMEOUT", "20000");                                            \
        QCoreApplication app(argc, argv);                                                          \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
