// Insert List, Horizontal Line, Marquee, Font and Base Font on screen: each opened from its
// menu item, filled as a user fills it, and its OK leaving the text and the selection.
#include "test_rows.h"
#include "ui_helpers.h"
#include <QCheckBox>
#include <QComboBox>
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

class ListFontWindowsTest : public QObject {
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
};

QTEST_MAIN(ListFontWindowsTest)
#include "test_list_font_windows.moc"
