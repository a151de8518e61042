#pragma once
// The internet transfer of the real program, on QtNetwork. OpenURL waits in a loop of its own
// that repaints the windows but lets no input of the user through, so the command sees a call
// that returns with the text.
// Used by QtPlatform alone.
#include "platform/url_transfer.h"
#include <QNetworkAccessManager>

namespace tsl {

class NetTransfer : public UrlTransfer {
  public:
    // A transfer that has not finished after this long is given up, as a failed one is.
    static constexpr int kDefaultTimeoutMs = 30000;
    explicit NetTransfer(int timeoutMs = kDefaultTimeoutMs) : timeoutMs_(timeoutMs) {}
    void setTimeout(int ms) { timeoutMs_ = ms; }
    QString OpenURL(const QString& url) override;

  private:
    QNetworkAccessManager manager_;
    int timeoutMs_;
};

} // namespace tsl
