#pragma once

#include "Foundation/Errand.h"
#include "Foundation/Json.h"
#include "Platform/FileSystem.h"
#include "Platform/Platform.h"
#include "Platform/RetryPause.h"
#include "Platform/RunLoop.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvelle {

/// The saving of one list: what `ListFile` does without knowing the records.
///
/// Each save reads the file again and lays its changes over what another program has written since.
/// A save that fails stays due: it is tried again with the next change, after pauses that grow, and
/// at the end; `UnsavedChanges` tells of it until it succeeds.
class ListSaving {
public:
    /// Larger files are neither read nor written.
    static constexpr std::size_t maximumSize = 64 << 20;

    ListSaving(const ListSaving&) = delete;
    ListSaving& operator=(const ListSaving&) = delete;
    /// Saves on the spot what is not saved yet; waits for a save under way for a second at most.
    ~ListSaving();

    const std::string& path() const { return path_; }

protected:
    /// The records as the program writes them; none when one of them is no such record.
    using Reading = std::function<std::optional<Json::Array>(std::string_view bytes)>;
    using Encoding = std::function<Json::Array()>;
    struct Events {
        /// Another program has changed the list; its records, merged with the own ones.
        std::function<void(const Json::Array&)> merged;
        /// For the log.
        std::function<void(const std::string& reason)> savingFailed;
    };

    /// `name` is relative to the "Orvelle" folder.
    ListSaving(Platform& platform, std::string_view name, std::string identifier, Reading reading,
               Events events);

    struct Loading {
        Json::Array records;
        std::string problem;
    };
    Loading load();
    void save(Encoding encoding);

private:
    struct Job;
    /// A file that this program has written or read, and the own list that it comes from. The two
    /// differ where changes of others came in that the own list has not taken over.
    struct Version {
        std::string file;
        std::string own;
    };
    struct Outcome {
        std::optional<WriteFailure> failure; ///< none when the list is on the disk
        std::string reason;                  ///< of a failure
        Version version;
        std::optional<Json::Array> merged; ///< with the changes of others, if there were any
    };

    Job nextJob();
    void begin();
    void adoptOutcome();
    bool conclude(Outcome& outcome);

    FileSystem& fileSystem_;
    RunLoop& runLoop_;
    UnsavedChanges& unsaved_;
    std::string path_;
    std::string identifier_;
    Reading reading_;
    Events events_;
    std::shared_ptr<const Version> saved_ = std::make_shared<const Version>();
    /// The latest that the disk may have taken in spite of its complaint.
    std::shared_ptr<const Version> refused_ = saved_;
    Encoding latest_; ///< the list that was last to be saved
    bool isDue_ = false;
    std::string reported_; ///< the failure that the log has
    RetryPause pause_;
    Timer retry_;
    std::shared_ptr<Errand<Outcome>> underWay_;
    Subscription completion_;
};

} // namespace orvelle
