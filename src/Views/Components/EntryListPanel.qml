import QtQuick
import Orvelle

// A field for new entries over the list of those that there are.
FocusScope {
    id: root

    property EntryListBinding view

    Keys.onEscapePressed: event => event.accepted = list.stepBack()

    ContextMenu {
        id: menu
        anchors.fill: parent
        menu: () => root.view.contextMenu()
    }
    EntryField {
        id: field
        width: parent.width
        focus: true
        horizontalPadding: root.view.fieldHorizontalPadding
        verticalPadding: root.view.fieldVerticalPadding
        content: root.view.fieldStyle
        prompt: root.view.prompt
        promptColor: root.view.promptColor
        addButton: root.view.addButton
        canAdd: root.view.canAdd(text)
        onAdded: text => root.view.add(text)
        Keys.onDownPressed: list.enter()
    }
    PanelList {
        id: list
        objectName: "entries"
        anchors.top: field.bottom
        anchors.topMargin: 8
        anchors.bottom: parent.bottom
        x: field.inset
        width: parent.width - 2 * x
        spacing: 4
        model: root.view.rows
        field: field.box
        menu: menu
        showsArrivals: true
        removalDuration: root.view.removalDuration
        Accessible.name: root.view.prompt

        delegate: EntryRow {
            required property int index

            objectName: "row." + index
            width: ListView.view.width
            height: implicitHeight
            focus: ListView.isCurrentItem
            list: ListView.view
            isHighlighted: activeFocus
            background: root.view.rowBackground
            onLeadingPerformed: {
                root.view.performLeading(entry.id)
                toast.say(root.view.leadingDone)
            }
            onTrailingPerformed: root.view.performTrailing(entry.id)
        }
    }
    FilePlaceholder {
        anchors.fill: list
        visible: list.count === 0
        placeholder: root.view.emptyState
    }
    Toast {
        id: toast
        standing: field.notice
    }
    Timer {
        interval: root.view.focusDelay * 1000
        running: true
        onTriggered: field.box.forceActiveFocus()
    }
}
