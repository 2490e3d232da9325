#include "Views/Qt/ViewEngine.h"

#include <utility>

extern void qml_register_types_Orvelle();

namespace orvelle {

ViewEngine::ViewEngine(ViewEnvironment environment) : environment_(std::move(environment)) {
    // The module is linked statically: without this call the linker would leave its types out.
    qml_register_types_Orvelle();
    addImportPath(QStringLiteral("qrc:/"));
}

} // namespace orvelle
