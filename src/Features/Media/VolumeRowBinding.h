#pragma once

#include "Features/Media/VolumeRow.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

class VolumeRowBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, symbolWidth, VolumeRow)
    ORVELLE_CONSTANT(double, spacing, VolumeRow)
    ORVELLE_SHOWN(orvelle::SymbolValue, quietSymbol)
    ORVELLE_SHOWN(orvelle::SymbolValue, loudSymbol)
    ORVELLE_CONSTANT(double, disabledOpacity, VolumeRow)
    ORVELLE_SHOWN(bool, hasDevice)
    ORVELLE_SHOWN(orvelle::SliderValue, slider)

public:
    Q_INVOKABLE void setVolume(double volume);

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<VolumeRow> view_;
};

} // namespace orvelle
