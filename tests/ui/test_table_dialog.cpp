// The Insert Table dialog and the table chooser on screen, driven through their widgets.
#include "dialogs/table_chooser.h"
#include "program_fixture.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/kit/form_host.h"
#include "ui/window/main_window.h"
#include "ui/window/workbench.h"
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

using namespace tsl;
using namespace tsl::test;

namespace {
struct Program : ProgramFixture {
    QString text() { return shell().ActiveForm()->codebox().Text(); }
    QWidget* drawTableButton() {
        auto* action = bench->window().findChild<QAction*>(QStringLiteral("tbrTags_22"));
        for (QToolBar* bar : bench->window().findChildren<QToolBar*>())
            if (QWidget* button = bar->widgetForAction(action)) return button;
        return nullptr;
    }
};

void saveShot(QWidget& widget, const QString& name) {
    if (!qEnvironmentVariableIsSet("TESSALINE_SHOTS")) return;
    widget.grab().save(QStringLiteral("/tmp/%1.png").arg(name));
}
} // namespace

class TableDialogWidgetTest : public QObject {
    Q_OBJECT

  private slots:
    void fillTheDialogAndPressOK() {
        Program p;
        p.start();
        const QString before = p.text();
        const int caret = p.shell().ActiveForm()->codebox().SelStart();
        bool ran = false;
        QTimer::singleShot(0, [&] {
            FormDialog* d = p.bench->forms().current();
            QVERIFY(d);
            ran = true;
            QCOMPARE(d->windowTitle(), QStringLiteral("Insert Table"));
            QStringList groups;
            for (QGroupBox* box : d->findChildren<QGroupBox*>())
                groups.append(box->title());
            QCOMPARE(groups,
                     (QStringList{"Layout", "Table Width", "Background", "Border Colours"}));
            auto* rows = Program::child<QLineEdit>(*d, "RowBox");
            rows->selectAll();
            QTest::keyClicks(rows, QStringLiteral("x3"));
            QCOMPARE(rows->text(), QStringLiteral("3"));
            Program::child<QToolButton>(*d, "ColUpDownDown")->click();
            QCOMPARE(Program::child<QLineEdit>(*d, "ColBox")->text(), QStringLiteral("1"));
            auto* border = Program::child<QLineEdit>(*d, "BorderBox");
            auto* allSides = Program::child<QRadioButton>(*d, "optAllSides");
            QVERIFY(!allSides->isEnabled());
            border->selectAll();
            QTest::keyClicks(border, QStringLiteral("2"));
            QVERIFY(allSides->isEnabled());
            allSides->click();
            QVERIFY(!Program::child<QRadioButton>(*d, "optNone")->isChecked());
            auto* colour = Program::child<QLineEdit>(*d, "txtBC");
            QVERIFY(colour->isEnabled());
            QTest::keyClicks(colour, QStringLiteral("#c0ffee"));
            QCOMPARE(colour->text(), QStringLiteral("C0FFEE"));
            auto* align = Program::child<QComboBox>(*d, "Alignment");
            align->setCurrentIndex(2);
            emit align->activated(2);
            Program::child<QRadioButton>(*d, "PixelsOpt")->click();
            saveShot(*d, QStringLiteral("table-dialog"));
            Program::child<QPushButton>(*d, "OK")->click();
            QVERIFY(!d->isVisible());
        });
        p.bench->window().findChild<QAction*>(QStringLiteral("mnuInsertTable"))->trigger();
        QVERIFY(ran);
        const QString row =
            QStringLiteral("   <tr align=\"right\">\n      <td>&nbsp;</td>\n   </tr>\n");
        QCOMPARE(p.text(),
                 insertedAt(
                     before, caret,
                     QStringLiteral("<table border=\"2\" width=\"100\" bordercolor=\"C0FFEE\">\n") +
                         row.repeated(3) + QStringLiteral("</table>")));
    }

