#include "Support/TemporaryFolder.h"
#include "Support/TemporaryVariable.h"
#include "faults/FaultyDisk.h"
#include "faults/Saves.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>

namespace orvelle {
namespace {

using Fault = FaultyDisk::Fault;

struct FaultCase {
    const char* name;
    Fault fault;
};
constexpr FaultCase faultCases[] = {{"no space", Fault::noSpace},
                                    {"I/O error", Fault::inputOutput},
                                    {"permission", Fault::denied},
                                    {"short write", Fault::shortWrite},
                                    {"power cut", Fault::powerCut}};
constexpr int firstRunChanges = 2;
constexpr int changes = 5;
constexpr int tooManyCalls = 5000;

/// Plays one kind of save twice over, start, changes and end, while the disk fails at one call.
class FaultRun {
public:
    FaultRun(const SavingKind& kind, Fault fault, int failingCall)
        : kind_(kind), fault_(fault), failingCall_(failingCall) {
        disk_.arm(folder_.path(), fault, failingCall);
    }
    ~FaultRun() { disk_.disarm(); }

    void play() {
        playOnce(0, firstRunChanges);
        if (!isCut())
            playOnce(firstRunChanges, changes);
        hasFailed_ = disk_.hasFailed();
        if (!isCut())
            disk_.disarm();
        if (isCut())
            checkEveryFate();
        else
            expectLoaded("after the end", {kept_});
    }
    bool hasFailed() const { return hasFailed_; }
    int losses() const { return losses_; }

private:
    bool isCut() const { return fault_ == Fault::powerCut && disk_.hasFailed(); }

    void playOnce(int from, int to) {
        DiskMachine machine;
        const auto saving = kind_.start(machine);
        for (int number = from; number < to && !isCut(); ++number) {
            saving->change(number, kept_);
            machine.settle();
            history_.push_back(kept_);
            if (isCut())
                return;
            if (machine.unsavedChanges().files->empty())
                acknowledge();
        }
        disk_.repair();
        machine.runLoopPort.advance(200);
        if (!isCut() && !machine.unsavedChanges().files->empty())
            lose("is not saved although the disk works again", {});
        if (!isCut() && saving->records() != kept_)
            lose("is not what the user sees", saving->records());
    }

    /// Nothing tells the user that it is not saved.
    void acknowledge() {
        acknowledged_ = history_.size() - 1;
        const FaultyDisk::Pause pause(disk_);
        expectLoaded("after it was acknowledged", {kept_});
    }

    void checkEveryFate() {
        const std::vector<Records> possible(
            history_.begin() + static_cast<std::ptrdiff_t>(acknowledged_), history_.end());
        for (const auto names : {FaultyDisk::Names::synced, FaultyDisk::Names::latest})
            for (const auto bytes : {FaultyDisk::Bytes::synced, FaultyDisk::Bytes::latest}) {
                disk_.powerUp(names, bytes);
                expectLoaded("after the power cut", possible);
                expectNothingLeft();
            }
    }

    void expectLoaded(const char* when, const std::vector<Records>& possible) {
        DiskMachine machine;
        const auto saving = kind_.start(machine);
        machine.settle();
        const auto records = saving->records();
        if (std::ranges::find(possible, records) == possible.end())
            lose(when, records);
    }

    /// Of temporary files, after a start, nor a file that could not be read.
    void expectNothingLeft() {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) {
            const auto name = entry.path().filename().string();
            const bool isRest = name.starts_with(".") && name.size() > 7 &&
                                name[name.size() - 7] == '.' && name != ".shelf_metadata.json";
            if (isRest || name.find(".corrupt") != name.npos || name == ".incoming")
                lose("leaves a rest after the power cut", {name});
        }
    }

    void lose(const char* what, const Records& found) {
        ++losses_;
        std::string texts;
        for (const auto& record : found)
            texts += " " + record;
        ADD_FAILURE() << kind_.name << ", call " << failingCall_ << ": " << what << ":" << texts;
    }

    TemporaryFolder folder_;
    const TemporaryVariable data_{"XDG_DATA_HOME", (folder_ / "share").c_str()};
    const TemporaryVariable config_{"XDG_CONFIG_HOME", (folder_ / "config").c_str()};
    FaultyDisk& disk_ = FaultyDisk::shared();
    const SavingKind& kind_;
    Fault fault_;
    int failingCall_;
    bool hasFailed_ = false;
    int losses_ = 0;
    Records kept_;
    std::vector<Records> history_{{}};
    std::size_t acknowledged_ = 0;
};

class FaultInjection : public testing::Test {
protected:
    FaultInjection() {
        for (const char* name : {"0", "1", "2", "4"})
            sources_.write(name, std::string(5000, *name));
    }
    /// Fails at each call in turn until a run needs no more calls.
    int tryEveryCall(const SavingKind& kind, const FaultCase& faultCase, int& losses) {
        for (int call = 1; call < tooManyCalls; ++call) {
            FaultRun run(kind, faultCase.fault, call);
            run.play();
            losses += run.losses();
            if (!run.hasFailed())
                return call - 1;
        }
        ADD_FAILURE() << kind.name << " never ends";
        return tooManyCalls;
    }

    TemporaryFolder sources_;
};

TEST_F(FaultInjection, NoFailingCallLosesWhatWasAcknowledged) {
    std::printf("%-20s %-12s %10s %7s\n", "save", "fault", "calls", "losses");
    for (const auto& kind : savingKinds(sources_.path()))
        for (const auto& faultCase : faultCases) {
            int losses = 0;
            const int calls = tryEveryCall(kind, faultCase, losses);
            std::printf("%-20s %-12s %10d %7d\n", kind.name.c_str(), faultCase.name, calls, losses);
            EXPECT_GT(calls, 3) << "the fault never met a call";
            EXPECT_EQ(losses, 0);
        }
}

} // namespace
} // namespace orvelle
