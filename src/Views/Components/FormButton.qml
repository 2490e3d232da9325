import QtQuick
import QtQuick.Templates as T
import Orvelle

// A push button; the prominent one has the accent's colour, a plain one is its text alone.
T.Button {
    id: root

    property bool prominent: false
    property bool plain: false
    property color accentColor: FormStyle.controlColor
    property color textColor: FormStyle.textColor
    property alias textSize: label.font.pixelSize

    implicitWidth: plain ? label.implicitWidth : Math.max(72, label.implicitWidth + 28)
    implicitHeight: plain ? label.implicitHeight + 4 : 26
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        radius: FormStyle.cornerRadius
        color: root.plain ? "transparent"
               : root.down ? FormStyle.pressedColor
               : root.prominent ? root.accentColor : FormStyle.controlColor
        opacity: root.enabled ? 1 : 0.4

        PointerGround {
            radius: parent.radius
            visible: !root.plain
            isHovered: root.hovered && !root.down
        }
        FocusRing {
            control: root
        }
    }
    contentItem: Text {
        id: label
        text: root.text
        textFormat: Text.PlainText
        color: root.textColor
        opacity: !root.enabled ? 0.4 : root.plain && root.down ? 0.6 : 1
        font.pixelSize: FormStyle.textSize
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
}
