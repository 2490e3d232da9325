#pragma once

#include "Features/Mirror/MirrorExpandedView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <QImage>

#include <optional>

namespace orvelle {

class MirrorExpandedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, cornerRadius, MirrorExpandedView)
    ORVELLE_CONSTANT(double, spacing, MirrorExpandedView)
    ORVELLE_CONSTANT(double, togglePadding, MirrorExpandedView)
    ORVELLE_CONSTANT(double, toggleMargin, MirrorExpandedView)
    ORVELLE_CONSTANT(QColor, toggleBackground, MirrorExpandedView)
    ORVELLE_CONSTANT(double, buttonHorizontalPadding, MirrorExpandedView)
    ORVELLE_CONSTANT(double, buttonVerticalPadding, MirrorExpandedView)
    ORVELLE_CONSTANT(double, buttonCornerRadius, MirrorExpandedView)
    ORVELLE_CONSTANT(QColor, buttonBackground, MirrorExpandedView)
    ORVELLE_SHOWN(bool, showsPreview)
    ORVELLE_SHOWN(QImage, frame)
    ORVELLE_SHOWN(double, horizontalScale)
    ORVELLE_SHOWN(orvelle::TextValue, startingText)
    ORVELLE_SHOWN(orvelle::SymbolValue, toggleSymbol)
    ORVELLE_SHOWN(QString, toggleHelp)
    ORVELLE_SHOWN(orvelle::SymbolValue, permissionSymbol)
    ORVELLE_SHOWN(orvelle::TextValue, permissionTitle)
    ORVELLE_SHOWN(orvelle::TextValue, permissionText)
    ORVELLE_SHOWN(orvelle::TextValue, settingsButton)
    /// Whether the panel is the one that is looked at: it has the camera run.
    Q_PROPERTY(bool isOnScreen READ isOnScreen WRITE setOnScreen NOTIFY isOnScreenChanged FINAL)

public:
    ~MirrorExpandedBinding() override;

    bool isOnScreen() const { return isOnScreen_; }
    void setOnScreen(bool isOnScreen);
    Q_SIGNAL void isOnScreenChanged();

    Q_INVOKABLE void toggleMirrored();
    Q_INVOKABLE void openSystemSettings();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    const MirrorManager* manager_ = nullptr;
    std::optional<MirrorExpandedView> view_;
    bool isOnScreen_ = false;
};

} // namespace orvelle
