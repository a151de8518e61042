// Layout and Preview on the real engine: edits reach Source; neither leaves the user's page.
#include "ui/layout/layout_surface.h"
#include "ui_helpers.h"

using namespace tsl;
using namespace tsl::test;
using namespace Qt::StringLiterals;

namespace {
QVariant evaluate(EnginePage* page, const QString& script) {
    // Shared with the callback, which may come after a timeout has given up on it.
    auto answer = std::make_shared<std::pair<bool, QVariant>>();
    page->runScript(script, [answer](const QVariant& v) { *answer = {true, v}; });
    if (!QTest::qWaitFor([&] { return answer->first; }, 10000)) return {};
    return answer->second;
}

// Selects characters `from` to `to` of the text of the first element matching `selector`.
QString select(EnginePage* page, const char* selector, int from, int to) {
    return evaluate(page, QString::asprintf("const t = document.querySelector('%s').firstChild;"
                                            "getSelection().setBaseAndExtent(t, %d, t, %d);"
                                            "getSelection().toString()",
                                            selector, from, to))
        .toString();
}

struct PageProgram : UiProgram {
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
    EnginePage* page() { return layout().page(); }
    bool inLayout() {
        view(2);
        return QTest::qWaitFor([&] { return layout().isReady(); }, 30000);
    }
    QtBrowserSurface& browser() { return dynamic_cast<QtBrowserSurface&>(active().WebBrowser1()); }
    void save() {
        shell().dispatch([&] { shell().mnuFileSave_Click(); });
    }
};

QByteArray largePage(const QString& line, int lines) {
    return (u"<html><body>\n"_s + line.repeated(lines) +
            u"<p id=\"end\">the end</p>\n</body></html>"_s)
        .toUtf8();
}
} // namespace

class ViewsTest : public QObject {
    Q_OBJECT

    std::optional<QTemporaryDir> dir; // afresh for each test

  private slots:
    void init() { dir.emplace(); }
    // Twice, for the page is loaded afresh after each return to Source.
    void anEditInLayoutReachesSourceWhenSwitchingStraightBack() {
        PageProgram p;
        codeEditor& doc = p.open(writeFile(
            *dir, u"page.htm"_s,
            "<html><head><title>t</title></head><body>\n<p>Hello world</p>\n<table><tr><td>"
            "cell</td></tr></table>\n<img src=\"pic.png\">\n\n</body></html>"));
        QVERIFY(p.inLayout());
        QVERIFY(p.shell().bLayoutActive);
        QVERIFY(!p.layout().IsDirty());
        QCOMPARE(select(p.page(), "p", 6, 11), u"world"_s);
        p.shell().dispatch([&] { p.shell().tbrTags.press(4); }); // Bold
        p.view(1);
        QString text = doc.codebox().Text();
        QVERIFY2(text.contains(u"Hello <b>world</b>"_s), qPrintable(text));
        QVERIFY2(text.contains(u"<img src=\"pic.png\"></body>"_s), qPrintable(text));
        QVERIFY(!p.shell().bLayoutActive);
        QCOMPARE(doc.codebox().SelStart(), text.indexOf(u"<body>"_s) + 6);
        QCOMPARE(doc.nDoneIndex, 1);

        // A row inserted above the one the caret is in.
        QVERIFY(p.inLayout());
        QCOMPARE(select(p.page(), "td", 1, 2), u"e"_s);
        QTRY_VERIFY(doc.tbrTable.ButtonEnabled(2));
        p.shell().dispatch([&] { doc.tbrTable.press(2); });
        p.view(1);
        text = doc.codebox().Text();
        QVERIFY2(text.contains(u"Hello <b>world</b>"_s), qPrintable(text));
        QVERIFY2(text.contains(
                     QRegularExpression(u"<tr><td>&nbsp;</td></tr>\\s*<tr><td>cell</td></tr>"_s)),
                 qPrintable(text));
    }

