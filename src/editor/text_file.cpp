#include "editor/text_file.h"
#include <QStringDecoder>
#include <algorithm>
#include <cstring>

namespace tsl {

namespace {
const QByteArray kBom("\xEF\xBB\xBF", 3);

// memchr finds line ends several times faster than a loop over the bytes (QByteArray::count
// and std::count look at one byte at a time).
const char* nextLineFeed(const char* from, const char* end) {
    if (from >= end) return nullptr;
    return static_cast<const char*>(std::memchr(from, '\n', size_t(end - from)));
}

bool everyLineFeedAfterCarriageReturn(QByteArrayView bytes) {
    const char* const begin = bytes.data();
    const char* const end = begin + bytes.size();
    bool anyLineFeed = false;
    for (const char* at = nextLineFeed(begin, end); at; at = nextLineFeed(at + 1, end)) {
        if (at == begin || at[-1] != '\r') return false;
        anyLineFeed = true;
    }
    return anyLineFeed;
}

// Line ends are changed in one pass each way: a replace whose new text is longer or shorter
// than the old moves the rest of the text at every match in this Qt, which is quadratic.
void dropCarriageReturnsBeforeLineFeeds(QString& text) {
    QChar* data = text.data();
    const qsizetype size = text.size();
    qsizetype kept = 0;
    for (qsizetype i = 0; i < size; ++i) {
        if (data[i] == u'\r' && i + 1 < size && data[i + 1] == u'\n') continue;
        data[kept++] = data[i];
    }
    text.truncate(kept);
}

// The bytes with a carriage return before every line feed, behind a prefix.
QByteArray withCarriageReturns(const QByteArray& bytes, const QByteArray& prefix) {
    const char* from = bytes.constData();
    const char* const end = from + bytes.size();
    qsizetype lineFeeds = 0;
    for (const char* at = nextLineFeed(from, end); at; at = nextLineFeed(at + 1, end))
        ++lineFeeds;
    QByteArray out(prefix.size() + bytes.size() + lineFeeds, Qt::Uninitialized);
    char* to = std::copy(prefix.cbegin(), prefix.cend(), out.data());
    while (const char* lineFeed = nextLineFeed(from, end)) {
        to = std::copy(from, lineFeed, to);
        *to++ = '\r';
        *to++ = '\n';
        from = lineFeed + 1;
    }
    std::copy(from, end, to);
    return out;
}

bool fitsLatin1(const QString& text) {
    for (QChar c : text)
        if (c.unicode() > 0xFF) return false;
    return true;
}
} // namespace

DecodedText decodeText(const QByteArray& bytes) {
    DecodedText result;
    QByteArrayView body(bytes);
    if (body.startsWith(kBom)) {
        result.format.byteOrderMark = true;
        body = body.sliced(kBom.size());
    }
    // A second mark is text: the decoder must not take it away as well.
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = utf8.decode(body);
    if (utf8.hasError()) {
        // Not UTF-8: an 8-bit reading in which every byte stands for one character.
        result.format.encoding = TextFormat::Latin1;
        result.format.byteOrderMark = false;
        text = QString::fromLatin1(bytes);
    }
    if (everyLineFeedAfterCarriageReturn(bytes)) {
        result.format.crlf = true;
        dropCarriageReturnsBeforeLineFeeds(text);
    }
    result.text = std::move(text);
    return result;
}

void encodeTextInPieces(const QString& text, const TextFormat& format, const ByteSink& sink) {
    // Text typed beyond the 8-bit range would be lost in Latin-1, so such a file becomes UTF-8.
    const bool latin1 = format.encoding == TextFormat::Latin1 && fitsLatin1(text);
    QByteArray prefix = !latin1 && format.byteOrderMark ? kBom : QByteArray();
    constexpr qsizetype kPiece = 1 << 20;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype length = std::min(kPiece, text.size() - at);
        // A surrogate pair stays in one piece, so that it is encoded as one character.
        if (at + length < text.size() && text.at(at + length - 1).isHighSurrogate()) ++length;
        const QStringView piece = QStringView(text).sliced(at, length);
        QByteArray bytes = latin1 ? piece.toLatin1() : piece.toUtf8();
        if (format.crlf)
            bytes = withCarriageReturns(bytes, prefix);
        else if (!prefix.isEmpty())
            bytes.prepend(prefix);
        prefix.clear();
        sink(bytes);
        at += length;
    }
    if (!prefix.isEmpty()) sink(prefix); // an empty text: the mark alone
}

QByteArray encodeText(const QString& text, const TextFormat& format) {
    QByteArray bytes;
    encodeTextInPieces(text, format, [&bytes](const QByteArray& piece) { bytes += piece; });
    return bytes;
}

} // namespace tsl
