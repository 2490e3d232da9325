import QtQuick
import Orvelle

// What a pulled row uncovers on one side: the action, and a press on it acts too.
Rectangle {
    id: root

    property var action
    signal picked

    visible: width > 0.5
    radius: 6
    color: action.tint
    clip: true
    Accessible.role: Accessible.Button
    Accessible.name: action.label
    Accessible.ignored: !visible
    Accessible.onPressAction: picked()

    Row {
        anchors.centerIn: parent
        spacing: 4

        Symbol {
            name: root.action.symbol
            size: root.action.symbolSize
            color: "white"
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            text: root.action.label
            textFormat: Text.PlainText
            font.pixelSize: root.action.labelSize
            font.weight: Font.Medium
            color: "white"
            anchors.verticalCenter: parent.verticalCenter
        }
    }
    MouseArea {
        anchors.fill: parent
        onClicked: root.picked()
    }
}
