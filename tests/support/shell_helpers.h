#pragma once
// One-line summaries of a document window and of the tab strip.
#include "test_shell.h"

namespace tsl::test {

// Caption|txtFileName|txtFileTitle|Tag|CSSDoc|the Source pane's file name.
inline QString docState(const codeEditor& d) {
    return QStringList{d.Caption(), d.txtFileName, d.txtFileTitle,
                       d.Tag,       d.CSSDoc,      d.codebox().FileName()}
        .join(u'|');
}
inline QString docState(const QString& caption, const QString& name, const QString& title,
                        const char* css = "No", const QString& file = QString(),
                        const char* tag = "Clean") {
    return QStringList{caption, name, title, QString::fromUtf8(tag), QString::fromUtf8(css), file}
        .join(u'|');
}

// The tabs as "key=caption" in order, then "@" and the selected one.
inline QString tabState(ShellMDI& s) {
    QStringList tabs;
    for (int i = 0; i < s.TabStrip1.count(); ++i)
        tabs.append(s.TabStrip1.tab(i).Key + u'=' + s.TabStrip1.tab(i).Caption);
    return tabs.join(u';') + u'@' + QString::number(s.TabStrip1.selectedIndex());
}

// A shell loaded at once, on a store that holds the settings given as "Section/Key=Value".
struct Loaded : TestShell {
    explicit Loaded(std::initializer_list<QString> stored = {}, const QString& commandLine = {}) {
        for (const QString& s : stored) {
            const qsizetype slash = s.indexOf(u'/'), eq = s.indexOf(u'=');
            settings.save(s.left(slash), s.mid(slash + 1, eq - slash - 1), s.mid(eq + 1));
        }
        load(commandLine);
    }
};

// Follows the drawing freeze: a message shown while drawing is held would not paint.
struct FreezeWatch {
    bool frozen = false;
    int messagesWhileFrozen = 0;
    explicit FreezeWatch(TestShell& ts) {
        QObject::connect(ts.shell.get(), &ShellMDI::drawingFrozen,
                         [this](bool on) { frozen = on; });
        ts.platform.onMessage = [this] { messagesWhileFrozen += frozen; };
    }
};

} // namespace tsl::test
