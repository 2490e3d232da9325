#pragma once

#include "Foundation/Published.h"
#include "Platform/Appearance.h"
#include "Platform/Application.h"
#include "Platform/FileSystem.h"
#include "Platform/FileWatch.h"
#include "Platform/HostStatistics.h"
#include "Platform/Log.h"
#include "Platform/PowerSources.h"
#include "Platform/ProcessLauncher.h"
#include "Platform/SMCService.h"
#include "Platform/UserNotifications.h"
#include "Platform/Workspace.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace orvelle {

class SimulatedAppearance : public Appearance {
public:
    Color accent = colors::blue;
    void notifyChanged() { changed_(); }

    Color controlAccentColor() const override { return accent; }
    Subscription observeSystemColorsChanges(std::function<void()> changed) override {
        return changed_.observe(std::move(changed));
    }

private:
    Event<> changed_;
};

class SimulatedApplication : public Application {
public:
    std::vector<ActivationPolicy> policies;
    std::function<void(ActivationPolicy)> policyChanged;
    std::vector<Alert> alerts;
    /// Answers an alert; without one the last button is pressed.
    std::function<std::size_t(const Alert&)> answer;
    int terminateCount = 0;

    OperatingSystemVersion operatingSystemVersion() const override { return {12, 5, 0}; }
    std::string operatingSystemVersionString() const override { return "Simulated 12.5"; }
    std::string architecture() const override { return "x86_64"; }
    void setActivationPolicy(ActivationPolicy policy) override {
        policies.push_back(policy);
        if (policyChanged)
            policyChanged(policy);
    }
    std::size_t runModal(const Alert& alert) override {
        alerts.push_back(alert);
        return answer ? answer(alert) : alert.buttons.size() - 1;
    }
    void terminate() override { ++terminateCount; }
};

class SimulatedFileSystem : public FileSystem {
public:
    std::map<std::string, std::string> files;
    bool writable = true;
    /// What a refused change gives as its reason.
    WriteFailure refusal = WriteFailure::full;
    /// Another process holds every lock.
    bool lockedElsewhere = false;
    int writeCount = 0; ///< refused writes included
    std::vector<std::string> clearedRests;

    std::string applicationSupportDirectory() const override { return "/simulated/share"; }
    std::string configurationDirectory() const override { return "/simulated/config"; }
    Contents read(const std::string& path, std::size_t limit) const override {
        const auto found = files.find(path);
        if (found == files.end())
            return {{}, ReadFailure::missing};
        if (found->second.size() > limit)
            return {{}, ReadFailure::tooLarge};
        return {found->second, {}};
    }
    std::vector<std::string> names(const std::string& folder) const override {
        std::vector<std::string> found;
        for (const auto& [path, bytes] : files)
            if (path.starts_with(folder + "/") && path.find('/', folder.size() + 1) == path.npos)
                found.push_back(path.substr(folder.size() + 1));
        return found;
    }
    WriteOutcome write(const std::string& path, std::string_view bytes) override {
        ++writeCount;
        if (!writable)
            return refusal;
        files.insert_or_assign(path, std::string(bytes));
        return {};
    }
    WriteOutcome move(const std::string& from, const std::string& to) override {
        if (!writable)
            return refusal;
        if (!files.contains(from))
            return WriteFailure::broken;
        auto node = files.extract(from);
        files.insert_or_assign(to, std::move(node.mapped()));
        return {};
    }
    WriteOutcome remove(const std::string& path) override {
        if (!writable)
            return refusal;
        files.erase(path);
        return {};
    }
    void clearRests(const std::string& path) override { clearedRests.push_back(path); }
    Subscription lock(const std::string&, Seconds) override {
        return lockedElsewhere ? Subscription() : Subscription([] {});
    }
};

class SimulatedFileWatch : public FileWatch {
public:
    void notifyChanged() { changed_(); }

