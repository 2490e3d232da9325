import QtQuick
import Orvelle

// Explains, in a smaller text of several lines.
Text {
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    lineHeight: 1.15
    font.pixelSize: FormStyle.noteSize
    color: FormStyle.secondaryColor
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
