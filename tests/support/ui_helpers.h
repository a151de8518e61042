#pragma once
// The whole program on screen, with the steps the widget tests share.
#include "scripted_platform.h"
#include "test_rows.h"
#include "test_shell.h"
#include "ui/kit/form_host.h"
#include "ui/source/source_editor.h"
#include "ui/window/main_window.h"
#include "ui/window/workbench.h"
#include <QtTest>
#include <QtWidgets>

namespace tsl::test {

// The whole program on the offscreen platform with scripted services.
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

struct UiProgram : ProgramFixture {
    codeEditor& active() { return *shell().ActiveForm(); }
    QtSourcePane& pane() { return dynamic_cast<QtSourcePane&>(active().codebox()); }
    CodeBox* box() { return pane().widget(); }
    QAction* action(const QString& name) {
        auto* found = window().findChild<QAction*>(name);
        if (!found) qFatal("no action %s", qPrintable(name));
        return found;
    }
    void trigger(const QString& name) { action(name)->trigger(); }
    // Runs `script` on the dialog `open` brings up above `over` (whenever it comes); false if none.
    bool withDialog(const std::function<void()>& open,
                    const std::function<void(FormDialog&)>& script,
                    const FormDialog* over = nullptr) {
        bool shown = false;
        QTimer poll;
        poll.setInterval(10);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            FormDialog* dialog = bench->forms().current();
            if (!dialog || dialog == over || !dialog->isVisible()) return;
            poll.stop();
            shown = true;
            script(*dialog);
        });
        poll.start();
        open();
        return shown;
    }
    bool fromMenu(const char* item, const std::function<void(FormDialog&)>& script) {
        return withDialog([&] { trigger(QLatin1String(item)); }, script);
    }
};

// One row of a data table in one line: row("name", text, 1, 2).
template <typename... T> void row(const char* name, const T&... values) {
    (QTest::newRow(name) << ... << values);
}

// A position that does not split a surrogate pair.
inline int whole(const QString& text, int position) {
    if (position > 0 && position < text.size() && text.at(position).isLowSurrogate() &&
        text.at(position - 1).isHighSurrogate())
        return position - 1;
    return position;
}

// Replaces a box's text by typing, as a user does.
inline void retype(QLineEdit* edit, const QString& text) {
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
}
inline void retype(QWidget& dialog, const char* box, const QString& text) {
    retype(ProgramFixture::child<QLineEdit>(dialog, box), text);
}
inline void press(QWidget& dialog, const char* button) {
    QTest::mouseClick(ProgramFixture::child<QAbstractButton>(dialog, button), Qt::LeftButton);
}

} // namespace tsl::test
