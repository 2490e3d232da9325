import QtQuick
import Orvelle

// An icon and texts in a row, each as wide as it is. Texts without room are left out, the last
// first; the icon stays, and without one the first text.
Row {
    id: root

    property var widget
    property int keptTexts: textWidths.length
    readonly property real naturalWidth: textWidths.reduce((sum, width) => sum + width, fixedWidth)
    readonly property real fixedWidth: icon.active ? icon.width : widthOf(0)
    readonly property var textWidths: {
        const widths = []
        for (let index = icon.active ? 0 : 1; index < texts.count; ++index)
            widths.push(spacing + widthOf(index))
        return widths
    }
    readonly property real titleWidth: 0
    readonly property string summary: widget.texts.map(text => text.text).join(" ")

    function widthOf(index) {
        const text = texts.count > index ? texts.itemAt(index) : null
        return text ? text.implicitWidth : 0
    }

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
        id: texts
        model: root.widget.texts

        PanelText {
            required property var modelData
            required property int index

            objectName: "text"
            visible: index < root.keptTexts + (icon.active ? 0 : 1)
            content: modelData
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
