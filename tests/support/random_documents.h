#pragma once
// Random files and texts for the round-trip property tests. They are built from the pieces that
// decoders and text editors are known to treat specially: every kind of line end, byte-order
// marks, the Unicode line and paragraph separators, the noncharacters an editor may use as
// markers, invalid UTF-8 and 8-bit text. The seed and the number of cases come from the
// environment (TSL_FUZZ_SEED, TSL_FUZZ_CASES), so that a long run and a failing case can be
// repeated.
#include <QByteArray>
#include <QRandomGenerator>
#include <QString>
#include <initializer_list>
#include <vector>

namespace tsl::test {

struct FuzzRun {
    quint32 seed = 20240611;
    int cases;
    explicit FuzzRun(int defaultCases) : cases(defaultCases) {
        bool ok = false;
        const quint32 givenSeed = qEnvironmentVariable("TSL_FUZZ_SEED").toUInt(&ok);
        if (ok) seed = givenSeed;
        const int givenCases = qEnvironmentVariableIntValue("TSL_FUZZ_CASES", &ok);
        if (ok && givenCases > 0) cases = givenCases;
    }
    // The generator of one case, so that a case can be run again on its own.
    QRandomGenerator caseGenerator(int index) const {
        return QRandomGenerator(seed ^ (quint32(index) * 2654435761u));
    }
};

class RandomDocuments {
  public:
    explicit RandomDocuments(QRandomGenerator generator) : rng_(generator) {}

    int below(int n) { return static_cast<int>(rng_.bounded(n)); }
    bool chance(int percent) { return below(100) < percent; }

    // A file: sometimes valid UTF-8 only, sometimes with every line end a CRLF pair, sometimes
    // with one or two byte-order marks in front.
    QByteArray fileBytes() {
        const bool validUtf8 = chance(50);
        const bool crlfOnly = chance(30);
        QByteArray bytes;
        if (chance(25)) bytes += kBom;
        if (chance(10)) bytes += kBom;
        const int pieces = below(24);
        for (int i = 0; i < pieces; ++i) {
            QByteArray piece = pick(validUtf8 ? validPieces() : anyPieces());
            if (crlfOnly && piece == "\n") piece = "\r\n";
            bytes += piece;
        }
        return bytes;
    }

    // Text for an edit, as the user or a command may put it in: any character the decoders can
    // give, line ends of every kind included.
    QString textPiece() {
        QString text;
        const int pieces = 1 + below(4);
        for (int i = 0; i < pieces; ++i)
            text += pick(textPieces());
        return text;
    }

  private:
    static inline const QByteArray kBom = QByteArray("\xEF\xBB\xBF");

    template <typename T> T pick(const std::vector<T>& from) {
        return from[static_cast<size_t>(below(static_cast<int>(from.size())))];
    }
    static const std::vector<QByteArray>& validPieces() {
        static const std::vector<QByteArray> pieces = {
            "a",
            "<p>",
            "word",
            " ",
            "\t",
            "\n",
            "\n",
            "\r\n",
            "\r\n",
            "\r",
            "\r\r\n",
            QByteArray("\0", 1),
            "\xEF\xBB\xBF",     // a byte-order mark inside the text
            "\xE2\x80\xA8",     // line separator
            "\xE2\x80\xA9",     // paragraph separator
            "\xEF\xB7\x90",     // U+FDD0
            "\xEF\xB7\x91",     // U+FDD1
            "\xEF\xBF\xBE",     // U+FFFE
            "\xEF\xBF\xBC",     // object replacement character
            "\xE2\x90\x8D",     // the control picture of a carriage return, as text
            "\xC2\xA0",         // no-break space
            "\xC3\xA9",         // e acute
            "\xE2\x82\xAC",     // euro sign
            "\xF0\x9F\x98\x80", // outside the basic plane
        };
        return pieces;
    }
    static const std::vector<QByteArray>& anyPieces() {
        static const std::vector<QByteArray> pieces = [] {
            std::vector<QByteArray> all = validPieces();
            for (const char* invalid :
                 {"\xFF", "\xC3", "\xE9", "\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                  "\xA0\xE9\xFF", "\x93q\x94\x85", "\x81\x8D\x8F\x90\x9D"})
                all.emplace_back(invalid);
            return all;
        }();
        return pieces;
    }
    static const std::vector<QString>& textPieces() {
        static const std::vector<QString> pieces = {
            QStringLiteral("a"),
            QStringLiteral("<p>"),
            QStringLiteral(" "),
            QStringLiteral("\n"),
            QStringLiteral("\n"),
            QStringLiteral("\r\n"),
            QStringLiteral("\r"),
            QString(QChar(0x2028)),
            QString(QChar(0x2029)),
            QString(QChar(0xFDD0)),
            QString(QChar(0xFDD1)),
            QString(QChar(0xFEFF)),
            QString(QChar(0x240D)),
            QString(QChar(0xFFFC)),
            QString(QChar(0xA0)),
            QString(QChar(0xE9)),
            QStringLiteral("\t"),
            QString(QChar(0)),
            QString(QChar(0x2029)) + QChar(0x2029),
        };
        return pieces;
    }

    QRandomGenerator rng_;
};

// The bytes as hexadecimal pairs, for the message of a failed case.
inline QByteArray hexOf(const QByteArray& bytes) {
    return bytes.toHex(' ');
}
inline QByteArray hexOf(const QString& text) {
    QByteArray out;
    for (QChar c : text)
        out += QByteArray::number(c.unicode(), 16) + ' ';
    return out;
}

} // namespace tsl::test
