import QtQuick
import Orvelle

// A line of a group: what it is about on the left, its control on the right.
Item {
    id: root

    property var symbol
    property string label
    property string detail
    property bool isDimmed: false
    // The control bears the label, so that it is not told twice.
    property bool isToldByControl: false
    signal labelClicked
    default property alias control: trailing.data

    implicitHeight: 40

    Row {
        id: leading
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Loader {
            active: !!root.symbol
            visible: active
            anchors.verticalCenter: parent.verticalCenter
            sourceComponent: PanelSymbol {
                content: root.symbol
            }
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 1

            Text {
                width: Math.min(implicitWidth, root.width - trailing.width - 40)
                text: root.label
                textFormat: Text.PlainText
                elide: Text.ElideRight
                font.pixelSize: FormStyle.textSize
                color: root.isDimmed ? FormStyle.tertiaryColor : FormStyle.textColor
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Accessible.ignored: root.isToldByControl || text === ""
            }
            Text {
                visible: text !== ""
                text: root.detail
                textFormat: Text.PlainText
                font.pixelSize: FormStyle.noteSize
                color: FormStyle.secondaryColor
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
    Item {
        width: trailing.x
        height: root.height

        TapHandler {
            onTapped: root.labelClicked()
        }
    }
    Row {
        id: trailing
        x: root.label === "" ? 0 : root.width - width
        height: root.height
        spacing: 8
    }
}
