import QtQuick
import Orvelle

// The local time over a row of other cities.
Item {
    id: root

    TimeExpandedBinding {
        id: view
    }
    Column {
        width: parent.width
        anchors.verticalCenter: parent.verticalCenter

        PanelText {
            objectName: "localTime"
            content: view.localTime
            anchors.horizontalCenter: parent.horizontalCenter
        }
        PanelText {
            objectName: "localDate"
            content: view.localDate
            anchors.horizontalCenter: parent.horizontalCenter
        }
        PanelText {
            objectName: "localTimezone"
            content: view.localTimezone
            anchors.horizontalCenter: parent.horizontalCenter
        }
        Item {
            width: parent.width
            height: line.height + 2 * view.dividerPadding

            Divider {
                id: line
                width: parent.width - 2 * view.dividerPadding
                anchors.centerIn: parent
            }
        }
        Row {
            width: parent.width

            Repeater {
                id: cards
                model: view.cards

                Column {
                    id: card

                    required property var entry

                    objectName: "card." + entry.cityName.text
                    width: root.width / cards.count

                    PanelText {
                        content: card.entry.cityName
                        anchors.horizontalCenter: parent.horizontalCenter
                    }
                    PanelText {
                        content: card.entry.timeString
                        anchors.horizontalCenter: parent.horizontalCenter
                    }
                    PanelText {
                        content: card.entry.offsetLabel
                        anchors.horizontalCenter: parent.horizontalCenter
                    }
                }
            }
        }
    }
}
