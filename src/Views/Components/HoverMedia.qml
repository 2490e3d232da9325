import QtQuick
import Orvelle

// What plays: a cover, the play button, bars while it plays, and the running title, the first to
// give way when room is short. Cover and title open the panel.
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

    HoverMediaBinding {
        id: hover
    }
    ContextMenu {
        anchors.fill: parent
        z: 1
        menu: () => hover.contextMenu()
    }
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
            visible: !root.media.hasArtwork
            content: root.media.cover
        }
        ArtworkItem {
            objectName: "coverImage"
            anchors.fill: parent
            visible: root.media.hasArtwork
            image: hover.artwork
            radius: root.media.coverRadius
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
    Loader {
        id: bars
        x: button.x + button.width + root.media.spacing
        active: root.media.isPlaying
        width: active ? root.media.visualizerSize.width : 0
        height: root.media.visualizerSize.height
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: AudioVisualizerItem {
            objectName: "visualizer"
            compact: true
            playing: root.media.isPlaying
            tint: hover.tint
        }
    }
    TapTarget {
        id: title
        objectName: "title"
        x: bars.x + (bars.active ? bars.width + root.media.spacing : 0)
        width: Math.max(0, root.width - x)
        height: parent.height
        name: root.widget.name
        isLit: false // the title's ends fade into the black ground
        Accessible.description: root.summary
        onClicked: root.picked()

        MarqueeText {
            id: text
            objectName: "text"
            width: parent.width
            content: root.media.title
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
