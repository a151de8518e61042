#include "editor/file_system.h"
#include "runtime/runtime_error.h"
#include <QRandomGenerator>
#include <QSet>
#include <QStringList>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tsl {

namespace {
constexpr char16_t kReplacement = 0xFFFD;

[[noreturn]] void fail() {
    raise(ErrPathFileAccess);
}

QString folderOf(const QString& path) {
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QStringLiteral(".") : path.left(slash == 0 ? 1 : slash);
}

QString decodedForDisplay(const QString& name) {
    QString shown = name;
    for (QChar& c : shown)
        if (isFileNameEscape(c)) c = QChar(kReplacement);
    return shown;
}
} // namespace

QString recoverFileName(const QString& path) {
    if (!path.contains(QChar(kReplacement))) return path;
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    // The folder may have lost bytes too.
    const QString folder = slash <= 0 ? folderOf(path) : recoverFileName(path.left(slash));
    const QString wanted = path.mid(slash + 1);
    DIR* dir = ::opendir(fileNameBytes(folder).constData());
    if (!dir) return path;
    QStringList found;
    while (const dirent* entry = ::readdir(dir)) {
        const QString name = fileNameFromBytes(QByteArray(entry->d_name));
        if (decodedForDisplay(name) == wanted) found.append(name);
    }
    ::closedir(dir);
    if (found.size() != 1) return path;
    if (slash < 0) return found.first();
    return (folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/')) + found.first();
}

QByteArray readFileBytes(const QString& path) {
    if (path.isEmpty()) fail();
    const int fd = ::open(fileNameBytes(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) fail();
    struct stat info {};
    if (::fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) {
        ::close(fd);
        fail();
    }
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(info.st_size));
    char buffer[1 << 16];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            ::close(fd);
            fail();
        }
        if (got == 0) break;
        bytes.append(buffer, got);
    }
    ::close(fd);
    return bytes;
}

void writeFileBytes(const QString& path, const QByteArray& bytes, Durability durability) {
    writeFilePieces(
        path, [&bytes](const ByteSink& sink) { sink(bytes); }, durability);
}

namespace {
QByteArray baseNameOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? path : path.mid(slash + 1);
}

QByteArray folderBytesOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(slash == 0 ? 1 : slash);
}

// The user may write the file. Root may write anything, so for root the file's own mode
// decides, as it does for everyone else: a file made read-only stays as it is.
bool mayWrite(const QByteArray& path, const struct stat& info) {
    if (::geteuid() == 0) return (info.st_mode & 0222) != 0;
    return ::access(path.constData(), W_OK) == 0;
}

// A new file beside `target` for a copy of it, hidden from the folder's listings by its dot.
int createCopyBeside(const QByteArray& target, QByteArray& name, mode_t mode = 0600) {
    const QByteArray stem = folderBytesOf(target) + "/." + baseNameOf(target) + ".tsl-";
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = stem + QByteArray::number(QRandomGenerator::global()->generate(), 36);
        const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    return -1;
}

bool writeAll(int fd, const char* data, qsizetype size) {
    for (qsizetype done = 0; done < size;) {
        const ssize_t put = ::write(fd, data + done, size_t(size - done));
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        done += put;
    }
    return true;
}

// Every byte of `from` to the open file `fd`, from where it stands.
bool copyInto(const QByteArray& from, int fd) {
    const int in = ::open(from.constData(), O_RDONLY | O_CLOEXEC);
    if (in < 0) return false;
    char buffer[1 << 16];
    bool ok = true;
    for (;;) {
        const ssize_t got = ::read(in, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) {
            ok = got == 0;
            break;
        }
        if (!(ok = writeAll(fd, buffer, got))) break;
    }
    ::close(in);
    return ok;
}

