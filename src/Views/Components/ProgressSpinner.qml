import QtQuick

// A wheel of eight spokes that turns in steps while it can be seen.
Item {
    id: root

    property var spinner
    property int step: 0
    readonly property int spokes: 8

    implicitWidth: spinner.frame
    implicitHeight: spinner.frame
    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("Loading")

    Repeater {
        model: root.spokes

        Item {
            required property int index

            anchors.centerIn: parent
            width: root.spinner.size
            height: width
            rotation: index * 360 / root.spokes
            // The spoke at the step is the brightest, those before it fade out.
            opacity: 0.15 + 0.6 * ((index - root.step + root.spokes - 1) % root.spokes + 1)
                     / root.spokes

            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.max(1, parent.width * 0.09)
                height: parent.height * 0.26
                radius: width / 2
                color: "white"
                antialiasing: true
            }
        }
    }
    Timer {
        interval: 100
        repeat: true
        running: root.visible
        onTriggered: root.step = (root.step + 1) % root.spokes
    }
}
