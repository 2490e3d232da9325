import QtQuick
import Orvelle

// What plays: a cover, the play button, and the title, the first to give way when room is short.
// Cover and title open the panel.
Item {
    id: root

    property var widget
    readonly property var media: widget.media
    readonly property real naturalWidth: title.x + titleWidth
    readonly property real titleWidth: text.implicitWidth
    readonly property string summary: text.text
    signal picked
    signal playPause

    implicitWidth: naturalWidth
    implicitHeight: media.buttonSize

    TapTarget {
        id: cover
        objectName: "cover"
        width: root.media.coverSize
        height: root.media.coverSize
        anchors.verticalCenter: parent.verticalCenter
        Accessible.ignored: true // the title says the same
        onClicked: root.picked()

        PanelSymbol {
            anchors.centerIn: parent
            content: root.media.cover
        }
    }
    TapTarget {
        id: button
        objectName: "playButton"
        x: cover.width + root.media.spacing
        width: root.media.buttonSize
        height: root.media.buttonSize
        name: root.media.playButtonName
        onClicked: root.playPause()

        PanelSymbol {
            anchors.centerIn: parent
            content: root.media.playButton
        }
    }
    TapTarget {
        id: title
        objectName: "title"
        x: button.x + button.width + root.media.spacing
        width: Math.max(0, root.width - x)
        height: parent.height
        name: root.widget.name
        Accessible.description: root.summary
        onClicked: root.picked()

        PanelText {
            id: text
            objectName: "text"
            width: parent.width
            content: root.media.title
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
