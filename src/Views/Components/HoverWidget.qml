import QtQuick
import Orvelle

// A widget of the hover bar with the room around it that takes the click.
MouseArea {
    id: root

    property var widget
    readonly property real naturalWidth: (content.item ? content.item.naturalWidth : 0)
                                         + 2 * widget.padding

    objectName: "widget." + widget.id
    implicitHeight: content.implicitHeight + 2 * widget.padding
    Accessible.role: Accessible.Button
    Accessible.name: widget.name
    Accessible.description: content.item ? content.item.summary : ""
    Accessible.onPressAction: clicked(null)

    Loader {
        id: content
        anchors.verticalCenter: parent.verticalCenter
        x: root.widget.padding
        width: root.width - 2 * root.widget.padding
        opacity: root.pressed ? 0.6 : 1
        Component.onCompleted: setSource(root.widget.source, {
            widget: Qt.binding(() => root.widget)
        })
    }
}
