#pragma once

#include "Features/Media/MediaArtwork.h"
#include "Views/Qt/PictureItem.h"
#include "Views/Qt/Values.h"

namespace orvelle {

/// A picture as QML carries it from a binding to the item that draws it.
struct ImageValue {
    Q_GADGET

public:
    Image image;
    bool operator==(const ImageValue&) const = default;
};

struct ArtworkValue {
    Q_GADGET
    Q_PROPERTY(double side MEMBER side)
    Q_PROPERTY(double cornerRadius MEMBER cornerRadius)
    Q_PROPERTY(QColor background MEMBER background)
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(bool hasImage MEMBER hasImage)
    Q_PROPERTY(orvelle::ImageValue image MEMBER image)

public:
    double side = 0;
    double cornerRadius = 0;
    QColor background;
    SymbolValue symbol;
    bool hasImage = false;
    ImageValue image;
    bool operator==(const ArtworkValue&) const = default;
};

ArtworkValue toQt(const MediaArtwork& artwork);

/// A picture that fills the item, cut at the sides that are too long, with round corners.
class ArtworkItem : public PictureItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(orvelle::ImageValue image READ image WRITE setImage NOTIFY imageChanged FINAL)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)

public:
    explicit ArtworkItem(QQuickItem* parent = nullptr);

    ImageValue image() const { return image_; }
    void setImage(const ImageValue& image);
    double radius() const { return radius_; }
    void setRadius(double radius);

Q_SIGNALS:
    void imageChanged();
    void radiusChanged();

protected:
    QImage picture(double devicePixelRatio) const override;

private:
    ImageValue image_;
    double radius_ = 0;
};

} // namespace orvelle
