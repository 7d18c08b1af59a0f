#pragma once
// The one table that binds a command's name to its routine. main makes it before the shared state, since that refers to
// it, and fills it when the edit screen exists. Keys, menus, labels and lower rooms all start operations through it.

#include "app/routines.h"
#include "platform/commands.h"

#include <functional>
#include <map>

/// Commands by name.
class CommandTable : public Commands {
public:
    /// Binds `name`; a second call replaces the routine.
    void bind(TextView name, std::function<void()> routine);
    /// The same for a routine that works on `state`, which outlives the table's use.
    template <typename State> void bind(TextView name, void (*routine)(State&), State& state) {
        bind(name, [routine, &state] { routine(state); });
    }
    /// What happens on a name that is bound to nothing; nothing at all until this is set.
    void onUnbound(std::function<void()> routine) { unbound_ = std::move(routine); }
    /// True if `name` has a routine.
    bool isBound(TextView name) const { return routines_.find(name) != routines_.end(); }
    void run(TextView name) override;

private:
    std::map<Text, std::function<void()>, std::less<>> routines_;
    std::function<void()> unbound_;
};

/// Binds every command of the edit screen that there is. A command without a routine beeps and says so. All references
/// outlive the table's use.
void bindCommands(CommandTable& commands, Routines& routines);
