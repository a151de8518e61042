// Document files: bytes that come back exactly as they were read, whatever the line ends and
// the encoding; atomic writes that leave the old file whole; and the Source pane's LoadFile and
// SaveFile on top of them.
#include "editor/text_file.h"
#include "editor/text_pane.h"
#include "runtime/runtime_error.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace tsl;

Q_DECLARE_METATYPE(TextFormat::Encoding)

namespace {
template <typename Statement> int errorOf(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

QByteArray bytesOf(const char* s) {
    return QByteArray(s);
}

void put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray get(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return "<unreadable>";
    return file.readAll();
}

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
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::addColumn<TextFormat::Encoding>("encoding");
        QTest::addColumn<bool>("bom");
        QTest::addColumn<bool>("crlf");

        const auto utf8 = TextFormat::Utf8;
        const auto latin1 = TextFormat::Latin1;
        QTest::newRow("empty") << QByteArray() << QString() << utf8 << false << false;
        QTest::newRow("LF") << bytesOf("<p>\none\ntwo\n") << "<p>\none\ntwo\n"
                            << utf8 << false << false;
        QTest::newRow("no line end") << bytesOf("one line") << "one line" << utf8 << false << false;
        QTest::newRow("CRLF") << bytesOf("<p>\r\none\r\ntwo\r\n") << "<p>\none\ntwo\n"
                              << utf8 << false << true;
        QTest::newRow("CRLF, last line open")
            << bytesOf("a\r\nb") << "a\nb" << utf8 << false << true;
        QTest::newRow("mixed LF and CRLF") << bytesOf("a\r\nb\nc\r\n") << "a\r\nb\nc\r\n"
                                           << utf8 << false << false;
        QTest::newRow("lone CR") << bytesOf("a\rb\rc") << "a\rb\rc" << utf8 << false << false;
        QTest::newRow("CRLF with a lone CR") << bytesOf("a\r\nb\rc\r\n") << "a\nb\rc\n"
                                             << utf8 << false << true;
        QTest::newRow("CR before CRLF") << bytesOf("a\r\r\nb") << "a\r\nb" << utf8 << false << true;
        QTest::newRow("LF before CRLF") << bytesOf("\n\r\n") << "\n\r\n" << utf8 << false << false;
        QTest::newRow("UTF-8") << bytesOf("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\n")
                               << QString::fromUtf8("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\n")
                               << utf8 << false << false;
        QTest::newRow("UTF-8 with BOM")
            << bytesOf("\xEF\xBB\xBF<p>\xC3\xA9</p>\r\n") << QString::fromUtf8("<p>\xC3\xA9</p>\n")
            << utf8 << true << true;
        QTest::newRow("BOM alone") << bytesOf("\xEF\xBB\xBF") << QString() << utf8 << true << false;
        QTest::newRow("BOM inside the text stays text")
            << bytesOf("a\xEF\xBB\xBF") << QString::fromUtf8("a\xEF\xBB\xBF") << utf8 << false
            << false;
        QTest::newRow("NUL byte") << QByteArray("a\0b", 3) << QString::fromLatin1("a\0b", 3) << utf8
                                  << false << false;
        QTest::newRow("Latin-1") << bytesOf("caf\xE9\r\nna\xEFve\r\n")
                                 << QString::fromLatin1("caf\xE9\nna\xEFve\n") << latin1 << false
                                 << true;
        QTest::newRow("every high byte")
            << highBytes() << QString::fromLatin1(highBytes()) << latin1 << false << false;
        QTest::newRow("BOM then invalid UTF-8")
            << bytesOf("\xEF\xBB\xBF\xFF") << QString::fromLatin1("\xEF\xBB\xBF\xFF") << latin1
            << false << false;
        QTest::newRow("UTF-8 cut short at the end")
            << bytesOf("ok \xC3") << QString::fromLatin1("ok \xC3") << latin1 << false << false;
        QTest::newRow("overlong UTF-8")
            << bytesOf("\xC0\xAF") << QString::fromLatin1("\xC0\xAF") << latin1 << false << false;
        QTest::newRow("UTF-8 of a surrogate")
            << bytesOf("\xED\xA0\x80") << QString::fromLatin1("\xED\xA0\x80") << latin1 << false
            << false;
    }
    void roundTrip() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QFETCH(TextFormat::Encoding, encoding);
        QFETCH(bool, bom);
        QFETCH(bool, crlf);
        const DecodedText decoded = decodeText(bytes);
        QCOMPARE(decoded.text, text);
        QCOMPARE(decoded.format.encoding, encoding);
        QCOMPARE(decoded.format.byteOrderMark, bom);
        QCOMPARE(decoded.format.crlf, crlf);
        QCOMPARE(encodeText(decoded.text, decoded.format), bytes);
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