    Subscription watch(const std::string&, std::function<void()> changed) override {
        return changed_.observe(std::move(changed));
    }

private:
    Event<> changed_;
};

class SimulatedPowerSources : public PowerSources {
public:
    using Snapshot = std::optional<std::vector<std::optional<PowerSourceDescription>>>;
    Snapshot sources;
    int snapshotCount = 0;
    /// Called before each reading, so that a demonstration can let the charge fall.
    std::function<void(SimulatedPowerSources&)> onSnapshot;

    Snapshot snapshot() override {
        ++snapshotCount;
        if (onSnapshot)
            onSnapshot(*this);
        return sources;
    }
};

class SimulatedHostStatistics : public HostStatistics {
public:
    std::optional<std::vector<ProcessorTicks>> ticks;
    std::optional<VirtualMemoryStatistics> memory;
    std::uint64_t physical = 16ULL << 30;
    std::optional<std::vector<InterfaceEntry>> network;
    int readCount = 0;
    std::function<void(SimulatedHostStatistics&)> onReadTicks;

    std::optional<std::vector<ProcessorTicks>> processorTicks() override {
        ++readCount;
        if (onReadTicks)
            onReadTicks(*this);
        return ticks;
    }
    std::optional<VirtualMemoryStatistics> virtualMemory() override { return memory; }
    std::uint64_t pageSize() const override { return 4096; }
    std::uint64_t physicalMemory() const override { return physical; }
    std::optional<std::vector<InterfaceEntry>> interfaces() override { return network; }
};

/// A controller that answers scripted keys.
class SimulatedSMCService : public SMCService {
public:
    struct Value {
        std::string type; ///< four characters
        std::vector<std::uint8_t> bytes;
    };
    std::map<std::string, Value> values;
    bool present = true;
    int openCount = 0;
    int openConnections = 0;
    std::vector<SMCRecord> calls;

    std::unique_ptr<SMCConnection> open() override;
};

class SimulatedLog : public LogSink {
public:
    struct Line {
        std::string subsystem, category;
        LogLevel level;
        std::string message;
    };
    std::vector<Line> lines;

    void write(std::string_view subsystem, std::string_view category, LogLevel level,
               std::string_view message) override {
        lines.push_back(
            {std::string(subsystem), std::string(category), level, std::string(message)});
    }
    bool contains(std::string_view message) const {
        for (const auto& line : lines)
            if (line.message == message)
                return true;
        return false;
    }
};

class SimulatedProcessLauncher : public ProcessLauncher {
public:
    std::vector<std::pair<std::string, std::vector<std::string>>> launched;
    void launch(const std::string& path, const std::vector<std::string>& arguments) override {
        launched.emplace_back(path, arguments);
    }
};

class SimulatedWorkspace : public Workspace {
public:
    std::vector<std::string> opened;
    std::vector<std::string> openedFromNetwork;
    std::vector<std::string> documents;
    std::set<std::string> applications; ///< the installed ones, by bundle identifier
    std::vector<std::string> launched;
    std::vector<Date> daysShown; ///< of the calendar
    void open(const std::string& url) override { opened.push_back(url); }
    void openCalendar(Date day) override {
        opened.push_back("ical://");
        daysShown.push_back(day);
    }
    void openFromNetwork(const std::string& url) override {
        if (url.starts_with("https:"))
            openedFromNetwork.push_back(url);
    }
    void openDocument(const std::string& fileUrl) override { documents.push_back(fileUrl); }
    void launch(const std::string& bundleIdentifier) override {
        if (applications.contains(bundleIdentifier))
            launched.push_back(bundleIdentifier);
    }
};

class SimulatedUserNotifications : public UserNotifications {
public:
    int authorizationRequests = 0;
    std::vector<NotificationRequest> requests;
    void requestAuthorization() override { ++authorizationRequests; }
    void add(const NotificationRequest& request) override { requests.push_back(request); }
};

} // namespace orvelle
