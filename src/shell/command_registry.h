#pragma once
// How a subsystem adds its commands to the main window without the main window naming it.
// Each subsystem ends its command file with one registration:
//
//     static const CommandSet tableCommands{bindTableDialog};
//
// and the main window, as it builds its menus, calls every registered binder. A binder binds
// menu items by name (`Commands::bind`) and the actions of buttons that have no menu item
// (`Commands::bindAction`). The order of registration does not matter: each item has one
// binder.
#include "shell/dialog_context.h"
#include <functional>
#include <vector>

namespace tsl {

class ShellCore;

// Handlers bound to menu items and to button actions by name.
class Commands {
  public:
    using Handler = std::function<void()>;
    void bind(const QString& item, Handler handler) {
        handlers_.emplace_back(item, std::move(handler));
    }
    void bindAction(const QString& action, Handler handler) {
        actions_.emplace_back(action, std::move(handler));
    }
    const std::vector<std::pair<QString, Handler>>& handlers() const { return handlers_; }
    const std::vector<std::pair<QString, Handler>>& actions() const { return actions_; }

  private:
    std::vector<std::pair<QString, Handler>> handlers_;
    std::vector<std::pair<QString, Handler>> actions_;
};

using CommandBinder = std::function<void(ShellCore&, Commands&)>;

// The binders of every subsystem linked into the program.
const std::vector<CommandBinder>& registeredCommandSets();

// Registers a subsystem's binder while the program starts.
class CommandSet {
  public:
    explicit CommandSet(void (*bind)(DialogContext&, Commands&));
    explicit CommandSet(void (*bind)(ShellCore&, Commands&));
};

} // namespace tsl