    void theDialogsInLayout() {
        PageProgram p;
        codeEditor& doc = p.open(writeFile(
            *dir, u"page.htm"_s,
            "<html><head><title>t</title></head><body bgcolor=\"#ffffff\" link=\"#0000ff\">\n"
            "<p style=\"font-family: 'Liberation Serif', serif\">Hello world</p>\n</body></html>"));
        QVERIFY(p.inLayout());
        // With no caret in the page yet, a form control goes at the end of the page.
        QVERIFY(p.fromMenu("mnuInsertForm", [&](FormDialog& d) { press(d, "cmdOK"); }));
        QVERIFY(p.platform.messageTexts().isEmpty());
        QVERIFY(p.fromMenu("mnuEditProperties", [&](FormDialog& d) {
            // The document's own colours, in capitals.
            QCOMPARE(UiProgram::child<QLineEdit>(d, "Back")->text(), u"#FFFFFF"_s);
            QCOMPARE(UiProgram::child<QLineEdit>(d, "LinkBox")->text(), u"#0000FF"_s);
            retype(d, "Back", u"#00ff00"_s);
            press(d, "OK");
        }));
        QTRY_COMPARE(p.layout().documentColour(u"bgColor"_s), u"#00ff00"_s);

        // Find is a bar above the page; Return finds the next match, selected once it stops.
        p.trigger(u"mnuEditFind"_s);
        auto* find = UiProgram::child<QLineEdit>(p.window(), "findBox");
        QTest::keyClicks(find, u"zz"_s);
        QTest::keyClick(find, Qt::Key_Return);
        QLabel* status = find->parentWidget()->findChildren<QLabel*>().last();
        QTRY_COMPARE(status->text(), u"Not found"_s);
        retype(find, u"o"_s);
        QTest::keyClick(find, Qt::Key_Return);
        QTRY_VERIFY(status->text().isEmpty());
        p.page()->findText(QString(), false, false, nullptr);
        QTRY_COMPARE(evaluate(p.page(), u"getSelection().anchorOffset"_s).toInt(), 4);

        // "world" linked: only its plain text goes into the link.
        QCOMPARE(select(p.page(), "p", 6, 11), u"world"_s);
        QTRY_COMPARE(p.layout().selectionText(), u"world"_s);
        // The font list names the selection's font plainly, not as a quoted family list.
        QTRY_COMPARE(doc.cmbFonts.Text(), u"Liberation Serif"_s);
        QVERIFY(p.fromMenu("mnuInsertHyperlink", [&](FormDialog& d) {
            retype(d, "URLBox", u"a.htm"_s);
            press(d, "OK");
        }));
        QVERIFY(p.fromMenu("mnuInsertImage", [&](FormDialog& d) {
            retype(d, "FileName", u"pic.png"_s);
            press(d, "OK");
        }));
        p.view(1);
        const QString text = doc.codebox().Text();
        QVERIFY2(text.contains(u"bgcolor=\"#00ff00\""_s), qPrintable(text));
        QVERIFY2(text.contains(u"<a href=\"a.htm\">world</a>"_s), qPrintable(text));
        QVERIFY2(text.contains(u"<img src=\"pic.png\">"_s), qPrintable(text));
        QVERIFY2(text.contains(u"<input value=\"Button\" type=\"button\"></p></body>"_s),
                 qPrintable(text));
    }

    // Preview follows a link, but a page that moves by itself stays.
    void previewShowsThePageBesideItsDocument() {
        const QString other =
            writeFile(*dir, u"other.htm"_s, "<html><body><p>next page</p></body></html>");
        const QByteArray otherUrl = QUrl::fromLocalFile(other).toEncoded();
        const QByteArray page =
            "<html><head><meta http-equiv=\"refresh\" content=\"0;url=" + otherUrl +
            "\"></head><body>\n<img src=\"pic.png\"><a id=\"a\" href=\"" + otherUrl +
            "\">go</a>\n</body></html>";
        const QString path = writeFile(*dir, u"page.htm"_s, page);
        QImage image(8, 6, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(dir->filePath(u"pic.png"_s)));
        PageProgram p;
        codeEditor& doc = p.open(path);
        QSignalSpy loaded(&p.browser(), &QtBrowserSurface::loadFinished);
        p.view(3);
        const QString preview = dir->filePath(u"~tssln.htm"_s);
        QCOMPARE(readFile(preview), page);
        QTRY_VERIFY_WITH_TIMEOUT(loaded.count() > 0, 30000);
        QVERIFY(loaded.first().first().toBool());
        EnginePage* browser = p.browser().page();
        QTRY_COMPARE_WITH_TIMEOUT(evaluate(browser, u"document.images[0].naturalWidth"_s).toInt(),
                                  8, 10000);
        QVERIFY(!p.shell().menu(u"mnuTagsBold"_s).Enabled());
        QVERIFY(p.shell().menu(u"mnuFilePrint"_s).Enabled());
        QTest::qWait(1000);
        QCOMPARE(browser->url(), QUrl::fromLocalFile(preview));
        evaluate(browser, u"document.getElementById('a').click()"_s);
        QTRY_COMPARE_WITH_TIMEOUT(browser->url(), QUrl::fromLocalFile(other), 10000);
        p.view(1);
        QVERIFY(!QFile::exists(preview));
        QCOMPARE(doc.codebox().FileName(), path);
        QCOMPARE(doc.codebox().Text().toUtf8(), page);
    }

