// Links relative to the active document: the string steps with either separator, and the
// routine with its file dialog, the setting and the climbing flag.
#include "shell/relative_path.h"
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
    void links_data() {
        QTest::addColumn<QString>("separator");
        QTest::addColumn<QString>("document");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("link");
        QTest::addColumn<bool>("up");
        const QString win = QStringLiteral("\\");
        const QString doc = QStringLiteral("C:\\web\\site\\page.htm");
        QTest::newRow("same folder") << win << doc << "C:\\web\\site\\a.gif"
                                     << "a.gif" << false;
        QTest::newRow("sub-folder") << win << doc << "C:\\web\\site\\img\\a.gif"
                                    << "img/a.gif" << false;
        QTest::newRow("parent") << win << doc << "C:\\web\\a.gif"
                                << "../a.gif" << true;
        QTest::newRow("sibling") << win << doc << "C:\\web\\img\\a.gif"
                                 << "../img/a.gif" << true;
        QTest::newRow("two up") << win << doc << "C:\\a.gif"
                                << "../../a.gif" << true;
        QTest::newRow("other drive") << win << doc << "D:\\b\\a.gif"
                                     << "D:\\b\\a.gif" << false;
        // A network file is seen as another drive, unless the document is on the network too.
        QTest::newRow("network file") << win << doc << "\\\\host\\share\\a.gif"
                                      << "\\\\host\\share\\a.gif" << false;
        QTest::newRow("network document") << win << "\\\\host\\web\\page.htm"
                                          << "\\\\host\\img\\a.gif"
                                          << "a.gif" << false;
        QTest::newRow("letter case") << win << doc << "c:\\WEB\\Site\\a.gif"
                                     << "a.gif" << false;
        QTest::newRow("sub-folder keeps its spelling") << win << doc << "C:\\WEB\\site\\Img\\a.gif"
                                                       << "Img/a.gif" << false;
        // The climb compares one character short of the folder name.
        QTest::newRow("siblings differing in the last letter")
            << win << "C:\\web\\site1\\sub\\page.htm"
            << "C:\\web\\site2\\sub\\a.gif"
            << "../sub/a.gif" << true;
        QTest::newRow("one-letter parent matches too early") << win << "C:\\w\\site\\page.htm"
                                                             << "C:\\x\\a.gif"
                                                             << "../a.gif" << true;

        const QString nix = QStringLiteral("/");
        const QString home = QStringLiteral("/home/web/site/page.htm");
        QTest::newRow("/ same folder") << nix << home << "/home/web/site/a.gif"
                                       << "a.gif" << false;
        QTest::newRow("/ sub-folder") << nix << home << "/home/web/site/img/a.gif"
                                      << "img/a.gif" << false;
        QTest::newRow("/ parent") << nix << home << "/home/web/a.gif"
                                  << "../a.gif" << true;
        QTest::newRow("/ sibling") << nix << home << "/home/web/img/a.gif"
                                   << "../img/a.gif" << true;
        QTest::newRow("/ two up") << nix << home << "/home/a.gif"
                                  << "../../a.gif" << true;
        QTest::newRow("/ letter case") << nix << home << "/HOME/Web/SITE/a.gif"
                                       << "a.gif" << false;
        QTest::newRow("/ untitled document") << nix << ""
                                             << "/home/a.gif"
                                             << "/home/a.gif" << false;
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
