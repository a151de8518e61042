// Replacing across files: the rules of a whole word and of case, a search that goes on behind
// each insert, files that keep their bytes, and a failure that keeps what was done.
#include "scripted_platform.h"
#include "search/replace_in_files.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QDir>
#include <sys/stat.h>
#include <unistd.h>

using namespace tsl;
using namespace tsl::test;

class ReplaceInFilesTest : public QObject {
    Q_OBJECT

  private slots:
    void everyMatch_data() {
        columns<QString, QString, QString, int, QString, int>(
            {"text", "what", "with", "options", "result", "count"});
        QTest::newRow("case folds") << "Foo foo FOO"
                                    << "foo"
                                    << "x" << 0 << "x x x" << 3;
        QTest::newRow("match case") << "Foo foo FOO"
                                    << "foo"
                                    << "x" << 4 << "Foo x FOO" << 1;
        QTest::newRow("whole word") << "foo food foo_ (foo)"
                                    << "foo"
                                    << "x" << 2 << "x food x_ (x)" << 3;
        QTest::newRow("both") << "Foo foo food"
                              << "foo"
                              << "x" << 6 << "Foo x food" << 1;
        QTest::newRow("growing text ends") << "a a"
                                           << "a"
                                           << "aa" << 0 << "aa aa" << 2;
        QTest::newRow("nothing deletes") << "a-b-c"
                                         << "-"
                                         << "" << 0 << "abc" << 2;
        QTest::newRow("empty search text") << "abc"
                                           << ""
                                           << "x" << 0 << "abc" << 0;
        // The word test sees the text as already changed: the "x" now stands before "-".
        QTest::newRow("word after a replacement") << "--a"
                                                  << "-"
                                                  << "x" << 2 << "x-a" << 1;
        QTest::newRow("word after a deletion") << "a--"
                                               << "-"
                                               << "" << 2 << "a-" << 1;
    }
    void everyMatch() {
        QFETCH(QString, text);
        QFETCH(QString, what);
        QFETCH(QString, with);
        QFETCH(int, options);
        int count = -1;
        QTEST(replaceEveryMatch(text, what, with, options, &count), "result");
        QTEST(count, "count");
    }

    void filesKeepTheirBytesButForTheReplacements() {
        QTemporaryDir dir;
        const QStringList files = {
            writeFile(dir, QStringLiteral("crlf.htm"), "<p>foo</p>\r\n<p>Foo bar</p>\r\n"),
            writeFile(dir, QStringLiteral("bom.htm"), "\xEF\xBB\xBF<p>foo caf\xC3\xA9</p>\n"),
            writeFile(dir, QStringLiteral("latin1.htm"), "<p>foo caf\xE9</p>\r\n"),
            writeFile(dir, QStringLiteral("none.htm"), "<p>nothing\r\n")};
        ScriptedPlatform platform;
        QList<int> steps;
        QVERIFY(ReplaceInFiles(files, QStringLiteral("foo"), QStringLiteral("fu\u00DF"), 0,
                               platform, [&](int done) { steps.append(done); }));
        QCOMPARE(steps, (QList<int>{1, 2, 3, 4}));
        QCOMPARE(readFile(files[0]), QByteArray("<p>fu\xC3\x9F</p>\r\n<p>fu\xC3\x9F bar</p>\r\n"));
        QCOMPARE(readFile(files[1]), QByteArray("\xEF\xBB\xBF<p>fu\xC3\x9F caf\xC3\xA9</p>\n"));
        QCOMPARE(readFile(files[2]), QByteArray("<p>fu\xDF caf\xE9</p>\r\n"));
        QCOMPARE(readFile(files[3]), QByteArray("<p>nothing\r\n"));
        QVERIFY(platform.messages.isEmpty());
    }

    void aFailureEndsTheRunAndKeepsWhatWasDone() {
        QTemporaryDir dir;
        const QString first = writeFile(dir, QStringLiteral("a.htm"), "foo");
        const QString missing = dir.filePath(QStringLiteral("gone.htm"));
        const QString last = writeFile(dir, QStringLiteral("c.htm"), "foo");
        ScriptedPlatform platform;
        QVERIFY(!ReplaceInFiles({first, missing, last}, QStringLiteral("foo"),
                                QStringLiteral("bar"), 0, platform, {}));
        QCOMPARE(readFile(first), QByteArray("bar"));
        QCOMPARE(readFile(last), QByteArray("foo"));
        QCOMPARE(
            platform.messageTexts(),
            QStringList{QStringLiteral(
                "There was an error replacing strings in one or more files. Replacing has "
                "been canceled. Make sure that you have write access to the selected files.")});
        QCOMPARE(platform.messages.first().icon, MsgIcon::Critical);
    }
};

QTEST_GUILESS_MAIN(ReplaceInFilesTest)
#include "test_replace_in_files.moc"
