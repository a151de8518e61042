#pragma once
// Files of the user by name. To the system a file name is bytes, not always valid UTF-8
// ("caf\xE9.htm" written by an 8-bit program); such a name must open and save like any other.
// A byte that is not part of valid UTF-8 is held in the name as the character U+DC00 + byte,
// which no valid name can hold, so that the name gives back its exact bytes.
#include <QByteArray>
#include <QString>
#include <functional>

namespace tsl {

QString fileNameFromBytes(const QByteArray& bytes);
QByteArray fileNameBytes(const QString& name);

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
// Takes away the copies of a file that a save cut short left beside it (hidden, by its name).
void removeStrayCopies(const QString& path);
// Puts on the disk what was written to the file systems of these files.
void flushFileSystems(const QStringList& paths);

} // namespace tsl
