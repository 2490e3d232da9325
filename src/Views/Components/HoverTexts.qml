import QtQuick
import Orvelle

// An icon and texts in a row.
Row {
    id: root

    property var widget
    readonly property string summary: widget.texts.map(text => text.text).join(" ")

    spacing: widget.spacing

    Loader {
        id: icon
        active: !!root.widget.icon
        visible: active
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: PanelSymbol {
            content: root.widget.icon
        }
    }
    Repeater {
        model: root.widget.texts

        PanelText {
            required property var modelData

            content: modelData
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.width - x)
            elide: root.widget.truncatesTail ? Text.ElideRight : Text.ElideNone
        }
    }
}
