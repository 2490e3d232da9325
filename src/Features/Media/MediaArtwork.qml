import QtQuick
import Orvelle

// A cover, or a symbol in its place.
Rectangle {
    id: root

    property var artwork

    implicitWidth: artwork.side
    implicitHeight: artwork.side
    radius: artwork.cornerRadius
    color: artwork.hasImage ? "transparent" : artwork.background

    PanelSymbol {
        anchors.centerIn: parent
        visible: !root.artwork.hasImage
        content: root.artwork.symbol
    }
    ArtworkItem {
        objectName: "artworkImage"
        anchors.fill: parent
        visible: root.artwork.hasImage
        image: root.artwork.image
        radius: root.artwork.cornerRadius
    }
}
