#include "shell/command_registry.h"
#include "shell/shell_core.h"

namespace tsl {

namespace {
std::vector<CommandBinder>& binders() {
    // Made on first use, so registrations from any file's static start-up find it ready.
    static std::vector<CommandBinder> all;
    return all;
}
} // namespace

const std::vector<CommandBinder>& registeredCommandSets() {
    return binders();
}

CommandSet::CommandSet(void (*bind)(DialogContext&, Commands&)) {
    binders().push_back([bind](ShellCore& shell, Commands& commands) { bind(shell, commands); });
}

CommandSet::CommandSet(void (*bind)(ShellCore&, Commands&)) {
    binders().push_back(bind);
}

} // namespace tsl
