#pragma once
// The program offscreen with a large page open in the Source pane, for the benchmarks: a table
// of about a megabyte, or the same rows as one line of about four megabytes.
#include "shell/settings_store.h"
#include "shell/shell_mdi.h"
#include "ui/window/main_window.h"
#include "ui/desktop/qt_platform.h"
#include "ui/source/source_editor.h"
#include "ui/window/workbench.h"
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

namespace bench {

struct LargePage {
    explicit LargePage(bool oneLine = false) : workbench(platform, settings) {
        const QString path = dir.filePath(QStringLiteral("large.htm"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) std::exit(1);
        QByteArray row = "<tr><td class=\"cell\">Some text in a table cell</td><td>42</td></tr>";
        if (!oneLine) row += '\n';
        for (int i = 0; i < (oneLine ? 60000 : 15000); ++i)
            file.write(row);
        file.close();
        workbench.load(path);
        workbench.window().show();
        QApplication::processEvents();
        box().setFocus();
    }
    tsl::QtSourcePane& pane() {
        return dynamic_cast<tsl::QtSourcePane&>(workbench.shell().ActiveForm()->codebox());
    }
    tsl::CodeBox& box() { return *pane().widget(); }

    QTemporaryDir dir;
    tsl::QtPlatform platform;
    tsl::MemorySettingsStore settings;
    tsl::Workbench workbench;
};

} // namespace bench
