#pragma once

#include "Platform/Ical/Handles.h"

#include <map>
#include <string>

namespace orvelle {

/// The time zones that one calendar file speaks of: those of the system by their name, others by
/// the rules that the file itself holds.
class ZoneTable {
public:
    /// `local` is the identifier of the zone of times that name none.
    explicit ZoneTable(const std::string& local);

    /// Takes over the rules of a VTIMEZONE. Rules that no real zone has are refused, since working
    /// them out could take any amount of time.
    void add(const std::string& text);
    /// Null for an identifier that neither the system nor the file knows.
    icaltimezone* find(const char* identifier) const;
    icaltimezone* local() const { return local_; }

private:
    static constexpr std::size_t capacity = 500;

    icaltimezone* local_;
    std::map<std::string, IcalHandle<icaltimezone>, std::less<>> own_;
};

} // namespace orvelle
