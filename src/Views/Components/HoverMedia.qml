import QtQuick
import Orvelle

// What plays: a cover, the play button and the title.
Row {
    id: root

    property var widget
    readonly property var media: widget.media
    readonly property string summary: media.title.text

    spacing: media.spacing

    Item {
        width: root.media.coverSize
        height: root.media.coverSize

        PanelSymbol {
            anchors.centerIn: parent
            content: root.media.cover
        }
    }
    Item {
        width: root.media.buttonSize
        height: root.media.buttonSize

        PanelSymbol {
            anchors.centerIn: parent
            content: root.media.playButton
        }
    }
    PanelText {
        content: root.media.title
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, root.width - x)
    }
}
