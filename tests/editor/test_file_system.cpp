// Files by name: names that are not valid UTF-8 open and save with their exact bytes, names the
// toolkit read with a lost byte are found again, and a save keeps the file's permissions.
#include "editor/file_system.h"
#include "shell/code_editor.h"
#include "test_shell.h"
#include <QDir>
#include <QTest>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tsl;
using namespace tsl::test;

namespace {
// Makes a file by its raw name, beyond what the toolkit can name.
void writeRaw(const QTemporaryDir& dir, const QByteArray& name, const QByteArray& bytes) {
    const QByteArray path = QFile::encodeName(dir.path()) + '/' + name;
    const int fd = ::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    QVERIFY(fd >= 0);
    QCOMPARE(::write(fd, bytes.constData(), bytes.size()), bytes.size());
    ::close(fd);
}

// The names in a folder as the system has them; the toolkit leaves out those it cannot read.
QStringList entriesOf(const QString& folder) {
    QStringList names;
    DIR* dir = ::opendir(fileNameBytes(folder).constData());
    while (const dirent* entry = dir ? ::readdir(dir) : nullptr)
        names.append(fileNameFromBytes(entry->d_name));
    if (dir) ::closedir(dir);
    names.removeAll(QStringLiteral("."));
    names.removeAll(QStringLiteral(".."));
    return names;
}

mode_t modeOf(const QString& path) {
    struct stat info {};
    if (::stat(fileNameBytes(path).constData(), &info) != 0) return 0;
    return info.st_mode & 07777;
}

const QString kLost = QString(QChar(0xFFFD));
} // namespace

class FileSystemTest : public QObject {
    Q_OBJECT

  private slots:
    void namesKeepTheirBytes_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("valid");
        QTest::newRow("plain") << QByteArray("page.htm") << true;
        QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80.htm")
                               << true;
        QTest::newRow("Latin-1 byte") << QByteArray("caf\xE9.htm") << false;
        QTest::newRow("lone continuation") << QByteArray("a\x80z") << false;
        QTest::newRow("overlong slash") << QByteArray("a\xC0\xAFz") << false;
        QTest::newRow("encoded surrogate") << QByteArray("a\xED\xA0\x80z") << false;
        QTest::newRow("cut short") << QByteArray("a\xE2\x82") << false;
        QTest::newRow("beyond Unicode") << QByteArray("\xF4\x90\x80\x80") << false;
        QTest::newRow("every high byte") << QByteArray("\x80\x9F\xA0\xBF\xC0\xFF\xFE") << false;
    }
    void namesKeepTheirBytes() {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, valid);
        const QString name = fileNameFromBytes(bytes);
        QCOMPARE(fileNameBytes(name), bytes);
        if (valid) QCOMPARE(name, QString::fromUtf8(bytes));
        // A name with a lost byte never reads as any valid one.
        QCOMPARE(fileNameFromBytes(QString::fromUtf8(bytes).toUtf8()) == name, valid);
    }

    void aFileWhoseNameIsNotUtf8OpensAndSaves() {
        QTemporaryDir dir;
        writeRaw(dir, "caf\xE9.htm", "<p>caf\xE9</p>\r\n");
        const QString path = dir.path() + QLatin1Char('/') + fileNameFromBytes("caf\xE9.htm");
        TestShell t;
        t.load();
        codeEditor& doc = t.open(path);
        QCOMPARE(doc.Caption(), path);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>caf\u00E9</p>\n"));
        doc.codebox().setText(doc.codebox().Text() + QStringLiteral("<p>x</p>"));
        t.shell->mnuFileSave_Click();
        QCOMPARE(readFileBytes(path), QByteArray("<p>caf\xE9</p>\r\n<p>x</p>"));
        // Still one file in the folder: the save went to the same name.
        QCOMPARE(entriesOf(dir.path()), QStringList{fileNameFromBytes("caf\xE9.htm")});
    }

    void aNameReadWithALostByteIsFoundAgain() {
        QTemporaryDir dir;
        QVERIFY(::mkdir((QFile::encodeName(dir.path()) + "/d\xE8").constData(), 0755) == 0);
        writeRaw(dir, "d\xE8/caf\xE9.htm", "one");
        writeRaw(dir, "d\xE8/x\xE1", "a");
        writeRaw(dir, "d\xE8/x\xE2", "b");
        const QString lossy = dir.path() + QStringLiteral("/d%1/caf%1.htm").arg(kLost);
        QCOMPARE(readFileBytes(recoverFileName(lossy)), QByteArray("one"));
        // Two names that read the same stay unresolved, as does a name that reads well.
        const QString twice = dir.path() + QStringLiteral("/d%1/x%1").arg(kLost);
        QCOMPARE(recoverFileName(twice).right(2), QStringLiteral("x") + kLost);
        QCOMPARE(recoverFileName(dir.filePath(QStringLiteral("page.htm"))),
                 dir.filePath(QStringLiteral("page.htm")));
    }

    void aSaveKeepsThePermissionsOfTheFile_data() {
        QTest::addColumn<int>("mode");
        QTest::newRow("read-only") << 0444;
        QTest::newRow("owner and group") << 0640;
        QTest::newRow("executable") << 0755;
    }
    void aSaveKeepsThePermissionsOfTheFile() {
        QFETCH(int, mode);
        if (mode == 0444 && ::geteuid() != 0) QSKIP("only the superuser writes a read-only file");
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), "old");
        QVERIFY(::chmod(QFile::encodeName(path).constData(), mode) == 0);
        writeFileBytes(path, "new");
        QCOMPARE(readFileBytes(path), QByteArray("new"));
        QCOMPARE(modeOf(path), static_cast<mode_t>(mode));
    }

    void aNewFileGetsTheUsualPermissionsAndNoScratchFileStays() {
        QTemporaryDir dir;
        const mode_t mask = ::umask(022);
        writeFileBytes(dir.filePath(QStringLiteral("new.htm")), "x");
        ::umask(mask);
        QCOMPARE(modeOf(dir.filePath(QStringLiteral("new.htm"))), static_cast<mode_t>(0644));
        QCOMPARE(entriesOf(dir.path()), QStringList{QStringLiteral("new.htm")});
    }

    void aSaveThroughALinkReplacesWhatItPointsTo() {
        QTemporaryDir dir;
        const QString target = writeFile(dir, QStringLiteral("real.htm"), "old");
        const QString link = dir.filePath(QStringLiteral("link.htm"));
        QVERIFY(QFile::link(target, link));
        writeFileBytes(link, "new");
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(readFileBytes(target), QByteArray("new"));
    }
};

QTEST_GUILESS_MAIN(FileSystemTest)
#include "test_file_system.moc"
