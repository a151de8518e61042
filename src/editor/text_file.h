#pragma once
// Documents are read and written as bytes that round-trip exactly. Decoding remembers what it
// found (encoding, byte-order mark, line ends) so that encoding gives the same bytes back.
#include "editor/file_system.h"
#include <QByteArray>
#include <QString>

namespace tsl {

struct TextFormat {
    enum Encoding { Utf8, Latin1 };
    Encoding encoding = Utf8;
    bool byteOrderMark = false;
    // Every line feed of the file stood after a carriage return: the text holds bare line
    // feeds and the pairs come back on writing.
    bool crlf = false;
};

struct DecodedText {
    QString text;
    TextFormat format;
};

DecodedText decodeText(const QByteArray& bytes);
QByteArray encodeText(const QString& text, const TextFormat& format);
// The bytes of encodeText, handed to `sink` a piece at a time.
void encodeTextInPieces(const QString& text, const TextFormat& format, const ByteSink& sink);

} // namespace tsl
