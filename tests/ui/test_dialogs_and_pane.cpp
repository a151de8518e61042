// The Preferences and About dialogs and the tag list pane, driven through their widgets.
#include "markup/tag_list.h"
#include "program_fixture.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/kit/form_host.h"
#include "ui/window/main_window.h"
#include "ui/source/source_editor.h"
#include "ui/window/tag_pane.h"
#include "ui/window/workbench.h"
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace tsl;
using namespace tsl::test;

namespace {
struct Program : ProgramFixture {
    QtSourcePane& pane() { return dynamic_cast<QtSourcePane&>(shell().ActiveForm()->codebox()); }
    // Opens a dialog from the menu and runs `work` on it while it is shown.
    void withDialog(const QString& menuItem, const std::function<void(FormDialog&)>& work) {
        bool ran = false;
        QTimer::singleShot(0, [&] {
            FormDialog* dialog = bench->forms().current();
            QVERIFY(dialog);
            ran = true;
            work(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        bench->window().findChild<QAction*>(menuItem)->trigger();
        QVERIFY(ran);
    }
};
} // namespace

class DialogsAndPaneTest : public QObject {
    Q_OBJECT

  private slots:
    void preferencesShowTheStoredValues() {
        Program p;
        p.settings.save(keys::Fuzzies, keys::FontName, QStringLiteral("Arial"));
        p.settings.save(keys::Fuzzies, keys::FontSize, QStringLiteral("12"));
        p.start();
        p.withDialog(QStringLiteral("mnuEditPrefs"), [](FormDialog& d) {
            QCOMPARE(d.windowTitle(), QStringLiteral("Preferences"));
            auto* fonts = Program::child<QComboBox>(d, "FontFace");
            QCOMPARE(fonts->count(), 3);
            QCOMPARE(fonts->currentText(), QStringLiteral("Arial"));
            QCOMPARE(Program::child<QLineEdit>(d, "Size")->text(), QStringLiteral("12"));
            // The box stands clear until the first save, though documents wrap.
            QVERIFY(!Program::child<QCheckBox>(d, "chkWordWrap")->isChecked());
            QVERIFY(Program::child<QCheckBox>(d, "chkAutoClose")->isChecked());
            QVERIFY(Program::child<QCheckBox>(d, "chkRelative")->isChecked());
            QCOMPARE(Program::child<QLineEdit>(d, "Text1")->text(), QStringLiteral("None"));
            QCOMPARE(Program::child<QCheckBox>(d, "chkWordWrap")->text(),
                     QStringLiteral("&Word Wrap"));
        });
    }

    void typedSizeAndSpinnerAreSavedAndApplied() {
        Program p;
        p.start();
        p.withDialog(QStringLiteral("mnuEditPrefs"), [](FormDialog& d) {
            auto* size = Program::child<QLineEdit>(d, "Size");
            size->selectAll();
            QTest::keyClicks(size, QStringLiteral("1x4"));
            QCOMPARE(size->text(), QStringLiteral("14")); // letters are dropped as typed
            Program::child<QToolButton>(d, "UpDown1Up")->click();
            QCOMPARE(size->text(), QStringLiteral("15"));
            Program::child<QCheckBox>(d, "chkWordWrap")->click();
            Program::child<QPushButton>(d, "OK")->click();
            QVERIFY(!d.isVisible());
        });
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::FontSize), QStringLiteral("15"));
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::WordWrap), QStringLiteral("1"));
        QCOMPARE(p.pane().widget()->font().pointSizeF(), 15.0);
        QVERIFY(p.pane().widget()->wraps());
    }

    void aSizeAbove72IsRefusedForTheStoreOnly() {
        Program p;
        p.start();
        p.platform.messageAnswers.enqueue(MsgResult::OK);
        p.withDialog(QStringLiteral("mnuEditPrefs"), [](FormDialog& d) {
            auto* size = Program::child<QLineEdit>(d, "Size");
            size->selectAll();
            QTest::keyClicks(size, QStringLiteral("80"));
            Program::child<QPushButton>(d, "OK")->click();
        });
        QCOMPARE(p.platform.messageTexts(),
                 QStringList{QStringLiteral("An integer higher than 72 was entered. The size has "
                                            "now been reduced to 9 points.")});
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::FontSize), QStringLiteral("9"));
        QCOMPARE(p.pane().widget()->font().pointSizeF(), 80.0);
    }

    void escapeIsCancelAndWritesNothing() {
        Program p;
        p.start();
        const int before = p.settings.writeCount();
        p.withDialog(QStringLiteral("mnuEditPrefs"), [](FormDialog& d) {
            QTest::keyClicks(Program::child<QLineEdit>(d, "Text1"), QStringLiteral("/usr/bin/x"));
            QTest::keyClick(&d, Qt::Key_Escape);
            QVERIFY(!d.isVisible());
        });
        QCOMPARE(p.settings.writeCount(), before);
    }

    void theFolderButtonAsksWithItsTitle() {
        Program p;
        p.start();
        p.platform.folderAnswers.enqueue(QStringLiteral("/home/me/site"));
        p.withDialog(QStringLiteral("mnuEditPrefs"), [](FormDialog& d) {
            Program::child<QPushButton>(d, "Command2")->click();
            QCOMPARE(Program::child<QLineEdit>(d, "PreviewBox")->text(),
                     QStringLiteral("/home/me/site"));
            Program::child<QPushButton>(d, "OK")->click();
        });
        QCOMPARE(p.platform.folderTitles,
                 QStringList{QStringLiteral("Please select a default folder")});
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::DefaultDir), QStringLiteral("/home/me/site"));
        QCOMPARE(p.shell().OpenSave.InitDir, QStringLiteral("/home/me/site"));
    }

    void aboutOpensItsLinksThroughTheShell() {
        Program p;
        p.start();
        p.withDialog(QStringLiteral("mnuHelpAbout"), [](FormDialog& d) {
            QCOMPARE(d.windowTitle(), QStringLiteral("About Tessaline"));
            emit Program::child<QLabel>(d, "Label")->linkActivated(QStringLiteral("#"));
            emit Program::child<QLabel>(d, "Labels")->linkActivated(QStringLiteral("#"));
            Program::child<QPushButton>(d, "OK")->click();
            QVERIFY(!d.isVisible());
        });
        QCOMPARE(p.platform.shellOpened.size(), 2);
        QVERIFY(p.platform.shellOpened.at(0).startsWith(QStringLiteral("mailto:")));
        QVERIFY(p.platform.shellOpened.at(1).startsWith(QStringLiteral("https://")));
    }

    void thePaneFollowsItsSettingAndItsCloseButton() {
        Program p;
        p.settings.save(keys::Fuzzies, keys::TagListOpen, QStringLiteral("Yes"));
        p.start();
        TagPane* pane = p.bench->window().tagPane();
        QVERIFY(pane->isVisible());
        QVERIFY(
            p.bench->window().findChild<QAction*>(QStringLiteral("mnuViewTagList"))->isChecked());
        pane->findChild<QToolButton*>(QStringLiteral("cmdClose"))->click();
        QVERIFY(!pane->isVisible());
        QCOMPARE(p.settings.get(keys::Fuzzies, keys::TagListOpen), QStringLiteral("No"));
        QVERIFY(
            !p.bench->window().findChild<QAction*>(QStringLiteral("mnuViewTagList"))->isChecked());
    }

    void theSizerKeepsThePaneWithinItsLimits() {
        Program p;
        p.settings.save(keys::Fuzzies, keys::TagListOpen, QStringLiteral("Yes"));
        p.start();
        QWidget* sizer = p.bench->window().findChild<QWidget*>(QStringLiteral("imgSizer"));
        TagPane* pane = p.bench->window().tagPane();
        const int dpi = pane->logicalDpiX();
        QTest::mousePress(sizer, Qt::LeftButton, {}, QPoint(2, 5));
        QMouseEvent move(QEvent::MouseMove, QPointF(400, 5), sizer->mapToGlobal(QPointF(400, 5)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(sizer, &move);
        QCOMPARE(p.shell().Picture1Width, ShellMDI::kPaneMinWidth);
        QCOMPARE(pane->width(), ShellMDI::kPaneMinWidth * dpi / 1440);
        QMouseEvent far(QEvent::MouseMove, QPointF(-5000, 5), sizer->mapToGlobal(QPointF(-5000, 5)),
                        Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(sizer, &far);
        QCOMPARE(p.shell().Picture1Width, p.shell().Width - ShellMDI::kDocumentsMinWidth);
        QTest::mouseRelease(sizer, Qt::LeftButton, {}, QPoint(2, 5));
        QVERIFY(!p.shell().bSizing);
    }

    void aDoubleClickOnATagPutsItInTheDocument() {
        Program p;
        p.settings.save(keys::Fuzzies, keys::TagListOpen, QStringLiteral("Yes"));
        p.start();
        TagListView* list = p.bench->window().tagPane()->list();
        QCOMPARE(list->count(), p.shell().part<TagList>().tvwTags.ListCount());
        const auto found = list->findItems(QStringLiteral("<B>  </B>"), Qt::MatchExactly);
        QVERIFY(!found.isEmpty());
        list->scrollToItem(found.first());
        const QPoint centre = list->visualItemRect(found.first()).center();
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, centre);
        QVERIFY(p.shell().ActiveForm()->codebox().Text().contains(QStringLiteral("<b></b>")));
    }

    // The keyboard inserts the tag in front with Enter or Space, once each.
    void enterOrSpaceOnATagPutsItInTheDocument() {
        Program p;
        p.settings.save(keys::Fuzzies, keys::TagListOpen, QStringLiteral("Yes"));
        p.start();
        TagListView* list = p.bench->window().tagPane()->list();
        const auto found = list->findItems(QStringLiteral("<B>  </B>"), Qt::MatchExactly);
        QVERIFY(!found.isEmpty());
        list->setFocus();
        list->setCurrentItem(found.first());
        for (auto key : {Qt::Key_Return, Qt::Key_Space}) {
            p.shell().ActiveForm()->codebox().setText(QString());
            QTest::keyClick(list, key);
            QCOMPARE(p.shell().ActiveForm()->codebox().Text(), QStringLiteral("<b></b>"));
        }
    }
};

QTEST_MAIN(DialogsAndPaneTest)
#include "test_dialogs_and_pane.moc"
