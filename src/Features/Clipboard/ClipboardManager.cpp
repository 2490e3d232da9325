#include "Features/Clipboard/ClipboardManager.h"

#include "Models/Symbol.h"

namespace orvelle {

ClipboardManager::ClipboardManager(Platform&)
    : FeatureModule("clipboard", "Clipboard", std::string("doc.on.clipboard"_symbol)) {}

} // namespace orvelle
