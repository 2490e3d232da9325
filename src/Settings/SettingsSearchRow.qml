import QtQuick
import Orvelle

// A field to type a place in, and the button that looks for it.
Item {
    id: root

    property var row
    signal typed(string text)
    signal searched

    implicitHeight: 42

    FormField {
        objectName: "field"
        width: button.x - 8
        anchors.verticalCenter: parent.verticalCenter
        prompt: root.row.label
        text: root.row.detail
        onTyped: text => root.typed(text)
        onAccepted: root.searched()
    }
    FormButton {
        id: button
        objectName: "control"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.row.button
        opacity: root.row.isOn ? 0.5 : 1
        onClicked: root.searched()
    }
}
