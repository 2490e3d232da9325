import QtQuick
import Orvelle

// What plays, on one line.
Loader {
    id: root

    active: view.showsContent

    sourceComponent: Item {
        implicitWidth: row.width + 2 * view.horizontalPadding
        implicitHeight: row.height + 2 * view.verticalPadding

        Row {
            id: row
            x: view.horizontalPadding
            y: view.verticalPadding
            spacing: view.spacing

            MediaArtwork {
                objectName: "miniArtwork"
                anchors.verticalCenter: parent.verticalCenter
                artwork: view.miniArtwork
            }
            MarqueeText {
                objectName: "controlsTitle"
                width: Math.min(implicitWidth, view.titleWidth)
                anchors.verticalCenter: parent.verticalCenter
                content: view.title
            }
            SymbolButton {
                objectName: "controlsPlayButton"
                anchors.verticalCenter: parent.verticalCenter
                name: view.playName
                content: view.playButton
                onClicked: view.playPause()
            }
        }
    }

    MediaControlsBinding {
        id: view
    }
}
