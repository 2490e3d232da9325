import QtQuick
import Orvelle

// Back, play or pause, and on.
Row {
    id: root

    required property var buttons ///< the binding that has the buttons and takes their orders

    SymbolButton {
        objectName: "previousButton"
        anchors.verticalCenter: parent.verticalCenter
        name: qsTr("Previous Track")
        content: root.buttons.previousButton
        onClicked: root.buttons.previousTrack()
    }
    SymbolButton {
        objectName: "playButton"
        anchors.verticalCenter: parent.verticalCenter
        name: root.buttons.playName
        content: root.buttons.playButton
        onClicked: root.buttons.playPause()
    }
    SymbolButton {
        objectName: "nextButton"
        anchors.verticalCenter: parent.verticalCenter
        name: qsTr("Next Track")
        content: root.buttons.nextButton
        onClicked: root.buttons.nextTrack()
    }
}
