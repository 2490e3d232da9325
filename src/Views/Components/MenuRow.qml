import QtQuick
import Orvelle

// One line of a menu.
Rectangle {
    id: root

    property string title
    property string symbol
    property real indent: 0
    property bool isHighlighted
    signal entered
    signal picked

    width: Math.max(parent.implicitWidth, implicitWidth)
    implicitWidth: Math.max(140, caption.implicitWidth + indent + 20)
    implicitHeight: 24
    radius: 5
    color: isHighlighted ? Style.highlightColor : "transparent"
    Accessible.role: Accessible.MenuItem
    Accessible.name: title
    Accessible.onPressAction: picked()

    Loader {
        x: 8
        active: root.symbol !== ""
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: Symbol {
            name: root.symbol
            size: 11
            color: Style.textColor
        }
    }
    Text {
        id: caption
        x: 10 + root.indent
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        textFormat: Text.PlainText
        font.pixelSize: 13
        color: Style.textColor
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onEntered: root.entered()
        onReleased: if (containsMouse) root.picked()
    }
}
