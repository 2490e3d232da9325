#pragma once

#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

namespace orvelle {

class UndoOffer;

/// The offer of the window that it stands in.
class UndoBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_SHOWN(bool, isOffered)
    ORVELLE_SHOWN(QString, text) ///< of the last offer

public:
    Q_INVOKABLE void undo();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    UndoOffer* offer_ = nullptr;
};

} // namespace orvelle