// A file's other names see its new text only if the file itself is written, so it is written
// in place, its old bytes kept in a copy until the write is done and put back if it fails.
void writeInPlace(const QByteArray& target, const std::function<void(const ByteSink&)>& produce,
                  Durability durability) {
    QByteArray copy;
    const int keep = createCopyBeside(target, copy);
    if (keep < 0) fail();
    bool kept = copyInto(target, keep) && ::fsync(keep) == 0;
    kept = ::close(keep) == 0 && kept;
    if (!kept) {
        ::unlink(copy.constData());
        fail();
    }
    const int fd = ::open(target.constData(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (fd < 0) {
        ::unlink(copy.constData());
        fail();
    }
    bool ok = true;
    const ByteSink sink = [fd, &ok](const QByteArray& bytes) {
        ok = ok && writeAll(fd, bytes.constData(), bytes.size());
    };
    const auto restore = [&] {
        // The old text goes back; only when that is whole is its copy let go.
        if (::ftruncate(fd, 0) == 0 && ::lseek(fd, 0, SEEK_SET) == 0 && copyInto(copy, fd) &&
            ::fsync(fd) == 0)
            ::unlink(copy.constData());
        ::close(fd);
    };
    try {
        produce(sink);
    } catch (...) {
        restore();
        throw;
    }
    if (durability == Durability::Now) ok = ok && ::fsync(fd) == 0;
    if (!ok) {
        restore();
        fail();
    }
    if (::close(fd) != 0) fail();
    ::unlink(copy.constData());
}
} // namespace

FileStamp stampOf(const QString& path) {
    FileStamp stamp;
    struct stat info {};
    if (path.isEmpty() || ::stat(fileNameBytes(path).constData(), &info) != 0) return stamp;
    stamp.exists = true;
    stamp.size = info.st_size;
    stamp.modified = qint64(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
    stamp.inode = info.st_ino;
    return stamp;
}

void removeStrayCopies(const QString& path) {
    if (!path.startsWith(QLatin1Char('/'))) return; // only a file's full name says where to look
    QByteArray target = fileNameBytes(path);
    if (char* real = ::realpath(target.constData(), nullptr)) {
        target = real;
        ::free(real);
    }
    const QByteArray base = baseNameOf(target);
    if (base.isEmpty()) return;
    // Hidden copies, and those of earlier versions that stood beside the file in plain sight.
    const QByteArray hidden = "." + base + ".tsl-";
    const QByteArray plain = base + ".tsl-";
    const QByteArray folder = folderBytesOf(target);
    DIR* dir = ::opendir(folder.constData());
    if (!dir) return;
    while (const dirent* entry = ::readdir(dir)) {
        const QByteArray name(entry->d_name);
        if (name.startsWith(hidden) || name.startsWith(plain))
            ::unlink((folder + '/' + name).constData());
    }
    ::closedir(dir);
}

void writeFilePieces(const QString& path, const std::function<void(const ByteSink&)>& produce,
                     Durability durability) {
    if (path.isEmpty()) fail();
    QByteArray target = fileNameBytes(path);
    // A link is saved through: the file it points to is replaced, the link stays.
    if (char* real = ::realpath(target.constData(), nullptr)) {
        target = real;
        ::free(real);
    }
    struct stat old {};
    const bool existed = ::stat(target.constData(), &old) == 0;
    if (existed && (S_ISDIR(old.st_mode) || !mayWrite(target, old))) fail();
    if (existed && old.st_nlink > 1) {
        writeInPlace(target, produce, durability);
        return;
    }

    // The new text goes to a file of its own beside the old one, which it replaces at once.
    // A new file takes the mode the user's umask gives it.
    QByteArray temp;
    const int fd = createCopyBeside(target, temp, existed ? 0600 : 0666);
    if (fd < 0) fail();
    bool ok = true;
    if (existed) {
        // Owner first: changing it may clear the set-id bits that the mode then restores.
        // Only root can give the file back to another owner; anyone else owns it already.
        [[maybe_unused]] const int owned = ::fchown(fd, old.st_uid, old.st_gid);
        ok = ::fchmod(fd, old.st_mode & 07777) == 0;
    }
    const ByteSink sink = [fd, &ok](const QByteArray& bytes) {
        ok = ok && writeAll(fd, bytes.constData(), bytes.size());
    };
    try {
        produce(sink);
    } catch (...) {
        ::close(fd);
        ::unlink(temp.constData());
        throw;
    }
    if (durability == Durability::Now) ok = ok && ::fsync(fd) == 0;
    ok = ::close(fd) == 0 && ok;
    ok = ok && ::rename(temp.constData(), target.constData()) == 0;
    if (!ok) {
        ::unlink(temp.constData());
        fail();
    }
}

void flushFileSystems(const QStringList& paths) {
    QSet<QString> folders;
    for (const QString& path : paths)
        folders.insert(folderOf(path));
    for (const QString& folder : folders) {
        const int fd =
            ::open(fileNameBytes(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0) continue;
        ::syncfs(fd);
        ::close(fd);
    }
}

} // namespace tsl