    void readMissingOrFolderRaises75() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QCOMPARE(errorOf([&] { readFileBytes(dir.filePath("missing.htm")); }), 75);
        QCOMPARE(errorOf([&] { readFileBytes(dir.path()); }), 75);
        QCOMPARE(errorOf([&] { readFileBytes(QString()); }), 75);
    }

    void writeAndReadBack() {
        QTemporaryDir dir;
        const QString path = dir.filePath("page.htm");
        const QByteArray bytes = highBytes() + "\r\n";
        writeFileBytes(path, bytes);
        QCOMPARE(readFileBytes(path), bytes);
        writeFileBytes(path, "shorter");
        QCOMPARE(get(path), QByteArray("shorter"));
    }

    void writeWhereTheFolderIsMissingRaises75() {
        QTemporaryDir dir;
        const QString path = dir.filePath("no such folder/page.htm");
        QCOMPARE(errorOf([&] { writeFileBytes(path, "x"); }), 75);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(errorOf([&] { writeFileBytes(QString(), "x"); }), 75);
    }

    void writeOverAFolderRaises75() {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkdir("sub"));
        QCOMPARE(errorOf([&] { writeFileBytes(dir.filePath("sub"), "x"); }), 75);
        QVERIFY(QFileInfo(dir.filePath("sub")).isDir());
    }

    void writeIntoAReadOnlyFolderKeepsTheOldFile() {
        QTemporaryDir dir;
        const QString folder = dir.filePath("locked");
        QVERIFY(QDir(dir.path()).mkdir("locked"));
        const QString path = folder + "/page.htm";
        put(path, "old bytes");
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
        QCOMPARE(get(path), QByteArray("old bytes"));
    }

    void aWriteCutOffHalfwayKeepsTheOldFile() {
#ifdef Q_OS_UNIX
        // A file size limit makes the write fail after part of it, as a full disk would;
        // it binds every user, root included.
        QTemporaryDir dir;
        const QString path = dir.filePath("page.htm");
        put(path, "old bytes");
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
        QCOMPARE(get(path), QByteArray("old bytes"));
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
        const QString from = dir.filePath("in.htm");
        const QString to = dir.filePath("out.htm");
        put(from, bytes);
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
        QCOMPARE(get(to), bytes);
        // Writing a copy (the preview file) leaves the document bound where it was.
        QCOMPARE(pane.FileName(), from);
    }

    void sourcePaneSavesAnEditInTheFileFormat() {
        QTemporaryDir dir;
        const QString path = dir.filePath("page.htm");
        put(path, "<p>\r\n</p>\r\n");
        TextPane pane;
        pane.LoadFile(path);
        pane.setSelStart(4);
        pane.setSelText("hello\n");
        pane.SaveFile(path);
        QCOMPARE(get(path), QByteArray("<p>\r\nhello\r\n</p>\r\n"));
    }

    void sourcePaneFailuresRaise75AndKeepTheText() {
        QTemporaryDir dir;
        const QString good = dir.filePath("good.htm");
        put(good, "kept");
        TextPane pane;
        pane.LoadFile(good);
        QCOMPARE(errorOf([&] { pane.LoadFile(dir.filePath("missing.htm")); }), 75);
        QCOMPARE(pane.Text(), QStringLiteral("kept"));
        QCOMPARE(pane.FileName(), good);
        QCOMPARE(errorOf([&] { pane.SaveFile(dir.filePath("none/x.htm")); }), 75);
        QCOMPARE(pane.FileName(), good);
        QCOMPARE(get(good), QByteArray("kept"));
    }
};

QTEST_GUILESS_MAIN(TextFileTest)
#include "test_text_file.moc"
