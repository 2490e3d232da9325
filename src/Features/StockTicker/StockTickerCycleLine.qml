import QtQuick
import Orvelle

// A symbol with its figures, or a spinner until they come. Where the room is short, the symbol gives
// way.
Row {
    id: root

    property var content
    property var spinner
    property real excess: 0 // by how much the whole is wider than its room
    readonly property var figures: content ? content.figures : undefined
    readonly property var missing: content ? content.missing : undefined
    readonly property real titleWidth: content ? symbol.implicitWidth : 0
    readonly property real naturalWidth: titleWidth + spacing + quote.width
    readonly property string summary: !content ? ""
            : missing ? content.symbol.text + " " + missing.text
            : !figures ? content.symbol.text
            : [content.symbol, figures.price, figures.arrow, figures.percent]
                  .map(text => text.text).join(" ")

    Loader {
        id: symbol
        active: !!root.content
        width: Math.max(0, implicitWidth - root.excess)
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: PanelText {
            objectName: "text"
            content: root.content.symbol
        }
    }
    Row {
        id: quote
        spacing: root.spacing
        anchors.verticalCenter: parent.verticalCenter

        Repeater {
            model: root.figures
                   ? [root.figures.price, root.figures.arrow, root.figures.percent]
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
}
