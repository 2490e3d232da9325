import QtQuick
import Orvelle

// The hover bar: a wing on either side of the notch, and a row of widgets below.
MouseArea {
    id: root

    objectName: "hoverBar"
    onClicked: view.expand()
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Open the panel")
    Accessible.onPressAction: view.expand()

    NotchCollapsedBinding {
        id: view
    }

    readonly property real wingWidth: (width - 2 * view.horizontalPadding - view.notchSpacerWidth) / 2
    readonly property bool hasBottomRow: bottomRow.count > 0

    // Both lines together stand in the middle of the bar's height.
    readonly property real lineHeight: view.topPadding + view.wingHeight
    readonly property real topLine: (height - lineHeight - (hasBottomRow ? bottomRow.height : 0)
                                 - view.bottomPadding) / 2

    Item {
        x: view.horizontalPadding
        y: root.topLine + view.topPadding
        width: parent.width - 2 * x
        height: view.wingHeight

        Item {
            objectName: "leftWing"
            width: root.wingWidth
            height: parent.height

            WidgetRow {
                anchors.verticalCenter: parent.verticalCenter
                model: view.leftWing
                available: parent.width
                spacing: view.leftWingSpacing
                onPicked: panel => view.expandToPanel(panel)
                onPlayPause: view.playPause()
            }
        }
        Item {
            objectName: "rightWing"
            anchors.right: parent.right
            width: root.wingWidth
            height: parent.height

            WidgetRow {
                anchors.right: parent.right
                anchors.rightMargin: view.rightWingTrailingPadding
                anchors.verticalCenter: parent.verticalCenter
                model: view.rightWing
                available: parent.width - view.rightWingTrailingPadding
                spacing: view.rightWingSpacing
                onPicked: panel => view.expandToPanel(panel)
                onPlayPause: view.playPause()
            }
        }
    }
    WidgetRow {
        id: bottomRow
        objectName: "bottomRow"
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.topLine + root.lineHeight
        model: view.bottomRow
        available: parent.width - 2 * view.horizontalPadding
        spacing: view.bottomRowSpacing
        separatorWidth: view.separatorSize.width
        separator: Rectangle {
            objectName: "separator"
            width: view.separatorSize.width
            height: view.separatorSize.height
            radius: width / 2
            color: view.separatorColor
        }
        onPicked: panel => view.expandToPanel(panel)
        onPlayPause: view.playPause()
    }
}
