import QtQuick

// A text in the style that its C++ half gave it.
Text {
    property var content

    text: content.text
    color: content.color
    font.pixelSize: content.size
    font.weight: content.weight
    textFormat: Text.PlainText
    elide: Text.ElideRight
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
