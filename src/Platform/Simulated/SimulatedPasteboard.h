#pragma once

#include "Platform/FrontmostApplication.h"
#include "Platform/Pasteboard.h"

#include <functional>
#include <memory>
#include <utility>

namespace orvelle {

/// A clipboard that answers at once, unless its owner is silent. What is copied takes the place of
/// all that was there, and files have no text, as with X11Pasteboard.
class SimulatedPasteboard : public Pasteboard {
public:
    std::optional<std::string> text;
    std::vector<std::string> files;
    std::optional<std::string> selection;
    std::int64_t count = 0;
    int readCount = 0;
    bool isOwnerSilent = false;
    /// Called at each look, so that a demonstration can copy something.
    std::function<void(SimulatedPasteboard&)> onLook;

    /// Another program copies something; without a text a picture, say.
    void copy(std::optional<std::string> copied) {
        text = std::move(copied);
        files.clear();
        ++count;
    }
    /// A file manager copies files, and their paths as a text.
    void copyFiles(std::vector<std::string> urls, std::optional<std::string> paths) {
        copy(std::move(paths));
        files = std::move(urls);
    }
    /// Whoever waits for a silent owner gets its answer.
    void answer() {
        if (const auto waiting = std::exchange(waiting_, nullptr); waiting && *waiting)
            (*waiting)(readable());
    }

    std::int64_t changeCount() override {
        if (onLook)
            onLook(*this);
        return count;
    }
    Subscription readString(Reading done) override {
        ++readCount;
        if (!isOwnerSilent) {
            done(readable());
            return {};
        }
        waiting_ = std::make_shared<Reading>(std::move(done));
        return Subscription([waiting = waiting_] { *waiting = nullptr; });
    }
    Subscription readSelection(Reading done) override {
        done(selection);
        return {};
    }
    Subscription readFiles(FileReading done) override {
        done(files);
        return {};
    }
    void setString(const std::string& copied) override { copy(copied); }
    void writeFiles(const std::vector<std::string>& urls) override { copyFiles(urls, {}); }

private:
    std::optional<std::string> readable() const { return files.empty() ? text : std::nullopt; }

    std::shared_ptr<Reading> waiting_;
};

class SimulatedFrontmostApplication : public FrontmostApplication {
public:
    std::optional<ApplicationIdentity> application;
    std::optional<ApplicationIdentity> current() override { return application; }
};

} // namespace orvelle
