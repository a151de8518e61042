// Document files: bytes back exactly as read, names that are not UTF-8, atomic writes that keep
// the old file and its mode, and the Source pane's LoadFile and SaveFile on top.
#include "editor/file_system.h"
#include "editor/text_file.h"
#include "editor/text_pane.h"
#include "random_documents.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QDir>
#include <QStringDecoder>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tsl;
using namespace tsl::test;

namespace {
QString formatOf(const TextFormat& f) {
    return QString(f.encoding == TextFormat::Utf8 ? "utf8" : "cp1252") +
           (f.byteOrderMark ? " bom" : "") + (f.crlf ? " crlf" : "");
}

// A file's bytes, its format and its text as UTF-8 (none: the bytes themselves).
template <size_t N>
void fileRow(const char* name, const char (&bytes)[N], const char* format,
             const char* text = nullptr) {
    const QByteArray b(bytes, N - 1), t = text ? QByteArray(text) : b;
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    QTest::newRow(name) << b << QString(utf8(t)) << QString::fromLatin1(format);
}

// Makes a file by its raw name, beyond what the toolkit can name.
void writeRaw(const QTemporaryDir& dir, const QByteArray& name, const QByteArray& bytes) {
    const int fd = ::open((QFile::encodeName(dir.path()) + '/' + name).constData(),
                          O_WRONLY | O_CREAT | O_TRUNC, 0644);
    QVERIFY(fd >= 0);
    QCOMPARE(::write(fd, bytes.constData(), bytes.size()), bytes.size());
    ::close(fd);
}

// The names in a folder as the system has them, hidden ones too, in order; the toolkit
// leaves out those it cannot read.
QStringList entriesOf(const QString& folder) {
    QStringList names;
    DIR* dir = ::opendir(fileNameBytes(folder).constData());
    while (const dirent* entry = dir ? ::readdir(dir) : nullptr)
        if (qstrcmp(entry->d_name, ".") != 0 && qstrcmp(entry->d_name, "..") != 0)
            names.append(fileNameFromBytes(entry->d_name));
    if (dir) ::closedir(dir);
    names.sort();
    return names;
}

} // namespace

class TextFileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> dir; // each test's own folder

  private slots:
    void init() { dir = std::make_unique<QTemporaryDir>(); }
    // Random files come back byte for byte; TSL_FUZZ_CASES and TSL_FUZZ_SEED make a long run.
    void randomFilesRoundTrip() {
        const FuzzRun run(5000);
        for (int i = 0; i < run.cases; ++i) {
            RandomDocuments random(run.caseGenerator(i));
            const QByteArray bytes = random.fileBytes();
            const DecodedText decoded = decodeText(bytes);
            const QByteArray written = encodeText(decoded.text, decoded.format);
            if (written != bytes)
                QFAIL(qPrintable(QStringLiteral("seed %1 case %2: %3 came back as %4")
                                     .arg(run.seed)
                                     .arg(i)
                                     .arg(QString::fromLatin1(hexOf(bytes)),
                                          QString::fromLatin1(hexOf(written)))));
        }
    }

    // Read into the pane with its text and format, written back byte for byte; large pages are
    // written in pieces, joined exactly where a pair or a line end falls on the 1 048 576th.
    void roundTrip_data() {
        columns<QByteArray, QString, QString>({"bytes", "text", "format"});
        fileRow("empty", "", "utf8");
        fileRow("LF", "<p>\none\ntwo\n", "utf8");
        fileRow("no line end", "one line", "utf8");
        fileRow("CRLF", "<p>\r\none\r\ntwo\r\n", "utf8 crlf", "<p>\none\ntwo\n");
        fileRow("CRLF, last line open", "a\r\nb", "utf8 crlf", "a\nb");
        fileRow("mixed LF and CRLF", "a\r\nb\nc\r\n", "utf8");
        fileRow("lone CR", "a\rb\rc", "utf8");
        fileRow("CRLF with a lone CR", "a\r\nb\rc\r\n", "utf8 crlf", "a\nb\rc\n");
        fileRow("CR before CRLF", "a\r\r\nb", "utf8 crlf", "a\r\nb");
        fileRow("LF before CRLF", "\n\r\n", "utf8");
        fileRow("UTF-8", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\n", "utf8");
        fileRow("UTF-8 with BOM", "\xEF\xBB\xBF<p>\xC3\xA9</p>\r\n", "utf8 bom crlf",
                "<p>\xC3\xA9</p>\n");
        fileRow("two BOMs: the second is text", "\xEF\xBB\xBF\xEF\xBB\xBF<p>x</p>\n", "utf8 bom",
                "\xEF\xBB\xBF<p>x</p>\n");
        fileRow("three BOMs, CRLF", "\xEF\xBB\xBF\xEF\xBB\xBF\xEF\xBB\xBFz\r\n", "utf8 bom crlf",
                "\xEF\xBB\xBF\xEF\xBB\xBFz\n");
        fileRow("separators and noncharacters",
                "\xE2\x80\xA8\xE2\x80\xA9\xEF\xB7\x90\xEF\xB7\x91\xEF\xBF\xBE", "utf8");
        fileRow("BOM alone", "\xEF\xBB\xBF", "utf8 bom", "");
        fileRow("BOM inside the text stays text", "a\xEF\xBB\xBF", "utf8");
        fileRow("NUL byte", "a\0b", "utf8");
        // 8-bit pages are windows-1252; its five unassigned bytes stay as they are.
        fileRow("8-bit", "caf\xE9\r\nna\xEFve\r\n", "cp1252 crlf", "caf\xC3\xA9\nna\xC3\xAFve\n");
        fileRow("8-bit punctuation", "\x80 \x93q\x94\x85 \x99\x9F", "cp1252",
                "\xE2\x82\xAC \xE2\x80\x9Cq\xE2\x80\x9D\xE2\x80\xA6 \xE2\x84\xA2\xC5\xB8");
        fileRow("8-bit, the unassigned bytes", "\x81\x8D\x8F\x90\x9D", "cp1252",
                "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
        fileRow("UTF-8 cut short at the end", "ok \xC3", "cp1252", "ok \xC3\x83");
        fileRow("overlong UTF-8", "\xC0\xAF", "cp1252", "\xC3\x80\xC2\xAF");
        fileRow("UTF-8 of a surrogate", "\xED\xA0\x80", "cp1252", "\xC3\xAD\xC2\xA0\xE2\x82\xAC");
        // UTF-8 with a stray byte: the UTF-8 read as such, each stray byte kept as itself.
        QTest::newRow("UTF-8 with a stray byte")
            << QByteArray("caf\xC3\xA9 5\xE2\x82\xAC \x92s \xE0\xA4\x85\xF0\x9F\x98\x80")
            << QString::fromUtf16(u"caf\u00E9 5\u20AC \xDC92s \u0905\U0001F600") << "utf8";
        QTest::newRow("BOM then a stray byte")
            << QByteArray("\xEF\xBB\xBF\xFF\r\n") << QString::fromUtf16(u"\xDCFF\n")
            << "utf8 bom crlf";

        const auto page = [](const char* name, const QByteArray& head, const QByteArray& atEdge,
                             const QByteArray& lineEnd) {
            QByteArray bytes = head + QByteArray((1 << 20) - 1, 'a') + atEdge + lineEnd;
            for (int i = 0; i < 40000; ++i)
                bytes += "<p>line " + QByteArray::number(i) + "</p>" + lineEnd;
            QTest::newRow(name) << bytes << QStringLiteral("(large)") << QString();
        };
        page("large, UTF-8, mark, CRLF, a pair on the edge", "\xEF\xBB\xBF", "\xF0\x9F\x98\x80",
             "\r\n");
        page("large, UTF-8, a line end on the edge", "", "\n", "\n");
        page("large, 8-bit, CRLF", "", "\xE9", "\r\n");
    }
    void roundTrip() {
        QFETCH(QByteArray, bytes);
        const QString from = writeFile(*dir, "in.htm", bytes);
        TextPane pane;
        pane.setText("previous text");
        pane.setSelStart(4);
        int changes = 0;
        pane.Change = [&] { ++changes; };
        pane.LoadFile(from, 1);
        const DecodedText decoded = decodeText(bytes);
        QCOMPARE(encodeText(decoded.text, decoded.format), bytes);
        QFETCH(QString, text);
        if (text != "(large)") QCOMPARE(pane.Text(), text);
        if (text != "(large)") QTEST(formatOf(decoded.format), "format");
        QCOMPARE(pane.SelStart(), 0);
        QCOMPARE(pane.FileName(), from);
        QCOMPARE(changes, 1);
        pane.SaveFile(dir->filePath("out.htm"), 1);
        QVERIFY(readFile(dir->filePath("out.htm")) == bytes);
        // Writing a copy (the preview file) leaves the document bound where it was.
        QCOMPARE(pane.FileName(), from);
    }

    // An edit is saved in the file's format, the rest of the file untouched: in an 8-bit file
    // a character the code page cannot hold is written as the file's kind writes it.
    void anEditKeepsTheFormat_data() {
        columns<QString, QByteArray, QString, QByteArray>({"name", "bytes", "added", "saved"});
        QTest::newRow("BOM, CRLF") << "page.htm" << QByteArray("\xEF\xBB\xBFz\r\nb") << "\nc"
                                   << QByteArray("\xEF\xBB\xBFz\r\nb\r\nc");
        QTest::newRow("8-bit, the code page's own")
            << "page.htm" << QByteArray("caf\xE9\r\n") << "(\u20AC)\n"
            << QByteArray("caf\xE9\r\n(\x80)\r\n");
        QTest::newRow("8-bit page, beyond it")
            << "page.htm" << QByteArray("caf\xE9 ") << "\u2192\U0001F600"
            << QByteArray("caf\xE9 &#8594;&#128512;");
        QTest::newRow("8-bit style sheet") << "site.css" << QByteArray("/* caf\xE9 */ ")
                                           << "\u2192x" << QByteArray("/* caf\xE9 */ \\2192 x");
        QTest::newRow("8-bit text: that character in UTF-8")
            << "notes.txt" << QByteArray("caf\xE9 ") << "\u2192"
            << QByteArray("caf\xE9 \xE2\x86\x92");
        QTest::newRow("UTF-8 with a stray byte")
            << "page.htm" << QByteArray("\xE2\x82\xAC\x92") << "\u00E9"
            << QByteArray("\xE2\x82\xAC\x92\xC3\xA9");
    }
    void anEditKeepsTheFormat() {
        QFETCH(QString, name);
        QFETCH(QString, added);
        QFETCH(QByteArray, bytes);
        const QString path = writeFile(*dir, name, bytes);
        TextPane pane;
        pane.LoadFile(path);
        pane.setSelStart(pane.length());
        pane.setSelText(added);
        pane.SaveFile(path);
        QTEST(readFile(path), "saved");
    }

    // Random 8-bit and mixed files, an edit of any characters at any place: the saved file is
    // the old one, byte for byte, before and after the edit's own bytes.
    void anEditTouchesNothingElse() {
        const FuzzRun run(2000);
        const QString path = dir->filePath("page.htm");
        for (int i = 0; i < run.cases; ++i) {
            RandomDocuments random(run.caseGenerator(i));
            const QByteArray bytes = random.fileBytes();
            writeFileBytes(path, bytes);
            TextPane pane;
            pane.LoadFile(path);
            const QString before = pane.Text();
            int at = random.below(int(before.size()) + 1);
            if (at > 0 && at < before.size() && before.at(at).isLowSurrogate()) ++at;
            // The bytes of the text before and after the place, as the file has them.
            TextFormat unmarked = pane.fileFormat();
            const QByteArray head = encodeText(before.left(at), unmarked);
            unmarked.byteOrderMark = false;
            const QByteArray tail = encodeText(before.mid(at), unmarked);
            pane.setSelStart(at);
            pane.setSelText(random.textPiece() + QString::fromUtf16(u"\u2192\U0001F600"));
            pane.SaveFile(path);
            const QByteArray saved = readFile(path);
            if (!saved.startsWith(head) || !saved.endsWith(tail) || head + tail != bytes)
                QFAIL(qPrintable(QStringLiteral("seed %1 case %2: %3 saved as %4")
                                     .arg(run.seed)
                                     .arg(i)
                                     .arg(QString::fromLatin1(hexOf(bytes)),
                                          QString::fromLatin1(hexOf(saved)))));
        }
    }

    // A missing file, folder or name, or a folder in its place, raises 75; the pane keeps all.
    void missingPlacesRaise75() {
        QVERIFY(QDir(dir->path()).mkdir("sub"));
        QCOMPARE(errorOf([&] { readFileBytes(dir->filePath("missing.htm")); }), 75);
        QCOMPARE(errorOf([&] { readFileBytes(dir->path()); }), 75);
        QCOMPARE(errorOf([&] { readFileBytes(QString()); }), 75);
        const QString path = dir->filePath("no such folder/page.htm");
        QCOMPARE(errorOf([&] { writeFileBytes(path, "x"); }), 75);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(errorOf([&] { writeFileBytes(QString(), "x"); }), 75);
        QCOMPARE(errorOf([&] { writeFileBytes(dir->filePath("sub"), "x"); }), 75);
        QVERIFY(QFileInfo(dir->filePath("sub")).isDir());
        const QString good = writeFile(*dir, "good.htm", "kept");
        TextPane pane;
        pane.LoadFile(good);
        QCOMPARE(errorOf([&] { pane.LoadFile(dir->filePath("missing.htm")); }), 75);
        QCOMPARE(errorOf([&] { pane.SaveFile(path); }), 75);
        QCOMPARE(pane.Text(), QStringLiteral("kept"));
        QCOMPARE(pane.FileName(), good);
        QCOMPARE(readFile(good), QByteArray("kept"));
    }

    // A size limit fails the write halfway, as a full disk would; no half-written file is left.
    void aWriteCutOffHalfwayKeepsTheOldFile() {
        const QString path = writeFile(*dir, "page.htm", "old bytes");
        rlimit saved{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &saved), 0);
        auto previous = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = saved;
        limited.rlim_cur = 4096;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limited), 0);
        const int error = errorOf([&] { writeFileBytes(path, QByteArray(64 * 1024, 'n')); });
        setrlimit(RLIMIT_FSIZE, &saved);
        std::signal(SIGXFSZ, previous);
        QCOMPARE(error, 75);
        QCOMPARE(readFile(path), QByteArray("old bytes"));
        QCOMPARE(entriesOf(dir->path()), QStringList({"page.htm"}));
    }

    // A name keeps its bytes; a name with a lost byte never reads as any valid one.
    void namesKeepTheirBytes_data() {
        columns<QByteArray, bool>({"bytes", "valid"});
        QTest::newRow("plain") << QByteArray("page.htm") << true;
        QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80.htm")
                               << true;
        QTest::newRow("Latin-1 byte") << QByteArray("caf\xE9.htm") << false;
        QTest::newRow("encoded surrogate") << QByteArray("a\xED\xA0\x80z") << false;
        QTest::newRow("beyond Unicode") << QByteArray("\xF4\x90\x80\x80") << false;
        QTest::newRow("every high byte") << QByteArray("\x80\x9F\xA0\xBF\xC0\xFF\xFE") << false;
    }
    void namesKeepTheirBytes() {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, valid);
        const QString name = fileNameFromBytes(bytes);
        QCOMPARE(fileNameBytes(name), bytes);
        if (valid) QCOMPARE(name, QString::fromUtf8(bytes));
        QCOMPARE(fileNameFromBytes(QString::fromUtf8(bytes).toUtf8()) == name, valid);
    }

    void aFileWhoseNameIsNotUtf8OpensAndSaves() {
        writeRaw(*dir, "caf\xE9.htm", "<p>caf\xE9</p>\r\n");
        const QString path = dir->path() + QLatin1Char('/') + fileNameFromBytes("caf\xE9.htm");
        TestShell t;
        t.load();
        codeEditor& doc = t.open(path);
        QCOMPARE(doc.Caption(), path);
        QCOMPARE(doc.codebox().Text(), QStringLiteral("<p>caf\u00E9</p>\n"));
        doc.codebox().setText(doc.codebox().Text() + QStringLiteral("<p>x</p>"));
        t->mnuFileSave_Click();
        QCOMPARE(readFileBytes(path), QByteArray("<p>caf\xE9</p>\r\n<p>x</p>"));
        // Still one file in the folder: the save went to the same name.
        QCOMPARE(entriesOf(dir->path()), QStringList{fileNameFromBytes("caf\xE9.htm")});
    }

    // Found again in its folder; two names that read the same stay unresolved.
    void aNameReadWithALostByteIsFoundAgain() {
        QVERIFY(::mkdir((QFile::encodeName(dir->path()) + "/d\xE8").constData(), 0755) == 0);
        writeRaw(*dir, "d\xE8/caf\xE9.htm", "one");
        writeRaw(*dir, "d\xE8/x\xE1", "a");
        writeRaw(*dir, "d\xE8/x\xE2", "b");
        const QString lost = QString(QChar(0xFFFD));
        const QString lossy = dir->path() + QStringLiteral("/d%1/caf%1.htm").arg(lost);
        QCOMPARE(readFileBytes(recoverFileName(lossy)), QByteArray("one"));
        const QString twice = dir->path() + QStringLiteral("/d%1/x%1").arg(lost);
        QCOMPARE(recoverFileName(twice).right(2), QStringLiteral("x") + lost);
        QCOMPARE(recoverFileName(dir->filePath("page.htm")), dir->filePath("page.htm"));
    }

    // A save keeps the mode of the file it replaces, through a link too; a new file gets 0644.
    void aSaveKeepsThePermissionsOfTheFile_data() {
        columns<int, bool>({"mode", "link"});
        QTest::newRow("owner and group") << 0640 << false;
        QTest::newRow("executable, through a link") << 0755 << true;
        QTest::newRow("new") << 0 << false;
    }
    void aSaveKeepsThePermissionsOfTheFile() {
        QFETCH(int, mode);
        QFETCH(bool, link);
        const QString path = dir->filePath("page.htm");
        if (mode) writeFile(*dir, "page.htm", "old bytes");
        if (mode) QVERIFY(::chmod(QFile::encodeName(path).constData(), mode) == 0);
        if (link) QVERIFY(QFile::link(path, dir->filePath("link.htm")));
        const mode_t mask = ::umask(022);
        writeFileBytes(link ? dir->filePath("link.htm") : path, "new");
        ::umask(mask);
        QCOMPARE(readFileBytes(path), QByteArray("new"));
        struct stat info {};
        QCOMPARE(::stat(QFile::encodeName(path).constData(), &info), 0);
        QCOMPARE(info.st_mode & 07777, static_cast<mode_t>(mode ? mode : 0644));
        QCOMPARE(QFileInfo(dir->filePath("link.htm")).isSymLink(), link);
        QCOMPARE(entriesOf(dir->path()).size(), link ? 2 : 1);
    }

    // A file made read-only is not written, by anyone: the write fails as a write fails.
    void aReadOnlyFileStaysAsItIs() {
        const QString path = writeFile(*dir, "page.htm", "old bytes");
        QVERIFY(::chmod(QFile::encodeName(path).constData(), 0444) == 0);
        QCOMPARE(errorOf([&] { writeFileBytes(path, "new"); }), int(ErrPathFileAccess));
        QCOMPARE(readFileBytes(path), QByteArray("old bytes"));
        QCOMPARE(entriesOf(dir->path()), QStringList{"page.htm"});
    }

    // Every name of a hard-linked file sees the new text: the file is written in place, and
    // the copy of its old bytes is gone once the write is done.
    void hardLinksKeepTheirFile() {
        const QString path = writeFile(*dir, "page.htm", "old bytes, longer than the new");
        const QString other = dir->filePath("other.htm");
        QVERIFY(::link(QFile::encodeName(path).constData(), QFile::encodeName(other).constData()) ==
                0);
        QVERIFY(::chmod(QFile::encodeName(path).constData(), 0640) == 0);
        struct stat before {
        }, after{};
        ::stat(QFile::encodeName(path).constData(), &before);
        writeFileBytes(path, "new");
        ::stat(QFile::encodeName(path).constData(), &after);
        QCOMPARE(readFileBytes(other), QByteArray("new"));
        QCOMPARE(after.st_ino, before.st_ino);
        QCOMPARE(after.st_nlink, nlink_t(2));
        QCOMPARE(after.st_mode & 07777, mode_t(0640));
        QCOMPARE(entriesOf(dir->path()), QStringList({"other.htm", "page.htm"}));
        // A write that fails half way puts the old bytes back.
        QVERIFY(errorOf([&] {
            writeFilePieces(path, [](const ByteSink& sink) {
                sink("half");
                tsl::raise(ErrPathFileAccess);
            });
        }));
        QCOMPARE(readFileBytes(other), QByteArray("new"));
        QCOMPARE(entriesOf(dir->path()), QStringList({"other.htm", "page.htm"}));
    }

    // The copy a save writes is hidden from listings while it stands; what a save cut short
    // left of a file goes at its next save, and another file's copies stay.
    void strayCopiesAreHiddenAndGoAtTheNextSave() {
        const QString path = writeFile(*dir, "page.htm", "old");
        for (const char* stray : {".page.htm.tsl-abc", "page.htm.tsl-old", ".other.htm.tsl-x"})
            writeFile(*dir, stray, "stray");
        const QStringList before = entriesOf(dir->path());
        QStringList during;
        writeFilePieces(path, [&](const ByteSink& sink) {
            during = entriesOf(dir->path());
            sink("mid");
        });
        for (const QString& name : before)
            during.removeOne(name);
        QCOMPARE(during.size(), 1);
        QVERIFY2(during.first().startsWith(".page.htm.tsl-"), qPrintable(during.first()));
        TextPane pane;
        pane.setText("new");
        pane.SaveFile(path, 0);
        QCOMPARE(readFileBytes(path), QByteArray("new"));
        QCOMPARE(entriesOf(dir->path()), QStringList({".other.htm.tsl-x", "page.htm"}));
    }
};

QTEST_GUILESS_MAIN(TextFileTest)
#include "test_text_file.moc"
