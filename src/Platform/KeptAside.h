#pragma once

#include "Platform/FileSystem.h"

#include <cstddef>
#include <string>

namespace orvelle {

/// How many copies of a damaged file stay; older ones go.
inline constexpr std::size_t keptCopies = 5;

struct KeptAside {
    WriteOutcome outcome;
    std::string name; ///< of the copy, without its folder
};

/// Moves a file that is of no use out of the way, to "NAME.corrupt.N" beside it. The numbers count
/// up.
KeptAside keepAside(FileSystem& files, const std::string& path);

} // namespace orvelle
