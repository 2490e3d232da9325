#pragma once

#include "Core/StoredList.h"
#include "Foundation/Errand.h"
#include "Platform/FileSystem.h"
#include "Platform/Platform.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class RunLoop;

/// The file of one list in the "Orvelle" folder: a JSON array, replaced as a whole and durably by
/// each save.
///
/// Loading reads on the spot. Saving happens in the background, one save at a time and in order; a
/// list that another has overtaken before its turn is not written. Main thread only.
class ListFile {
public:
    /// Larger files are neither read nor written.
    static constexpr std::size_t maximumSize = 64 << 20;

    template <class Record>
    struct Loading {
        std::vector<Record> records;
        std::string problem; ///< why the file is of no use; empty otherwise, without a file too
    };

    /// `name` is relative to the "Orvelle" folder. `savingFailed` gets the reason, for the log; the
    /// list in memory is then ahead of the file until a later save.
    ListFile(Platform& platform, std::string_view name,
             std::function<void(const std::string& reason)> savingFailed);
    ListFile(const ListFile&) = delete;
    ListFile& operator=(const ListFile&) = delete;
    /// Saves on the spot what is not saved yet; waits for a save under way for a second at most.
    ~ListFile();

    const std::string& path() const { return path_; }

    /// `decode` gives none for an element that is no such record, and then the whole file is of no
    /// use. It stays until the next save, which keeps it aside under the suffix ".corrupt".
    template <class Record, class Decode>
    Loading<Record> load(Decode decode) {
        const auto contents = fileSystem_.read(path_, maximumSize);
        if (contents.failure) {
            problem_ = describe(*contents.failure);
        } else if (auto records = decodeList<Record>(contents.bytes, decode)) {
            return {*std::move(records), {}};
        } else {
            problem_ = "it is no JSON array of such items";
        }
        return {{}, problem_};
    }

    /// `encode` runs in the background.
    template <class Record, class Encode>
    void save(std::vector<Record> records, Encode encode) {
        save([records = std::move(records), encode] { return encodeList(records, encode); });
    }

private:
    using Encoding = std::function<std::string()>;
    struct Outcome {
        std::string failure;    ///< empty when the list is on the disk
        bool isWayFree = false; ///< no file without use stands there any more
    };

    static std::string describe(FileSystem::ReadFailure failure);
    void save(Encoding encoding);
    void begin();
    /// In the background.
    static Outcome write(FileSystem& files, const std::string& path, const Encoding& encoding,
                         bool mustMakeWay);
    void adoptOutcome();

    FileSystem& fileSystem_;
    RunLoop& runLoop_;
    std::string path_;
    std::function<void(const std::string&)> savingFailed_;
    std::string problem_; ///< of the file that stands there; empty when it may be replaced
    Encoding due_;        ///< the list to save next, if any
    std::shared_ptr<Errand<Outcome>> underWay_;
    Subscription completion_;
};

} // namespace orvelle
