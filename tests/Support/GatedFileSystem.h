#pragma once

#include "Platform/Simulated/SimulatedMachine.h"
#include "Support/Gate.h"

namespace orvelle {

/// A disk that takes as long as the test wants. The test may look at the files while a thread is
/// held up at a gate or none works on them.
class GatedFileSystem : public SimulatedFileSystem {
public:
    mutable Gate reading;
    Gate writing;
    Gate locking;

    Contents read(const std::string& path, std::size_t limit) const override {
        reading.pass();
        return SimulatedFileSystem::read(path, limit);
    }
    WriteOutcome write(const std::string& path, std::string_view bytes) override {
        writing.pass();
        return SimulatedFileSystem::write(path, bytes);
    }
    Subscription lock(const std::string& folder, Seconds patience) override {
        locking.pass();
        return SimulatedFileSystem::lock(folder, patience);
    }
};

} // namespace orvelle
