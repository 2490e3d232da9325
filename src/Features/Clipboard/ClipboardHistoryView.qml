import QtQuick
import Orvelle

// The texts that were copied, under a field that searches them.
FocusScope {
    id: root

    readonly property real inset: 4 // to the ends of the line above

    Keys.onEscapePressed: event => event.accepted = list.stepBack()

    ClipboardHistoryBinding {
        id: view
    }
    FieldBox {
        id: field
        objectName: "searchField"
        x: root.inset
        width: parent.width - 2 * x
        height: implicitHeight
        focus: true
        symbol: view.searchSymbol
        horizontalPadding: view.searchPadding
        content: view.searchStyle
        prompt: view.searchPrompt
        promptColor: view.promptColor
        onTextChanged: view.search(text)
        Keys.onDownPressed: list.enter()
    }
    PanelList {
        id: list
        objectName: "history"
        anchors.top: field.bottom
        anchors.topMargin: view.spacing
        anchors.bottom: parent.bottom
        x: root.inset
        width: parent.width - 2 * x
        model: view.rows
        field: field
        removalDuration: view.deletionDuration
        removalEasing: Easing.OutQuad
        Accessible.name: qsTr("Clipboard history")

        delegate: ClipboardItemRow {
            required property int index

            objectName: "row." + index
            width: ListView.view.width
            height: implicitHeight
            focus: ListView.isCurrentItem
            onCopied: {
                view.copy(entry.id)
                toast.say(view.copied)
            }
            onDeleted: view.remove(entry.id)
        }
    }
    FilePlaceholder {
        anchors.fill: list
        visible: list.count === 0
        placeholder: view.emptyState
    }
    Toast {
        id: toast
        standing: field.notice
    }
    Timer {
        interval: view.focusDelay * 1000
        running: true
        onTriggered: field.forceActiveFocus()
    }
}
