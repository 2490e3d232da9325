#include "Platform/Linux/UPowerPowerSources.h"

#include "Platform/Linux/SysfsPowerSupply.h"

#include <QDBusArgument>

#include <cmath>

namespace orvelle {

namespace {

const QString displayDevice = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");
const QString deviceInterface = QStringLiteral("org.freedesktop.UPower.Device");

constexpr unsigned batteryType = 2;

enum DeviceState : unsigned { charging = 1, discharging = 2, empty = 3, pendingDischarge = 6 };

/// A property of the wrong type is as good as missing.
template <class Value, class Field>
void take(const QVariantMap& properties, const char* name, Field& field) {
    const auto value = properties.value(QLatin1String(name));
    if (value.metaType() == QMetaType::fromType<Value>())
        field = value.value<Value>();
}

std::int64_t minutes(qlonglong seconds) {
    return seconds > 0 ? (seconds + 30) / 60 : -1;
}

} // namespace

void UPowerPowerSources::Device::update(const QVariantMap& properties) {
    take<unsigned>(properties, "Type", type);
    take<bool>(properties, "IsPresent", isPresent);
    take<unsigned>(properties, "State", state);
    take<qlonglong>(properties, "TimeToEmpty", timeToEmpty);
    take<qlonglong>(properties, "TimeToFull", timeToFull);
    std::optional<double> fresh;
    take<double>(properties, "Percentage", fresh);
    if (fresh && std::isfinite(*fresh))
        percentage = fresh;
}

std::optional<PowerReading> UPowerPowerSources::Device::battery() const {
    if (!*isPresent || *type != batteryType)
        return std::nullopt;
    return PowerReading{.percent = *percentage,
                        .charging = state == charging,
                        .onBattery =
                            state == discharging || state == empty || state == pendingDischarge,
                        .minutesToEmpty = minutes(timeToEmpty),
                        .minutesToFull = minutes(timeToFull)};
}

UPowerPowerSources::UPowerPowerSources(RunLoop& runLoop, BusProvider systemBus,
                                       std::string sysfsRoot)
    : sysfsRoot_(std::move(sysfsRoot)),
      upower_(runLoop, std::move(systemBus), QStringLiteral("org.freedesktop.UPower"),
              {displayDevice, busPropertiesInterface, QStringLiteral("PropertiesChanged")},
              {.ask = [this] { ask(); },
               .forget =
                   [this] {
                       device_ = {};
                       question_ = Question::closed;
                   },
               .hear = [this](const QDBusMessage& signal) { hear(signal); }}) {}

std::optional<std::vector<std::optional<PowerSourceDescription>>> UPowerPowerSources::snapshot() {
    std::optional<PowerReading> battery;
    if (device_.isComplete()) {
        battery = device_.battery();
    } else {
        upower_.start();
        if (question_ == Question::closed)
            ask(); // it failed to answer the last time, or has left
        const auto answer = SysfsPowerSupply::read(sysfsRoot_);
        if (!answer)
            return std::nullopt;
        battery = answer->battery;
    }
    std::vector<std::optional<PowerSourceDescription>> sources;
    if (battery)
        sources.emplace_back(battery->description());
    return sources;
}

void UPowerPowerSources::ask() {
    question_ = Question::awaitingAnswer;
    upower_.call(displayDevice, busPropertiesInterface, QStringLiteral("GetAll"), {deviceInterface},
                 [this](const QDBusMessage& reply) {
                     question_ = Question::closed;
                     if (reply.type() == QDBusMessage::ReplyMessage)
                         device_.update(qdbus_cast<QVariantMap>(reply.arguments().value(0)));
                 });
}

void UPowerPowerSources::hear(const QDBusMessage& signal) {
    const auto arguments = signal.arguments();
    if (arguments.value(0).toString() != deviceInterface)
        return;
    device_.update(qdbus_cast<QVariantMap>(arguments.value(1)));
    if (!arguments.value(2).toStringList().isEmpty() && question_ == Question::closed)
        ask(); // some were only named as changed
}

} // namespace orvelle
