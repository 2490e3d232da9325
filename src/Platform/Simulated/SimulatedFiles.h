#pragma once

#include "Platform/Console.h"
#include "Platform/FileCopier.h"
#include "Platform/FileIcons.h"
#include "Platform/FileViewer.h"
#include "Platform/SharePicker.h"
#include "Platform/Simulated/SimulatedMachine.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class SimulatedConsole : public Console {
public:
    std::vector<std::string> lines;
    void print(std::string_view line) override { lines.emplace_back(line); }
};

/// Copies among the files of a simulated file system, where folders are only parts of paths, all of
/// which are there. `canonicalPath` was compared with realpath(3).
class SimulatedFileCopier : public FileCopier {
public:
    explicit SimulatedFileCopier(SimulatedFileSystem& fileSystem) : files_(fileSystem.files) {}

    /// Why every copy fails, when it does.
    std::optional<std::string> failure;
    std::vector<std::string> madeFolders;
    std::map<std::string, std::string> links; ///< other spellings of folders

    bool makeFolder(const std::string& path) override {
        madeFolders.push_back(path);
        return true;
    }
    std::optional<Info> info(const std::string& path) const override {
        const auto found = files_.find(path);
        if (found == files_.end())
            return std::nullopt;
        return Info{static_cast<std::int64_t>(found->second.size()), false};
    }
    std::optional<std::string> canonicalPath(const std::string& path) const override;
    Outcome copy(const std::string& source, const std::string& folder, const std::string& name,
                 const std::atomic<bool>&) override {
        const auto found = files_.find(source);
        if (failure || found == files_.end())
            return {failure.value_or("No such file"), {}};
        const auto& bytes = files_[folder + "/" + name] = std::string(found->second);
        return {{}, {static_cast<std::int64_t>(bytes.size()), false}};
    }
    bool remove(const std::string& path) override {
        files_.erase(path);
        return true;
    }

private:
    std::map<std::string, std::string>& files_;
};

/// Knows a few kinds by their extensions, and draws each as a sheet of its own colour.
class SimulatedFileIcons : public FileIcons {
public:
    std::optional<std::string> type(const std::string& name) const override;
    std::string icon(const std::string& name, bool isFolder) const override;
    Image picture(const std::string& icon, int side) const override;
};

class SimulatedFileViewer : public FileViewer {
public:
    std::vector<std::vector<std::string>> selections;
    void select(const std::vector<std::string>& urls) override { selections.push_back(urls); }
};

class SimulatedSharePicker : public SharePicker {
public:
    struct Request {
        std::vector<std::string> urls;
        Rect anchor;
        Edge preferredEdge;
        bool operator==(const Request&) const = default;
    };
    std::optional<Rect> keyWindow;
    std::vector<Request> requests;

    std::optional<Rect> keyWindowContent() const override { return keyWindow; }
    void show(const std::vector<std::string>& urls, const Rect& anchor,
              Edge preferredEdge) override {
        requests.push_back({urls, anchor, preferredEdge});
    }
};

} // namespace orvelle
