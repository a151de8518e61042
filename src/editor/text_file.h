#pragma once
// Documents are read and written as bytes that round-trip exactly. Decoding remembers what it
// found (encoding, byte-order mark, line ends) so that encoding gives the same bytes back.
#include "editor/file_system.h"
#include <QByteArray>
#include <QString>

namespace tsl {

// What a file is: a character its 8-bit code page cannot hold is written the way this kind of
// file writes any character (a page as a character reference, a style sheet as an escape).
enum class TextKind { Page, StyleSheet, PlainText };
TextKind textKindOf(const QString& path);

struct TextFormat {
    // UTF-8, where a byte that is not part of valid UTF-8 stays in the text as U+DC00 + byte
    // and goes back as that byte; or windows-1252, the 8-bit code page of such pages, whose
    // five unassigned bytes stand for the control characters of the same numbers.
    enum Encoding { Utf8, Windows1252 };
    Encoding encoding = Utf8;
    TextKind kind = TextKind::Page;
    bool byteOrderMark = false;
    // Every line feed of the file stood after a carriage return: the text holds bare line
    // feeds and the pairs come back on writing.
    bool crlf = false;
};

struct DecodedText {
    QString text;
    TextFormat format;
};

// A file is UTF-8 unless a byte of it is not part of valid UTF-8 and none of its sequences
// of more than one byte is; then it is windows-1252.
DecodedText decodeText(const QByteArray& bytes, TextKind kind = TextKind::Page);
QByteArray encodeText(const QString& text, const TextFormat& format);
// The bytes of encodeText, handed to `sink` a piece at a time.
void encodeTextInPieces(const QString& text, const TextFormat& format, const ByteSink& sink);

} // namespace tsl
