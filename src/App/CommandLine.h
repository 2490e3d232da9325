#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// What a start of the program was asked to do.
struct CommandLine {
    enum class Action { run, help, version, defaults, misuse };

    Action action = Action::run;
    bool isDemo = false;
    /// Where the tour writes its pictures; a tour always shows the demonstration.
    std::optional<std::string> tourDirectory;
    /// What follows the word "defaults".
    std::vector<std::string> defaultsArguments;
    /// For `misuse`: what is wrong, in one line.
    std::string complaint;

    /// `arguments` without the program's own name.
    static CommandLine parse(const std::vector<std::string>& arguments);
    static std::string_view usage();
};

} // namespace orvelle
