#pragma once

#include "Platform/FileCopier.h"

namespace orvelle {

/// Copies by POSIX calls. Holes of sparse files stay holes, and file systems that can share blocks
/// share them. The copies belong to the user alone: 0600, with 0700 for folders and programs.
class PosixFileCopier : public FileCopier {
public:
    bool makeFolder(const std::string& path) override;
    std::optional<Info> info(const std::string& path) const override;
    std::optional<std::string> canonicalPath(const std::string& path) const override;
    Outcome copy(const std::string& source, const std::string& folder, const std::string& name,
                 const std::atomic<bool>& cancelled) override;
    bool remove(const std::string& path) override;
};

} // namespace orvelle
