// Document files: bytes that come back exactly as they were read, whatever the line ends and
// the encoding; atomic writes that leave the old file whole; and the Source pane's LoadFile and
// SaveFile on top of them.
#include "editor/text_file.h"
#include "editor/text_pane.h"
#include "random_documents.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QDir>
#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace tsl;
using namespace tsl::test;

Q_DECLARE_METATYPE(TextFormat::Encoding)

namespace {
// Every byte from 0x80 to 0xFF, which no UTF-8 reading accepts in this order.
QByteArray highBytes() {
    QByteArray bytes;
    for (int b = 0x80; b <= 0xFF; ++b)
        bytes.append(char(b));
    return bytes;
}
} // namespace

class TextFileTest : public QObject {
    Q_OBJECT

  private slots:
    void roundTrip_data() {
        columns<QByteArray, QString, TextFormat::Encoding, bool, bool>(
            {"bytes", "text", "encoding", "bom", "crlf"});
        const auto utf8 = TextFormat::Utf8;
        const auto latin1 = TextFormat::Latin1;
        QTest::newRow("empty") << QByteArray() << QString() << utf8 << false << false;
        QTest::newRow("LF") << QByteArray("<p>\none\ntwo\n") << "<p>\none\ntwo\n"
                            << utf8 << false << false;
        QTest::newRow("no line end")
            << QByteArray("one line") << "one line" << utf8 << false << false;
        QTest::newRow("CRLF") << QByteArray("<p>\r\none\r\ntwo\r\n") << "<p>\none\ntwo\n"
                              << utf8 << false << true;
        QTest::newRow("CRLF, last line open")
            << QByteArray("a\r\nb") << "a\nb" << utf8 << false << true;
        QTest::newRow("mixed LF and CRLF") << QByteArray("a\r\nb\nc\r\n") << "a\r\nb\nc\r\n"
                                           << utf8 << false << false;
        QTest::newRow("lone CR") << QByteArray("a\rb\rc") << "a\rb\rc" << utf8 << false << false;
        QTest::newRow("CRLF with a lone CR") << QByteArray("a\r\nb\rc\r\n") << "a\nb\rc\n"
                                             << utf8 << false << true;
        QTest::newRow("CR before CRLF")
            << QByteArray("a\r\r\nb") << "a\r\nb" << utf8 << false << true;
        QTest::newRow("LF before CRLF") << QByteArray("\n\r\n") << "\n\r\n"
                                        << utf8 << false << false;
        QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\n")
                               << QString::fromUtf8("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\n")
                               << utf8 << false << false;
        QTest::newRow("UTF-8 with BOM")
            << QByteArray("\xEF\xBB\xBF<p>\xC3\xA9</p>\r\n")
            << QString::fromUtf8("<p>\xC3\xA9</p>\n") << utf8 << true << true;
        QTest::newRow("two BOMs: the second is text")
            << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF<p>x</p>\n")
            << QString(QChar(0xFEFF)) + QStringLiteral("<p>x</p>\n") << utf8 << true << false;
        QTest::newRow("three BOMs, CRLF")
            << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF\xEF\xBB\xBF"
                          "a\r\n")
            << QString(QChar(0xFEFF)) + QChar(0xFEFF) + QStringLiteral("a\n") << utf8 << true
            << true;
        QTest::newRow("separators and noncharacters")
            << QByteArray("\xE2\x80\xA8\xE2\x80\xA9\xEF\xB7\x90\xEF\xB7\x91\xEF\xBF\xBE")
            << QString::fromUtf16(u"\u2028\u2029\uFDD0\uFDD1\uFFFE") << utf8 << false << false;
        QTest::newRow("BOM alone")
            << QByteArray("\xEF\xBB\xBF") << QString() << utf8 << true << false;
        QTest::newRow("BOM inside the text stays text")
            << QByteArray("a\xEF\xBB\xBF") << QString::fromUtf8("a\xEF\xBB\xBF") << utf8 << false
            << false;
        QTest::newRow("NUL byte") << QByteArray("a\0b", 3) << QString::fromLatin1("a\0b", 3) << utf8
                                  << false << false;
        QTest::newRow("Latin-1") << QByteArray("caf\xE9\r\nna\xEFve\r\n")
                                 << QString::fromLatin1("caf\xE9\nna\xEFve\n") << latin1 << false
                                 << true;
        QTest::newRow("every high byte")
            << highBytes() << QString::fromLatin1(highBytes()) << latin1 << false << false;
        QTest::newRow("BOM then invalid UTF-8")
            << QByteArray("\xEF\xBB\xBF\xFF") << QString::fromLatin1("\xEF\xBB\xBF\xFF") << latin1
            << false << false;
        QTest::newRow("UTF-8 cut short at the end")
            << QByteArray("ok \xC3") << QString::fromLatin1("ok \xC3") << latin1 << false << false;
        QTest::newRow("overlong UTF-8") << QByteArray("\xC0\xAF") << QString::fromLatin1("\xC0\xAF")
                                        << latin1 << false << false;
        QTest::newRow("UTF-8 of a surrogate")
            << QByteArray("\xED\xA0\x80") << QString::fromLatin1("\xED\xA0\x80") << latin1 << false
            << false;
    }
    void roundTrip() {
        QFETCH(QByteArray, bytes);
        const DecodedText decoded = decodeText(bytes);
        QTEST(decoded.text, "text");
        QTEST(decoded.format.encoding, "encoding");
        QTEST(decoded.format.byteOrderMark, "bom");
        QTEST(decoded.format.crlf, "crlf");
        QCOMPARE(encodeText(decoded.text, decoded.format), bytes);
    }

    // Any file comes back byte for byte: random mixtures of line ends, marks, separators,
    // valid and invalid UTF-8 and 8-bit text. TSL_FUZZ_CASES and TSL_FUZZ_SEED make a long run.
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

    void editedTextKeepsTheFileFormat() {
        DecodedText decoded = decodeText("\xEF\xBB\xBF"
                                         "a\r\nb");
        decoded.text += QStringLiteral("\nc");
        QCOMPARE(encodeText(decoded.text, decoded.format), QByteArray("\xEF\xBB\xBF"
                                                                      "a\r\nb\r\nc"));
    }

    void latin1GainingAWideCharacterBecomesUtf8() {
        DecodedText decoded = decodeText("caf\xE9\r\n");
        QCOMPARE(decoded.format.encoding, TextFormat::Latin1);
        decoded.text += QString::fromUtf8("\xE2\x82\xAC"); // the euro sign, beyond Latin-1
        const QByteArray written = encodeText(decoded.text, decoded.format);
        QCOMPARE(written, QByteArray("caf\xC3\xA9\r\n\xE2\x82\xAC"));
        // Read back, nothing is lost.
        const DecodedText again = decodeText(written);
        QCOMPARE(again.text, decoded.text);
        QCOMPARE(again.format.encoding, TextFormat::Utf8);
    }

    void writeAndReadBack() {
        QTemporaryDir dir;
        const QString path = dir.filePath("page.htm");
        const QByteArray bytes = highBytes() + "\r\n";
        writeFileBytes(path, bytes);
        QCOMPARE(readFileBytes(path), bytes);
        writeFileBytes(path, "shorter");
        QCOMPARE(readFile(path), QByteArray("shorter"));
    }

    // A missing file, folder or name, or a folder in the file's place, raises 75.
    void missingPlacesRaise75() {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkdir("sub"));
        QCOMPARE(errorOf([&] { readFileBytes(dir.filePath("missing.htm")); }), 75);
        QCOMPARE(errorOf([&] { readFileBytes(dir.path()); }), 75);
        QCOMPARE(errorOf([&] { readFileBytes(QString()); }), 75);
        const QString path = dir.filePath("no such folder/page.htm");
        QCOMPARE(errorOf([&] { writeFileBytes(path, "x"); }), 75);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(errorOf([&] { writeFileBytes(QString(), "x"); }), 75);
        QCOMPARE(errorOf([&] { writeFileBytes(dir.filePath("sub"), "x"); }), 75);
        QVERIFY(QFileInfo(dir.filePath("sub")).isDir());
    }

    void writeIntoAReadOnlyFolderKeepsTheOldFile() {
        QTemporaryDir dir;
        const QString folder = dir.filePath("locked");
        QVERIFY(QDir(dir.path()).mkdir("locked"));
        const QString path = writeFile(dir, "locked/page.htm", "old bytes");
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        // Someone who may write anyway (root) cannot see this rule at work.
        const bool stillWritable = QFile(folder + "/probe").open(QIODevice::WriteOnly);
        if (stillWritable) {
            QFile::remove(folder + "/probe");
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            QSKIP("permissions do not bind this user");
        }
        const int error = errorOf([&] { writeFileBytes(path, "new bytes"); });
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(error, 75);
        QCOMPARE(readFile(path), QByteArray("old bytes"));
    }

    void aWriteCutOffHalfwayKeepsTheOldFile() {
#ifdef Q_OS_UNIX
        // A file size limit makes the write fail after part of it, as a full disk would;
        // it binds every user, root included.
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "old bytes");
        const QByteArray large(64 * 1024, 'n');
        rlimit saved{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &saved), 0);
        auto previous = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = saved;
        limited.rlim_cur = 4096;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limited), 0);
        const int error = errorOf([&] { writeFileBytes(path, large); });
        setrlimit(RLIMIT_FSIZE, &saved);
        std::signal(SIGXFSZ, previous);
        QCOMPARE(error, 75);
        QCOMPARE(readFile(path), QByteArray("old bytes"));
        // No half-written temporary file is left beside it.
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden | QDir::System),
                 QStringList({"page.htm"}));
