#pragma once
// The whole program on a given platform and settings store: the logic's main window, the
// surfaces and dialogs of the view, and the window on screen. main() makes one; so do the
// widget tests, with a scripted platform.
// Open to main(), the benchmarks and the widget tests.
#include "editor/surfaces.h"
#include "ui/kit/form_host.h"
#include <memory>

namespace tsl {

class Platform;
class SettingsStore;
class ShellMDI;
class ShellWindow;

class QtSurfaceFactory : public SurfaceFactory {
  public:
    std::unique_ptr<SourcePane> createSourcePane() override;
    std::unique_ptr<LayoutSurface> createLayoutSurface() override;
    std::unique_ptr<BrowserSurface> createBrowser() override;
};

class Workbench {
  public:
    Workbench(Platform& platform, SettingsStore& settings);
    ~Workbench();
    // The start-up load, with the command line's file name when there is one.
    void load(const QString& commandLine);
    ShellMDI& shell() { return *shell_; }
    ShellWindow& window() { return *window_; }
    QtFormHost& forms() { return forms_; }

  private:
    QtSurfaceFactory surfaces_;
    QtFormHost forms_;
    std::unique_ptr<ShellMDI> shell_;
    std::unique_ptr<ShellWindow> window_;
};

} // namespace tsl
