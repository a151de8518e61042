// Links relative to the active document: the string steps with either separator, and the
// routine with its file dialog, the setting and the climbing flag.
#include "shell/relative_path.h"
#include "shell_helpers.h"
#include "test_rows.h"

using namespace tsl;
using namespace tsl::test;

namespace {
// The chosen file's title as the dialog gives it: the text after the last separator.
QString titleOf(const QString& path, QChar separator) {
    return path.mid(path.lastIndexOf(separator) + 1);
}
} // namespace

class RelativePathTest : public QObject {
    Q_OBJECT

  private slots:
    // "document|chosen|link|up" with the separator each path uses. A network file is seen as
    // another drive, unless the document is on the network too; the climb compares one
    // character short of the folder name; a sub-folder keeps its spelling.
    void links_data() {
        columns<QStringList>({"row"});
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
        for (const char* row : rows)
            QTest::newRow(row) << QString::fromUtf8(row).split(u'|');
    }
    void links() {
        QFETCH(QStringList, row);
        const QChar sep = row.at(1).contains(u'\\') ? u'\\' : u'/';
        const RelativeLink result = relativeLink(row.at(0), titleOf(row.at(0), sep), row.at(1),
                                                 titleOf(row.at(1), sep), sep);
        QCOMPARE(result.link, row.at(2));
        QCOMPARE(result.up, row.at(3) == u'1');
    }

    void aClimbPastTheFolderFails() {
        // The short comparison takes "C:\we" for a parent of "C:\web\site".
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 relativeLink("C:\\web\\site\\page.htm", "page.htm",
                                              "C:\\we\\a.gif", "a.gif", QLatin1Char('\\')));
    }

    // The document, the file chosen ("" a cancel), relative paths on?, the dialog's cancel
    // error, then what the target holds and whether the link climbs. A cancel or a failing
    // climb leaves the target as it was, silently.
    void theRoutineWritesTheLinkIntoTheTarget_data() {
        columns<QStringList>({"row"});
        for (const char* row :
             {"/home/web/site/page.htm|/home/web/img/a.gif|1|1|../img/a.gif|1",
              "/home/web/site/page.htm|/home/web/site/img/a.gif|1|1|img/a.gif|0",
              "/home/web/site/page.htm|/home/web/a.gif|0|1|/home/web/a.gif|0",
              "|/home/web/a.gif|1|1|/home/web/a.gif|0", "/home/web/site/page.htm||1|1|before|0",
              "/home/web/site/page.htm||1|0|before|0", "/web/site/page.htm|/we/a.gif|1|1|before|0"})
            QTest::newRow(row) << QString::fromUtf8(row).split(u'|');
    }
    void theRoutineWritesTheLinkIntoTheTarget() {
        QFETCH(QStringList, row);
        Loaded ts;
        codeEditor& doc = ts.active();
        if (!row.at(0).isEmpty()) {
            doc.codebox().setFileName(row.at(0));
            doc.txtFileTitle = titleOf(row.at(0), u'/');
        }
        ts->txtTemp1 = doc.codebox().FileName();
        ts->bUseRelative = row.at(2) == u'1';
        TextBox target{QStringLiteral("target")};
        target.setText(QStringLiteral("before"));
        CommonDialog dialog{ts.platform};
        dialog.CancelError = row.at(3) == u'1';
        dialog.FileName = QStringLiteral("left over");
        ts.platform.fileAnswers.enqueue(row.at(1).isEmpty() ? FileDialogAnswer::cancel()
                                                            : FileDialogAnswer::file(row.at(1)));
        ts->RelativePath(dialog, target);
        QCOMPARE(target.Text(), row.at(4));
        QCOMPARE(ts->bRelativeUp, row.at(5) == u'1');
        if (row.at(2) == u'1' && row.at(4) != QLatin1String("before"))
            QCOMPARE(ts->txtTemp2, row.at(4));
        // The dialog was shown with an empty name.
        QCOMPARE(ts.platform.fileDialogsShown.size(), 1);
        QCOMPARE(ts.platform.fileDialogsShown[0].FileName, QString());
        QVERIFY(ts.platform.messages.isEmpty());
    }
};

QTEST_GUILESS_MAIN(RelativePathTest)
#include "test_relative_path.moc"
