#include "stylesheets/profile_file.h"
#include "editor/text_file.h"
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <optional>

namespace tsl {

namespace {

struct Lines {
    QStringList lines;
    TextFormat format;
    bool exists = false;
};

Lines readLines(const QString& fileName) {
    Lines result;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) return result;
    DecodedText decoded = decodeText(file.readAll(), TextKind::PlainText);
    result.exists = true;
    result.format = decoded.format;
    if (!decoded.text.isEmpty()) {
        // A file written elsewhere may mix its line ends; a stray carriage return is no text.
        result.lines = decoded.text.split(QLatin1Char('\n'));
        for (QString& line : result.lines)
            if (line.endsWith(QLatin1Char('\r'))) line.chop(1);
        if (result.lines.last().isEmpty()) result.lines.removeLast();
    }
    return result;
}

// The name of a section header line, or nothing when the line is not one.
std::optional<QString> sectionOf(const QString& line) {
    const QString trimmed = line.trimmed();
    if (!trimmed.startsWith(QLatin1Char('['))) return std::nullopt;
    const qsizetype close = trimmed.indexOf(QLatin1Char(']'));
    if (close < 0) return std::nullopt;
    return trimmed.mid(1, close - 1).trimmed();
}

bool sameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Splits a "key=value" line; a comment or a line without "=" is no entry.
bool entryOf(const QString& line, QString& key, QString& value) {
    const QString trimmed = line.trimmed();
    if (trimmed.startsWith(QLatin1Char(';'))) return false;
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 0) return false;
    key = line.left(equals).trimmed();
    value = line.mid(equals + 1).trimmed();
    return !key.isEmpty();
}

// The lines of a section: [first, end) after its header; first is -1 when it is absent.
struct SectionSpan {
    int header = -1;
    int end = -1;
};

SectionSpan findSection(const QStringList& lines, const QString& section) {
    SectionSpan span;
    for (int i = 0; i < lines.size(); ++i) {
        const auto name = sectionOf(lines.at(i));
        if (!name) continue;
        if (span.header >= 0) {
            span.end = i;
            return span;
        }
        if (sameName(*name, section)) span.header = i;
    }
    if (span.header >= 0) span.end = static_cast<int>(lines.size());
    return span;
}

} // namespace

QString GetPrivateProfileString(const QString& section, const QString& key,
                                const QString& defaultValue, const QString& fileName) {
    const Lines file = readLines(fileName);
    const SectionSpan span = findSection(file.lines, section);
    if (span.header < 0) return defaultValue.left(kProfileValueMax);
    for (int i = span.header + 1; i < span.end; ++i) {
        QString name, value;
        if (entryOf(file.lines.at(i), name, value) && sameName(name, key))
            return value.left(kProfileValueMax);
    }
    return defaultValue.left(kProfileValueMax);
}

bool WritePrivateProfileString(const QString& section, const QString& key, const QString& value,
                               const QString& fileName) {
    Lines file = readLines(fileName);
    const QString entry = key + QLatin1Char('=') + value;
    const SectionSpan span = findSection(file.lines, section);
    if (span.header < 0) {
        file.lines.append(QLatin1Char('[') + section + QLatin1Char(']'));
        file.lines.append(entry);
    } else {
        int lastEntry = span.header;
        bool updated = false;
        for (int i = span.header + 1; i < span.end && !updated; ++i) {
            QString name, old;
            if (!entryOf(file.lines.at(i), name, old)) continue;
            lastEntry = i;
            if (sameName(name, key)) {
                file.lines[i] = entry;
                updated = true;
            }
        }
        // A new key follows the section's last key, before any blank lines that part it from
        // the next section.
        if (!updated) file.lines.insert(lastEntry + 1, entry);
    }
    QSaveFile out(fileName);
    if (!out.open(QIODevice::WriteOnly)) return false;
    out.write(encodeText(file.lines.join(QLatin1Char('\n')) + QLatin1Char('\n'), file.format));
    return out.commit();
}

} // namespace tsl
