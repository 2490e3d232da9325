#pragma once

#include "Features/Mirror/MirrorExpandedView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <QImage>
#include <QPointer>
#include <QWindow>

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
    /// Whether the panel is the one that is shown in its window, and that window. While the window
    /// is on a screen, too, the camera runs.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged FINAL)
    Q_PROPERTY(QWindow* window READ window WRITE setWindow NOTIFY windowChanged FINAL)

public:
    ~MirrorExpandedBinding() override;

    bool isShown() const { return isShown_; }
    void setShown(bool isShown);
    Q_SIGNAL void isShownChanged();
    QWindow* window() const { return window_; }
    void setWindow(QWindow* window);
    Q_SIGNAL void windowChanged();

    Q_INVOKABLE void toggleMirrored();
    Q_INVOKABLE void openSystemSettings();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    bool eventFilter(QObject* window, QEvent* event) override;
    bool isOnScreen() const;
    void followScreen();
    void runCamera();

    const MirrorManager* manager_ = nullptr;
    std::optional<MirrorExpandedView> view_;
    QPointer<QWindow> window_;
    QMetaObject::Connection screenSize_;
    bool isShown_ = false;
    bool isRunning_ = false; ///< the view has been told that it is on screen
};

} // namespace orvelle
