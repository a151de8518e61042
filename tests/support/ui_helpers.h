#pragma once
// The whole program on screen, with the steps the widget tests share.
#include "program_fixture.h"
#include "test_rows.h"
#include "test_shell.h"
#include "ui/kit/form_host.h"
#include "ui/source/source_editor.h"
#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QTimer>

namespace tsl::test {

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
    // Runs `script` on the dialog that `open` brings on screen above `over`; false when none
    // came. Loading may wait on a page, so the dialog comes when it comes.
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
