import QtQuick
import Orvelle

// One line of a menu.
Rectangle {
    id: root

    property string title
    property bool isChecked
    property bool isHighlighted
    property bool isDestructive
    signal entered
    signal picked

    implicitWidth: Math.max(140, caption.implicitWidth + 20 + (isChecked ? check.width + 12 : 0))
    implicitHeight: 24
    radius: 5
    color: isHighlighted ? Style.highlightColor : "transparent"
    Accessible.role: Accessible.MenuItem
    Accessible.name: title
    Accessible.checkable: isChecked
    Accessible.checked: isChecked
    Accessible.onPressAction: picked()

    Text {
        id: caption
        objectName: "caption"
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        textFormat: Text.PlainText
        font.pixelSize: 13
        color: root.isDestructive ? Style.destructiveColor : Style.textColor
    }
    Symbol {
        id: check
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        visible: root.isChecked
        name: "checkmark"
        size: 11
        color: Style.textColor
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onEntered: root.entered()
        onReleased: if (containsMouse) root.picked()
    }
}
