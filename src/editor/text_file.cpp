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

// Windows-1252 from 0x80 to 0x9F; 0 where the code page assigns nothing (those bytes stand for
// the control characters of the same numbers).
constexpr char16_t kHighControls[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

QString decodeWindows1252(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* to = text.data();
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        const char16_t high = b >= 0x80 && b < 0xA0 ? kHighControls[b - 0x80] : 0;
        *to++ = QChar(high ? high : char16_t(b));
    }
    return text;
}

// The byte of a character in windows-1252; -1 when the code page cannot hold it.
int windows1252Byte(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
    if (c < 0xA0) return kHighControls[c - 0x80] ? -1 : c; // the five unassigned bytes
    for (int i = 0; i < 32; ++i)
        if (kHighControls[i] == c) return 0x80 + i;
    return -1;
}

// A character the code page cannot hold, written as the file's kind writes any character.
void appendEscaped(QByteArray& out, char32_t code, TextKind kind) {
    switch (kind) {
    case TextKind::Page:
        out += "&#" + QByteArray::number(code) + ';';
        return;
    case TextKind::StyleSheet:
        // The blank ends the escape and is taken with it.
        out += '\\' + QByteArray::number(code, 16).toUpper() + ' ';
        return;
    case TextKind::PlainText:
        out += QString::fromUcs4(&code, 1).toUtf8();
        return;
    }
}

QByteArray encodeWindows1252(QStringView text, TextKind kind) {
    QByteArray out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        const int byte = windows1252Byte(c);
        if (byte >= 0) {
            out += static_cast<char>(byte);
        } else if (isFileNameEscape(QChar(c))) {
            out += static_cast<char>(c - 0xDC00); // a byte kept as it was
        } else if (QChar::isHighSurrogate(c) && i + 1 < text.size() &&
                   QChar::isLowSurrogate(text[i + 1].unicode())) {
            appendEscaped(out, QChar::surrogateToUcs4(c, text[i + 1].unicode()), kind);
            ++i;
        } else {
            appendEscaped(out, c, kind);
        }
    }
    return out;
}

bool hasEscape(QStringView text) {
    for (QChar c : text)
        if (isFileNameEscape(c)) return true;
    return false;
}
} // namespace

TextKind textKindOf(const QString& path) {
    const QString suffix = path.mid(path.lastIndexOf(QLatin1Char('.')) + 1).toLower();
    if (suffix == QLatin1String("css")) return TextKind::StyleSheet;
    if (suffix == QLatin1String("txt")) return TextKind::PlainText;
    return TextKind::Page;
}

DecodedText decodeText(const QByteArray& bytes, TextKind kind) {
    DecodedText result;
    result.format.kind = kind;
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
        const QByteArray rest = body.toByteArray();
        if (result.format.byteOrderMark || surveyUtf8(rest).multiByte > 0) {
            // UTF-8 with a stray byte here and there: each stays itself.
            text = fileNameFromBytes(rest);
        } else {
            // Not UTF-8 at all: the 8-bit code page such pages are written in.
            result.format.encoding = TextFormat::Windows1252;
            result.format.byteOrderMark = false;
            text = decodeWindows1252(bytes);
        }
    }
    if (everyLineFeedAfterCarriageReturn(bytes)) {
        result.format.crlf = true;
        dropCarriageReturnsBeforeLineFeeds(text);
    }
    result.text = std::move(text);
    return result;
}

void encodeTextInPieces(const QString& text, const TextFormat& format, const ByteSink& sink) {
    const bool eightBit = format.encoding == TextFormat::Windows1252;
    QByteArray prefix = !eightBit && format.byteOrderMark ? kBom : QByteArray();
    constexpr qsizetype kPiece = 1 << 20;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype length = std::min(kPiece, text.size() - at);
        // A surrogate pair stays in one piece, so that it is encoded as one character.
        if (at + length < text.size() && text.at(at + length - 1).isHighSurrogate()) ++length;
        const QStringView piece = QStringView(text).sliced(at, length);
        QByteArray bytes = eightBit           ? encodeWindows1252(piece, format.kind)
                           : hasEscape(piece) ? fileNameBytes(piece.toString())
                                              : piece.toUtf8();
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
