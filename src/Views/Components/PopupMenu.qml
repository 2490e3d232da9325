import QtQuick
import Orvelle

// A menu in a window of its own: inside the panel's it would be cut at the edges.
MenuWindow {
    id: root

    property var entries
    property int highlighted: -1

    function open(menu, position) {
        entries = menu
        highlighted = -1
        rows.forceLayout() // the window's size decides where it fits
        openAt(position)
    }
    function pick(row) {
        dismiss()
        entries.perform(row)
    }

    objectName: "menu"
    width: rows.width + 10
    height: rows.height + 10
    onStepped: direction => {
        const count = rows.count
        const from = highlighted < 0 && direction < 0 ? count : highlighted
        highlighted = (from + direction + count) % count
    }
    onConfirmed: if (highlighted >= 0) pick(highlighted)

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: Style.fillColor
        border.color: Style.edgeColor
    }
    Column {
        id: rows

        readonly property int count: root.entries ? root.entries.lines.length : 0

        x: 5
        y: 5
        Accessible.role: Accessible.PopupMenu
        Accessible.name: qsTr("Menu")

        Repeater {
            model: root.entries ? root.entries.lines : []

            Item {
                id: line

                required property int index
                required property var modelData
                readonly property real dividerHeight: modelData.followsDivider ? 9 : 0

                width: Math.max(rows.implicitWidth, implicitWidth)
                implicitWidth: row.implicitWidth
                implicitHeight: row.implicitHeight + dividerHeight

                Divider {
                    visible: line.modelData.followsDivider
                    x: 6
                    y: 4
                    width: parent.width - 12
                }
                MenuRow {
                    id: row
                    y: line.dividerHeight
                    width: parent.width
                    title: line.modelData.title
                    isChecked: line.modelData.isChecked
                    isDestructive: line.modelData.isDestructive
                    isHighlighted: root.highlighted === line.index
                    onEntered: root.highlighted = line.index
                    onPicked: root.pick(line.index)
                }
            }
        }
    }
}
