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
///   write KEY [-bool|-int|-float|-string] VALUE   VALUE is a text unless a type is given
///   delete KEY                                 the key is unset afterwards, as it may be before
///
/// `arguments` begins after "defaults". Answers the exit code: 0, 1 for reading an unset key or
/// when the file takes no change, 2 with the usage on `errors` for arguments of another form.
int runDefaultsCommand(std::span<const std::string> arguments, DefaultsFile& file,
                       std::ostream& output, std::ostream& errors);

} // namespace orvelle
