#pragma once

#include "Foundation/Errand.h"
#include "Foundation/Published.h"
#include "Foundation/Subscription.h"
#include "Platform/Platform.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

class FileCopier;
class FileSystem;
class RunLoop;

/// Deletes what leaves the shelf, in the background and whatever else is under way there. The names
/// stand in a file of the folder until what bore them is gone: what an end of the program leaves
/// undone, a crash too, is done at the next start. Main thread only.
class ShelfRemovals {
public:
    static constexpr std::string_view noteName = ".removals.json";

    ShelfRemovals(Platform& platform, std::string folder);
    ShelfRemovals(const ShelfRemovals&) = delete;
    ShelfRemovals& operator=(const ShelfRemovals&) = delete;
    /// Deletes on the spot what no thread has begun to delete; waits a second for what one has.
    ~ShelfRemovals();

    /// The name of a single file or folder of the folder.
    void remove(std::string name);
    bool isPending(std::string_view name) const;
    /// Calls `done` when nothing is left to delete; an empty handle when nothing is.
    [[nodiscard]] Subscription whenDone(std::function<void()> done) const;

private:
    using Names = std::vector<std::string>;

    Names notedNames() const;
    void begin();
    void finished();
    void noteWhatIsLeft();

    RunLoop& runLoop_;
    FileSystem& files_;
    FileCopier& copier_;
    const std::string folder_;
    Names due_;
    Names beingRemoved_;
    Published<bool> isWorking_;
    std::shared_ptr<Errand<void>> underWay_;
    const std::shared_ptr<std::atomic<bool>> isAbandoned_; ///< the note is the next start's
    Subscription completion_;
};

} // namespace orvelle
