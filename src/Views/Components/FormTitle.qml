import QtQuick
import Orvelle

// Heads a group; without a text it only keeps the groups apart.
Text {
    height: text === "" ? 18 : implicitHeight
    topPadding: 20
    bottomPadding: 7
    textFormat: Text.PlainText
    elide: Text.ElideRight
    font.pixelSize: FormStyle.textSize
    font.weight: Font.DemiBold
    color: FormStyle.textColor
    Accessible.role: Accessible.Heading
    Accessible.name: text
    Accessible.ignored: text === ""
}
