#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace orvelle {

/// The management controller's parameter block, used for both question and answer.
using SMCRecord = std::array<std::uint8_t, 80>;

/// An open connection; destroying it closes it.
class SMCConnection {
public:
    virtual ~SMCConnection() = default;
    /// None when the call itself failed.
    virtual std::optional<SMCRecord> call(const SMCRecord& input) = 0;
};

class SMCService {
public:
    virtual ~SMCService() = default;
    /// Null on a machine without a controller.
    virtual std::unique_ptr<SMCConnection> open() = 0;
};

} // namespace orvelle
