// The three toolbars on screen follow the logic's bands: the View menu, the toolbar buttons
// and the toolbars' own context menu show and hide them, a style sheet hides two of them and
// a page brings them back.
#include "program_fixture.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "test_rows.h"
#include "ui/window/main_window.h"
#include "ui/kit/menu_binder.h"
#include "ui/window/tag_pane.h"
#include "ui/window/workbench.h"
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <memory>

using namespace tsl;
using namespace tsl::test;

namespace {
struct Program : ProgramFixture {
    QToolBar* bar(const char* name) {
        auto* bar = window().findChild<QToolBar*>(QLatin1String(name));
        if (!bar) qFatal("no toolbar %s", name);
        return bar;
    }
    bool shown(const char* name) { return !bar(name)->isHidden(); }
    QAction* action(const QString& name) {
        auto* action = window().findChild<QAction*>(name);
        if (!action) qFatal("no action %s", qPrintable(name));
        return action;
    }
    void clickTab(int index) {
        QTabBar* tabs = window().documentTabs();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
    }
};
} // namespace

class ToolbarsTest : public QObject {
    Q_OBJECT

  private slots:
    // A first start shows Standard and Formatting; the settings decide otherwise.
    void theSettingsDecideAtStart() {
        for (bool stored : {false, true}) {
            Program p;
            if (stored) {
                p.settings.save("Fuzzies", "Standard Toolbar Open", "No");
                p.settings.save("Fuzzies", "Forms Toolbar Open", "Yes");
            }
            p.start();
            QCOMPARE(p.shown("tbrMain"), !stored);
            QVERIFY(p.shown("tbrTags"));
            QCOMPARE(p.shown("tbrForms"), stored);
            QVERIFY(p.bar(stored ? "tbrForms" : "tbrMain")->isVisible());
            QCOMPARE(p.action("mnuViewStdTlb")->isChecked(), !stored);
            QVERIFY(p.action("mnuViewFmtTlb")->isChecked());
            QCOMPARE(p.action("mnuViewForms")->isChecked(), stored);
            QCOMPARE(p.action("tbrMain_16")->isChecked(), stored);
        }
    }

    void theViewMenuHidesAndShowsEachToolbar_data() {
        columns<QString, QString, QString>({"item", "toolbar", "band"});
        for (const char* row : {"mnuViewStdTlb tbrMain Toolbar1", "mnuViewFmtTlb tbrTags Toolbar2",
                                "mnuViewForms tbrForms Toolbar3"}) {
            const QStringList f = QString::fromLatin1(row).split(u' ');
            QTest::newRow(row) << f[0] << f[1] << f[2];
        }
    }
    void theViewMenuHidesAndShowsEachToolbar() {
        QFETCH(QString, item);
        QFETCH(QString, toolbar);
        QFETCH(QString, band);
        Program p;
        p.start();
        const QByteArray name = toolbar.toLatin1();
        const bool before = p.shown(name.constData());
        QAction* toggle = p.action(item);
        toggle->trigger();
        QCOMPARE(p.shown(name.constData()), !before);
        QCOMPARE(toggle->isChecked(), !before);
        QCOMPARE(p.shell().cReBar1.BandVisible(p.shell().cReBar1.BandIndexForKey(band)), !before);
        toggle->trigger();
        QCOMPARE(p.shown(name.constData()), before);
        QCOMPARE(toggle->isChecked(), before);
        QVERIFY(p.platform.messages.isEmpty());
    }

    void theFormsButtonAndTheViewMenuAgree() {
        Program p;
        p.start();
        QAction* button = p.action("tbrMain_16");
        button->trigger();
        QVERIFY(p.shown("tbrForms"));
        QVERIFY(button->isChecked());
        QVERIFY(p.action("mnuViewForms")->isChecked());
        QVERIFY(p.shell().bFormsToolbarOpen);
        p.action("mnuViewForms")->trigger();
        QVERIFY(!p.shown("tbrForms"));
        QVERIFY(!button->isChecked());
        // The tag list button shows the pane.
        p.action("tbrMain_17")->trigger();
        QVERIFY(!p.window().tagPane()->isHidden());
        QVERIFY(p.action("mnuViewTagList")->isChecked());
        QCOMPARE(p.settings.get("Fuzzies", "TagListOpen"), QStringLiteral("Yes"));
    }

