#include "App/CommandLine.h"

namespace orvelle {

namespace {

CommandLine misuse(std::string complaint) {
    CommandLine line;
    line.action = CommandLine::Action::misuse;
    line.complaint = std::move(complaint);
    return line;
}

} // namespace

CommandLine CommandLine::parse(const std::vector<std::string>& arguments) {
    CommandLine line;
    if (!arguments.empty() && arguments.front() == "defaults") {
        line.action = Action::defaults;
        line.defaultsArguments.assign(arguments.begin() + 1, arguments.end());
        return line;
    }
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const auto& argument = arguments[index];
        if (argument == "--help" || argument == "-h") {
            line.action = Action::help;
            return line;
        }
        if (argument == "--version") {
            line.action = Action::version;
            return line;
        }
        if (argument == "--demo") {
            line.isDemo = true;
        } else if (argument == "--tour") {
            if (index + 1 == arguments.size())
                return misuse("--tour needs a directory");
            line.isDemo = true;
            line.tourDirectory = arguments[++index];
        } else {
            return misuse("unknown option: " + argument);
        }
    }
    return line;
}

std::string_view CommandLine::usage() {
    return "Usage: orvelle [--demo] [--tour DIR]\n"
           "       orvelle defaults read [KEY]\n"
           "       orvelle defaults write KEY [-bool|-int|-float|-string] VALUE\n"
           "       orvelle defaults delete KEY\n"
           "       orvelle --help | --version\n"
           "\n"
           "A panel that lives in the notch at the top of the screen. A start while the program\n"
           "runs shows the running one's panel.\n"
           "\n"
           "  --demo       show everything with made-up data; touches no file and no network\n"
           "  --tour DIR   as --demo, and write a picture of every state and panel to DIR\n"
           "  defaults     read and change settings, whether or not the program runs; without a\n"
           "               type VALUE is of the key's own, or a text for a key of none\n"
           "  --help       show this text\n"
           "  --version    show the version\n";
}

} // namespace orvelle
