#include "Features/Todo/TodoExpandedBinding.h"

#include "Features/Todo/TodoExpandedView.h"
#include "Features/Todo/TodoManager.h"

namespace orvelle {

void TodoExpandedBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.todoManager;
    view_ = std::make_unique<TodoExpandedView>(manager, &environment.notch.undo);
    follow(manager.items);
}

} // namespace orvelle
