import QtQuick
import QtQuick.Templates as T
import Orvelle

// A place that a search found; a press saves it.
T.AbstractButton {
    id: root

    property var row

    implicitHeight: 32
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: row.button
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        anchors.fill: parent
        anchors.margins: 3
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        radius: FormStyle.cornerRadius
        color: root.down ? FormStyle.selectedColor
               : pointer.hovered ? FormStyle.hoverColor : "transparent"

        HoverHandler {
            id: pointer
        }
        FocusRing {
            anchors.margins: 0
            radius: parent.radius
            control: root
        }
    }
    contentItem: Item {
        PanelSymbol {
            id: plus
            anchors.verticalCenter: parent.verticalCenter
            content: root.row.symbol
        }
        Text {
            x: 24
            width: parent.width - x
            anchors.verticalCenter: parent.verticalCenter
            text: root.row.label
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 12
            color: FormStyle.textColor
        }
    }
}
