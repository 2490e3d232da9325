import QtQuick
import QtQuick.Templates as T
import Orvelle

// A switch that shows `isOn` and asks for another state through `flipped`.
T.AbstractButton {
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
    focusPolicy: Qt.StrongFocus
    // The template tells its own role, which follows from this; what is shown stays `isOn`.
    checkable: true
    checked: isOn
    onClicked: {
        flipped(!isOn)
        checked = Qt.binding(() => isOn)
    }
    Accessible.name: name
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        radius: height / 2
        color: root.isOn ? root.accentColor : FormStyle.controlColor
        opacity: root.enabled ? 1 : 0.4

        Behavior on color {
            enabled: root.isReady
            ColorAnimation { duration: 120 }
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
            shown: root.visualFocus
        }
    }
}