    // By keyboard alone: the menu's mnemonics open the dialog, Up steps Rows, Tab stops at
    // each field once, Enter presses OK.
    void theKeyboardAloneWritesATable() {
        Program p;
        p.start();
        const QString before = p.text();
        const int caret = p.shell().ActiveForm()->codebox().SelStart();
        QStringList stops;
        QTimer::singleShot(0, [&] {
            QTRY_VERIFY(p.bench->forms().current());
            FormDialog* d = p.bench->forms().current();
            QTRY_VERIFY(d->isActiveWindow());
            QWidget* first = QApplication::focusWidget();
            for (QWidget* focus = first; stops.size() < 40;) {
                stops << focus->objectName();
                if (focus->objectName() == QLatin1String("RowBox"))
                    QTest::keyClick(focus, Qt::Key_Up);
                QTest::keyClick(focus, Qt::Key_Tab);
                focus = QApplication::focusWidget();
                if (focus == first) break;
            }
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
        QTest::keyClick(&p.window(), Qt::Key_I, Qt::AltModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_T);
        QTRY_VERIFY(!p.bench->forms().current());
        // Each field once, the spinners' arrows never; options and buttons take one stop.
        QCOMPARE(stops.size(), QSet<QString>(stops.begin(), stops.end()).size());
        for (const char* field :
             {"ColBox", "RowBox", "Spacing", "Padding", "BorderBox", "Alignment", "cmbVAlign",
              "WidthCheck", "txtBGColour", "BackgroundBox", "OK", "Cancel"})
            QVERIFY2(stops.contains(QLatin1String(field)), field);
        for (const QString& stop : stops)
            QVERIFY2(!stop.endsWith("UpDownUp") && !stop.endsWith("UpDownDown"), qPrintable(stop));
        const QString row =
            QStringLiteral("   <tr>\n      <td>&nbsp;</td>\n      <td>&nbsp;</td>\n   </tr>\n");
        QCOMPARE(p.text(), insertedAt(before, caret,
                                      QStringLiteral("<table border=\"0\" width=\"100%\">\n") +
                                          row.repeated(3) + QStringLiteral("</table>")));
    }

    void theChooserDropsDownUnderItsButtonAndInserts() {
        Program p;
        p.start();
        const QString before = p.text();
        const int caret = p.shell().ActiveForm()->codebox().SelStart();
        QWidget* button = p.drawTableButton();
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
        auto* popup = p.bench->window().findChild<QWidget*>(QStringLiteral("picDropDown"));
        QVERIFY(popup);
        QTRY_VERIFY(popup->isVisible());
        QCOMPARE(popup->size(), QSize(126, 126));
        const QPoint corner = button->mapToGlobal(QPoint(0, 0));
        // 205 twips left of the button and 500 below it; a window frame may add a pixel or two.
        const int perPixel = 1440 / popup->logicalDpiX();
        const QPoint expected((corner.x() * perPixel - 205) / perPixel,
                              (corner.y() * perPixel + 500) / perPixel);
        QVERIFY((popup->geometry().topLeft() - expected).manhattanLength() <= 4);
        QVERIFY(popup->geometry().top() >= button->mapToGlobal(QPoint(0, button->height())).y());
        QTest::mouseMove(popup, QPoint(60, 40));
        QCOMPARE(p.shell().part<TableChooser>().picDropDown.label, QStringLiteral("3 x 2 table"));
        // Beyond the right edge the grid grows.
        QTest::mouseMove(popup, QPoint(130, 40));
        QCOMPARE(popup->width(), 150);
        QCOMPARE(p.shell().part<TableChooser>().picDropDown.label, QStringLiteral("6 x 2 table"));
        saveShot(*popup, QStringLiteral("table-chooser"));
        QTest::mouseMove(popup, QPoint(60, 40));
        QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier, QPoint(60, 40));
        QTRY_VERIFY(!popup->isVisible());
        const QString row = QStringLiteral("   <tr>\n") +
                            QStringLiteral("      <td>&nbsp;</td>\n").repeated(3) +
                            QStringLiteral("   </tr>\n");
        QCOMPARE(p.text(), insertedAt(before, caret,
                                      QStringLiteral("<table width=\"100%\">\n") + row + row +
                                          QStringLiteral("</table>")));
    }

    void theFileMenuShowsTheRecentFiles() {
        Program p;
        p.settings.save("Recent File List", "1stRecentFile", "/w/a.htm");
        p.settings.save("Recent File List", "2ndRecentFile", "/w/b.htm");
        p.start();
        QStringList shown;
        for (int i = 0; i < 4; ++i) {
            auto* action =
                p.bench->window().findChild<QAction*>(QStringLiteral("mnuFileMRU(%1)").arg(i));
            QVERIFY(action);
            if (action->isVisible()) shown.append(action->text());
        }
        QCOMPARE(shown, (QStringList{"/w/a.htm", "/w/b.htm"}));
        p.shell().AddRecentFile(QStringLiteral("/w/c.htm"), QString());
        QCOMPARE(p.bench->window().findChild<QAction*>("mnuFileMRU(2)")->text(),
                 QStringLiteral("/w/b.htm"));
        // A path is shown as it stands: an ampersand is no access key.
        p.shell().AddRecentFile(QStringLiteral("/w/Tom & Jerry.htm"), QString());
        QCOMPARE(p.bench->window().findChild<QAction*>("mnuFileMRU(0)")->text(),
                 QStringLiteral("/w/Tom && Jerry.htm"));
        // The entries after the first carry a picture; the first has none.
        QVERIFY(p.bench->window().findChild<QAction*>("mnuFileMRU(0)")->icon().isNull());
    }

    void escapeClosesTheChooserWithoutATable() {
        Program p;
        p.start();
        const QString before = p.text();
        QTest::mouseClick(p.drawTableButton(), Qt::LeftButton);
        auto* popup = p.bench->window().findChild<QWidget*>(QStringLiteral("picDropDown"));
        QTRY_VERIFY(popup->isVisible());
        popup->close();
        QVERIFY(!p.shell().part<TableChooser>().DropDown.IsShowing());
        QCOMPARE(p.text(), before);
    }
};

QTEST_MAIN(TableDialogWidgetTest)
#include "test_table_dialog.moc"
