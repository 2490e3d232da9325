#pragma once

#include "Features/Media/AudioOutputPicker.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

class AudioOutputPickerBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_SHOWN(orvelle::SymbolValue, label)

public:
    Q_INVOKABLE orvelle::MenuValue menu();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<AudioOutputPicker> view_;
};

} // namespace orvelle
