#include "Platform/Linux/PortalAppearance.h"

#include "Platform/Linux/SmallFile.h"

#include <QDBusArgument>
#include <QDBusVariant>

#include <array>

namespace orvelle {

namespace {

const QString desktopPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceNamespace = QStringLiteral("org.freedesktop.appearance");
const QString accentKey = QStringLiteral("accent-color");

constexpr std::size_t largestSettingsFile = 256 * 1024;

/// The old reading call wraps its answer twice.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<Color> parsePortalAccent(const QVariant& value) {
    const auto inner = unwrapped(value);
    if (inner.metaType() != QMetaType::fromType<QDBusArgument>())
        return std::nullopt;
    const auto argument = inner.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("(ddd)"))
        return std::nullopt;
    std::array<double, 3> part{};
    argument.beginStructure();
    argument >> part[0] >> part[1] >> part[2];
    argument.endStructure();
    for (const double component : part)
        if (!(component >= 0 && component <= 1)) // not a number either
            return std::nullopt;
    return Color{part[0], part[1], part[2]};
}

} // namespace

std::optional<Color> parseKdeAccent(std::string_view kdeglobals) {
    constexpr std::string_view label = "AccentColor=";
    bool general = false;
    while (!kdeglobals.empty()) {
        const auto end = std::min(kdeglobals.find('\n'), kdeglobals.size());
        auto line = kdeglobals.substr(0, end);
        kdeglobals.remove_prefix(std::min(end + 1, kdeglobals.size()));
        if (line.starts_with('['))
            general = line.starts_with("[General]");
        if (!general || !line.starts_with(label))
            continue;
        line.remove_prefix(label.size());
        std::array<double, 3> part{};
        for (auto& component : part) {
            const auto number = parseNumber(line);
            if (!number || *number < 0 || *number > 255)
                return std::nullopt;
            component = static_cast<double>(*number) / 255;
            const auto comma = line.find(',');
            line = comma == line.npos ? std::string_view() : line.substr(comma + 1);
        }
        return Color{part[0], part[1], part[2]};
    }
    return std::nullopt;
}

PortalAppearance::PortalAppearance(RunLoop& runLoop, BusProvider sessionBus, std::string kdeglobals)
    : kdeglobals_(std::move(kdeglobals)), accent_(colors::blue), fallback_(colors::blue),
      portal_(runLoop, std::move(sessionBus), QStringLiteral("org.freedesktop.portal.Desktop"),
              {desktopPath, settingsInterface, QStringLiteral("SettingChanged")},
              {.ask = [this] { ask(); },
               .forget = [] {}, // the accent of the portal before it holds until it tells another
               .hear =
                   [this](const QDBusMessage& signal) {
                       const auto arguments = signal.arguments();
                       if (arguments.value(0).toString() == appearanceNamespace &&
                           arguments.value(1).toString() == accentKey)
                           accept(arguments.value(2));
                   }}) {}

Color PortalAppearance::controlAccentColor() const {
    start();
    return accent_;
}

Subscription PortalAppearance::observeSystemColorsChanges(std::function<void()> changed) {
    start();
    return changed_.observe(std::move(changed));
}

void PortalAppearance::start() const {
    if (started_)
        return;
    started_ = true;
    if (const auto text = readSmallFile(kdeglobals_, largestSettingsFile))
        fallback_ = parseKdeAccent(*text).value_or(colors::blue);
    accent_ = fallback_;
    portal_.start();
}

void PortalAppearance::ask() {
    portal_.call(desktopPath, settingsInterface, QStringLiteral("Read"),
                 {appearanceNamespace, accentKey}, [this](const QDBusMessage& reply) {
                     if (reply.type() == QDBusMessage::ReplyMessage)
                         accept(reply.arguments().value(0));
                 });
}

void PortalAppearance::accept(const QVariant& value) {
    const auto accent = parsePortalAccent(value).value_or(fallback_);
    if (accent == accent_)
        return;
    accent_ = accent;
    changed_();
}

} // namespace orvelle
