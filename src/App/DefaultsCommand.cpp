#include "App/DefaultsCommand.h"

#include "Foundation/Text.h"
#include "Platform/DefaultsCoding.h"
#include "Settings/KnownSettings.h"

#include <charconv>
#include <cmath>

namespace orvelle {

namespace {

constexpr int success = 0;
constexpr int failureCode = 1;
constexpr int usageError = 2;

/// For another process that is writing at the same moment.
constexpr Seconds patience = 2;

constexpr std::string_view usage =
    "Usage: orvelle defaults read [KEY]\n"
    "       orvelle defaults write KEY [-bool|-int|-float|-string] VALUE\n"
    "       orvelle defaults delete KEY\n";

template <class Number>
std::optional<DefaultsValue> numberIn(std::string_view text) {
    Number value{};
    const auto* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || !std::isfinite(static_cast<double>(value)))
        return std::nullopt;
    return value;
}

std::optional<DefaultsValue> booleanIn(std::string_view text) {
    const auto word = Text::folded(text);
    if (word == "true" || word == "yes" || word == "1" || word == "on")
        return true;
    if (word == "false" || word == "no" || word == "0" || word == "off")
        return false;
    return std::nullopt;
}

bool isType(std::string_view argument) {
    return argument == "-bool" || argument == "-int" || argument == "-float" ||
           argument == "-string";
}

std::optional<DefaultsValue> valueOf(std::string_view type, const std::string& text) {
    if (type == "-bool")
        return booleanIn(text);
    if (type == "-int")
        return numberIn<std::int64_t>(text);
    if (type == "-float")
        return numberIn<double>(text);
    return text;
}

/// The value that `text` stands for, by the type of the key.
std::optional<DefaultsValue> valueOf(SettingType type, const std::string& text) {
    switch (type) {
    case SettingType::boolean:
        return booleanIn(text);
    case SettingType::wholeNumber:
        return numberIn<std::int64_t>(text);
    case SettingType::number:
        return numberIn<double>(text);
    case SettingType::text:
        return text;
    case SettingType::data:
    case SettingType::date:
        break;
    }
    return std::nullopt;
}

std::string complaint(const std::string& key, SettingType type, const std::string& text) {
    const auto takes = [&](std::string_view values) {
        return key + " takes " + std::string(values) + ", not \"" + text + '"';
    };
    switch (type) {
    case SettingType::boolean:
        return takes("true or false");
    case SettingType::wholeNumber:
        return takes("a whole number");
    case SettingType::number:
        return takes("a number");
    case SettingType::text:
    case SettingType::data:
    case SettingType::date:
        break;
    }
    return key + " is kept by the program";
}

std::string jsonText(const DefaultsValue& value) {
    return encodeDefaultsValue(value).value_or(Json()).text();
}

class Command {
public:
    Command(DefaultsFile& file, std::ostream& output, std::ostream& errors)
        : file_(file), output_(output), errors_(errors) {}

    int run(std::span<const std::string> arguments) {
        if (arguments.empty())
            return refuse("a command is missing");
        const auto& command = arguments.front();
        const auto operands = arguments.subspan(1);
        if (operands.size() > 0 && operands[0].empty())
            return refuse("KEY is empty");
        if (command == "read" && operands.empty())
            return readAll();
        if (command == "read" && operands.size() == 1)
            return read(operands[0]);
        if (command == "write")
            return write(operands);
        if (command == "delete" && operands.size() == 1)
            return remove(operands[0]);
        if (command == "read" || command == "delete")
            return refuse(command + " takes one KEY");
        return refuse("there is no command \"" + command + "\"");
    }

private:
    int readAll() {
        for (const auto& key : file_.keys())
            if (const auto value = file_.value(key))
                output_ << key << " = " << jsonText(*value) << '\n';
        return success;
    }

    int read(const std::string& key) {
        const auto value = file_.value(key);
        if (!value) {
            errors_ << "orvelle defaults: " << key << " is not set\n";
            return failureCode;
        }
        const auto* text = std::get_if<std::string>(&*value);
        output_ << (text ? *text : jsonText(*value)) << '\n';
        return success;
    }

    int write(std::span<const std::string> operands) {
        const bool typed = operands.size() == 3;
        if (operands.size() != 2 && !typed)
            return refuse("write takes a KEY and a VALUE");
        if (typed != isType(operands[1]))
            return refuse(typed ? "there is no type \"" + operands[1] + "\"" : "VALUE is missing");
        return typed ? writeAs(operands[1], operands[0], operands[2])
                     : writeAsKnown(operands[0], operands[1]);
    }

    int writeAs(const std::string& type, const std::string& key, const std::string& text) {
        const auto value = valueOf(type, text);
        if (!value)
            return refuse("\"" + text + "\" is no value for " + type);
        file_.set(key, *value);
        return save();
    }

    int writeAsKnown(const std::string& key, const std::string& text) {
        const auto type = knownSettingType(key).value_or(SettingType::text);
        const auto value = valueOf(type, text);
        if (!value) {
            errors_ << "orvelle defaults: " << complaint(key, type, text) << '\n';
            return usageError;
        }
        file_.set(key, *value);
        return save();
    }

    int remove(const std::string& key) {
        file_.remove(key);
        return save();
    }

    int save() {
        if (file_.save(patience))
            return success;
        errors_ << "orvelle defaults: the settings cannot be written\n";
        return failureCode;
    }

    int refuse(const std::string& reason) {
        errors_ << "orvelle defaults: " << reason << '\n' << usage;
        return usageError;
    }

    DefaultsFile& file_;
    std::ostream& output_;
    std::ostream& errors_;
};

} // namespace

int runDefaultsCommand(std::span<const std::string> arguments, DefaultsFile& file,
                       std::ostream& output, std::ostream& errors) {
    return Command(file, output, errors).run(arguments);
}

} // namespace orvelle
