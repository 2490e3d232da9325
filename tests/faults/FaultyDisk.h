#pragma once

#include <sys/types.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace orvelle {

/// The real disk below one folder, which fails at a call that the test picks, or loses power there.
/// The program's own system calls come through here: the linker wraps them.
///
/// What survives a power cut is modelled on what fsync(2), rename(2) and the documentation of the
/// kernel's journalling file systems promise, and no more: a file has the bytes of its last fsync,
/// a folder the names of its own last fsync. What was not synced may have reached the disk all the
/// same, names without bytes too.
class FaultyDisk {
public:
    enum class Fault {
        none,
        noSpace, ///< from the call on, until `repair`: every write is cut short, then refused
        inputOutput,
        denied,
        shortWrite, ///< one write takes half
        powerCut    ///< from the call on nothing works
    };
    enum class Names { synced, latest };
    enum class Bytes { synced, latest };

    static FaultyDisk& shared();

    /// What is in the folder now is on the disk. Calls count from 1.
    void arm(std::string folder, Fault fault, int failingCall);
    /// Space returns.
    void repair() { isRepaired_ = true; }
    void disarm();

    /// Looks at the folder in between are not the program's calls.
    class Pause {
    public:
        explicit Pause(FaultyDisk& disk) : disk_(disk) { disk_.isArmed_ = false; }
        ~Pause() { disk_.isArmed_ = true; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        FaultyDisk& disk_;
    };

    bool hasFailed() const { return hasFailed_; }
    int callCount() const { return callCount_; }

    /// After a power cut: makes the folder what the next start finds. May be called again with
    /// another fate.
    void powerUp(Names names, Bytes bytes);

    // For the wrapped calls.
    enum class Kind { reads, looks, opens, makes, writes, syncs, renames, removes };
    /// The error that a call gives instead of working; 0 when it works.
    int errorOf(Kind kind, const std::string& path);
    int errorOf(Kind kind, int descriptor);
    /// How many bytes a write that works takes.
    std::size_t taken(int descriptor, std::size_t size);
    void synced(int descriptor);
    void made(const std::string& path);
    static std::string pathOf(int descriptor);

private:
    using Listing = std::map<std::string, ino_t>;
    struct Disk {
        std::map<ino_t, std::string> files;
        std::map<ino_t, Listing> folders;
    };

    bool isOurs(const std::string& path) const;
    int error(Kind kind);
    void record(const std::string& path, Disk& disk);
    void recordAll(const std::string& path, Disk& disk);
    void build(const std::string& path, ino_t folder, Names names, Bytes bytes) const;

    std::string folder_;
    Fault fault_ = Fault::none;
    int failingCall_ = 0;
    int callCount_ = 0;
    bool isArmed_ = false;
    bool hasFailed_ = false;
    bool isRepaired_ = false;
    bool isCut_ = false;
    bool cutsNextWrite_ = false;
    std::set<int> held_; ///< keep the numbers of removed files from being given again
    ino_t root_ = 0;
    Disk synced_;
    Disk latest_; ///< at the cut
};

} // namespace orvelle
