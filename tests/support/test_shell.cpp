#include "test_shell.h"
#include "editor/file_system.h"
#include <QFile>

namespace tsl::test {

// By the bytes of the names, so that a name that is not UTF-8 is written and read as it is.
QString writeFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes) {
    const QString path = dir.filePath(name);
    writeFileBytes(path, bytes);
    return path;
}

QByteArray readFile(const QString& path) {
    try {
        return readFileBytes(path);
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace tsl::test
