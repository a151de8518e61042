// Element dialogs on screen (Insert List, Horizontal Line, Marquee, Font, Base Font, Form
// Components and the Frame Hanger): each opened from its menu item or button, filled as a
// user fills it, and its OK leaving the text and the selection.
#include "test_rows.h"
#include "ui_helpers.h"
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

using namespace tsl;
using namespace tsl::test;

namespace {
template <typename W> W* field(FormDialog& d, const char* name) {
    return UiProgram::child<W>(d, name);
}
void click(QAbstractButton* button) {
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(4, button->height() / 2));
}
// Chooses an entry of a list as the keyboard does: focus, then the letters of its start.
void choose(QComboBox* combo, const QString& entry) {
    combo->setFocus();
    const int index = combo->findText(entry);
    QVERIFY2(index >= 0, qPrintable(entry));
    while (combo->currentIndex() != index)
        QTest::keyClick(combo, combo->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
}
} // namespace

class ElementWindowsTest : public QObject {
    Q_OBJECT
    std::unique_ptr<UiProgram> p;
    void startWith(const QString& text, int from, int to) {
        p->pane().setText(text);
        p->pane().setSelStart(from);
        p->pane().setSelLength(to - from);
    }
    void expect(const QString& text, const QString& selected) {
        QCOMPARE(p->pane().Text(), text);
        QCOMPARE(p->pane().SelText(), selected);
    }

  private slots:
    void init() {
        p = std::make_unique<UiProgram>();
        p->start();
    }
    void cleanup() { p.reset(); }

    void aNumberedListOfTheSelectedLines() {
        startWith(QStringLiteral("a\nb"), 0, 3);
        QVERIFY(p->fromMenu("mnuInsertBullet", [](FormDialog& d) {
            click(field<QRadioButton>(d, "NOpt"));
            QVERIFY(field<QWidget>(d, "picOrdered")->isVisible());
            QVERIFY(!field<QWidget>(d, "picBullet")->isVisible());
            choose(field<QComboBox>(d, "cmbOrdered"), QStringLiteral("Upper Roman Numerals"));
            click(field<QCheckBox>(d, "chkConvertSelected"));
            QVERIFY(!field<QLineEdit>(d, "UItemsBox")->isEnabled());
            click(field<QPushButton>(d, "OK"));
        }));
        expect(QStringLiteral("<ol type=\"I\">\n<li>a\n<li>b\n</ol>"), QString());
    }

    void aRuleWithoutShadingInRed() {
        startWith(QStringLiteral("xy"), 1, 1);
        QVERIFY(p->fromMenu("mnuInsertHR", [&](FormDialog& d) {
            QVERIFY(!field<QLineEdit>(d, "Colour")->isEnabled());
            click(field<QCheckBox>(d, "Check1"));
            retype(field<QLineEdit>(d, "Colour"), QStringLiteral("f#f0000"));
            QCOMPARE(field<QLineEdit>(d, "Colour")->text(), QStringLiteral("FF0000"));
            QCOMPARE(p->platform.beeps, 1);
            retype(field<QLineEdit>(d, "WidthBox"), QStringLiteral("50"));
            click(field<QPushButton>(d, "OK"));
        }));
        expect(QStringLiteral("x<hr width=\"50%\" noshade color=#FF0000>y"), QString());
    }

    void aMarqueeAroundTheSelection() {
        startWith(QStringLiteral("<p>News</p>"), 3, 7);
        QVERIFY(p->fromMenu("mnuInsertMarquee", [](FormDialog& d) {
            QCOMPARE(field<QLineEdit>(d, "TextBox")->text(), QStringLiteral("News"));
            click(field<QRadioButton>(d, "BounceOpt"));
            click(field<QCheckBox>(d, "chkInfinite"));
            retype(field<QLineEdit>(d, "RepBox"), QStringLiteral("3"));
            click(field<QPushButton>(d, "OK"));
        }));
        expect(QStringLiteral("<p><marquee behavior=\"alternate\" loop=\"3\">News</marquee></p>"),
               QStringLiteral("News"));
    }

