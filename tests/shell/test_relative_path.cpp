// Links relative to the active document: the string steps with either separator, and the
// routine with its file dialog, the setting and the climbing flag.
#include "shell/relative_path.h"
#include "test_rows.h"
#include "test_shell.h"
#include <QTest>

using namespace tsl;
using namespace tsl::test;

namespace {
// The chosen file's title as the dialog gives it: the text after the last separator.
QString titleOf(const QString& path, QChar separator) {
    return path.mid(path.lastIndexOf(separator) + 1);
}

struct Chooser {
    TestShell ts;
    TextBox target{QStringLiteral("target")};
    CommonDialog dialog{ts.platform};

    // A document saved as `path`, and a browse that answers `chosen`.
    explicit Chooser(const QString& documentPath) {
        ts.load();
        codeEditor& doc = ts.active();
        if (!documentPath.isEmpty()) {
            doc.codebox().setFileName(documentPath);
            doc.txtFileTitle = titleOf(documentPath, kPathSeparator);
        }
        ts->txtTemp1 = doc.codebox().FileName();
        target.setText(QStringLiteral("before"));
    }
    QString browse(const FileDialogAnswer& answer) {
        ts.platform.fileAnswers.enqueue(answer);
        ts->RelativePath(dialog, target);
        return target.Text();
    }
};
} // namespace

class RelativePathTest : public QObject {
    Q_OBJECT

  private slots:
    // "document|chosen|link|up" with the separator each path uses. A network file is seen as
    // another drive, unless the document is on the network too; the climb compares one
    // character short of the folder name; a sub-folder keeps its spelling.
    void links_data() {
        columns<QString, QString, QString, QString, bool>(
            {"separator", "document", "chosen", "link", "up"});
        const char* const rows[] = {
            R"(C:\web\site\page.htm|C:\web\site\a.gif|a.gif|0)",
            R"(C:\web\site\page.htm|C:\web\site\img\a.gif|img/a.gif|0)",
            R"(C:\web\site\page.htm|C:\web\a.gif|../a.gif|1)",
            R"(C:\web\site\page.htm|C:\web\img\a.gif|../img/a.gif|1)",
            R"(C:\web\site\page.htm|C:\a.gif|../../a.gif|1)",
            R"(C:\web\site\page.htm|D:\b\a.gif|D:\b\a.gif|0)",
            R"(C:\web\site\page.htm|\\host\share\a.gif|\\host\share\a.gif|0)",
            R"(\\host\web\page.htm|\\host\img\a.gif|a.gif|0)",
            R"(C:\web\site\page.htm|c:\WEB\Site\a.gif|a.gif|0)",
            R"(C:\web\site\page.htm|C:\WEB\site\Img\a.gif|Img/a.gif|0)",
            R"(C:\web\site1\sub\page.htm|C:\web\site2\sub\a.gif|../sub/a.gif|1)",
            R"(C:\w\site\page.htm|C:\x\a.gif|../a.gif|1)",
            "/home/web/site/page.htm|/home/web/site/a.gif|a.gif|0",
            "/home/web/site/page.htm|/home/web/site/img/a.gif|img/a.gif|0",
            "/home/web/site/page.htm|/home/web/a.gif|../a.gif|1",
            "/home/web/site/page.htm|/home/web/img/a.gif|../img/a.gif|1",
            "/home/web/site/page.htm|/home/a.gif|../../a.gif|1",
            "/home/web/site/page.htm|/HOME/Web/SITE/a.gif|a.gif|0",
            "|/home/a.gif|/home/a.gif|0"}; // an untitled document
        for (const char* row : rows) {
            const QStringList f = QString::fromUtf8(row).split(u'|');
            const QString sep =
                f.at(1).contains(u'\\') ? QStringLiteral("\\") : QStringLiteral("/");
            QTest::newRow(row) << sep << f.at(0) << f.at(1) << f.at(2)
                               << (f.at(3) == QLatin1String("1"));
        }
    }
    void links() {
        QFETCH(QString, separator);
        QFETCH(QString, document);
        QFETCH(QString, chosen);
        QFETCH(QString, link);
        QFETCH(bool, up);
        const QChar sep = separator.at(0);
        const RelativeLink result =
            relativeLink(document, titleOf(document, sep), chosen, titleOf(chosen, sep), sep);
        QCOMPARE(result.link, link);
        QCOMPARE(result.up, up);
    }

    void aClimbPastTheFolderFails() {
        // The short comparison takes "C:\we" for a parent of "C:\web\site".
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 relativeLink("C:\\web\\site\\page.htm", "page.htm",
                                              "C:\\we\\a.gif", "a.gif", QLatin1Char('\\')));
    }

    void theRoutineWritesTheLinkIntoTheTarget() {
        Chooser c(QStringLiteral("/home/web/site/page.htm"));
        QCOMPARE(c.browse(FileDialogAnswer::file("/home/web/img/a.gif")),
                 QStringLiteral("../img/a.gif"));
        QVERIFY(c.ts->bRelativeUp);
        QCOMPARE(c.ts->txtTemp2, QStringLiteral("../img/a.gif"));
        // The dialog was shown with an empty name and the caller's filter.
        QCOMPARE(c.ts.platform.fileDialogsShown.size(), 1);
        QCOMPARE(c.ts.platform.fileDialogsShown[0].FileName, QString());
    }

    void aLinkDownDoesNotSetTheFlag() {
        Chooser c(QStringLiteral("/home/web/site/page.htm"));
        QCOMPARE(c.browse(FileDialogAnswer::file("/home/web/site/img/a.gif")),
                 QStringLiteral("img/a.gif"));
        QVERIFY(!c.ts->bRelativeUp);
    }

    void withTheSettingOffTheFullPathIsWritten() {
        Chooser c(QStringLiteral("/home/web/site/page.htm"));
        c.ts->bUseRelative = false;
        QCOMPARE(c.browse(FileDialogAnswer::file("/home/web/a.gif")),
                 QStringLiteral("/home/web/a.gif"));
        QVERIFY(!c.ts->bRelativeUp);
    }

    void anUntitledDocumentGetsTheFullPath() {
        Chooser c{QString()};
        QCOMPARE(c.browse(FileDialogAnswer::file("/home/web/a.gif")),
                 QStringLiteral("/home/web/a.gif"));
    }

    void cancelLeavesTheTarget() {
        for (const bool cancelError : {true, false}) {
            Chooser c(QStringLiteral("/home/web/site/page.htm"));
            c.dialog.CancelError = cancelError;
            QCOMPARE(c.browse(FileDialogAnswer::cancel()), QStringLiteral("before"));
            QVERIFY(!c.ts->bRelativeUp);
            QVERIFY(c.ts.platform.messages.isEmpty());
        }
    }

    void aFailingClimbLeavesTheTargetSilently() {
        Chooser c(QStringLiteral("/web/site/page.htm"));
        QCOMPARE(c.browse(FileDialogAnswer::file("/we/a.gif")), QStringLiteral("before"));
        QVERIFY(!c.ts->bRelativeUp);
        QVERIFY(c.ts.platform.messages.isEmpty());
    }
};

QTEST_GUILESS_MAIN(RelativePathTest)
#include "test_relative_path.moc"
