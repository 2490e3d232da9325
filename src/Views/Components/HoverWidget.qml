import QtQuick
import Orvelle

// A widget of the hover bar with the room around it that takes the click.
MouseArea {
    id: root

    property var widget

    objectName: "widget." + widget.id
    implicitWidth: content.implicitWidth + 2 * widget.padding
    implicitHeight: content.implicitHeight + 2 * widget.padding
    Accessible.role: Accessible.Button
    Accessible.name: widget.name
    Accessible.description: content.item ? content.item.summary : ""
    Accessible.onPressAction: clicked(null)

    Loader {
        id: content
        anchors.centerIn: parent
        width: Math.min(implicitWidth, root.width - 2 * root.widget.padding)
        Component.onCompleted: setSource(root.widget.source, {
            widget: Qt.binding(() => root.widget)
        })
    }
}
