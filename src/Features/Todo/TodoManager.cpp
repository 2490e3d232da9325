#include "Features/Todo/TodoManager.h"

#include "Models/Symbol.h"

namespace orvelle {

TodoManager::TodoManager(Platform&)
    : FeatureModule("todo", "Todo", std::string("checklist"_symbol)) {}

} // namespace orvelle
