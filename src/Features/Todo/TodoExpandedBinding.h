#pragma once

#include "Views/Qt/EntryListBinding.h"

namespace orvelle {

class TodoExpandedBinding : public EntryListBinding {
    Q_OBJECT
    QML_ELEMENT

protected:
    void attach(const ViewEnvironment& environment) override;
};

} // namespace orvelle
