#pragma once

#include "Foundation/Color.h"
#include "Protocols/PluginProtocol.h"

#include <limits>
#include <string>
#include <string_view>

namespace orvelle {

/// The panel of the example: a picture above two texts, one below the other.
struct ExampleView {
    struct Picture {
        std::string_view symbol;
        double fontSize = 0; ///< points
        Color color;
        bool operator==(const Picture&) const = default;
    };
    /// The room that the view takes at most, in points.
    struct Frame {
        double maxWidth = std::numeric_limits<double>::infinity();
        double maxHeight = std::numeric_limits<double>::infinity();
        bool operator==(const Frame&) const = default;
    };

    Picture picture;
    std::string title;
    std::string message;
    Frame frame; ///< flexible: it grows with the panel
    bool operator==(const ExampleView&) const = default;
};

/// A template for writers of plug-ins: copy it, rename it, and fill in your own feature. The
/// program itself makes no instance of it.
class ExamplePlugin : public NotchPlugin, public ExpandedViewProvider<ExampleView> {
public:
    ExamplePlugin();

    const std::string& pluginID() const override { return pluginID_; }
    const std::string& version() const override { return version_; }
    const std::string& author() const override { return author_; }
    const std::string& displayName() const override { return featureName; }
    const std::string& summary() const override { return summary_; }

    Published<std::string> message;

    /// Begin timers and observers here, and keep their handles as members.
    void start() override;
    /// Reset those handles here.
    void stop() override;

    ExampleView expandedView() override;

private:
    const std::string pluginID_;
    const std::string version_;
    const std::string author_;
    const std::string summary_;
};

} // namespace orvelle
