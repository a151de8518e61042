// The three views on the real engine: an edit in Layout reaches the Source text at once, the
// element dialogs and the table commands work on the page, Preview shows the page beside its
// document, relative image and all, and neither view leaves the user's page by itself.
#include "ui/layout/layout_surface.h"
#include "ui_helpers.h"
#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace tsl;
using namespace tsl::test;

namespace {
QByteArray pngBytes() {
    QImage image(8, 6, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QVariant evaluate(EnginePage* page, const QString& script) {
    // Shared with the callback, which may come after a timeout has given up on it.
    auto answer = std::make_shared<std::pair<bool, QVariant>>();
    page->runScript(script, [answer](const QVariant& v) { *answer = {true, v}; });
    if (!QTest::qWaitFor([&] { return answer->first; }, 10000)) return {};
    return answer->second;
}

// Selects characters `from` to `to` of the text of the first element matching `selector`.
QString select(EnginePage* page, const char* selector, int from, int to) {
    return evaluate(page, QStringLiteral("const t = document.querySelector('%1').firstChild;"
                                         "const r = document.createRange(); r.setStart(t, %2);"
                                         "r.setEnd(t, %3); getSelection().removeAllRanges();"
                                         "getSelection().addRange(r); getSelection().toString()")
                              .arg(QLatin1String(selector))
                              .arg(from)
                              .arg(to))
        .toString();
}

struct PageProgram : UiProgram {
    // The program with a page opened through the file dialog, as a user opens it.
    codeEditor& open(const QString& path) {
        start();
        platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        shell().dispatch([&] { shell().mnuFileOpen_Click(); });
        return active();
    }
    void view(int tab) {
        shell().dispatch([&] { active().tabEditor.SelectTab(tab); });
    }
    QtLayoutSurface& layout() { return dynamic_cast<QtLayoutSurface&>(active().DHTMLEdit1()); }
    // Layout view in front with the page loaded.
    bool inLayout() {
        view(2);
        return QTest::qWaitFor([&] { return layout().isReady(); }, 30000);
    }
    QtBrowserSurface& browser() { return dynamic_cast<QtBrowserSurface&>(active().WebBrowser1()); }
    void save() {
        shell().dispatch([&] { shell().mnuFileSave_Click(); });
    }
};

const QByteArray kPage = "<html><head><title>t</title></head><body>\n<p>Hello world</p>\n"
                         "<img src=\"pic.png\">\n\n</body></html>";

// A page far beyond what the engine takes inline, ending in a paragraph that says so.
QByteArray largePage(const QString& line, int lines) {
    return (QStringLiteral("<html><body>\n") + line.repeated(lines) +
            QStringLiteral("<p id=\"end\">the end</p>\n</body></html>"))
        .toUtf8();
}
} // namespace

class ViewsTest : public QObject {
    Q_OBJECT

  private slots:
    // Twice, for the page is loaded afresh after each return to Source.
    void anEditInLayoutReachesSourceWhenSwitchingStraightBack() {
        QTemporaryDir dir;
        PageProgram p;
        codeEditor& doc = p.open(writeFile(
            dir, QStringLiteral("page.htm"),
            "<html><head><title>t</title></head><body>\n<p>Hello world</p>\n<table><tr><td>"
            "cell</td></tr></table>\n<img src=\"pic.png\">\n\n</body></html>"));
        QVERIFY(p.inLayout());
        QVERIFY(p.shell().bLayoutActive);
        QVERIFY(!p.layout().IsDirty());
        QCOMPARE(select(p.layout().page(), "p", 6, 11), QStringLiteral("world"));
        p.shell().dispatch([&] { p.shell().tbrTags.press(4); }); // Bold
        p.view(1);
        QString text = doc.codebox().Text();
        QVERIFY2(text.contains(QStringLiteral("Hello <b>world</b>")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("<img src=\"pic.png\"></body>")), qPrintable(text));
        QVERIFY(!p.shell().bLayoutActive);
        // The caret stands just inside the body.
        QCOMPARE(doc.codebox().SelStart(), text.indexOf(QStringLiteral("<body>")) + 6);
        QCOMPARE(doc.nDoneIndex, 1);

        // A row inserted above the one the caret is in.
        QVERIFY(p.inLayout());
        QCOMPARE(select(p.layout().page(), "td", 1, 2), QStringLiteral("e"));
        QTRY_VERIFY(doc.tbrTable.ButtonEnabled(2));
        p.shell().dispatch([&] { doc.tbrTable.press(2); });
        p.view(1);
        text = doc.codebox().Text();
        QVERIFY2(text.contains(QStringLiteral("Hello <b>world</b>")), qPrintable(text));
        QVERIFY2(text.contains(QRegularExpression(
                     QStringLiteral("<tr><td>&nbsp;</td></tr>\\s*<tr><td>cell</td></tr>"))),
                 qPrintable(text));
    }

    // Page Properties, Insert Hyperlink and Insert Image on the Layout surface of a real page.
    void theDialogsInLayout() {
        QTemporaryDir dir;
        PageProgram p;
        codeEditor& doc = p.open(writeFile(
            dir, QStringLiteral("page.htm"),
            "<html><head><title>t</title></head><body bgcolor=\"#ffffff\" link=\"#0000ff\">\n"
            "<p style=\"font-family: 'Liberation Serif', serif\">Hello world</p>\n</body></html>"));
        QVERIFY(p.inLayout());
        QVERIFY(p.fromMenu("mnuEditProperties", [&](FormDialog& d) {
            // The document's own colours, in capitals.
            QCOMPARE(UiProgram::child<QLineEdit>(d, "Back")->text(), QStringLiteral("#FFFFFF"));
            QCOMPARE(UiProgram::child<QLineEdit>(d, "LinkBox")->text(), QStringLiteral("#0000FF"));
            retype(UiProgram::child<QLineEdit>(d, "Back"), QStringLiteral("#00ff00"));
            QTest::mouseClick(UiProgram::child<QPushButton>(d, "OK"), Qt::LeftButton);
        }));
        QTRY_COMPARE(p.layout().documentColour(QStringLiteral("bgColor")),
                     QStringLiteral("#00ff00"));

        // "world" linked: only its plain text goes into the link.
        QCOMPARE(select(p.layout().page(), "p", 6, 11), QStringLiteral("world"));
        QTRY_COMPARE(p.layout().selectionText(), QStringLiteral("world"));
        // The font list names the selection's font plainly, not as a quoted family list.
        QTRY_COMPARE(doc.cmbFonts.Text(), QStringLiteral("Liberation Serif"));
        QVERIFY(p.fromMenu("mnuInsertHyperlink", [&](FormDialog& d) {
            retype(UiProgram::child<QLineEdit>(d, "URLBox"), QStringLiteral("a.htm"));
            QTest::mouseClick(UiProgram::child<QPushButton>(d, "OK"), Qt::LeftButton);
        }));
        QVERIFY(p.fromMenu("mnuInsertImage", [&](FormDialog& d) {
            retype(UiProgram::child<QLineEdit>(d, "FileName"), QStringLiteral("pic.png"));
            QTest::mouseClick(UiProgram::child<QPushButton>(d, "OK"), Qt::LeftButton);
        }));
        p.view(1);
        const QString text = doc.codebox().Text();
        QVERIFY2(text.contains(QStringLiteral("bgcolor=\"#00ff00\"")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("<a href=\"a.htm\">world</a>")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("<img src=\"pic.png\">")), qPrintable(text));
    }

    void previewShowsThePageBesideItsDocument() {
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("page.htm"), kPage);
        writeFile(dir, QStringLiteral("pic.png"), pngBytes());
        PageProgram p;
        codeEditor& doc = p.open(path);
        QSignalSpy loaded(&p.browser(), &QtBrowserSurface::loadFinished);
        p.view(3);
        const QString preview = dir.filePath(QStringLiteral("~tssln.htm"));
        QCOMPARE(readFile(preview), kPage);
        QTRY_VERIFY_WITH_TIMEOUT(loaded.count() > 0, 30000);
        QVERIFY(loaded.first().first().toBool());
        QCOMPARE(p.browser().page()->url(), QUrl::fromLocalFile(preview));
        QTRY_COMPARE_WITH_TIMEOUT(
            evaluate(p.browser().page(), QStringLiteral("document.images[0].naturalWidth")).toInt(),
            8, 10000);
        // Only print and preview remain among the document commands; Save stays for the file.
        QVERIFY(!p.shell().menu(QStringLiteral("mnuTagsBold")).Enabled());
        QVERIFY(p.shell().menu(QStringLiteral("mnuFilePrint")).Enabled());
        p.view(1);
        QVERIFY(!QFile::exists(preview));
        QCOMPARE(doc.codebox().FileName(), path);
    }

    void aLargePageShowsInLayoutAndSavesWhole_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("lines");
        QTest::addColumn<bool>("fromCommandLine");
        // Plain markup swells threefold as an inline address, Cyrillic letters sixfold.
        QTest::newRow("markup, 1.4 M characters")
            << QStringLiteral("<p>x</p>\n") << 155000 << false;
        QTest::newRow("Cyrillic, 1 MB")
            << QStringLiteral("Съешь же ещё этих мягких булок\n") << 20000 << false;
        QTest::newRow("from the command line") << QStringLiteral("<p>x</p>\n") << 290000 << true;
    }
    void aLargePageShowsInLayoutAndSavesWhole() {
        QFETCH(QString, line);
        QFETCH(int, lines);
        QFETCH(bool, fromCommandLine);
        QTemporaryDir dir;
        const QString path = writeFile(dir, QStringLiteral("big.htm"), largePage(line, lines));
        PageProgram p;
        if (fromCommandLine)
            p.start(path);
        else
            p.open(path);
        QCOMPARE(p.active().codebox().FileName(), path);
        QVERIFY(p.inLayout());
        QCOMPARE(evaluate(p.layout().page(), QStringLiteral("document.getElementById('end')"
                                                            ".textContent"))
                     .toString(),
                 QStringLiteral("the end"));
        p.save();
        const QString saved = QString::fromUtf8(readFile(path));
        QVERIFY2(saved.contains(QStringLiteral("the end</p>")), qPrintable(saved.left(200)));
        QCOMPARE(saved.count(line.trimmed()), lines);
    }

