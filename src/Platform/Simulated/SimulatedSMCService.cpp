#include "Platform/Simulated/SimulatedMachine.h"

#include <algorithm>

namespace orvelle {

namespace {

// Positions in the parameter block, see SMCTemperature.
constexpr std::size_t keyOffset = 0;
constexpr std::size_t dataSizeOffset = 28;
constexpr std::size_t dataTypeOffset = 32;
constexpr std::size_t commandOffset = 42;
constexpr std::size_t dataOffset = 48;

std::string fourCharacters(const SMCRecord& record, std::size_t offset) {
    std::string text; // little-endian words, first character in the highest byte
    for (std::size_t index = 4; index-- > 0;)
        text += static_cast<char>(record[offset + index]);
    return text;
}

class ScriptedConnection : public SMCConnection {
public:
    explicit ScriptedConnection(SimulatedSMCService& service) : service_(service) {
        ++service_.openConnections;
    }
    ~ScriptedConnection() override { --service_.openConnections; }

    std::optional<SMCRecord> call(const SMCRecord& input) override {
        service_.calls.push_back(input);
        const auto found = service_.values.find(fourCharacters(input, keyOffset));
        if (found == service_.values.end())
            return std::nullopt;
        const auto& value = found->second;
        SMCRecord answer{};
        if (input[commandOffset] == 9) {
            answer[dataSizeOffset] = static_cast<std::uint8_t>(value.bytes.size());
            for (std::size_t index = 0; index < 4; ++index)
                answer[dataTypeOffset + index] = static_cast<std::uint8_t>(value.type[3 - index]);
        } else {
            std::copy(value.bytes.begin(), value.bytes.end(),
                      answer.begin() + static_cast<std::ptrdiff_t>(dataOffset));
        }
        return answer;
    }

private:
    SimulatedSMCService& service_;
};

} // namespace

std::unique_ptr<SMCConnection> SimulatedSMCService::open() {
    ++openCount;
    if (!present)
        return nullptr;
    return std::make_unique<ScriptedConnection>(*this);
}

} // namespace orvelle
