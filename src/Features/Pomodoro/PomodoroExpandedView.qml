import QtQuick
import Orvelle

// The focus timer in the style that the user chose, over the session dots and the controls.
FocusScope {
    id: root

    PomodoroExpandedBinding {
        id: view
        areaHeight: root.height
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        menu: () => view.contextMenu()
    }
    Keys.onMenuPressed: menu.openBelow(playButton)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
            menu.openBelow(playButton)
    }

    Item {
        id: timerArea
        objectName: "timerArea"
        width: parent.width
        height: parent.height - view.controlsHeight

        Loader {
            id: timer
            anchors.centerIn: parent

            function load() {
                setSource(view.timerView, { view: view })
            }
            Component.onCompleted: load()
        }
    }
    Connections {
        target: view
        function onTimerViewChanged() {
            timer.load()
        }
    }
    Column {
        objectName: "sessionAndControls"
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        height: view.controlsHeight
        spacing: view.controlsSpacing

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: view.dotSpacing

            Repeater {
                model: view.sessionDots

                Rectangle {
                    required property color modelData

                    objectName: "dot"
                    width: view.dotSize
                    height: view.dotSize
                    radius: width / 2
                    color: modelData
                }
            }
        }
        Row {
            // The outer buttons are as wide as each other, so that the middle one stands in the
            // middle.
            readonly property real outerWidth: Math.max(reset.implicitWidth, skip.implicitWidth)

            anchors.horizontalCenter: parent.horizontalCenter
            spacing: view.buttonSpacing

            PanelButton {
                id: reset
                objectName: "resetButton"
                width: parent.outerWidth
                anchors.verticalCenter: parent.verticalCenter
                content: view.resetButton
                name: qsTr("Reset")
                onClicked: view.reset()
            }
            PanelButton {
                id: playButton
                objectName: "playButton"
                width: 24
                height: 24
                anchors.verticalCenter: parent.verticalCenter
                focus: true
                content: view.playButton
                name: content.name === "play.fill" ? qsTr("Start") : qsTr("Pause")
                onClicked: view.togglePlaying()
            }
            PanelButton {
                id: skip
                objectName: "skipButton"
                width: parent.outerWidth
                anchors.verticalCenter: parent.verticalCenter
                content: view.skipButton
                name: qsTr("Skip")
                onClicked: view.skip()
            }
        }
    }
}