    void theToolbarsContextMenuIsTheViewMenu() {
        Program p;
        p.start();
        std::unique_ptr<QMenu> popup(p.window().createPopupMenu());
        QVERIFY(popup);
        QStringList names;
        for (QAction* action : popup->actions())
            names.append(action->objectName());
        QCOMPARE(names,
                 QStringList({"mnuViewStdTlb", "mnuViewFmtTlb", "mnuViewForms", "mnuViewTagList"}));
        // Hiding a toolbar from there goes through the logic: flag, band and check mark.
        popup->actions().at(1)->trigger();
        QVERIFY(!p.shown("tbrTags"));
        QVERIFY(!p.shell().bTagsToolbarOpen);
        QVERIFY(!p.action("mnuViewFmtTlb")->isChecked());
        popup.reset();
        // The View menu keeps its items.
        QCOMPARE(p.window().menus().menuNamed("mnuView")->actions().size(), 4);
        QVERIFY(!p.bar("tbrMain")->isFloatable());
    }

    void aStyleSheetHidesFormattingAndFormsAndAPageBringsThemBack() {
        Program p;
        p.settings.save("Fuzzies", "Forms Toolbar Open", "Yes");
        p.settings.save("Fuzzies", "TagListOpen", "Yes");
        p.start();
        QVERIFY(p.shown("tbrTags") && p.shown("tbrForms"));
        QVERIFY(!p.window().tagPane()->isHidden());
        p.action("mnuFileNewCSS")->trigger();
        QCOMPARE(p.window().documentTabs()->count(), 2);
        // The style sheet comes forward by its tab.
        p.clickTab(0);
        p.clickTab(1);
        QCOMPARE(p.shell().ActiveForm()->CSSDoc, QStringLiteral("Yes"));
        QVERIFY(p.shown("tbrMain"));
        QVERIFY(!p.shown("tbrTags"));
        QVERIFY(!p.shown("tbrForms"));
        QVERIFY(p.window().tagPane()->isHidden());
        QVERIFY(!p.action("mnuViewFmtTlb")->isEnabled());
        QVERIFY(!p.action("tbrMain_16")->isEnabled());
        QVERIFY(p.shell().bTagsToolbarOpen && p.shell().bFormsToolbarOpen);
        // The page brings back what its flags say.
        p.clickTab(0);
        QCOMPARE(p.shell().ActiveForm()->CSSDoc, QStringLiteral("No"));
        QVERIFY(p.shown("tbrTags"));
        QVERIFY(p.shown("tbrForms"));
        QVERIFY(!p.window().tagPane()->isHidden());
        QVERIFY(p.action("mnuViewFmtTlb")->isEnabled());
        QVERIFY(p.action("tbrMain_16")->isChecked());
    }

    void aButtonShowsThePressedStateOfItsModel() {
        Program p;
        p.start();
        ShellMDI& shell = p.shell();
        QAction* bold = p.action("tbrTags_4");
        shell.tbrTags.setButtonChecked(4, true);
        QVERIFY(bold->isChecked());
        // A press of an ordinary button leaves its pressed state to the model.
        bold->trigger();
        QVERIFY(bold->isChecked());
        shell.tbrTags.setButtonChecked(4, false);
        QVERIFY(!bold->isChecked());
        bold->trigger();
        QVERIFY(!bold->isChecked());
    }

    void menuItemsShowThePictureOfTheirKey() {
        Program p;
        p.start();
        MenuBinder binder(p.shell());
        QStringList asked;
        binder.iconForKey = [&asked](const QString& key) {
            asked.append(key);
            QPixmap pixmap(16, 16);
            pixmap.fill(Qt::red);
            return QIcon(pixmap);
        };
        QMenuBar bar;
        binder.buildMenuBar(&bar, p.shell().menuBar());
        const auto find = [&bar](const char* name) {
            return bar.findChild<QAction*>(QLatin1String(name));
        };
        QVERIFY(find("mnuFileOpen"));
        QVERIFY(!find("mnuFileOpen")->icon().isNull());
        QVERIFY(!find("mnuHelpContents")->icon().isNull());
        QVERIFY(find("mnuFileClose")->icon().isNull());
        QVERIFY(asked.contains(QStringLiteral("LinkToCSS")));
        QVERIFY(asked.contains(QStringLiteral("Heading")));
    }
};

QTEST_MAIN(ToolbarsTest)
#include "test_toolbars.moc"
