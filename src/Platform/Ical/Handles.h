#pragma once

#include <libical/ical.h>

#include <memory>

namespace orvelle {

/// The library's objects, freed with their owner.
struct IcalDeleter {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
    void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
    void operator()(icaltimezone* zone) const { icaltimezone_free(zone, 1); }
};
template <class T>
using IcalHandle = std::unique_ptr<T, IcalDeleter>;

} // namespace orvelle
