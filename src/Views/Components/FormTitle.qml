import QtQuick
import Orvelle

// Heads a group; without a text it only keeps the groups apart.
Text {
    topPadding: text === "" ? 18 : 20
    bottomPadding: text === "" ? 0 : 7
    lineHeight: text === "" ? 0 : 1
    textFormat: Text.PlainText
    elide: Text.ElideRight
    font.pixelSize: FormStyle.textSize
    font.weight: Font.DemiBold
    color: FormStyle.textColor
    Accessible.role: Accessible.Heading
    Accessible.name: text
    Accessible.ignored: text === ""
}
