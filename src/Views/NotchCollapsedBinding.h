#pragma once

#include "Views/NotchCollapsedView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <QUrl>
#include <QVariantList>

#include <optional>

namespace orvelle {

struct HoverMediaValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue cover MEMBER cover)
    Q_PROPERTY(orvelle::SymbolValue playButton MEMBER playButton)
    Q_PROPERTY(QString playButtonName MEMBER playButtonName)
    Q_PROPERTY(orvelle::TextValue title MEMBER title)
    Q_PROPERTY(double spacing READ spacing)
    Q_PROPERTY(bool hasArtwork MEMBER hasArtwork)
    Q_PROPERTY(bool isPlaying MEMBER isPlaying)
    Q_PROPERTY(double coverSize READ coverSize)
    Q_PROPERTY(double coverRadius READ coverRadius)
    Q_PROPERTY(double buttonSize READ buttonSize)
    Q_PROPERTY(QSizeF visualizerSize READ visualizerSize)

public:
    SymbolValue cover;
    SymbolValue playButton;
    QString playButtonName;
    TextValue title;
    bool hasArtwork = false;
    bool isPlaying = false;
    double spacing() const { return HoverMediaIndicator::spacing; }
    double coverSize() const { return HoverMediaIndicator::coverSize; }
    double coverRadius() const { return HoverMediaIndicator::coverRadius; }
    double buttonSize() const { return HoverMediaIndicator::buttonSize; }
    QSizeF visualizerSize() const {
        return {HoverMediaIndicator::visualizerWidth, HoverMediaIndicator::visualizerHeight};
    }
    bool operator==(const HoverMediaValue&) const = default;
};

struct HoverWidgetValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString panel MEMBER panel)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QUrl source MEMBER source)
    Q_PROPERTY(QVariant icon MEMBER icon)
    Q_PROPERTY(QVariantList texts MEMBER texts)
    Q_PROPERTY(QVariant media MEMBER media)
    Q_PROPERTY(double spacing MEMBER spacing)
    Q_PROPERTY(double padding MEMBER padding)
    Q_PROPERTY(bool isTapTarget MEMBER isTapTarget)
    Q_PROPERTY(double opacity MEMBER opacity)

public:
    QString id;
    QString panel; ///< the raw value of the panel that a click opens
    QString name;  ///< for those who hear the bar
    QUrl source;   ///< the QML that draws it
    QVariant icon;
    QVariantList texts;
    QVariant media;
    double spacing = 0;
    double padding = 0; ///< around the content, part of what takes the click
    bool isTapTarget = true;
    double opacity = 1;
    bool operator==(const HoverWidgetValue&) const = default;
};

class NotchCollapsedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, topPadding, NotchCollapsedView)
    ORVELLE_CONSTANT(double, horizontalPadding, NotchCollapsedView)
    ORVELLE_CONSTANT(double, wingHeight, NotchCollapsedView)
    ORVELLE_CONSTANT(double, leftWingSpacing, NotchCollapsedView)
    ORVELLE_CONSTANT(double, rightWingSpacing, NotchCollapsedView)
    ORVELLE_CONSTANT(double, rightWingTrailingPadding, NotchCollapsedView)
    ORVELLE_CONSTANT(double, bottomRowSpacing, NotchCollapsedView)
    ORVELLE_CONSTANT(QSizeF, separatorSize, NotchCollapsedView)
    ORVELLE_CONSTANT(QColor, separatorColor, NotchCollapsedView)
    ORVELLE_SHOWN(double, notchSpacerWidth)
    ORVELLE_SHOWN(double, bottomPadding)
    ORVELLE_LIST(HoverWidgetValue, leftWing)
    ORVELLE_LIST(HoverWidgetValue, rightWing)
    ORVELLE_LIST(HoverWidgetValue, bottomRow)

public:
    Q_INVOKABLE void expand();
    Q_INVOKABLE void expandToPanel(const QString& panel);
    Q_INVOKABLE void playPause();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<NotchCollapsedView> view_;
};

} // namespace orvelle
