import QtQuick
import Orvelle

// What plays: cover and texts, the position, the transport row with volume and output beside it.
Item {
    id: root

    function openMenu() {
        return menu.enabled && menu.openAt(width / 2, 0)
    }

    MediaPanelBinding {
        id: view
    }
    Loader {
        anchors.fill: parent
        sourceComponent: view.placeholder ? nothing : track
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        z: -1
        enabled: !view.placeholder
        menu: () => view.contextMenu()
    }

    Component {
        id: nothing

        FilePlaceholder {
            placeholder: view.placeholder
        }
    }
    Component {
        id: track

        Item {
            MediaArtwork {
                id: cover
                objectName: "artwork"
                artwork: view.artwork
            }
            Column {
                x: cover.width + view.rowSpacing
                width: parent.width - x
                anchors.verticalCenter: cover.verticalCenter
                spacing: view.textSpacing

                PanelText {
                    objectName: "mediaTitle"
                    width: parent.width
                    content: view.title
                    horizontalAlignment: Text.AlignLeft
                }
                PanelText {
                    objectName: "mediaArtist"
                    width: parent.width
                    content: view.artist
                    horizontalAlignment: Text.AlignLeft
                }
                PanelText {
                    objectName: "mediaAlbum"
                    width: parent.width
                    visible: text !== ""
                    content: view.album
                    horizontalAlignment: Text.AlignLeft
                }
            }
            AnimatedSlider {
                id: position
                objectName: "mediaPosition"
                y: cover.height + 8 + view.sliderTopPadding
                width: parent.width
                slider: view.slider
            }
            Item {
                id: times
                anchors.top: position.bottom
                anchors.topMargin: 6
                width: parent.width
                height: elapsed.implicitHeight

                PanelText {
                    id: elapsed
                    objectName: "mediaElapsed"
                    content: view.elapsed
                }
                PanelText {
                    objectName: "mediaDuration"
                    anchors.right: parent.right
                    content: view.duration
                }
            }
            Item {
                anchors.top: times.bottom
                anchors.bottom: parent.bottom
                width: parent.width

                VolumeRow {
                    width: 140
                    anchors.verticalCenter: parent.verticalCenter
                }
                TransportButtons {
                    anchors.centerIn: parent
                    spacing: view.transportSpacing
                    buttons: view
                }
                AudioOutputPicker {
                    objectName: "outputPicker"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
    }
}
