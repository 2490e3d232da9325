import QtQuick
import Orvelle

// The settings: tabs, and the page of the chosen one. Control with Tab or a
// digit leads from tab to tab.
FocusScope {
    id: root

    property int current: 0
    readonly property HelpTip helpTip: help

    function choose(index) {
        current = (index + tabs.count) % tabs.count
    }
    function stepTo(index) {
        choose(index)
        tabs.itemAt(current).forceActiveFocus(Qt.TabFocusReason)
    }

    implicitWidth: view.width
    implicitHeight: view.height
    Keys.onEscapePressed: Window.window.close()
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Undo)) {
            event.accepted = undoBar.isOffered
            undoBar.undo()
            return
        }
        const digit = event.key - Qt.Key_1
        if (event.modifiers & Qt.ControlModifier && digit >= 0 && digit < tabs.count) {
            event.accepted = true
            stepTo(digit)
            return
        }
        const isTab = event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab
        if (!isTab || !(event.modifiers & Qt.ControlModifier))
            return
        event.accepted = true
        const isBack = event.key === Qt.Key_Backtab || event.modifiers & Qt.ShiftModifier
        stepTo(current + (isBack ? -1 : 1))
    }

    SettingsBinding {
        id: view
    }
    Rectangle {
        anchors.fill: parent
        color: FormStyle.windowColor
    }
    HelpTip {
        id: help
        color: FormStyle.popupColor
        border.color: FormStyle.edgeColor
        textColor: FormStyle.textColor
        textSize: FormStyle.noteSize
    }
    FocusScope {
        id: bar
        objectName: "tabs"
        y: 8
        width: parent.width
        height: row.height
        focus: true
        activeFocusOnTab: true // the keyboard enters at the chosen tab
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTr("Settings")

        Row {
            id: row
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 4

            Repeater {
                id: tabs
                model: view.tabs

                SettingsTab {
                    required property int index
                    required property var modelData

                    tab: modelData
                    accentColor: view.accentColor
                    isChosen: index === root.current
                    onClicked: root.choose(index)
                    onStepped: step => root.stepTo(index + step)
                }
            }
        }
    }
    Rectangle {
        id: line
        y: bar.y + bar.height + 8
        width: parent.width
        height: 1
        color: FormStyle.edgeColor
    }
    Loader {
        id: page
        objectName: "page"
        anchors.top: line.bottom
        anchors.bottom: undoGround.top
        width: parent.width
        source: view.tabs[root.current].view + ".qml"
    }
    Rectangle {
        id: undoGround
        anchors.bottom: parent.bottom
        width: parent.width
        height: undoBar.visible ? 38 : 0
        color: FormStyle.windowColor

        Divider {
            width: parent.width
            visible: parent.height > 0
        }
        UndoBar {
            id: undoBar
            anchors.centerIn: parent
            textColor: FormStyle.textColor
            onKeyboardLeft: bar.forceActiveFocus(Qt.TabFocusReason)
        }
    }
}
