#include "Plugins/ExamplePlugin.h"

#include "Extensions/ColorTheme.h"
#include "Models/Symbol.h"

namespace orvelle {

namespace {
constexpr const char* greeting = "Hello from a plug-in";
}

ExamplePlugin::ExamplePlugin()
    : NotchPlugin("example", "Example", std::string("gear"_symbol)), message(greeting),
      pluginID_("com.orvelle.example"), version_("1.0"), author_("Orvelle"),
      summary_("Shows one message and how a plug-in is written") {}

void ExamplePlugin::start() {
    if (isEnabled)
        message = "Running";
}

void ExamplePlugin::stop() {
    message = greeting;
}

ExampleView ExamplePlugin::expandedView() {
    return {.picture = {"gear"_symbol, 32, notchSecondary},
            .title = featureName,
            .message = message,
            .frame = {}};
}

} // namespace orvelle
