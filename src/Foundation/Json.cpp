#include "Foundation/Json.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

namespace orvelle {

namespace {

using Tree = nlohmann::json;

/// Builds the value while the text is read. Answering false ends the reading, so that hostile
/// nesting costs no more than the depth that is allowed.
class Builder : public nlohmann::json_sax<Tree> {
public:
    Json take() { return std::move(root_); }

    bool null() override { return add(Json()); }
    bool boolean(bool value) override { return add(Json(value)); }
    bool number_integer(number_integer_t value) override { return add(Json(value)); }
    bool number_unsigned(number_unsigned_t value) override {
        if (std::in_range<std::int64_t>(value))
            return add(Json(static_cast<std::int64_t>(value)));
        return add(Json(static_cast<double>(value)));
    }
    bool number_float(number_float_t value, const string_t&) override { return add(Json(value)); }
    bool string(string_t& value) override { return add(Json(std::move(value))); }
    bool binary(binary_t&) override { return false; }

    bool start_object(std::size_t) override { return open({Json::Object{}, {}}); }
    bool key(string_t& name) override {
        containers_.back().key = std::move(name);
        return true;
    }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open({Json::Array{}, {}}); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t, const std::string&, const Tree::exception&) override {
        return false;
    }

private:
    struct Container {
        std::variant<Json::Array, Json::Object> members;
        std::string key; ///< of the member that comes next
    };

    bool open(Container container) {
        if (containers_.size() == Json::maximumDepth)
            return false;
        containers_.push_back(std::move(container));
        return true;
    }
    bool close() {
        Container container = std::move(containers_.back());
        containers_.pop_back();
        return std::visit([&](auto& members) { return add(Json(std::move(members))); },
                          container.members);
    }
    bool add(Json value) {
        if (containers_.empty()) {
            root_ = std::move(value);
            return true;
        }
        auto& [members, key] = containers_.back();
        if (auto* array = std::get_if<Json::Array>(&members))
            array->push_back(std::move(value));
        else
            std::get<Json::Object>(members).insert_or_assign(std::move(key), std::move(value));
        return true;
    }

    std::vector<Container> containers_;
    Json root_;
};

Tree tree(const Json& json) {
    if (const auto* elements = json.array()) {
        Tree result = Tree::array();
        for (const auto& element : *elements)
            result.push_back(tree(element));
        return result;
    }
    if (const auto* members = json.object()) {
        Tree result = Tree::object();
        for (const auto& [key, member] : *members)
            result.emplace(key, tree(member));
        return result;
    }
    if (const auto flag = json.boolean())
        return *flag;
    if (auto text = json.string())
        return *std::move(text);
    if (json.isReal())
        return *json.number();
    if (const auto whole = json.integer())
        return *whole;
    return nullptr;
}

} // namespace

std::optional<Json> Json::parse(std::string_view text) {
    // The parser takes a NUL for the end of its input.
    if (text.find('\0') != std::string_view::npos)
        return std::nullopt;
    Builder builder;
    if (!Tree::sax_parse(text.begin(), text.end(), &builder))
        return std::nullopt;
    return builder.take();
}

std::string Json::text() const {
    return tree(*this).dump(-1, ' ', false, Tree::error_handler_t::replace);
}

std::optional<std::int64_t> Json::integer() const {
    if (const auto* whole = std::get_if<std::int64_t>(&value_))
        return *whole;
    const auto* real = std::get_if<double>(&value_);
    constexpr double limit = 9223372036854775808.0; // 2^63, the first that does not fit
    if (!real || !(*real >= -limit && *real < limit) || *real != std::trunc(*real))
        return std::nullopt;
    return static_cast<std::int64_t>(*real);
}

std::optional<double> Json::number() const {
    if (const auto* whole = std::get_if<std::int64_t>(&value_))
        return static_cast<double>(*whole);
    return as<double>();
}

const Json* Json::find(std::string_view key) const {
    const auto* members = object();
    if (!members)
        return nullptr;
    const auto found = members->find(key);
    return found == members->end() ? nullptr : &found->second;
}

Json Json::member(std::string_view key) const {
    const auto* found = find(key);
    return found ? *found : Json();
}

} // namespace orvelle
