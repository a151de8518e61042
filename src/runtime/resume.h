#pragma once
// "Errors resume at the next statement": each statement of such a handler is wrapped in
// resumeNext(), which swallows a run-time error and reports its number (0 when none).
#include "runtime/runtime_error.h"
#include <utility>

namespace tsl {

template <typename Statement> int resumeNext(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return 0;
    } catch (const RuntimeError& e) {
        return e.number();
    }
}

// "One silent exit at the end": the handler's body runs until the first error, which ends it
// without a message. Returns the error number, 0 when the body ran to its end.
template <typename Body> int silentExit(Body&& body) {
    return resumeNext(std::forward<Body>(body));
}

} // namespace tsl