#else
        QSKIP("needs a file size limit");
#endif
    }

    void sourcePaneLoadsAndSavesExactly_data() {
        roundTrip_data();
    }
    void sourcePaneLoadsAndSavesExactly() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QTemporaryDir dir;
        const QString from = writeFile(dir, "in.htm", bytes);
        const QString to = dir.filePath("out.htm");
        TextPane pane;
        pane.setText("previous text");
        pane.setSelStart(4);
        int changes = 0;
        pane.Change = [&] { ++changes; };
        pane.LoadFile(from, 1);
        QCOMPARE(pane.Text(), text);
        QCOMPARE(pane.SelStart(), 0);
        QCOMPARE(pane.FileName(), from);
        QCOMPARE(changes, 1);
        pane.SaveFile(to, 1);
        QCOMPARE(readFile(to), bytes);
        // Writing a copy (the preview file) leaves the document bound where it was.
        QCOMPARE(pane.FileName(), from);
    }

    // A large page is written a piece at a time: the pieces join into exactly the file's bytes,
    // also where a character of two UTF-16 units or a line end falls on a piece's edge.
    void aLargePageSavesExactlyInPieces_data() {
        QTest::addColumn<QByteArray>("bytes");
        const auto page = [](const QByteArray& head, const QByteArray& atEdge,
                             const QByteArray& lineEnd) {
            // The character at the edge is the 1 048 576th of the text, counted in UTF-16.
            QByteArray bytes = head + QByteArray((1 << 20) - 1, 'a') + atEdge + lineEnd;
            for (int i = 0; i < 40000; ++i)
                bytes += "<p>line " + QByteArray::number(i) + "</p>" + lineEnd;
            return bytes;
        };
        QTest::newRow("UTF-8, mark, CRLF, a pair on the edge")
            << page("\xEF\xBB\xBF", "\xF0\x9F\x98\x80", "\r\n");
        QTest::newRow("UTF-8, a line end on the edge") << page("", "\n", "\n");
        QTest::newRow("8-bit, CRLF") << page("", "\xE9", "\r\n");
    }
    void aLargePageSavesExactlyInPieces() {
        QFETCH(QByteArray, bytes);
        QTemporaryDir dir;
        const QString from = writeFile(dir, "large.htm", bytes);
        TextPane pane;
        pane.LoadFile(from, 1);
        const QString to = dir.filePath("out.htm");
        pane.SaveFile(to, 1);
        QVERIFY(readFile(to) == bytes);
    }

    void sourcePaneSavesAnEditInTheFileFormat() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, "page.htm", "<p>\r\n</p>\r\n");
        TextPane pane;
        pane.LoadFile(path);
        pane.setSelStart(4);
        pane.setSelText("hello\n");
        pane.SaveFile(path);
        QCOMPARE(readFile(path), QByteArray("<p>\r\nhello\r\n</p>\r\n"));
    }

    void sourcePaneFailuresRaise75AndKeepTheText() {
        QTemporaryDir dir;
        const QString good = writeFile(dir, "good.htm", "kept");
        TextPane pane;
        pane.LoadFile(good);
        QCOMPARE(errorOf([&] { pane.LoadFile(dir.filePath("missing.htm")); }), 75);
        QCOMPARE(pane.Text(), QStringLiteral("kept"));
        QCOMPARE(pane.FileName(), good);
        QCOMPARE(errorOf([&] { pane.SaveFile(dir.filePath("none/x.htm")); }), 75);
        QCOMPARE(pane.FileName(), good);
        QCOMPARE(readFile(good), QByteArray("kept"));
    }
};

QTEST_GUILESS_MAIN(TextFileTest)
#include "test_text_file.moc"