    void boldRedAroundTheSelection() {
        startWith(QStringLiteral("a word"), 2, 6);
        QVERIFY(p->fromMenu("mnuInsertFont", [](FormDialog& d) {
            click(field<QCheckBox>(d, "Check1"));
            retype(field<QLineEdit>(d, "TextBox"), QStringLiteral("cc0000"));
            click(field<QPushButton>(d, "Command2"));
        }));
        expect(QStringLiteral("a <font color=\"#CC0000\"><b>word</b></font>"),
               QStringLiteral("word"));
    }

    void aBaseFontBeforeTheBody() {
        startWith(QStringLiteral("<html>\n<body>\n</body>\n</html>"), 20, 20);
        QVERIFY(p->fromMenu("mnuInsertBasefont", [](FormDialog& d) {
            choose(field<QComboBox>(d, "cmbSize"), QStringLiteral("5"));
            click(field<QPushButton>(d, "OK"));
        }));
        expect(QStringLiteral("<html>\n<basefont size=\"5\">\n<body>\n</body>\n</html>"),
               QString());
    }

    void formsToolbarInsertsATextBox() {
        startWith(QStringLiteral("ab"), 1, 1);
        QVERIFY(p->withDialog([&] { p->trigger(QStringLiteral("tbrForms_6")); },
                              [](FormDialog& d) {
                                  QCOMPARE(field<QComboBox>(d, "cmbInputType")->currentText(),
                                           QStringLiteral("Text Box"));
                                  QVERIFY(field<QWidget>(d, "picText")->isVisible());
                                  QVERIFY(!field<QWidget>(d, "picButton")->isVisible());
                                  retype(field<QLineEdit>(d, "txtName"), QStringLiteral("q"));
                                  click(field<QPushButton>(d, "cmdOK"));
                              }));
        expect(QStringLiteral("a<input type=\"text\" name=\"q\">b"), QString());
    }

    // Through the pages by the buttons and the keys, a layout chosen in the list, two frames
    // filled by clicking them on the map.
    void theWizardWritesTheFramesetClicked() {
        startWith(QStringLiteral("ab"), 1, 1);
        QVERIFY(p->fromMenu("mnuInsertFrames", [](FormDialog& d) {
            click(field<QPushButton>(d, "NextButton"));
            auto* list = field<QListWidget>(d, "lstFrameType");
            QVERIFY(list->isVisible());
            list->setFocus();
            for (int i = 0; i < 8; ++i)
                QTest::keyClick(list, Qt::Key_Down);
            QTest::keyClick(list, Qt::Key_Return); // Next, not Back
            QVERIFY(field<QWidget>(d, "picHF1")->isVisible());
            auto* contents = field<QAbstractButton>(d, "imgHF1Cont");
            auto* header = field<QAbstractButton>(d, "imgHF1Head");
            QVERIFY(contents->isChecked() && !header->isChecked());
            retype(field<QLineEdit>(d, "txtFrameName"), QStringLiteral("side"));
            click(header);
            QVERIFY(header->isChecked() && !contents->isChecked());
            QCOMPARE(field<QLineEdit>(d, "txtFrameName")->text(), QString());
            retype(field<QLineEdit>(d, "txtFrameName"), QStringLiteral("top"));
            click(field<QCheckBox>(d, "chkNoResize"));
            header->setFocus(); // a control of the page that goes
            QTest::keyClick(header, Qt::Key_Return);
            QVERIFY(!field<QPushButton>(d, "NextButton")->isEnabled());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // Finish
        }));
        expect(QStringLiteral("a<frameset cols=\"25%, *\" border=\"0\">\n"
                              "  <frame src=\"\" name=\"side\" scrolling=\"auto\" noresize>\n"
                              "  <frameset rows=\"25%, *, 25%\" border=\"0\">\n"
                              "    <frame src=\"\" name=\"top\" scrolling=\"auto\" noresize>\n"
                              "    <frame src=\"\" name=\"\">\n"
                              "    <frame src=\"\" name=\"\">\n"
                              "  </frameset>\n"
                              "</frameset>b"),
               QString());
    }
};

QTEST_MAIN(ElementWindowsTest)
#include "test_element_windows.moc"
