#pragma once
// The whole program on the offscreen platform with scripted services, for the widget tests.
// Header only: the widget tests link the view, the rest of the support library does not.
#include "inserted_at.h"
#include "scripted_platform.h"
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/window/main_window.h"
#include "ui/window/workbench.h"
#include <QTest>
#include <memory>

namespace tsl::test {

struct ProgramFixture {
    ScriptedPlatform platform;
    MemorySettingsStore settings;
    std::unique_ptr<Workbench> bench;

    // Starts the program once the test has stored the settings it wants.
    void start(const QString& commandLine = QString()) {
        bench = std::make_unique<Workbench>(platform, settings);
        bench->load(commandLine);
        bench->window().show();
        QVERIFY(QTest::qWaitForWindowExposed(&bench->window()));
    }
    ShellMDI& shell() { return bench->shell(); }
    ShellWindow& window() { return bench->window(); }
    // A named widget; a test that names one that is not there stops at once.
    template <typename W> static W* child(QWidget& parent, const char* name) {
        W* widget = parent.findChild<W*>(QString::fromLatin1(name));
        if (!widget) qFatal("no widget %s", name);
        return widget;
    }
};

} // namespace tsl::test