    void aPageTheSurfaceCouldNotLoadIsNeverSavedInPlaceOfTheText() {
        // No folder to put a large untitled page in: Layout stays blank, the text stays whole.
        QTemporaryDir dir;
        const QByteArray oldTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", writeFile(dir, QStringLiteral("not a folder"), "x").toLocal8Bit());
        PageProgram p;
        p.start();
        const QString text = QString::fromUtf8(largePage(QStringLiteral("<p>x</p>\n"), 290000));
        p.pane().setText(text);
        p.view(2);
        QTest::qWait(1500);
        qputenv("TMPDIR", oldTemp);
        QVERIFY(!p.layout().isReady());
        const QString path = dir.filePath(QStringLiteral("saved.htm"));
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        p.save();
        QCOMPARE(readFile(path), text.toUtf8());
        p.view(1);
        QCOMPARE(p.pane().Text(), text);
    }

    void theLayoutSurfaceNeverLeavesTheUsersPage_data() {
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<QString>("script");
        QTest::newRow("refresh") << QByteArray(
                                        "<meta http-equiv=\"refresh\" content=\"0;url=OTHER\">")
                                 << QString();
        QTest::newRow("link") << QByteArray()
                              << QStringLiteral("document.getElementById('a').click()");
        QTest::newRow("form") << QByteArray() << QStringLiteral("document.forms[0].submit()");
        QTest::newRow("location") << QByteArray() << QStringLiteral("location.href = 'OTHER'");
    }
    void theLayoutSurfaceNeverLeavesTheUsersPage() {
        QFETCH(QByteArray, head);
        QFETCH(QString, script);
        QTemporaryDir dir;
        const QString other = writeFile(dir, QStringLiteral("other.htm"),
                                        "<html><body><p>somebody else's page</p></body></html>");
        const QByteArray otherUrl = QUrl::fromLocalFile(other).toEncoded();
        const QString path = writeFile(dir, QStringLiteral("page.htm"),
                                       "<html><head>" + head.replace("OTHER", otherUrl) +
                                           "</head><body><p>mine</p><a id=\"a\" href=\"" +
                                           otherUrl + "\">go</a><form action=\"" + otherUrl +
                                           "\"><input name=\"q\"></form></body></html>");
        PageProgram p;
        p.open(path);
        QVERIFY(p.inLayout());
        if (!script.isEmpty())
            evaluate(p.layout().page(), script.replace(QStringLiteral("OTHER"), other));
        QTest::qWait(1500);
        QVERIFY(!p.layout().DocumentHTML().contains(QStringLiteral("somebody else")));
        p.save();
        QVERIFY2(readFile(path).contains("<p>mine</p>"), readFile(path).constData());
    }

