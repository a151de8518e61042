#include "runtime/dispatcher.h"
#include "runtime/runtime_error.h"

namespace tsl {

bool Dispatcher::run(const std::function<void()>& handler) {
    lastError_ = 0;
    QString text;
    try {
        handler();
        return true;
    } catch (const RuntimeError& e) {
        lastError_ = e.number();
        text = QStringLiteral("Run-time error '%1':\n\n%2").arg(e.number()).arg(e.description());
    } catch (const std::exception& e) {
        // A fault of the program itself: report it the same way rather than end the program.
        lastError_ = -1;
        text = QStringLiteral("Unexpected error:\n\n%1").arg(QString::fromLocal8Bit(e.what()));
    }
    show_(text);
    return false;
}

} // namespace tsl
