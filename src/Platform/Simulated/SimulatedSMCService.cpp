#include "Platform/Simulated/SimulatedMachine.h"

#include <algorithm>

namespace orvelle {

namespace {

class ScriptedConnection : public SMCConnection {
public:
    explicit ScriptedConnection(SimulatedSMCService& service) : service_(service) {
        ++service_.openConnections;
    }
    ~ScriptedConnection() override { --service_.openConnections; }

    std::optional<SMCRecord> call(const SMCRecord& input) override {
        service_.calls.push_back(input);
        const auto found =
            std::ranges::find(service_.values, smcWord(input, SMCLayout::key),
                              [](const auto& entry) { return fourCharCode(entry.first); });
        if (found == service_.values.end())
            return std::nullopt;
        const auto& value = found->second;
        SMCRecord answer{};
        if (input[SMCLayout::command] == static_cast<std::uint8_t>(SMCCommand::keyInfo)) {
            setSMCWord(answer, SMCLayout::dataSize, static_cast<std::uint32_t>(value.bytes.size()));
            setSMCWord(answer, SMCLayout::dataType, fourCharCode(value.type));
        } else {
            std::ranges::copy(value.bytes, answer.begin() + SMCLayout::data);
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
