#include "search/replace_in_files.h"
#include "editor/text_file.h"
#include "platform/platform.h"
#include "runtime/runtime_error.h"
#include <QScopeGuard>

namespace tsl {

namespace {
bool wordCharacter(QChar c) {
    return c.isLetterOrNumber();
}
} // namespace

QString replaceEveryMatch(const QString& text, const QString& what, const QString& replacement,
                          int options, int* count) {
    if (count) *count = 0;
    if (what.isEmpty()) return text;
    const Qt::CaseSensitivity cs =
        (options & ReplaceMatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const bool wholeWord = options & ReplaceWholeWord;
    QString result;
    qsizetype done = 0; // the original text before this is in `result`, replaced
    qsizetype from = 0;
    for (;;) {
        const qsizetype at = text.indexOf(what, from, cs);
        if (at < 0) break;
        const qsizetype after = at + what.size();
        if (wholeWord) {
            // Before the match stands the text as changed so far.
            const bool startsWord = at > done ? !wordCharacter(text.at(at - 1))
                                              : result.isEmpty() || !wordCharacter(result.back());
            const bool endsWord = after >= text.size() || !wordCharacter(text.at(after));
            if (!startsWord || !endsWord) {
                from = at + 1;
                continue;
            }
        }
        if (result.isNull()) result.reserve(text.size());
        result.append(QStringView(text).mid(done, at - done));
        result.append(replacement);
        done = from = after;
        if (count) ++*count;
    }
    if (done == 0) return text;
    result.append(QStringView(text).mid(done));
    return result;
}

bool ReplaceInFiles(const QStringList& files, const QString& what, const QString& replacement,
                    int options, Platform& platform, const std::function<void(int)>& progress) {
    int index = 0;
    // Each file is replaced whole at once; the run puts them all on the disk at its end rather
    // than waiting for the disk after every one.
    const auto flush = qScopeGuard([&] { flushFileSystems(files.mid(0, index)); });
    try {
        for (const QString& path : files) {
            if (progress) progress(++index);
            DecodedText decoded = decodeText(readFileBytes(path), textKindOf(path));
            const QString changed = replaceEveryMatch(decoded.text, what, replacement, options);
            writeFileBytes(path, encodeText(changed, decoded.format), Durability::Later);
        }
    } catch (const RuntimeError&) {
        platform.msgBox(QStringLiteral("There was an error replacing strings in one or more "
                                       "files. Replacing has been canceled. Make sure that you "
                                       "have write access to the selected files."),
                        MsgIcon::Critical);
        return false;
    }
    return true;
}

} // namespace tsl
