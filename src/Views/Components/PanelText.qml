import QtQuick
import Orvelle

// A text in the style that its C++ half gave it.
Text {
    property var content

    text: content.text
    color: content.color
    font.pixelSize: content.size
    font.weight: content.weight
    font.family: content.isMonospaced ? Style.monospacedFamily : Qt.application.font.family
    textFormat: Text.PlainText
    elide: Text.ElideRight
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