    // A page within the engine's inline limit loads inline; a larger one through a file beside.
    void aLargePageShowsInLayoutAndSavesWhole_data() {
        columns<QString, int, bool, bool>({"line", "lines", "fromCommandLine", "beside"});
        // Plain characters count once in an inline address, markup threefold, Cyrillic sixfold.
        QTest::newRow("digits, inline")
            << u"<p>99999999999999999999</p>\n"_s << 47000 << false << false;
        QTest::newRow("Cyrillic, 1 MB")
            << u"Съешь же ещё этих мягких булок\n"_s << 20000 << false << true;
        QTest::newRow("from the command line") << u"<p>x</p>\n"_s << 290000 << true << true;
    }
    void aLargePageShowsInLayoutAndSavesWhole() {
        QFETCH(QString, line);
        QFETCH(int, lines);
        QFETCH(bool, fromCommandLine);
        const QString path = writeFile(*dir, u"big.htm"_s, largePage(line, lines));
        PageProgram p;
        fromCommandLine ? p.start(path) : void(p.open(path));
        QCOMPARE(p.active().codebox().FileName(), path);
        QVERIFY(p.inLayout());
        if (!fromCommandLine) // the command line leaves the document's folder unknown to Layout
            QTEST(QFile::exists(dir->filePath(u"~tssln2.htm"_s)), "beside");
        QCOMPARE(evaluate(p.page(), u"end.textContent"_s).toString(), u"the end"_s);
        p.save();
        const QString saved = QString::fromUtf8(readFile(path));
        QVERIFY2(saved.contains(u"the end</p>"_s), qPrintable(saved.left(200)));
        QCOMPARE(saved.count(line.trimmed()), lines);
    }

    void aPageTheSurfaceCouldNotLoadIsNeverSavedInPlaceOfTheText() {
        // No folder to put a large untitled page in: Layout stays blank, the text stays whole.
        const QByteArray oldTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", writeFile(*dir, u"not a folder"_s, "x").toLocal8Bit());
        PageProgram p;
        p.start();
        const QString text = QString::fromUtf8(largePage(u"<p>x</p>\n"_s, 290000));
        p.pane().setText(text);
        p.view(2);
        QTest::qWait(1500);
        qputenv("TMPDIR", oldTemp);
        QVERIFY(!p.layout().isReady());
        const QString path = dir->filePath(u"saved.htm"_s);
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        p.save();
        QCOMPARE(readFile(path), text.toUtf8());
        p.view(1);
        QCOMPARE(p.pane().Text(), text);
    }

    // A refresh, a link, a form and a script each try to leave the page; none gets away.
    void theLayoutSurfaceNeverLeavesTheUsersPage() {
        const QString other = writeFile(*dir, u"other.htm"_s,
                                        "<html><body><p>somebody else's page</p></body></html>");
        const QByteArray url = QUrl::fromLocalFile(other).toEncoded();
        const QString path = writeFile(
            *dir, u"page.htm"_s,
            "<html><head><meta http-equiv=\"refresh\" content=\"0;url=" + url +
                "\"></head><body><p>mine</p><a id=\"a\" href=\"" + url +
                "\">go</a><form action=\"" + url + "\"><input name=\"q\"></form></body></html>");
        PageProgram p;
        p.open(path);
        QVERIFY(p.inLayout());
        for (const QString& script :
             {u"document.getElementById('a').click()"_s, u"document.forms[0].submit()"_s,
              "location.href = '" + QString::fromLatin1(url) + "'"}) {
            QTest::qWait(500);
            evaluate(p.page(), script);
        }
        QTest::qWait(1000);
        QVERIFY(!p.layout().DocumentHTML().contains(u"somebody else"_s));
        p.save();
        QVERIFY2(readFile(path).contains("<p>mine</p>"), readFile(path).constData());
    }
};

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    ViewsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_views.moc"
