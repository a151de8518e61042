#include "ui/desktop/net_transfer.h"
#include "editor/text_file.h"
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QHostInfo>
#include <QNetworkReply>
#include <QPointer>
#include <QScopeGuard>
#include <QTimer>
#include <memory>

namespace tsl {

QString NetTransfer::OpenURL(const QString& address) {
    busy_ = true;
    const auto done = qScopeGuard([this] { busy_ = false; });
    const QUrl url = QUrl::fromUserInput(address.trimmed());
    if (!url.isValid()) fail(QStringLiteral("Invalid address"));
    const QDeadlineTimer deadline(timeoutMs_);
    // Waits for `finished` or the deadline; true when it came in time.
    auto wait = [&deadline](QNetworkReply* sender) {
        QEventLoop loop;
        bool came = false;
        QObject::connect(sender, &QNetworkReply::finished, &loop, [&] {
            came = true;
            loop.quit();
        });
        QTimer::singleShot(std::max<qint64>(deadline.remainingTime(), 0), &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        return came;
    };

    if (!url.host().isEmpty()) {
        raiseStateChanged(icResolvingHost);
        struct Lookup : QObject {
            QHostInfo info;
            bool done = false;
        };
        Lookup lookup;
        QEventLoop loop;
        QHostInfo::lookupHost(url.host(), &lookup, [&](const QHostInfo& info) {
            lookup.info = info;
            lookup.done = true;
            loop.quit();
        });
        if (!lookup.done) {
            QTimer::singleShot(std::max<qint64>(deadline.remainingTime(), 0), &loop,
                               &QEventLoop::quit);
            loop.exec(QEventLoop::ExcludeUserInputEvents);
        }
        if (!lookup.done || lookup.info.error() != QHostInfo::NoError)
            fail(QStringLiteral("Host not found"));
        raiseStateChanged(icHostResolved);
    }

    raiseStateChanged(icConnecting);
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    std::unique_ptr<QNetworkReply> reply(manager_.get(request));
    if (!reply->isFinished() && !wait(reply.get())) {
        reply->abort();
        fail(QStringLiteral("The server did not answer in time"));
    }
    // A server that answered with an error status still sent a page; no answer at all is a
    // failure of the transfer.
    const bool answered = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid() ||
                          reply->error() == QNetworkReply::NoError;
    if (!answered) fail(reply->errorString());
    const QByteArray body = reply->readAll();
    raiseStateChanged(icResponseReceived);
    raiseStateChanged(icResponseCompleted);
    return decodeText(body).text;
}

} // namespace tsl
