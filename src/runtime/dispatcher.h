#pragma once
// Every handler the user sets off runs through the dispatcher: whatever run-time error escapes
// it is shown with its number and description, and the program goes on.
#include <functional>

namespace tsl {

class Platform;

class Dispatcher {
  public:
    explicit Dispatcher(Platform& platform) : platform_(platform) {}
    // Runs a handler; answers false when an error escaped it (and was shown).
    bool run(const std::function<void()>& handler);
    // The error number of the last handler that failed, 0 when the last one ran clean.
    int lastError() const { return lastError_; }

  private:
    Platform& platform_;
    int lastError_ = 0;
};

} // namespace tsl
