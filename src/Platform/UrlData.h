#pragma once

#include "Foundation/SharedBytes.h"

#include <cstddef>
#include <optional>
#include <stop_token>
#include <string>

namespace orvelle {

/// Reads what stands behind an address.
class UrlData {
public:
    virtual ~UrlData() = default;

    /// The bytes behind an address of the scheme file, http, https or data. None when there is
    /// nothing, more than `limit` bytes, or no end within ten seconds, however slowly the other
    /// side speaks. Only regular files are read. Waits for the other side: any thread but the main
    /// one, several at once. A `stop` that is requested ends the waiting, with none.
    virtual std::optional<SharedBytes> read(const std::string& url, std::size_t limit,
                                            std::stop_token stop) = 0;
};

} // namespace orvelle
