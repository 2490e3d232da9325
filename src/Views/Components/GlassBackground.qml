import QtQuick

// A rounded card behind its siblings. A line thinner than a pixel is drawn fainter instead.
Rectangle {
    property var card

    radius: card.cornerRadius
    color: card.fill
    border.width: Math.ceil(card.border.lineWidth)
    border.color: Qt.alpha(card.border.color, card.border.color.a * Math.min(1, card.border.lineWidth))
}
