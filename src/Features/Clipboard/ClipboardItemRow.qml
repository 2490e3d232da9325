import QtQuick
import Orvelle

// One text that was copied. A click anywhere copies it back.
Rectangle {
    id: root

    required property var entry
    readonly property bool isHovering: hover.hovered
    signal copied
    signal deleted

    implicitHeight: texts.implicitHeight + 2 * ClipboardRowStyle.verticalPadding
    radius: ClipboardRowStyle.cornerRadius
    color: isHovering ? ClipboardRowStyle.hoverColor : Qt.alpha(ClipboardRowStyle.hoverColor, 0)
    border.width: activeFocus ? 1 : 0
    border.color: Style.focusColor
    Accessible.role: Accessible.ListItem
    Accessible.name: entry.preview.text
    Accessible.description: entry.details.map(detail => detail.text).join(" ")
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: copied()
    Keys.onSpacePressed: copied()
    Keys.onReturnPressed: copied()
    Keys.onEnterPressed: copied()
    Keys.onDeletePressed: deleted()
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace)
            return
        event.accepted = true
        deleted()
    }

    Behavior on color {
        ColorAnimation {
            duration: ClipboardRowStyle.hoverDuration * 1000
            easing.type: Easing.OutQuad
        }
    }
    HoverHandler {
        id: hover
    }
    MouseArea {
        anchors.fill: parent
        onClicked: root.copied()
    }
    Item {
        id: type
        x: ClipboardRowStyle.horizontalPadding
        width: ClipboardRowStyle.symbolWidth
        height: parent.height

        PanelSymbol {
            anchors.centerIn: parent
            content: root.entry.type
        }
    }
    Column {
        id: texts
        x: type.x + type.width + ClipboardRowStyle.spacing
        width: (buttons.visible ? buttons.x - ClipboardRowStyle.spacing
                                : parent.width - ClipboardRowStyle.horizontalPadding) - x
        anchors.verticalCenter: parent.verticalCenter
        spacing: ClipboardRowStyle.textSpacing

        PanelText {
            objectName: "preview"
            width: parent.width
            content: root.entry.preview
        }
        Row {
            spacing: ClipboardRowStyle.detailSpacing

            Repeater {
                model: root.entry.details

                PanelText {
                    required property var modelData

                    objectName: "detail"
                    content: modelData
                }
            }
        }
    }
    Row {
        id: buttons
        objectName: "rowButtons"
        anchors.right: parent.right
        anchors.rightMargin: ClipboardRowStyle.horizontalPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: ClipboardRowStyle.spacing
        opacity: ClipboardRowStyle.buttonOpacity
        visible: root.isHovering

        PanelButton {
            objectName: "copyButton"
            content: root.entry.copyButton
            name: qsTr("Copy")
            activeFocusOnTab: false
            onClicked: root.copied()
        }
        PanelButton {
            objectName: "deleteButton"
            content: root.entry.deleteButton
            name: qsTr("Delete")
            activeFocusOnTab: false
            onClicked: root.deleted()
        }
    }
}
