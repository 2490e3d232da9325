import QtQuick
import Orvelle

// The mirror in the hover bar.
PanelSymbol {
    property var widget
    readonly property real naturalWidth: implicitWidth
    readonly property real titleWidth: 0
    readonly property string summary: ""

    objectName: "mirrorSymbol"
    content: view.icon

    MirrorCollapsedBinding {
        id: view
    }
}
