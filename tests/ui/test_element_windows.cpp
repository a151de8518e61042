// The element dialogs through their real widgets: each is filled as a user fills it and its OK
// pressed, in Source view, and for those with a Layout path on the real engine in Layout view.
#include "program_fixture.h"
#include "test_shell.h"
#include "ui/kit/form_host.h"
#include "ui/layout/layout_surface.h"
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace tsl;
using namespace tsl::test;

namespace {
using Script = std::function<void(FormDialog&)>;

// Runs `script` on the dialog that `open` brings on screen above `over`; false when none came.
bool fill(ProgramFixture& p, const std::function<void()>& open, const Script& script,
          const FormDialog* over = nullptr) {
    bool shown = false;
    // Loading may wait on the page, so the dialog comes when it comes.
    QTimer poll;
    poll.setInterval(10);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        FormDialog* dialog = p.bench->forms().current();
        if (!dialog || dialog == over || !dialog->isVisible()) return;
        poll.stop();
        shown = true;
        script(*dialog);
    });
    poll.start();
    open();
    return shown;
}

bool fillFromMenu(ProgramFixture& p, const char* item, const Script& script) {
    return fill(
        p, [&] { p.window().findChild<QAction*>(QLatin1String(item))->trigger(); }, script);
}

// Replaces a box's text by typing, as a user does.
void typeInto(FormDialog& dialog, const char* box, const QString& text) {
    auto* edit = ProgramFixture::child<QLineEdit>(dialog, box);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
}

void press(FormDialog& dialog, const char* button) {
    QTest::mouseClick(ProgramFixture::child<QPushButton>(dialog, button), Qt::LeftButton);
}

QColor backOf(QWidget* widget) {
    return widget->palette().color(QPalette::Window);
}
QColor textOf(QWidget* widget) {
    return widget->palette().color(QPalette::WindowText);
}

struct SourceProgram : ProgramFixture {
    SourcePane& pane() { return shell().ActiveForm()->codebox(); }
    void page(const QString& text, int selStart = 0, int selLength = 0) {
        shell().dispatch([&] {
            pane().setText(text);
            shell().ActiveForm()->AddStep();
            pane().setSelStart(selStart);
            pane().setSelLength(selLength);
        });
    }
};
} // namespace

class ElementWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void pagePropertiesInSource() {
        SourceProgram p;
        p.start();
        p.page(QStringLiteral("<html>\n<BODY bgcolor=red onload=\"go()\">\n<p>x</p>\n</body>"));
        const bool shown = fillFromMenu(p, "mnuEditProperties", [&](FormDialog& d) {
            QCOMPARE(d.windowTitle(), QStringLiteral("Page Properties"));
            auto* back = ProgramFixture::child<QLineEdit>(d, "Back");
            QCOMPARE(back->accessibleName(), QStringLiteral("Background:"));
            QCOMPARE(back->text(), QStringLiteral("red"));
            auto* preview = ProgramFixture::child<QFrame>(d, "BGColor");
            // A name is no hex colour: the preview shows the default.
            QCOMPARE(backOf(preview), QColor(0xC0, 0xC0, 0xC0));
            typeInto(d, "Back", QStringLiteral("#ffcc00"));
            QCOMPARE(backOf(preview), QColor(0xFF, 0xCC, 0x00));
            // Six digits without "#" are full: the seventh key beeps and is dropped.
            typeInto(d, "TextBox", QStringLiteral("1234567"));
            QCOMPARE(ProgramFixture::child<QLineEdit>(d, "TextBox")->text(),
                     QStringLiteral("123456"));
            QCOMPARE(p.platform.beeps, 1);
            QCOMPARE(textOf(ProgramFixture::child<QLabel>(d, "Text")), QColor(0x12, 0x34, 0x56));
            // The picker fills the box and paints the preview.
            p.platform.colorAnswers.enqueue(0x0000FFu); // red, in the picker's order
            press(d, "LinkMore");
            QCOMPARE(ProgramFixture::child<QLineEdit>(d, "LinkBox")->text(),
                     QStringLiteral("#FF0000"));
            QCOMPARE(textOf(ProgramFixture::child<QLabel>(d, "Link")), QColor(Qt::red));
            typeInto(d, "BGImgBox", QStringLiteral("bg.gif"));
            ProgramFixture::child<QCheckBox>(d, "chkFixed")->click();
            press(d, "OK");
        });
        QVERIFY(shown);
        QCOMPARE(
            p.pane().Text(),
            QStringLiteral("<html>\n<body bgcolor=\"#ffcc00\" text=\"123456\" "
                           "link=\"#FF0000\" vlink=\"#800080\" alink=\"#FF0000\" "
                           "background=\"bg.gif\" bgproperties=\"fixed\">\n<p>x</p>\n</body>"));
        QVERIFY(!p.bench->forms().current());
    }

    void theLinkDialogsInSource() {
        SourceProgram p;
        p.start();
        p.page(QStringLiteral("<html><head></head><body>mail me</body></html>"), 25, 7);
        // Insert Hyperlink, filled through its e-mail helper.
        bool mailShown = false;
        bool shown = fillFromMenu(p, "mnuInsertHyperlink", [&](FormDialog& d) {
            mailShown = fill(
                p, [&] { press(d, "cmdMail"); },
                [&](FormDialog& mail) {
                    QCOMPARE(mail.windowTitle(), QStringLiteral("Link to e-mail address"));
                    typeInto(mail, "txtAddress", QStringLiteral("me@example.org"));
                    typeInto(mail, "txtSubject", QStringLiteral("Hi"));
                    press(mail, "cmdOK");
                },
                &d);
            press(d, "OK");
        });
        QVERIFY(shown && mailShown);
        QVERIFY2(p.pane().Text().contains(
                     QStringLiteral("<a href=\"mailto:me@example.org?subject=Hi\">mail me</a>")),
                 qPrintable(p.pane().Text()));

        // Insert Anchor at the caret.
        p.shell().dispatch([&] { p.pane().setSelStart(25); });
        shown = fillFromMenu(p, "mnuInsertAnchor", [&](FormDialog& d) {
            typeInto(d, "AnchorBox", QStringLiteral("top"));
            press(d, "OK");
        });
        QVERIFY(shown);
        QVERIFY2(p.pane().Text().contains(QStringLiteral("<body><a name=\"top\"></a>")),
                 qPrintable(p.pane().Text()));

        // The style sheet link goes before the body tag.
        shown = fillFromMenu(p, "mnuInsertLink", [&](FormDialog& d) {
            typeInto(d, "txtLinkTo", QStringLiteral("site.css"));
            press(d, "cmdOK");
        });
        QVERIFY(shown);
        QVERIFY2(p.pane().Text().contains(QStringLiteral(
                     "<link rel=\"stylesheet\" type=\"text/css\" href=\"site.css\">")),
                 qPrintable(p.pane().Text()));
        QVERIFY(p.pane().Text().indexOf(QStringLiteral("<link")) <
                p.pane().Text().indexOf(QStringLiteral("<body")));
    }

    void insertImageInSource() {
        SourceProgram p;
        p.start();
        p.page(QStringLiteral("<body>\n\n</body>"), 7);
        const bool shown = fillFromMenu(p, "mnuInsertImage", [&](FormDialog& d) {
            QCOMPARE(d.windowTitle(), QStringLiteral("Insert Image"));
            typeInto(d, "FileName", QStringLiteral("pic.png"));
            typeInto(d, "AltText", QStringLiteral("A picture"));
            // Only digits reach the size boxes.
            typeInto(d, "WidthB", QStringLiteral("4x0"));
            press(d, "OK");
        });
        QVERIFY(shown);
        QCOMPARE(p.pane().Text(),
                 QStringLiteral("<body>\n<img src=\"pic.png\" alt=\"A picture\" width=\"40\">\n"
                                "</body>"));
    }

    // Page Properties, Insert Hyperlink and Insert Image on the Layout surface of a real page.
    void theDialogsInLayout() {
        QTemporaryDir dir;
        const QString path = writeFile(
            dir, QStringLiteral("page.htm"),
            "<html><head><title>t</title></head><body bgcolor=\"#ffffff\" link=\"#0000ff\">\n"
            "<p style=\"font-family: 'Liberation Serif', serif\">Hello world</p>\n</body></html>");
        ProgramFixture p;
        p.start();
        p.platform.fileAnswers.enqueue(FileDialogAnswer::file(path));
        p.shell().dispatch([&] { p.shell().mnuFileOpen_Click(); });
        codeEditor& doc = *p.shell().ActiveForm();
        auto& layout = dynamic_cast<QtLayoutSurface&>(doc.DHTMLEdit1());
        p.shell().dispatch([&] { doc.tabEditor.SelectTab(2); });
        QVERIFY(p.shell().bLayoutActive);
        QTRY_VERIFY_WITH_TIMEOUT(layout.isReady(), 30000);

        bool shown = fillFromMenu(p, "mnuEditProperties", [&](FormDialog& d) {
            // The document's own colours, in capitals.
            QCOMPARE(ProgramFixture::child<QLineEdit>(d, "Back")->text(),
                     QStringLiteral("#FFFFFF"));
            QCOMPARE(ProgramFixture::child<QLineEdit>(d, "LinkBox")->text(),
                     QStringLiteral("#0000FF"));
            typeInto(d, "Back", QStringLiteral("#00ff00"));
            press(d, "OK");
        });
        QVERIFY(shown);
        QTRY_COMPARE(layout.documentColour(QStringLiteral("bgColor")), QStringLiteral("#00ff00"));

        // Select "world", then link it: only its plain text goes into the link.
        layout.page()->runScript(
            QStringLiteral("const t = document.querySelector('p').firstChild;"
                           "const r = document.createRange(); r.setStart(t, 6); r.setEnd(t, 11);"
                           "getSelection().removeAllRanges(); getSelection().addRange(r);"),
            {});
        QTRY_COMPARE(layout.selectionText(), QStringLiteral("world"));
        // The font list names the selection's font plainly, not as a quoted family list.
        QTRY_COMPARE(doc.cmbFonts.Text(), QStringLiteral("Liberation Serif"));
        shown = fillFromMenu(p, "mnuInsertHyperlink", [&](FormDialog& d) {
            typeInto(d, "URLBox", QStringLiteral("a.htm"));
            press(d, "OK");
        });
        QVERIFY(shown);

        shown = fillFromMenu(p, "mnuInsertImage", [&](FormDialog& d) {
            typeInto(d, "FileName", QStringLiteral("pic.png"));
            press(d, "OK");
        });
        QVERIFY(shown);

        p.shell().dispatch([&] { doc.tabEditor.SelectTab(1); });
        const QString text = doc.codebox().Text();
        QVERIFY2(text.contains(QStringLiteral("bgcolor=\"#00ff00\"")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("<a href=\"a.htm\">world</a>")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("<img src=\"pic.png\">")), qPrintable(text));
    }
};

QTEST_MAIN(ElementWindowsTest)
#include "test_element_windows.moc"
