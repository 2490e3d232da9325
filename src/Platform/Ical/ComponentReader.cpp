#include "Platform/Ical/ComponentReader.h"

#include <algorithm>
#include <array>

namespace orvelle {

namespace {

constexpr std::array<std::string_view, 12> eventProperties{
    "DTSTART", "DTEND",  "DURATION", "RRULE",    "RDATE", "EXDATE",
    "UID",     "STATUS", "SUMMARY",  "LOCATION", "URL",   "RECURRENCE-ID"};
constexpr std::array<std::string_view, 7> zoneProperties{
    "TZID", "DTSTART", "TZOFFSETFROM", "TZOFFSETTO", "RRULE", "RDATE", "TZNAME"};
/// The parts of a time zone; every other component inside another is left out.
constexpr std::array<std::string_view, 2> zoneParts{"STANDARD", "DAYLIGHT"};

bool equal(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, [](char a, char b) {
        const auto upper = [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
        };
        return upper(a) == upper(b);
    });
}

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::ranges::any_of(names, [&](auto each) { return equal(each, name); });
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

} // namespace

void ComponentReader::feed(std::string_view bytes) {
    while (!bytes.empty()) {
        if (isLineEnded_) {
            if (bytes.front() == ' ' || bytes.front() == '\t')
                bytes.remove_prefix(1);
            else
                endLine();
            isLineEnded_ = false;
        }
        const auto stop = bytes.find('\n');
        addToLine(bytes.substr(0, stop));
        if (stop == std::string_view::npos)
            return;
        bytes.remove_prefix(stop + 1);
        if (!line_.empty() && line_.back() == '\r')
            line_.pop_back();
        isLineEnded_ = true;
    }
}

void ComponentReader::finish() {
    endLine();
    component_.clear();
}

void ComponentReader::addToLine(std::string_view bytes) {
    if (line_.size() + bytes.size() > maximumProperty || bytes.find('\0') != bytes.npos)
        isLineUsable_ = false;
    if (isLineUsable_)
        line_ += bytes;
}

void ComponentReader::endLine() {
    if (isLineUsable_ && !line_.empty())
        take(line_);
    line_.clear();
    isLineUsable_ = true;
}

void ComponentReader::take(std::string_view line) {
    const auto colon = line.find(':');
    if (colon == std::string_view::npos)
        return;
    const auto name = line.substr(0, colon);
    const auto value = trimmed(line.substr(colon + 1));
    if (equal(name, "BEGIN"))
        begin(value);
    else if (equal(name, "END"))
        end(value);
    else
        keep(line);
}

void ComponentReader::begin(std::string_view name) {
    const bool isEvent = equal(name, "VEVENT");
    if (isEvent || equal(name, "VTIMEZONE")) {
        kind_ = isEvent ? Kind::event : Kind::timeZone;
        component_ = isEvent ? "BEGIN:VEVENT\r\n" : "BEGIN:VTIMEZONE\r\n";
        depth_ = 0;
        skippedDepth_ = 0;
        isComponentUsable_ = true;
        return;
    }
    if (equal(name, "VCALENDAR"))
        component_.clear();
    if (component_.empty())
        return;
    ++depth_;
    if (skippedDepth_ > 0)
        return;
    if (kind_ == Kind::timeZone && depth_ == 1 && contains(zoneParts, name))
        component_.append("BEGIN:").append(name).append("\r\n");
    else
        skippedDepth_ = depth_;
}

void ComponentReader::end(std::string_view name) {
    if (equal(name, "VCALENDAR"))
        component_.clear();
    if (component_.empty())
        return;
    if (depth_ > 0) {
        if (skippedDepth_ == 0)
            component_.append("END:").append(name).append("\r\n");
        if (skippedDepth_ == depth_)
            skippedDepth_ = 0;
        --depth_;
        return;
    }
    component_ += kind_ == Kind::event ? "END:VEVENT\r\n" : "END:VTIMEZONE\r\n";
    const bool isWhole = equal(name, kind_ == Kind::event ? "VEVENT" : "VTIMEZONE");
    if (isWhole && isComponentUsable_)
        handler_(kind_, component_);
    component_.clear();
}

void ComponentReader::keep(std::string_view line) {
    if (component_.empty() || skippedDepth_ > 0)
        return;
    const auto name = line.substr(0, line.find_first_of(":;"));
    if (!(kind_ == Kind::event ? contains(eventProperties, name) : contains(zoneProperties, name)))
        return;
    if (component_.size() + line.size() > maximumComponent) {
        isComponentUsable_ = false;
        return;
    }
    component_.append(line).append("\r\n");
}

} // namespace orvelle
