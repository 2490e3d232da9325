import QtQuick
import Orvelle

// A widget of the hover bar. All of it takes the click, with the room around its content, unless
// the content has targets of its own.
TapTarget {
    id: root

    property var widget
    readonly property real naturalWidth: (content.item ? content.item.naturalWidth : 0)
                                         + 2 * widget.padding
    // The part of that which may be cut.
    readonly property real titleWidth: content.item ? content.item.titleWidth : 0
    // What can be left out of it, and how much of that has room.
    readonly property var textWidths: content.item?.textWidths ?? []
    property int keptTexts: textWidths.length
    signal picked
    signal playPause

    objectName: "widget." + widget.id
    implicitHeight: content.implicitHeight + 2 * widget.padding
    name: widget.name
    acceptedButtons: widget.isTapTarget ? Qt.LeftButton : Qt.NoButton
    Accessible.ignored: !widget.isTapTarget
    Accessible.description: content.item ? content.item.summary : ""
    onClicked: picked()

    Loader {
        id: content
        anchors.verticalCenter: parent.verticalCenter
        x: root.widget.padding
        width: root.width - 2 * root.widget.padding
        opacity: root.widget.opacity
        Component.onCompleted: setSource(root.widget.source, {
            widget: Qt.binding(() => root.widget)
        })
    }
    Binding {
        target: content.item
        when: root.textWidths.length > 0
        property: "keptTexts"
        value: root.keptTexts
    }
    Connections {
        target: content.item
        ignoreUnknownSignals: true
        function onPicked() {
            root.picked()
        }
        function onPlayPause() {
            root.playPause()
        }
    }
}
