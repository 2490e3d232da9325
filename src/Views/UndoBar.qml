import QtQuick
import Orvelle

// Says what was just taken away, with a button that brings it back; nothing while there is no way
// back.
Item {
    id: root

    property color textColor
    readonly property alias isOffered: view.isOffered
    // The keyboard was on the button, which has gone.
    signal keyboardLeft

    function undo() {
        view.undo()
    }

    objectName: "undoBar"
    visible: false
    implicitWidth: caption.implicitWidth + button.width + 8
    implicitHeight: Style.smallestTarget
    Accessible.role: Accessible.AlertMessage
    Accessible.name: view.text

    onIsOfferedChanged: {
        const hadKeyboard = button.activeFocus
        visible = isOffered
        if (hadKeyboard && !isOffered)
            keyboardLeft()
    }
    Component.onCompleted: visible = isOffered

    UndoBinding {
        id: view
    }
    Text {
        id: caption
        objectName: "undoText"
        width: Math.min(implicitWidth, root.width - button.width - 8)
        anchors.verticalCenter: parent.verticalCenter
        text: view.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: 11
        color: root.textColor
        Accessible.ignored: true // the bar bears it
    }
    Rectangle {
        id: button
        objectName: "undoButton"
        x: caption.width + 8
        anchors.verticalCenter: parent.verticalCenter
        width: label.implicitWidth + 20
        height: root.height - 2
        radius: height / 2
        color: Style.fillColor
        border.color: activeFocus ? Style.focusColor : Style.edgeColor
        activeFocusOnTab: true
        Accessible.role: Accessible.Button
        Accessible.name: label.text
        Accessible.description: view.text
        Accessible.focusable: true
        Accessible.focused: activeFocus
        Accessible.onPressAction: view.undo()
        Keys.onSpacePressed: view.undo()
        Keys.onReturnPressed: view.undo()
        Keys.onEnterPressed: view.undo()

        PointerGround {
            radius: parent.radius
            isHovered: pointer.containsMouse
            isPressed: pointer.pressed
        }
        Text {
            id: label
            anchors.centerIn: parent
            text: qsTr("Undo")
            textFormat: Text.PlainText
            font.pixelSize: 11
            font.weight: Font.Medium
            color: Style.textColor
            Accessible.ignored: true // the button bears it
        }
        MouseArea {
            id: pointer
            anchors.fill: parent
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: view.undo()
        }
    }
}
