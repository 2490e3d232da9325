#include "Platform/Linux/LinuxWorkspace.h"

#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <map>
#include <string_view>

namespace orvelle {

namespace {

/// One program of one desktop that serves another platform's address.
struct Counterpart {
    std::string_view url;
    const char* desktop; ///< as in XDG_CURRENT_DESKTOP
    const char* program;
    const char* argument; ///< null for none
};

constexpr std::string_view powerPage = "x-apple.systempreferences:com.apple.settings.battery";
constexpr std::string_view cameraPage =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Camera";
constexpr std::string_view locationPage =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_LocationServices";
constexpr std::string_view calendar = "ical://";

constexpr Counterpart counterparts[] = {
    {powerPage, "GNOME", "gnome-control-center", "power"},
    {powerPage, "KDE", "systemsettings", "kcm_powerdevilprofilesconfig"},
    {powerPage, "KDE", "systemsettings5", "kcm_powerdevilprofilesconfig"},
    {powerPage, "XFCE", "xfce4-power-manager-settings", nullptr},
    {powerPage, "MATE", "mate-power-preferences", nullptr},
    {powerPage, "X-Cinnamon", "cinnamon-settings", "power"},
    {powerPage, "LXQt", "lxqt-config-powermanagement", nullptr},
    {powerPage, "Budgie", "budgie-control-center", "power"},
    {cameraPage, "GNOME", "gnome-control-center", "camera"},
    {cameraPage, "Budgie", "budgie-control-center", "camera"},
    {locationPage, "GNOME", "gnome-control-center", "location"},
    {locationPage, "Budgie", "budgie-control-center", "location"},
    {calendar, "GNOME", "gnome-calendar", nullptr},
    {calendar, "KDE", "korganizer", nullptr},
    {calendar, "KDE", "merkuro-calendar", nullptr},
    {calendar, "XFCE", "orage", nullptr},
    {calendar, "Pantheon", "io.elementary.calendar", nullptr},
    {calendar, "", "evolution", "calendar:"},
    {calendar, "", "thunderbird", "-calendar"},
};

constexpr const char* desktopEntrySuffix = ".desktop";

/// The desktop entries of applications that another platform knows by another name.
const std::map<std::string_view, std::string_view> desktopEntries{
    {"com.spotify.client", "spotify"},
};

bool isForeign(const std::string& url) {
    return url.starts_with("x-apple.") || url.starts_with(calendar);
}

} // namespace

LinuxWorkspace::Environment LinuxWorkspace::Environment::ofProcess() {
    return {qEnvironmentVariable("XDG_CURRENT_DESKTOP"), qEnvironmentVariable("PATH")};
}

LinuxWorkspace::LinuxWorkspace(LogSink& log, Environment environment)
    : log_(log, "LinuxWorkspace"),
      desktops_(environment.currentDesktop.split(u':', Qt::SkipEmptyParts)),
      folders_(environment.path.split(u':', Qt::SkipEmptyParts)) {}

void LinuxWorkspace::open(const std::string& url) {
    const bool opened = isForeign(url) ? openForeign(url) : openWithDesktop(url);
    if (!opened && reported_.insert(url).second)
        log_.error("Nothing here opens " + url);
}

std::optional<std::string> LinuxWorkspace::applicationUrl(const std::string& bundleIdentifier) {
    const auto foreign = desktopEntries.find(bundleIdentifier);
    const auto entry = QString::fromStdString(
        foreign == desktopEntries.end() ? bundleIdentifier : std::string(foreign->second));
    // The identifier comes from a player, and may name no file elsewhere.
    if (entry.isEmpty() || entry.contains(u'/'))
        return std::nullopt;
    const auto path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation,
                                             entry + QLatin1String(desktopEntrySuffix));
    if (path.isEmpty())
        return std::nullopt;
    return QUrl::fromLocalFile(path).toEncoded().toStdString();
}

bool LinuxWorkspace::openForeign(const std::string& url) const {
    const auto startFirst = [&](auto&& wanted) {
        for (const auto& candidate : counterparts) {
            if (candidate.url != url || !wanted(QLatin1String(candidate.desktop)))
                continue;
            const auto arguments =
                candidate.argument ? QStringList{QLatin1String(candidate.argument)} : QStringList{};
            if (start(QLatin1String(candidate.program), arguments))
                return true;
        }
        return false;
    };
    for (const auto& desktop : desktops_)
        if (startFirst([&](QLatin1String name) { return name == desktop; }))
            return true;
    return startFirst([](QLatin1String) { return true; });
}

bool LinuxWorkspace::openWithDesktop(const std::string& url) const {
    const QUrl address(QString::fromStdString(url), QUrl::StrictMode);
    // An opener would take a text without a scheme for an option or for a file of its own choice.
    if (!address.isValid() || address.isRelative())
        return false;
    if (address.isLocalFile() && address.path().endsWith(QLatin1String(desktopEntrySuffix)))
        return start(QStringLiteral("gio"), {QStringLiteral("launch"), address.toLocalFile()});
    return start(QStringLiteral("xdg-open"), {QString::fromUtf8(address.toEncoded())});
}

bool LinuxWorkspace::start(const QString& program, const QStringList& arguments) const {
    const auto path = QStandardPaths::findExecutable(program, folders_);
    return !path.isEmpty() && QProcess::startDetached(path, arguments);
}

} // namespace orvelle
