import QtQuick
import Orvelle

// A label, a slider, and its value in a frame at the right. The sliders of a page stand under each
// other.
Item {
    id: root

    property var row
    property color accentColor
    readonly property real valueRoom: row.valueWidth > 0 ? 54 : 0
    readonly property real labelRoom: row.labelWidth > 0 ? row.labelWidth : 170
    signal slid(real value)

    implicitHeight: 40

    Text {
        anchors.verticalCenter: parent.verticalCenter
        width: root.labelRoom
        text: root.row.label
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: FormStyle.textSize
        color: FormStyle.textColor
        Accessible.ignored: true // the slider bears it
    }
    FormSlider {
        objectName: "control"
        x: root.labelRoom
        width: root.width - x - root.valueRoom
        anchors.verticalCenter: parent.verticalCenter
        from: root.row.lowerBound
        to: root.row.upperBound
        stepSize: root.row.step
        shown: root.row.value
        name: root.row.label
        accentColor: root.accentColor
        onSlid: value => root.slid(value)
    }
    Text {
        objectName: "value"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: root.row.valueWidth
        visible: width > 0
        horizontalAlignment: Text.AlignRight
        text: root.row.valueText
        textFormat: Text.PlainText
        font.pixelSize: 12
        color: FormStyle.secondaryColor
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
