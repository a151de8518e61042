// The style dialog on screen: fields set on several tabs, saved under a name, loaded again in
// a new opening, and OK writing the rule into the page.
#include "program_fixture.h"
#include "ui/kit/form_host.h"
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>

using namespace tsl;
using namespace tsl::test;

namespace {
// Chooses an entry as a person does: the list dropped down, the entry picked by its keys.
void choose(QComboBox* combo, const QString& item) {
    const int index = combo->findText(item);
    QVERIFY(index >= 0);
    combo->showPopup();
    QAbstractItemView* list = combo->view();
    QTRY_VERIFY(list->isVisible());
    list->setCurrentIndex(list->model()->index(index, 0));
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_VERIFY(!list->isVisible());
}

void retype(QLineEdit* edit, const QString& text) {
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
}

// Runs `script` on the style dialog opened from the Insert menu.
void withStyleDialog(ProgramFixture& p, const std::function<void(FormDialog&)>& script) {
    bool ran = false;
    QTimer::singleShot(0, [&] {
        FormDialog* d = p.bench->forms().current();
        QVERIFY(d);
        ran = true;
        script(*d);
    });
    p.window().findChild<QAction*>(QStringLiteral("mnuInsertCSS"))->trigger();
    QVERIFY(ran);
}
} // namespace

class StyleDialogWidgetTest : public QObject {
    Q_OBJECT

  private slots:
    void saveAStyleLoadItAgainAndPressOK() {
        QTemporaryDir program;
        QFile(program.filePath("CMakeCache.txt")).open(QIODevice::WriteOnly);
        QDir(program.path()).mkdir("styles");
        ProgramFixture p;
        p.platform.appFolder = program.path();
        p.start();
        p.shell().ActiveForm()->codebox().setText("<html><head></head><body></body></html>");

        withStyleDialog(p, [&](FormDialog& d) {
            QCOMPARE(d.windowTitle(), QString("Style Settings"));
            auto* tabs = ProgramFixture::child<QTabWidget>(d, "SSTab1");
            QCOMPARE(tabs->tabText(4), QString("Margins && Padding"));
            QTest::keyClicks(ProgramFixture::child<QComboBox>(d, "TagName")->lineEdit(), "H1");
            choose(ProgramFixture::child<QComboBox>(d, "FontFaceCmb"), "Courier New");
            choose(ProgramFixture::child<QComboBox>(d, "BoldCmb"), "Bold");
            tabs->setCurrentIndex(4);
            retype(ProgramFixture::child<QLineEdit>(d, "LeftBox"), "-5x");
            choose(ProgramFixture::child<QComboBox>(d, "LMCmb"), "em");
            tabs->setCurrentIndex(5);
            QTest::keyClicks(ProgramFixture::child<QLineEdit>(d, "BGColour"), "1, 2, 3");
            p.platform.inputAnswers.enqueue(QString("Heading"));
            d.findChild<QAction*>("tbrStyle_2")->trigger();
            QCOMPARE(ProgramFixture::child<QComboBox>(d, "cmbItemName")->currentText(),
                     QString("Heading"));
            ProgramFixture::child<QPushButton>(d, "cmdCancel")->click();
        });
        QCOMPARE(p.shell().ActiveForm()->codebox().Text(),
                 QString("<html><head></head><body></body></html>"));
        QVERIFY(QFile::exists(program.filePath("styles/Heading.def")));

        withStyleDialog(p, [&](FormDialog& d) {
            auto* name = ProgramFixture::child<QComboBox>(d, "cmbItemName");
            QCOMPARE(name->currentText(), QString("(New Style)"));
            QCOMPARE(ProgramFixture::child<QComboBox>(d, "TagName")->currentText(), QString());
            choose(name, "Heading");
            QCOMPARE(ProgramFixture::child<QComboBox>(d, "TagName")->currentText(), QString("H1"));
            QCOMPARE(ProgramFixture::child<QLineEdit>(d, "LeftBox")->text(), QString("-5"));
            QCOMPARE(p.platform.messages.size(), 0);
            ProgramFixture::child<QPushButton>(d, "cmdOK")->click();
            QVERIFY(!d.isVisible());
        });
        QCOMPARE(p.shell().ActiveForm()->codebox().Text(),
                 QString("<html><head></head>\n<style type=\"text/css\">\n<!-- /* Hide Style Sheet "
                         "information from browsers that do not support Style Sheets */\n"
                         "  H1 {\n    font-family: \"Courier New\";\n    font-weight: Bold;\n    "
                         "background: rgb(1, 2, 3);\n    margin-left: -5em;\n    }\n"
                         "--></style><body></body></html>"));
    }

    // "A" chosen from the tag list asks at once which state of a link it means; "All" chosen
    // there as an assistive tool chooses writes the plain selector.
    void choosingTheLinkTagAsksWhichState() {
        ProgramFixture p;
        p.start();
        p.shell().ActiveForm()->codebox().setText("<html><head></head><body></body></html>");
        withStyleDialog(p, [&](FormDialog& d) {
            QString asked;
            QTimer::singleShot(0, [&] {
                FormDialog* question = p.bench->forms().current();
                asked = question->windowTitle();
                auto* all = ProgramFixture::child<QRadioButton>(*question, "AllOpt");
                QAccessibleInterface* access = QAccessible::queryAccessibleInterface(all);
                access->actionInterface()->doAction(
                    access->actionInterface()->actionNames().first());
                QTest::keyClick(question, Qt::Key_Return);
            });
            choose(ProgramFixture::child<QComboBox>(d, "TagName"), "A");
            QCOMPARE(asked, QString("Which form of Hyperlink?"));
            choose(ProgramFixture::child<QComboBox>(d, "BoldCmb"), "Bold");
            ProgramFixture::child<QPushButton>(d, "cmdOK")->click();
        });
        QVERIFY2(
            p.shell().ActiveForm()->codebox().Text().contains("\n  A {\n    font-weight: Bold;"),
            qPrintable(p.shell().ActiveForm()->codebox().Text()));
    }
};

QTEST_MAIN(StyleDialogWidgetTest)
#include "test_style_dialog.moc"
