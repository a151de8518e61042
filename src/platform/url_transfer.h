#pragma once
// The internet transfer: fetches an address and answers its body as text. The command waits
// for the whole response while the states of the transfer are reported.
#include <QString>
#include <functional>

namespace tsl {

class UrlTransfer {
  public:
    // The states reported while a transfer runs, numbered as the transfer control numbers them.
    enum State {
        icNone = 0,
        icResolvingHost = 1,
        icHostResolved = 2,
        icConnecting = 3,
        icConnected = 4,
        icRequesting = 5,
        icRequestSent = 6,
        icReceivingResponse = 7,
        icResponseReceived = 8,
        icDisconnecting = 9,
        icDisconnected = 10,
        icError = 11,
        icResponseCompleted = 12,
    };
    virtual ~UrlTransfer() = default;
    // Returns when the response is in: its body decoded as a document is. A page the server
    // sends with an error status is still a body. When no response comes (no host, no
    // connection, no answer in time) icError is reported and a run-time error is raised.
    virtual QString OpenURL(const QString& url) = 0;
    std::function<void(int state)> StateChanged;
    // True while OpenURL waits for the response: nothing else may run until it returns.
    bool Busy() const { return busy_; }

  protected:
    bool busy_ = false;
    // Reports icError and raises the failure of OpenURL.
    [[noreturn]] void fail(const QString& description);
    void raiseStateChanged(int state) {
        if (StateChanged) StateChanged(state);
    }
};

} // namespace tsl
