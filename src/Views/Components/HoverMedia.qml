import QtQuick
import Orvelle

// What plays: a cover, the play button, and the title, the first to give way when room is short.
Item {
    id: root

    property var widget
    readonly property var media: widget.media
    readonly property real naturalWidth: title.x + title.implicitWidth
    readonly property string summary: title.text

    implicitWidth: naturalWidth
    implicitHeight: media.buttonSize

    Item {
        id: cover
        width: root.media.coverSize
        height: root.media.coverSize
        anchors.verticalCenter: parent.verticalCenter

        PanelSymbol {
            anchors.centerIn: parent
            content: root.media.cover
        }
    }
    Item {
        id: button
        x: cover.width + root.media.spacing
        width: root.media.buttonSize
        height: root.media.buttonSize

        PanelSymbol {
            anchors.centerIn: parent
            content: root.media.playButton
        }
    }
    PanelText {
        id: title
        objectName: "text"
        x: button.x + button.width + root.media.spacing
        width: root.width - x
        content: root.media.title
        anchors.verticalCenter: parent.verticalCenter
    }
}
