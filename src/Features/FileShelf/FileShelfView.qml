import QtQuick
import Orvelle

// The shelf: a grid of files, or the place to drop them.
FocusScope {
    id: root

    Keys.onPressed: event => {
        event.accepted = event.matches(StandardKey.Paste)
        if (event.accepted)
            shelf.paste()
    }

    FileShelfBinding {
        id: shelf
    }
    Loader {
        anchors.fill: parent
        focus: true
        sourceComponent: shelf.isEmpty ? emptyState : shelfGrid
    }

    Component {
        id: emptyState

        Item {
            id: place
            objectName: "emptyShelf"
            focus: true
            activeFocusOnTab: true
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Files")
            Accessible.description: shelf.emptyText.text
            Accessible.focusable: true
            Accessible.focused: activeFocus

            TapHandler {
                onTapped: {
                    place.forceActiveFocus()
                    shelf.takeKeyboard()
                }
            }
            DropOutline {
                objectName: "dropOutline"
                anchors.verticalCenter: parent.verticalCenter
                x: shelf.emptyPadding
                width: parent.width - 2 * x
                height: shelf.emptyHeight
                radius: shelf.emptyCornerRadius
                lineWidth: shelf.emptyLineWidth
                dash: shelf.emptyDash
                color: place.activeFocus && !shelf.isDropAwaited ? Style.focusColor
                                                                 : shelf.dropOutlineColor

                Column {
                    anchors.centerIn: parent
                    spacing: shelf.emptySpacing

                    PanelSymbol {
                        content: shelf.emptySymbol
                        anchors.horizontalCenter: parent.horizontalCenter
                    }
                    PanelText {
                        objectName: "emptyText"
                        content: shelf.emptyText
                        anchors.horizontalCenter: parent.horizontalCenter
                    }
                }
            }
        }
    }
    Component {
        id: shelfGrid

        FocusScope {
            focus: true

            // As many whole rows as have room, in the middle.
            FocusScope {
                id: shelfView

                readonly property int rows: Math.max(1, Math.floor((height + shelf.gridSpacing)
                                                                   / grid.cellHeight))

                objectName: "shelfView"
                focus: true
                width: parent.width
                anchors.top: parent.top
                anchors.bottom: shareAll.top
                anchors.bottomMargin: shelf.spacing

                ShelfGrid {
                    id: grid
                    objectName: "shelfGrid"
                    view: shelf
                    area: shelfView
                    focus: true
                    x: shelf.gridPadding
                    y: Math.max(0, Math.round((shelfView.height + shelf.gridSpacing - height) / 2))
                    columnsWidth: parent.width - 2 * x
                    height: shelfView.rows * cellHeight
                }
            }
            PlainButton {
                id: shareAll
                objectName: "shareAll"
                symbol: shelf.shareAllSymbol
                label: shelf.shareAllText
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.bottom: parent.bottom
                anchors.bottomMargin: shelf.shareAllBottomPadding
                onClicked: shelf.shareAll()
            }
            DropOutline {
                objectName: "dropHighlight"
                anchors.fill: parent
                visible: shelf.isDropAwaited
                radius: shelf.emptyCornerRadius
                lineWidth: shelf.emptyLineWidth
                dash: shelf.emptyDash
                color: shelf.dropOutlineColor
            }
        }
    }
}
