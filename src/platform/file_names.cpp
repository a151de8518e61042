#include "platform/file_names.h"
#include <QStringDecoder>
#include <dirent.h>
#include <sys/stat.h>

namespace tsl {

namespace {
constexpr char16_t kEscape = 0xDC00;

// The length of the valid UTF-8 sequence at `at`, or 0 when its first byte is not one.
int sequenceLength(const QByteArray& bytes, qsizetype at) {
    const auto byte = [&](qsizetype i) { return static_cast<unsigned char>(bytes.at(i)); };
    const unsigned lead = byte(at);
    if (lead < 0x80) return 1;
    int length = 0;
    unsigned low = 0x80, high = 0xBF; // the range of the second byte
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F; // no surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return 0;
    }
    if (at + length > bytes.size()) return 0;
    if (byte(at + 1) < low || byte(at + 1) > high) return 0;
    for (int i = 2; i < length; ++i)
        if ((byte(at + i) & 0xC0) != 0x80) return 0;
    return length;
}

} // namespace

bool isFileNameEscape(QChar c) {
    return c.unicode() >= kEscape + 0x80 && c.unicode() <= kEscape + 0xFF;
}

QString fileNameFromBytes(const QByteArray& bytes) {
    // A mark at the start of a run is a character like any other, not a header to drop.
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const auto decode = [&utf8](const char* from, qsizetype length) {
        return QString(utf8.decode(QByteArrayView(from, length)));
    };
    QString name;
    name.reserve(bytes.size());
    qsizetype run = 0; // start of the valid bytes not yet decoded
    for (qsizetype at = 0; at < bytes.size();) {
        const int length = sequenceLength(bytes, at);
        if (length > 0) {
            at += length;
            continue;
        }
        name += decode(bytes.constData() + run, at - run);
        name += QChar(static_cast<char16_t>(kEscape + static_cast<unsigned char>(bytes.at(at))));
        run = ++at;
    }
    name += decode(bytes.constData() + run, bytes.size() - run);
    return name;
}

QByteArray fileNameBytes(const QString& name) {
    QByteArray bytes;
    qsizetype run = 0;
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (!isFileNameEscape(name.at(at))) continue;
        bytes += QStringView(name).mid(run, at - run).toUtf8();
        bytes += static_cast<char>(name.at(at).unicode() - kEscape);
        run = at + 1;
    }
    bytes += QStringView(name).mid(run).toUtf8();
    return bytes;
}

Utf8Survey surveyUtf8(const QByteArray& bytes) {
    Utf8Survey survey;
    for (qsizetype at = 0; at < bytes.size();) {
        const int length = sequenceLength(bytes, at);
        if (length == 0) {
            ++survey.stray;
            ++at;
            continue;
        }
        if (length > 1) ++survey.multiByte;
        at += length;
    }
    return survey;
}

QStringList filesInFolder(const QString& folder) {
    QStringList names;
    const QByteArray path = fileNameBytes(folder);
    DIR* dir = ::opendir(path.constData());
    if (!dir) return names;
    while (const dirent* entry = ::readdir(dir)) {
        struct stat info {};
        const QByteArray full = path + '/' + entry->d_name;
        if (::stat(full.constData(), &info) == 0 && S_ISREG(info.st_mode))
            names.append(fileNameFromBytes(QByteArray(entry->d_name)));
    }
    ::closedir(dir);
    names.sort();
    return names;
}

} // namespace tsl
