import QtQuick
import Orvelle

// The texts that were copied, under a field that searches them.
FocusScope {
    id: root

    readonly property real inset: 4 // to the ends of the line above

    ClipboardHistoryBinding {
        id: view
    }
    Rectangle {
        id: searchRow
        x: root.inset
        width: parent.width - 2 * x
        height: field.implicitHeight + 2 * view.searchPadding
        radius: view.searchCornerRadius
        color: view.searchBackground
        border.width: field.activeFocus ? 1 : 0
        border.color: Style.focusColor

        PanelSymbol {
            id: glass
            x: view.searchPadding
            anchors.verticalCenter: parent.verticalCenter
            content: view.searchSymbol
        }
        PanelField {
            id: field
            objectName: "searchField"
            x: glass.x + glass.width + view.searchPadding
            width: parent.width - x - view.searchPadding
            anchors.verticalCenter: parent.verticalCenter
            focus: true
            content: view.searchStyle
            prompt: view.searchPrompt
            promptColor: view.promptColor
            onTextChanged: view.search(text)
            Keys.onDownPressed: if (list.count > 0) list.forceActiveFocus()
        }
    }
    ListView {
        id: list
        objectName: "history"
        anchors.top: searchRow.bottom
        anchors.topMargin: view.spacing
        anchors.bottom: parent.bottom
        x: root.inset
        width: parent.width - 2 * x
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: view.rows
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Clipboard history")
        Keys.onUpPressed: {
            if (currentIndex > 0)
                decrementCurrentIndex()
            else
                field.forceActiveFocus()
        }

        ScrollEdges { list: list }

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
        remove: Transition {
            NumberAnimation {
                property: "opacity"
                to: 0
                duration: view.deletionDuration * 1000
                easing.type: Easing.OutQuad
            }
        }
        removeDisplaced: Transition {
            NumberAnimation {
                property: "y"
                duration: view.deletionDuration * 1000
                easing.type: Easing.OutQuad
            }
        }
    }
    FilePlaceholder {
        anchors.fill: list
        visible: list.count === 0
        placeholder: view.emptyState
    }
    Toast {
        id: toast
    }
    Timer {
        interval: view.focusDelay * 1000
        running: true
        onTriggered: field.forceActiveFocus()
    }
}
