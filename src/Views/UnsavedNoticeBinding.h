#pragma once

#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"
#include "Views/UnsavedNotice.h"

namespace orvelle {

class UnsavedNoticeBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, height, UnsavedNotice)
    ORVELLE_CONSTANT(QColor, background, UnsavedNotice)
    ORVELLE_SHOWN(QVariant, notice)

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    const UnsavedChanges* unsaved_ = nullptr;
};

} // namespace orvelle
