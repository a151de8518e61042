#pragma once
// Every handler the user sets off runs through the dispatcher: whatever run-time error escapes
// it is shown with its number and description, and the program goes on.
#include <QString>
#include <functional>

namespace tsl {

class Dispatcher {
  public:
    // `show` puts the error text in front of the user (the desktop's critical message box).
    using Report = std::function<void(const QString& text)>;
    explicit Dispatcher(Report show) : show_(std::move(show)) {}
    // Runs a handler; answers false when an error escaped it (and was shown).
    bool run(const std::function<void()>& handler);
    // The error number of the last handler that failed, 0 when the last one ran clean.
    int lastError() const { return lastError_; }

  private:
    Report show_;
    int lastError_ = 0;
};

} // namespace tsl
