#pragma once
// Shared by the search, preview, print, runtime and gadgets tests.
#include <QCoreApplication>
#include <QTest>

namespace tsl::test {
// A data table of struct rows in one column: a row is one line, read in one QFETCH.
template <typename Row> void rowsOf(std::initializer_list<std::pair<const char*, Row>> rows) {
    QTest::addColumn<Row>("row");
    for (const auto& [name, row] : rows)
        QTest::newRow(name) << row;
}
} // namespace tsl::test

// 20 seconds for each test function by default: a loop that never ends fails, not stalls.
#define TSL_TEST_MAIN(TestClass)                                                                   \
    int main(int argc, char** argv) {                                                              \
        if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))                                  \
            qputenv("QTEST_FUNCTION_TIMEOUT", "20000");                                            \
        QCoreApplication app(argc, argv);                                                          \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
