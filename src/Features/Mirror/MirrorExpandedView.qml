import QtQuick
import Orvelle

// The camera's picture, or why there is none.
Item {
    id: root

    MirrorExpandedBinding {
        id: view
        isShown: root.enabled // false as soon as the panel begins to leave
        window: root.Window.window
    }
    Loader {
        anchors.fill: parent
        sourceComponent: view.showsPreview ? preview : permission
    }

    Component {
        id: preview

        Item {
            FrameItem {
                id: picture
                objectName: "frame"
                anchors.fill: parent
                visible: !isEmpty
                frame: view.frame
                radius: view.cornerRadius
                horizontalScale: view.horizontalScale
                Accessible.role: Accessible.Graphic
                Accessible.name: qsTr("Camera")
            }
            Column {
                visible: picture.isEmpty
                anchors.centerIn: parent
                spacing: view.spacing

                CameraSpinner {
                    running: parent.visible
                    anchors.horizontalCenter: parent.horizontalCenter
                }
                PanelText {
                    objectName: "startingText"
                    content: view.startingText
                }
            }
            MirrorButton {
                objectName: "mirrorToggle"
                anchors.top: parent.top
                anchors.right: parent.right
                anchors.margins: view.toggleMargin
                width: symbol.width + 2 * view.togglePadding
                height: width
                radius: width / 2
                color: view.toggleBackground
                name: help
                help: view.toggleHelp
                onClicked: view.toggleMirrored()

                PanelSymbol {
                    id: symbol
                    content: view.toggleSymbol
                    anchors.centerIn: parent
                }
            }
        }
    }
    Component {
        id: permission

        Item {
            Column {
                anchors.centerIn: parent
                spacing: view.spacing

                PanelSymbol {
                    content: view.permissionSymbol
                    anchors.horizontalCenter: parent.horizontalCenter
                }
                PanelText {
                    objectName: "permissionTitle"
                    content: view.permissionTitle
                    anchors.horizontalCenter: parent.horizontalCenter
                }
                PanelText {
                    objectName: "permissionText"
                    content: view.permissionText
                    anchors.horizontalCenter: parent.horizontalCenter
                }
                MirrorButton {
                    objectName: "openSystemSettings"
                    anchors.horizontalCenter: parent.horizontalCenter
                    width: caption.width + 2 * view.buttonHorizontalPadding
                    height: caption.height + 2 * view.buttonVerticalPadding
                    radius: view.buttonCornerRadius
                    color: view.buttonBackground
                    name: caption.text
                    onClicked: view.openSystemSettings()

                    PanelText {
                        id: caption
                        content: view.settingsButton
                        anchors.centerIn: parent
                    }
                }
            }
        }
    }
}
