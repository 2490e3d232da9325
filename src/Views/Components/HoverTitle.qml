import QtQuick
import Orvelle

// An icon and a title, which gives way at its end when room is short.
Item {
    id: root

    property var widget
    readonly property real naturalWidth: title.x + titleWidth
    readonly property real titleWidth: title.implicitWidth
    readonly property string summary: title.text

    implicitWidth: naturalWidth
    implicitHeight: Math.max(icon.height, title.height)

    PanelSymbol {
        id: icon
        content: root.widget.icon
        anchors.verticalCenter: parent.verticalCenter
    }
    PanelText {
        id: title
        objectName: "text"
        x: icon.width + root.widget.spacing
        width: Math.max(0, root.width - x)
        content: root.widget.texts[0]
        anchors.verticalCenter: parent.verticalCenter
    }
}
