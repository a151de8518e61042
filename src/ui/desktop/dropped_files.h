#pragma once
// Files dragged from a file manager: their paths by the bytes of their names. A drop that
// brings files opens them; only a drop of text goes into a document's text.
// Open to the Source pane and the window.
#include "platform/file_names.h"
#include <QMimeData>
#include <QUrl>

namespace tsl {

// The local files a drop brings; empty when it brings anything else.
inline QStringList droppedFiles(const QMimeData* mime) {
    QStringList paths;
    if (!mime || !mime->hasUrls()) return paths;
    for (const QUrl& url : mime->urls()) {
        if (!url.isLocalFile()) return {};
        // The address's bytes, so that a name that is not UTF-8 comes through whole.
        paths.append(fileNameFromBytes(
            QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1())));
    }
    return paths;
}

} // namespace tsl
