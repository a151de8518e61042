#pragma once
// Small helpers for data-driven tests and run-time errors.
#include "runtime/runtime_error.h"
#include <QTest>
#include <initializer_list>

namespace tsl::test {

// Declares the columns of a data table in one line: columns<int, bool>({"key", "on"}).
template <typename... T> void columns(std::initializer_list<const char*> names) {
    auto name = names.begin();
    (QTest::addColumn<T>(*name++), ...);
}

// The number of the run-time error a statement raises, 0 when it raises none.
template <typename Statement> int errorOf(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

} // namespace tsl::test
