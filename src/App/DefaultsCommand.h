#pragma once

#include "Platform/DefaultsFile.h"

#include <ostream>
#include <span>
#include <string>

namespace orvelle {

/// The command `orvelle defaults`, which reads and changes settings whether or not the program
/// runs: a running one watches the file.
///
///   read [KEY]                                 the value, or all settings as "KEY = VALUE" lines
///   write KEY [-bool|-int|-float|-string] VALUE   without a type VALUE is of the key's own, or a
///                                              text for a key that the program does not know
///   delete KEY                                 the key is unset afterwards, as it may be before
///
/// `arguments` begins after "defaults". Answers the exit code: 0, 1 for reading an unset key or
/// when the file takes no change, 2 for arguments of another form, with the usage on `errors`, or
/// for a value that does not fit its key.
int runDefaultsCommand(std::span<const std::string> arguments, DefaultsFile& file,
                       std::ostream& output, std::ostream& errors);

} // namespace orvelle
