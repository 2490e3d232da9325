#pragma once

#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

namespace orvelle {

class MirrorCollapsedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_SHOWN(orvelle::SymbolValue, icon)

protected:
    void attach(const ViewEnvironment&) override {}
    void refresh() override;
};

} // namespace orvelle
