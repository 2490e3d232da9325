#include "Core/BugReport.h"

#include "App/Constants.h"
#include "Foundation/PercentEncoding.h"

namespace orvelle {

namespace {

// The maker has no domain yet; ".example" never reaches anybody.
constexpr std::string_view supportAddress = "support@orvelle.example";

constexpr std::string_view questions =
    "\n\n--- What happened ---\n[Describe the issue here]\n\n--- Steps to reproduce "
    "---\n1.\n2.\n3.\n\n--- Expected behavior ---\n[What you expected to happen]";

} // namespace

std::string BugReport::body() const {
    return "--- System Info ---\nApp Version: " + std::string(AppConstants::version) +
           "\nmacOS: " + operatingSystemVersion + "\nArchitecture: " + architecture +
           std::string(questions);
}

std::string BugReport::mailAddress() const {
    const auto subject = "Orvelle Bug Report — v" + std::string(AppConstants::version);
    return "mailto:" + std::string(supportAddress) + "?subject=" + percentEncoded(subject) +
           "&body=" + percentEncoded(body());
}

} // namespace orvelle
