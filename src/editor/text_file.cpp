#include "editor/text_file.h"
#include <QStringDecoder>

namespace tsl {

namespace {
const QByteArray kBom("\xEF\xBB\xBF", 3);

bool everyLineFeedAfterCarriageReturn(const QByteArray& bytes) {
    bool anyLineFeed = false;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (bytes.at(i) != '\n') continue;
        if (i == 0 || bytes.at(i - 1) != '\r') return false;
        anyLineFeed = true;
    }
    return anyLineFeed;
}

bool fitsLatin1(const QString& text) {
    for (QChar c : text)
        if (c.unicode() > 0xFF) return false;
    return true;
}
} // namespace

DecodedText decodeText(const QByteArray& bytes) {
    DecodedText result;
    QByteArray body = bytes;
    if (body.startsWith(kBom)) {
        result.format.byteOrderMark = true;
        body.remove(0, kBom.size());
    }
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(body);
    if (utf8.hasError()) {
        // Not UTF-8: an 8-bit reading in which every byte stands for one character.
        result.format.encoding = TextFormat::Latin1;
        result.format.byteOrderMark = false;
        text = QString::fromLatin1(bytes);
    }
    if (everyLineFeedAfterCarriageReturn(bytes)) {
        result.format.crlf = true;
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    }
    result.text = std::move(text);
    return result;
}

QByteArray encodeText(const QString& text, const TextFormat& format) {
    QString body = text;
    if (format.crlf) body.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    // Text typed beyond the 8-bit range would be lost in Latin-1, so such a file becomes UTF-8.
    if (format.encoding == TextFormat::Latin1 && fitsLatin1(body)) return body.toLatin1();
    QByteArray bytes = body.toUtf8();
    if (format.byteOrderMark) bytes.prepend(kBom);
    return bytes;
}

} // namespace tsl
