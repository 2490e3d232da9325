import QtQuick
import Orvelle

// The battery: icon, level with its bar, and how long it lasts.
Item {
    id: root

    function openMenu() {
        return menu.openAt(width / 2, icon.y)
    }

    BatteryPanelBinding {
        id: view
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        menu: () => view.contextMenu()
    }
    Row {
        anchors.fill: parent
        anchors.margins: view.padding
        spacing: view.padding

        PanelSymbol {
            id: icon
            objectName: "batteryIcon"
            content: view.icon
            anchors.verticalCenter: parent.verticalCenter
        }
        Column {
            id: level
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - icon.width - parent.spacing
                   - (estimate.active ? estimate.width + parent.spacing : 0)

            PanelText {
                objectName: "batteryTitle"
                content: view.title
            }
            PanelText {
                objectName: "batterySubtitle"
                content: view.subtitle
            }
            Loader {
                active: !!view.level
                visible: active
                width: parent.width
                sourceComponent: Item {
                    implicitHeight: bar.implicitHeight + 8

                    AnimatedSlider {
                        id: bar
                        objectName: "batteryLevel"
                        slider: view.level
                        width: parent.width
                        anchors.bottom: parent.bottom
                    }
                }
            }
        }
        Loader {
            id: estimate
            active: !!view.estimate
            visible: active
            anchors.verticalCenter: parent.verticalCenter
            sourceComponent: Column {
                PanelText {
                    objectName: "batteryEstimate"
                    content: view.estimate.time
                    anchors.right: parent.right
                }
                PanelText {
                    content: view.estimate.caption
                    anchors.right: parent.right
                }
            }
        }
    }
}
