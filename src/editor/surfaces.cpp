#include "editor/surfaces.h"
#include "runtime/runtime_error.h"

namespace tsl {

int SourcePane::Find(const QString& what, int start, int end, int options) {
    const QString text = Text();
    const int stop = end < 0 ? static_cast<int>(text.size()) : end;
    const Qt::CaseSensitivity cs = (options & MatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    int from = start;
    while (true) {
        const int at = static_cast<int>(text.indexOf(what, from, cs));
        if (at < 0 || at + what.size() > stop) return -1;
        const bool wordStart = at == 0 || !text.at(at - 1).isLetterOrNumber();
        const int after = at + static_cast<int>(what.size());
        const bool wordEnd = after >= text.size() || !text.at(after).isLetterOrNumber();
        if (!(options & WholeWord) || (wordStart && wordEnd)) {
            if (!(options & NoHighlight)) {
                setSelStart(at);
                setSelLength(static_cast<int>(what.size()));
            }
            return at;
        }
        from = at + 1;
    }
}

void SourcePane::setFileName(const QString& path) {
    fileName_ = path;
    if (path == writtenPath_) {
        stampedPath_ = path;
        stamp_ = written_;
    }
}

bool SourcePane::changedOnDisk() const {
    return !fileName_.isEmpty() && stampedPath_ == fileName_ && stampOf(fileName_) != stamp_;
}

void SourcePane::acceptDiskState() {
    stampedPath_ = fileName_;
    stamp_ = stampOf(fileName_);
}

void SourcePane::LoadFile(const QString& path, int) {
    const FileStamp before = stampOf(path);
    DecodedText decoded = decodeText(readFileBytes(path), textKindOf(path));
    format_ = decoded.format;
    setText(decoded.text);
    setSelStart(0);
    fileName_ = path;
    stampedPath_ = path;
    stamp_ = before;
}

void SourcePane::SaveFile(const QString& path, int) {
    // The name stays: a copy such as the preview file must not rebind the document.
    const QString text = Text();
    // What an earlier save of this file, cut short, left beside it goes now.
    removeStrayCopies(path);
    // A page saved as a style sheet writes what its code page cannot hold as a style sheet does.
    TextFormat format = format_;
    format.kind = textKindOf(path);
    writeFilePieces(path, [&](const ByteSink& sink) { encodeTextInPieces(text, format, sink); });
    writtenPath_ = path;
    written_ = stampOf(path);
    if (path == fileName_) setFileName(path);
}

void DetachedLayout::pasteHTML(const QString& markup) {
    if (refusePaste) raise(ErrInvalidProcedureCall);
    pasted.append(markup);
}

void DetachedBrowser::history(const QString& call) {
    calls.append(call);
    if (!hasHistory) raise(ErrInvalidProcedureCall, QStringLiteral("Unspecified error"));
}

} // namespace tsl
