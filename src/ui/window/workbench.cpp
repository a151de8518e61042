#include "ui/window/workbench.h"
#include "shell/shell_mdi.h"
#include "ui/layout/layout_surface.h"
#include "ui/window/main_window.h"
#include "ui/source/source_editor.h"
#include "ui/dialogs/table_chooser.h"
#include <QGuiApplication>
#include <QStyleHints>

namespace tsl {

std::unique_ptr<SourcePane> QtSurfaceFactory::createSourcePane() {
    return std::make_unique<QtSourcePane>();
}

std::unique_ptr<LayoutSurface> QtSurfaceFactory::createLayoutSurface() {
    return std::make_unique<QtLayoutSurface>();
}

std::unique_ptr<BrowserSurface> QtSurfaceFactory::createBrowser() {
    return std::make_unique<QtBrowserSurface>();
}

Workbench::Workbench(Platform& platform, SettingsStore& settings) {
    // Carets do not blink. A blink repaints the caret's line, and the editor lays a line out
    // anew for each repaint: a page of one long line would keep a core busy while nobody types.
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    shell_ = std::make_unique<ShellMDI>(platform, settings, surfaces_, forms_);
    window_ = std::make_unique<ShellWindow>(*shell_);
    forms_.setShell(shell_.get());
    forms_.setOwner(window_.get());
    registerFormViews(forms_);
    installTableChooser(*shell_, *window_);
}

Workbench::~Workbench() {
    // The documents go before the window that shows them.
    shell_.reset();
    window_.reset();
}

void Workbench::load(const QString& commandLine) {
    shell_->dispatch([&] { shell_->MDIForm_Load(commandLine); });
    window_->applyViewState();
}

} // namespace tsl
