import QtQuick
import QtQuick.Templates as T
import Orvelle

// A slider that shows `shown` and asks for another value through `slid`. Home and End go to its
// bounds.
T.Slider {
    id: root

    property string name
    property real shown
    property color accentColor: FormStyle.controlColor
    signal slid(real value)

    value: shown
    // The value strays when it is moved, be it by what reads the screen to its user.
    onValueChanged: if (value !== shown) slid(value)
    implicitWidth: 180
    implicitHeight: 22
    snapMode: T.Slider.SnapAlways
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Slider
    Accessible.name: name
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
            return
        event.accepted = true
        slid(event.key === Qt.Key_Home ? from : to)
    }

    background: Item {
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            height: 4
            radius: 2
            color: FormStyle.controlColor

            Rectangle {
                width: root.handle.x + root.handle.width / 2
                height: parent.height
                radius: parent.radius
                color: root.accentColor
            }
        }
    }
    handle: Rectangle {
        x: root.visualPosition * (root.width - width)
        y: (root.height - height) / 2
        width: 16
        height: 16
        radius: 8
        color: root.pressed ? Qt.darker(FormStyle.knobColor, 1.12) : FormStyle.knobColor
        border.color: FormStyle.shadowColor

        FocusRing {
            radius: 11
            control: root
        }
    }
}
