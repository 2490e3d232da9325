#pragma once

#include "Platform/FileUserDefaults.h"
#include "Platform/Linux/PosixFileCopier.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace orvelle {

/// A machine with virtual time and the real disk, below XDG_DATA_HOME and XDG_CONFIG_HOME.
class DiskMachine : public SimulatedPlatform {
public:
    FileSystem& fileSystem() override { return files_; }
    FileCopier& fileCopier() override { return copier_; }
    UserDefaults& userDefaults() override { return defaults_; }

    /// By then everything is saved, or the user is told that it is not.
    void settle() { runLoopPort.advance(1.5); }

private:
    PosixFileSystem files_;
    PosixFileCopier copier_;
    SimulatedFileWatch watch_;
    FileUserDefaults defaults_{files_, runLoopPort, watch_, logPort, unsavedChanges()};
};

/// What the user sees of one kind of saved thing, each record as a text.
using Records = std::set<std::string>;

/// One run of the part of the program that saves one kind of thing.
class Saving {
public:
    virtual ~Saving() = default;
    /// Makes the change of this number and, when the user sees it, notes what is to be kept.
    virtual void change(int number, Records& kept) = 0;
    virtual Records records() = 0;
};

struct SavingKind {
    std::string name;
    std::function<std::unique_ptr<Saving>(DiskMachine&)> start;
};

/// `sources` is a folder with the files "0" to "3" for the shelf.
std::vector<SavingKind> savingKinds(const std::string& sources);

} // namespace orvelle