    void previewFollowsALinkButNotAPageThatMovesByItself() {
        QTemporaryDir dir;
        const QString other = writeFile(dir, QStringLiteral("other.htm"),
                                        "<html><body><p>next page</p></body></html>");
        const QByteArray otherUrl = QUrl::fromLocalFile(other).toEncoded();
        PageProgram p;
        codeEditor& doc = p.open(writeFile(
            dir, QStringLiteral("page.htm"),
            "<html><head><meta http-equiv=\"refresh\" content=\"0;url=" + otherUrl +
                "\"></head><body><a id=\"a\" href=\"" + otherUrl + "\">go</a></body></html>"));
        QSignalSpy loaded(&p.browser(), &QtBrowserSurface::loadFinished);
        p.view(3);
        QTRY_VERIFY_WITH_TIMEOUT(loaded.count() > 0, 30000);
        QTest::qWait(1500);
        QCOMPARE(p.browser().page()->url(),
                 QUrl::fromLocalFile(dir.filePath(QStringLiteral("~tssln.htm"))));
        evaluate(p.browser().page(), QStringLiteral("document.getElementById('a').click()"));
        QTRY_COMPARE_WITH_TIMEOUT(p.browser().page()->url(), QUrl::fromLocalFile(other), 10000);
        p.view(1);
        QVERIFY(doc.codebox().Text().contains(QStringLiteral("id=\"a\"")));
    }
};

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    ViewsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_views.moc"
