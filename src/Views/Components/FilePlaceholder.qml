import QtQuick
import Orvelle

// What stands in the middle of a panel that has nothing to show.
Item {
    id: root

    property var placeholder

    Column {
        anchors.centerIn: parent
        spacing: root.placeholder.spacing

        PanelSymbol {
            content: root.placeholder.symbol
            anchors.horizontalCenter: parent.horizontalCenter
        }
        PanelText {
            objectName: "placeholderTitle"
            content: root.placeholder.title
            anchors.horizontalCenter: parent.horizontalCenter
        }
    }
}
