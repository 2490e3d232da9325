#pragma once

#include "Foundation/Published.h"
#include "Platform/Application.h"

#include <filesystem>

namespace orvelle {

/// The process on a free desktop. Needs a QApplication for its alerts, and a QCoreApplication for
/// the rest.
class QtApplication : public Application {
public:
    /// The system's description is read once, here; a missing one gives version 0.0.0.
    explicit QtApplication(const std::filesystem::path& osRelease = "/etc/os-release");

    /// What was set last, for whoever shows it to the desktop.
    Published<ActivationPolicy> activationPolicy{ActivationPolicy::regular};

    OperatingSystemVersion operatingSystemVersion() const override { return version_; }
    std::string operatingSystemVersionString() const override { return versionString_; }
    std::string architecture() const override;
    void setActivationPolicy(ActivationPolicy policy) override { activationPolicy = policy; }
    std::size_t runModal(const Alert& alert) override;
    void terminate() override;

private:
    OperatingSystemVersion version_;
    std::string versionString_;
};

} // namespace orvelle
