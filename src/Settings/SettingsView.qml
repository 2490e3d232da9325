import QtQuick
import Orvelle

// The settings: tabs, and the page of the chosen one. Control with Tab leads from tab to tab.
FocusScope {
    id: root

    property int current: 0

    function choose(index) {
        current = (index + tabs.count) % tabs.count
    }

    implicitWidth: view.width
    implicitHeight: view.height
    Keys.onPressed: event => {
        const isTab = event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab
        if (!isTab || !(event.modifiers & Qt.ControlModifier))
            return
        event.accepted = true
        const isBack = event.key === Qt.Key_Backtab || event.modifiers & Qt.ShiftModifier
        choose(current + (isBack ? -1 : 1))
        tabs.itemAt(current).forceActiveFocus(Qt.TabFocusReason)
    }

    SettingsBinding {
        id: view
    }
    Rectangle {
        anchors.fill: parent
        color: FormStyle.windowColor
    }
    Row {
        id: bar
        objectName: "tabs"
        y: 8
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 4
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTr("Settings")

        Repeater {
            id: tabs
            model: view.tabs

            SettingsTab {
                required property int index
                required property var modelData

                tab: modelData
                accentColor: view.accentColor
                isChosen: index === root.current
                focus: index === 0
                onClicked: root.choose(index)
                onStepped: step => {
                    root.choose(index + step)
                    tabs.itemAt(root.current).forceActiveFocus(Qt.TabFocusReason)
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
        anchors.bottom: parent.bottom
        width: parent.width
        source: view.tabs[root.current].view + ".qml"
    }
}
