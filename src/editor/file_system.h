#pragma once
// Files of the user by name, read and written by the bytes of their names
// (`platform/file_names.h`).
#include "platform/file_names.h"
#include <functional>

namespace tsl {

// A name read through the toolkit, which shows an unreadable byte as U+FFFD, is found again
// among the entries of its folder; a name without U+FFFD, or with no single match, stays.
QString recoverFileName(const QString& path);

// Reads a whole file; a missing or unreadable file raises the path/file access error (75).
QByteArray readFileBytes(const QString& path);
// Replaces a file atomically, keeping its permissions (and its owner where allowed); a failed
// write leaves the old file whole and raises error 75, as does a file the user may not write.
// A file with other names (hard links) is written in place, so they all see the new text.
// A durable write is on the disk when it returns; a run of many writes may leave that to one
// flushFileSystems at its end.
enum class Durability { Now, Later };
void writeFileBytes(const QString& path, const QByteArray& bytes,
                    Durability durability = Durability::Now);
// The same for bytes made a piece at a time: `produce` hands each piece to the sink it gets,
// so that a large file is never held whole as bytes.
using ByteSink = std::function<void(const QByteArray&)>;
void writeFilePieces(const QString& path, const std::function<void(const ByteSink&)>& produce,
                     Durability durability = Durability::Now);
// What a file on the disk is now, to tell whether another program changed it since.
struct FileStamp {
    bool exists = false;
    qint64 size = 0;
    qint64 modified = 0; // nanoseconds
    quint64 inode = 0;
    bool operator==(const FileStamp& other) const {
        return exists == other.exists && size == other.size && modified == other.modified &&
               inode == other.inode;
    }
    bool operator!=(const FileStamp& other) const { return !(*this == other); }
};
FileStamp stampOf(const QString& path);

// Takes away the copies of a file that a save cut short left beside it (hidden, by its name).
void removeStrayCopies(const QString& path);
// Puts on the disk what was written to the file systems of these files.
void flushFileSystems(const QStringList& paths);

} // namespace tsl
