import QtQuick
import Orvelle

// A field for new entries over the list of those that there are.
FocusScope {
    id: root

    property EntryListBinding view
    readonly property real inset: 4 // to the ends of the line above

    function add() {
        view.add(field.text)
        field.text = ""
        field.forceActiveFocus()
    }

    ContextMenu {
        id: menu
        anchors.fill: parent
        menu: () => root.view.contextMenu()
    }
    Rectangle {
        id: fieldGround
        x: root.inset
        width: parent.width - 2 * x - addButton.width - 10
        height: field.implicitHeight + 2 * root.view.fieldVerticalPadding
        radius: 6
        color: root.view.rowBackground
        border.width: field.activeFocus ? 1 : 0
        border.color: Style.focusColor

        PanelField {
            id: field
            objectName: "entryField"
            x: root.view.fieldHorizontalPadding
            width: parent.width - 2 * x
            anchors.verticalCenter: parent.verticalCenter
            focus: true
            content: root.view.fieldStyle
            prompt: root.view.prompt
            promptColor: root.view.promptColor
            onAccepted: root.add()
            Keys.onDownPressed: if (list.count > 0) list.forceActiveFocus()
        }
    }
    PanelButton {
        id: addButton
        objectName: "addButton"
        anchors.right: parent.right
        anchors.rightMargin: root.inset + 2
        anchors.verticalCenter: fieldGround.verticalCenter
        width: 18
        height: 18
        content: root.view.addButton
        name: qsTr("Add")
        enabled: root.view.canAdd(field.text)
        onClicked: root.add()
    }
    ListView {
        id: list
        objectName: "entries"
        anchors.top: fieldGround.bottom
        anchors.topMargin: 8
        anchors.bottom: parent.bottom
        x: root.inset
        width: parent.width - 2 * x
        clip: true
        spacing: 4
        boundsBehavior: Flickable.StopAtBounds
        model: root.view.rows
        Accessible.role: Accessible.List
        Accessible.name: root.view.prompt
        Keys.onUpPressed: {
            if (currentIndex > 0)
                decrementCurrentIndex()
            else
                field.forceActiveFocus()
        }
        Keys.onMenuPressed: menu.openBelow(currentItem)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
                menu.openBelow(currentItem)
        }

        ScrollEdges { list: list }

        delegate: EntryRow {
            required property int index

            objectName: "row." + index
            width: ListView.view.width
            height: implicitHeight
            focus: ListView.isCurrentItem
            isHighlighted: activeFocus
            background: root.view.rowBackground
            onLeadingPerformed: {
                root.view.performLeading(entry.id)
                toast.say(root.view.leadingDone)
            }
            onTrailingPerformed: root.view.performTrailing(entry.id)
        }
        remove: Transition {
            NumberAnimation {
                property: "opacity"
                to: 0
                duration: root.view.removalDuration * 1000
                easing.type: Easing.InOutQuad
            }
        }
        removeDisplaced: Transition {
            NumberAnimation {
                property: "y"
                duration: root.view.removalDuration * 1000
                easing.type: Easing.InOutQuad
            }
        }
    }
    FilePlaceholder {
        anchors.fill: list
        visible: list.count === 0
        placeholder: root.view.emptyState
    }
    Toast {
        id: toast
    }
    Timer {
        interval: root.view.focusDelay * 1000
        running: true
        onTriggered: field.forceActiveFocus()
    }
}
