#pragma once

#include "Foundation/Published.h"

#include <string>
#include <vector>

namespace orvelle {

/// What every feature is: an identity, a switch, a start and a stop. The program calls each manager
/// by its concrete type; this class states the shape.
class FeatureModule {
public:
    FeatureModule(const FeatureModule&) = delete;
    FeatureModule& operator=(const FeatureModule&) = delete;
    virtual ~FeatureModule() = default;

    const std::string featureID;   ///< stable; the raw value of the feature's panel
    const std::string featureName; ///< for people
    const std::string iconName;    ///< a symbol name
    Published<bool> isEnabled;

    /// Begins the feature's timers and observers, unless it is switched off; may be called again.
    virtual void start() {}
    /// Ends them. Most features have nothing of their own here: the application ends their timers.
    virtual void stop() {}

protected:
    FeatureModule(std::string id, std::string name, std::string icon, bool enabled = true,
                  Published<bool>::Effect onEnabled = {})
        : featureID(std::move(id)), featureName(std::move(name)), iconName(std::move(icon)),
          isEnabled(enabled, std::move(onEnabled)) {}
};

/// A feature with content for the hover bar.
template <class CollapsedContent>
class CollapsedViewProvider {
public:
    virtual ~CollapsedViewProvider() = default;
    /// Whether there is something to show at this moment.
    virtual bool hasCollapsedContent() const = 0;
    virtual CollapsedContent collapsedView() = 0;
};

/// A feature with content for its panel.
template <class ExpandedContent>
class ExpandedViewProvider {
public:
    virtual ~ExpandedViewProvider() = default;
    virtual ExpandedContent expandedView() = 0;
};

/// A feature that takes dropped files.
class DropReceiver {
public:
    virtual ~DropReceiver() = default;
    virtual bool acceptsDrops() const = 0;
    /// File addresses in the order of the drop; true when at least one was taken.
    virtual bool receiveDrop(const std::vector<std::string>& urls) = 0;
};

/// A feature that watches the system's level displays.
class HUDInterceptor {
public:
    HUDInterceptor() = default;
    HUDInterceptor(const HUDInterceptor&) = delete;
    HUDInterceptor& operator=(const HUDInterceptor&) = delete;
    virtual ~HUDInterceptor() = default;
    virtual void startIntercepting() = 0;
    virtual void stopIntercepting() = 0;

protected:
    Published<bool> intercepts_{false};

public:
    const Published<bool>& isIntercepting{intercepts_};
};

/// A feature that comes from outside the program.
class NotchPlugin : public FeatureModule {
public:
    virtual const std::string& pluginID() const = 0;
    virtual const std::string& version() const = 0;
    virtual const std::string& author() const = 0;
    virtual const std::string& displayName() const = 0;
    virtual const std::string& summary() const = 0;

protected:
    using FeatureModule::FeatureModule;
};

} // namespace orvelle
