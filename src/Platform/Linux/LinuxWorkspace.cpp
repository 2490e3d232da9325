#include "Platform/Linux/LinuxWorkspace.h"

#include "Foundation/FileURL.h"
#include "Platform/Linux/DesktopEntry.h"
#include "Platform/Linux/ProgramStart.h"

#include <QDateTime>
#include <QStandardPaths>
#include <QUrl>

#include <cmath>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

namespace orvelle {

namespace {

/// One program of one desktop that serves another platform's address.
struct Counterpart {
    std::string_view url;
    const char* desktop; ///< as in XDG_CURRENT_DESKTOP
    const char* program;
    const char* argument; ///< null for none
    /// How an argument tells it a day, as QDateTime formats it; null when it takes none.
    const char* dayFormat = nullptr;
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
    // Its dates are written like this in every language.
    {calendar, "GNOME", "gnome-calendar", nullptr, "'--date='MM/dd/yyyy"},
    {calendar, "KDE", "korganizer", nullptr},
    {calendar, "KDE", "merkuro-calendar", nullptr},
    {calendar, "XFCE", "orage", nullptr},
    {calendar, "Pantheon", "io.elementary.calendar", nullptr},
    {calendar, "", "evolution", "calendar:"},
    {calendar, "", "thunderbird", "-calendar"},
};

const QString opener = QStringLiteral("xdg-open");

// Handlers of other schemes may run what an address tells them to.
const std::set<QString> ownSchemes{QStringLiteral("http"), QStringLiteral("https"),
                                   QStringLiteral("mailto")};
const std::set<QString> networkSchemes{QStringLiteral("https")};

/// The desktop entries of applications that another platform knows by another name.
const std::map<std::string_view, std::string_view> desktopEntries{
    {"com.spotify.client", "spotify"},
};

/// Milliseconds in which a program that was started is expected to show.
constexpr int startBound = 5000;

bool isForeign(const std::string& url) {
    return url.starts_with("x-apple.") || url.starts_with(calendar);
}

} // namespace

LinuxWorkspace::Environment LinuxWorkspace::Environment::ofProcess() {
    return {qEnvironmentVariable("XDG_CURRENT_DESKTOP"), qEnvironmentVariable("PATH")};
}

/// The identifier is the entry's name, or one that another platform knows it by.
LinuxWorkspace::Program LinuxWorkspace::programOf(const std::string& bundleIdentifier) {
    const auto foreign = desktopEntries.find(bundleIdentifier);
    const auto name =
        foreign == desktopEntries.end() ? bundleIdentifier : std::string(foreign->second);
    Program program{{name}, installedDesktopEntry(name)};
    for (const auto& [other, entry] : desktopEntries)
        if (entry == name)
            program.identifiers.emplace_back(other);
    return program;
}

LinuxWorkspace::LinuxWorkspace(RunLoop& runLoop, LogSink& log, Environment environment,
                               ShowInFolder show, RunningPrograms* running)
    : runLoop_(runLoop), log_(log, "LinuxWorkspace"),
      desktops_(environment.currentDesktop.split(u':', Qt::SkipEmptyParts)),
      folders_(environment.path.split(u':', Qt::SkipEmptyParts)), show_(std::move(show)),
      running_(running) {}

void LinuxWorkspace::open(const std::string& url) {
    openWith(url, std::nullopt);
}

void LinuxWorkspace::openCalendar(Date day) {
    openWith(std::string(calendar), day);
}

void LinuxWorkspace::openWith(const std::string& url, std::optional<Date> day) {
    if (!(isForeign(url) ? openForeign(url, day) : openAddress(url, ownSchemes)))
        report(url, "Nothing here opens " + url);
}

void LinuxWorkspace::openFromNetwork(const std::string& url) {
    if (!openAddress(url, networkSchemes))
        report(url, "Nothing here opens " + url);
}

void LinuxWorkspace::openDocument(const std::string& fileUrl) {
    const auto path = FileURL::path(fileUrl);
    if (!path)
        return report(fileUrl, "Nothing here opens " + fileUrl);
    const auto isEntry = std::make_shared<bool>(true);
    openings_.start([&](Tasks::Finished finished) {
        return runLoop_.detach([isEntry, path] { *isEntry = isDesktopEntry(*path); },
                               [this, isEntry, path, finished] {
                                   const auto url = FileURL::ofPath(*path);
                                   if (*isEntry)
                                       show_(url);
                                   else if (!start(opener, {QString::fromStdString(url)}))
                                       report(url, "Nothing here opens " + url);
                                   finished();
                               });
    });
}

void LinuxWorkspace::launch(const std::string& bundleIdentifier) {
    const auto program = programOf(bundleIdentifier);
    if (!running_)
        return launchUnlessRunning(program);
    RunningPrograms::Wanted wanted{program.identifiers, program.identifiers};
    if (auto name = desktopEntryTraits(program.entry.toStdString()).windowClass; !name.empty())
        wanted.windowNames.push_back(std::move(name));
    running_->bringToFront(wanted,
                           lifetime_.guard([this, program] { launchUnlessRunning(program); }));
}

void LinuxWorkspace::launchUnlessRunning(const Program& program) {
    const auto& name = program.identifiers.front();
    const bool isRunning = running_ && running_->isRunning(program.identifiers);
    if (program.entry.isEmpty() && !isRunning)
        return;
    if (isRunning && !desktopEntryTraits(program.entry.toStdString()).startsNoSecondCopy)
        return report(name, "Cannot bring " + name + " to the front");
    auto& since = started_[program.entry];
    if (since.isValid() && !since.hasExpired(startBound))
        return; // it is on its way
    since.start();
    if (!start(QStringLiteral("gio"), {QStringLiteral("launch"), program.entry})) {
        since.invalidate();
        report(name, "Nothing here launches " + program.entry.toStdString());
    }
}

void LinuxWorkspace::report(const std::string& subject, const std::string& what) {
    if (reported_.insert(subject).second)
        log_.error(what);
}

bool LinuxWorkspace::openForeign(const std::string& url, std::optional<Date> day) const {
    const auto startFirst = [&](auto&& wanted) {
        for (const auto& candidate : counterparts) {
            if (candidate.url != url || !wanted(QLatin1String(candidate.desktop)))
                continue;
            QStringList arguments;
            if (candidate.argument)
                arguments.append(QLatin1String(candidate.argument));
            if (day && candidate.dayFormat)
                arguments.append(QDateTime::fromSecsSinceEpoch(std::llround(day->sinceUnix()))
                                     .toString(QLatin1String(candidate.dayFormat)));
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

bool LinuxWorkspace::openAddress(const std::string& url, const std::set<QString>& schemes) const {
    const QUrl address(QString::fromStdString(url), QUrl::StrictMode);
    return address.isValid() && schemes.contains(address.scheme()) &&
           start(opener, {QString::fromUtf8(address.toEncoded())});
}

bool LinuxWorkspace::start(const QString& program, const QStringList& arguments) const {
    const auto path = QStandardPaths::findExecutable(program, folders_);
    return !path.isEmpty() && startProgram(path, arguments);
}

} // namespace orvelle
