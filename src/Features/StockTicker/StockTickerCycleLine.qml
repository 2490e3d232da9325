import QtQuick
import Orvelle

// A symbol with its figures, or a spinner until they come. Where the room is short, the percent goes
// first; then the symbol is cut.
Row {
    id: root

    property var content
    property var spinner
    property real excess: 0 // by how much the whole is wider than its room
    readonly property var figures: content ? content.figures : undefined
    readonly property var missing: content ? content.missing : undefined
    readonly property real percentWidth: figures ? percent.implicitWidth + spacing : 0
    readonly property real titleWidth: content ? symbol.implicitWidth + percentWidth : 0
    readonly property real naturalWidth: titleWidth + spacing + rest.width
    readonly property string summary: {
        if (!content)
            return ""
        const texts = figures ? [figures.price, figures.arrow, figures.percent]
                      : missing ? [missing] : []
        return [content.symbol].concat(texts).map(text => text.text).join(" ")
    }

    Loader {
        id: symbol
        active: !!root.content
        width: Math.max(0, implicitWidth - Math.max(0, root.excess - root.percentWidth))
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: PanelText {
            objectName: "text"
            content: root.content.symbol
        }
    }
    Row {
        id: rest
        spacing: root.spacing
        anchors.verticalCenter: parent.verticalCenter

        Repeater {
            model: root.figures ? [root.figures.price, root.figures.arrow]
                   : root.missing ? [root.missing] : []

            PanelText {
                required property var modelData

                content: modelData
                anchors.verticalCenter: parent.verticalCenter
            }
        }
        Loader {
            active: !!root.content && !root.figures && !root.missing
            visible: active
            anchors.verticalCenter: parent.verticalCenter
            sourceComponent: ProgressSpinner {
                spinner: root.spinner
            }
        }
    }
    Loader {
        id: percent
        objectName: "percent"
        active: !!root.figures
        visible: active && root.excess <= 0
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: PanelText {
            content: root.figures.percent
        }
    }
}
