#include "App/CommandLine.h"
#include "App/Constants.h"
#include "App/DefaultsCommand.h"
#include "App/DemoPlatform.h"
#include "App/OrvelleApp.h"
#include "App/Tour.h"
#include "Platform/Linux/DataFolderLock.h"
#include "Platform/Linux/LinuxPlatform.h"
#include "Platform/Linux/ProcessInstance.h"
#include "Platform/Linux/SessionBusAddress.h"
#include "Platform/Linux/StandardStreams.h"
#include "Views/Qt/SymbolImages.h"

#include <QApplication>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using namespace orvelle;

namespace {

bool hasDisplay() {
    auto* connection = xcb_connect(nullptr, nullptr);
    const bool connected = !xcb_connection_has_error(connection);
    xcb_disconnect(connection);
    return connected;
}

/// What the toolkit is told as if on the command line: variables of the environment would reach
/// every program that the panel opens.
std::vector<std::string> toolkitArguments(const std::string& program) {
    // The panel needs what only X11 offers; a Wayland session serves it through XWayland.
    std::vector<std::string> words{program, "-platform", "xcb"};
    // Desktop themes cost memory and start-up time, and the panel has a look of its own. This one
    // is the smallest that can put an item into a desktop's tray.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
        words.insert(words.end(), {"-platformtheme", "generic"});
    return words;
}

void prepareToolkit() {
    QCoreApplication::setApplicationName(QStringLiteral("orvelle"));
    // No display name: the toolkit would put it behind every window's title.
    QGuiApplication::setDesktopFileName(QStringLiteral("orvelle"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

template <class Machine>
std::unique_ptr<Platform> makePlatform() {
    auto platform = std::make_unique<Machine>();
    platform->desktop().statusBar.setSymbolIcon([](const std::string& symbol, double pointSize) {
        return SymbolImages::trayIcon(QString::fromStdString(symbol), pointSize);
    });
    return platform;
}

/// Toolkit and desktop libraries wait for the session's bus for ever.
void avoidFrozenBus(LogSink& log) {
    constexpr auto patience = std::chrono::seconds(1);
    if (answersOnBus(sessionBusAddress(), patience))
        return;
    Logger(log, "Main").error("The session bus does not answer: running without it");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

int runDefaults(const CommandLine& line) {
    StandardLog log;
    PosixFileSystem fileSystem;
    DefaultsFile file(fileSystem, log);
    return runDefaultsCommand(line.defaultsArguments, file, std::cout, std::cerr);
}

/// How the program ends at once because its data is another process's; none when it is its own.
std::optional<int> claimData(DataFolderLock& data, const ProcessInstance& instance) {
    using Claim = DataFolderLock::Claim;
    const auto claim =
        data.claim(DataFolderLock::Holder::self(instance.socketPath()), ProcessInstance::askToShow);
    if (claim == Claim::handedOver)
        return EXIT_SUCCESS;
    if (claim == Claim::refused) {
        const auto& holder = data.holder();
        std::cerr << "orvelle: process " << holder.process << " on " << holder.host << " (display "
                  << holder.display << ") works on the lists in " << data.folder()
                  << " and cannot be reached from here; end it first\n";
        return EXIT_FAILURE;
    }
    if (claim == Claim::unavailable)
        std::cerr << "orvelle: " << data.folder() << " cannot be locked (" << data.reason()
                  << "); its lists are read again before each save\n";
    return std::nullopt;
}

int run(const CommandLine& line, const std::string& program) {
    secureStandardStreams();
    ProcessInstance instance(line.isDemo ? "orvelle-demo" : "orvelle");
    if (!line.tourDirectory && instance.claim() == ProcessInstance::Claim::handedOver)
        return EXIT_SUCCESS;
    DataFolderLock data(PosixFileSystem().applicationSupportDirectory() + "/Orvelle");
    if (!line.isDemo)
        if (const auto end = claimData(data, instance))
            return *end;
    if (!hasDisplay()) {
        const char* display = std::getenv("DISPLAY");
        std::cerr << "orvelle: cannot connect to the X server "
                  << (display && *display ? display : "(DISPLAY is not set)") << '\n';
        return EXIT_FAILURE;
    }
    StandardLog log;
    avoidFrozenBus(log);
    prepareToolkit();
    auto words = toolkitArguments(program);
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    auto argumentCount = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    QApplication application(argumentCount, arguments.data());

    const auto platform =
        line.isDemo ? makePlatform<DemoPlatform>() : makePlatform<LinuxPlatform>();
    Platform::setShared(platform.get());

    OrvelleApp app(*platform);
    app.listen(instance);
    app.launch();
    std::optional<Tour> tour;
    if (line.tourDirectory)
        tour.emplace(app.delegate(), *line.tourDirectory);
    return QApplication::exec();
}

} // namespace

int main(int argumentCount, char** arguments) {
    const auto line = CommandLine::parse({arguments + 1, arguments + argumentCount});
    switch (line.action) {
    case CommandLine::Action::help:
        std::cout << CommandLine::usage();
        return EXIT_SUCCESS;
    case CommandLine::Action::version:
        std::cout << "orvelle " << AppConstants::version << '\n';
        return EXIT_SUCCESS;
    case CommandLine::Action::misuse:
        std::cerr << "orvelle: " << line.complaint << '\n' << CommandLine::usage();
        return 2;
    case CommandLine::Action::defaults:
        return runDefaults(line);
    case CommandLine::Action::run:
        break;
    }
    return run(line, arguments[0]);
}
