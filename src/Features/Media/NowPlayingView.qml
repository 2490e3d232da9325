import QtQuick
import Orvelle

// What plays, at length: the cover beside the track, its progress, the controls and the volume.
Item {
    id: root

    readonly property HelpTip helpTip: help

    NowPlayingBinding {
        id: view
    }
    HelpTip {
        id: help
    }
    Loader {
        anchors.fill: parent
        sourceComponent: view.showsMedia ? mediaContent : noMedia
    }

    Component {
        id: noMedia

        FilePlaceholder {
            placeholder: view.placeholder
        }
    }
    Component {
        id: mediaContent

        Row {
            leftPadding: view.horizontalPadding
            rightPadding: view.horizontalPadding
            topPadding: view.verticalPadding
            bottomPadding: view.verticalPadding
            spacing: view.spacing

            MediaArtwork {
                id: cover
                objectName: "artwork"
                artwork: view.artwork

                ShadowItem {
                    objectName: "artworkShadow"
                    z: -1
                    anchors.fill: parent
                    anchors.margins: -view.shadowRadius
                    color: view.shadowColor
                    reach: view.shadowRadius
                    radius: cover.radius
                }
                Loader {
                    active: view.showsVisualizer
                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.bottom: parent.bottom
                    anchors.leftMargin: view.visualizerPadding.width
                    anchors.rightMargin: view.visualizerPadding.width
                    anchors.bottomMargin: view.visualizerPadding.height
                    height: view.visualizerHeight - view.visualizerPadding.height
                    sourceComponent: AudioVisualizerItem {
                        objectName: "visualizer"
                        compact: true
                        playing: view.showsVisualizer
                        tint: view.accentColor
                    }
                }
            }
            Column {
                id: column
                width: parent.width - x - view.horizontalPadding
                spacing: 5

                Column {
                    width: parent.width

                    PanelText {
                        objectName: "appName"
                        width: parent.width
                        content: view.appName
                        font.capitalization: Font.AllUppercase
                        horizontalAlignment: Text.AlignLeft
                    }
                    PanelText {
                        objectName: "title"
                        width: parent.width
                        content: view.title
                        horizontalAlignment: Text.AlignLeft
                    }
                    PanelText {
                        objectName: "artist"
                        width: parent.width
                        content: view.artist
                        horizontalAlignment: Text.AlignLeft
                    }
                }
                NowPlayingProgress {
                    width: parent.width
                    spacing: view.progressSpacing
                    bar: view.progressBar
                    elapsed: view.elapsed
                    duration: view.duration
                }
                Row {
                    anchors.horizontalCenter: parent.horizontalCenter
                    spacing: 16
                    // Takes the pointer for its button, which hears nothing while it is disabled.
                    Item {
                        implicitWidth: love.implicitWidth
                        implicitHeight: love.implicitHeight
                        anchors.verticalCenter: parent.verticalCenter

                        // The button's own word keeps the pointer alone away, and not the keys.
                        Item {
                            id: loveKeys
                            anchors.fill: parent
                            enabled: view.loveButton.isEnabled

                            SymbolButton {
                                id: love

                                objectName: "loveButton"
                                name: view.loveButton.help
                                help: view.loveButton.help
                                content: view.loveButton.symbol
                                opacity: view.loveButton.opacity
                                enabled: view.loveButton.isEnabled
                                onClicked: view.toggleLove()
                            }
                        }
                        HelpSpot {
                            helpText: love.help
                            subject: loveKeys
                            isFocused: love.activeFocus
                        }
                    }
                    TransportButtons {
                        anchors.verticalCenter: parent.verticalCenter
                        spacing: parent.spacing
                        buttons: view
                    }
                    AudioOutputPicker {
                        objectName: "outputPicker"
                        anchors.verticalCenter: parent.verticalCenter
                    }
                }
                VolumeRow {
                    width: parent.width
                }
            }
        }
    }
}
