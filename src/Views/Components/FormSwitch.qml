import QtQuick
import Orvelle

// A switch that shows `isOn` and asks for another state through `flipped`.
Item {
    id: root

    property bool isOn: false
    property string name
    property color accentColor: FormStyle.controlColor
    signal flipped(bool on)

    // The first state is there at once; only later ones slide in.
    property bool isReady: false
    Component.onCompleted: isReady = true

    implicitWidth: 36
    implicitHeight: 20
    activeFocusOnTab: true
    // The toolkit's own buttons cannot say that they are check boxes.
    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.focusable: true
    Accessible.checkable: true
    Accessible.checked: isOn
    Accessible.onPressAction: flipped(!isOn)
    Accessible.onToggleAction: flipped(!isOn)
    Keys.onSpacePressed: flipped(!isOn)
    Keys.onReturnPressed: flipped(!isOn)
    Keys.onEnterPressed: flipped(!isOn)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.isOn ? root.accentColor : FormStyle.controlColor
        opacity: root.enabled ? 1 : 0.4

        Behavior on color {
            enabled: root.isReady
            ColorAnimation { duration: 120 }
        }
        PointerGround {
            radius: parent.radius
            isHovered: hover.hovered
            isPressed: pointer.pressed
        }
        Rectangle {
            x: root.isOn ? parent.width - width - 2 : 2
            anchors.verticalCenter: parent.verticalCenter
            width: parent.height - 4
            height: width
            radius: width / 2
            color: FormStyle.knobColor

            Behavior on x {
                enabled: root.isReady
                NumberAnimation { duration: 120; easing.type: Easing.OutCubic }
            }
        }
        FocusRing {
            radius: parent.radius + 3
            shown: root.activeFocus
        }
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        id: pointer
        onTapped: root.flipped(!root.isOn)
    }
}
