#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/Linux/PowerReading.h"

#include <QVariantMap>

#include <string>

namespace orvelle {

/// UPower's display device, kept fresh by its signals. Until UPower has answered, and while it is
/// absent, hangs or makes no sense, the kernel's files answer on the spot. A machine without a
/// battery has an empty list.
class UPowerPowerSources : public PowerSources {
public:
    /// Nothing is asked of the bus before the first snapshot.
    UPowerPowerSources(RunLoop& runLoop, BusProvider systemBus,
                       std::string sysfsRoot = "/sys/class/power_supply");

    std::optional<std::vector<std::optional<PowerSourceDescription>>> snapshot() override;

private:
    /// UPower's own words; types and units are those of its interface.
    struct Device {
        std::optional<unsigned> type;
        std::optional<bool> isPresent;
        std::optional<double> percentage; ///< percent
        unsigned state = 0;
        qlonglong timeToEmpty = 0; ///< seconds; 0 while unknown
        qlonglong timeToFull = 0;  ///< seconds; 0 while unknown

        void update(const QVariantMap& properties);
        bool isComplete() const { return type && isPresent && percentage; }
        std::optional<PowerReading> battery() const;
    };

    enum class Question { notYet, awaitingAnswer, closed };

    void ask();
    void hear(const QDBusMessage& signal);

    std::string sysfsRoot_;
    Device device_;
    Question question_ = Question::notYet;
    BusService upower_;
};

} // namespace orvelle
