import QtQuick
import Orvelle

// One step of the wizard, in the middle of its room.
Item {
    id: root

    property var content
    property color accentColor
    property real tipSymbolWidth
    signal action
    signal toggled(bool on)

    Column {
        anchors.centerIn: parent
        width: parent.width
        spacing: 12

        PanelSymbol {
            objectName: "stepSymbol"
            content: root.content.symbol
            anchors.horizontalCenter: parent.horizontalCenter
        }
        PanelText {
            objectName: "stepTitle"
            content: root.content.title
            anchors.horizontalCenter: parent.horizontalCenter
            Accessible.role: Accessible.Heading
        }
        Repeater {
            model: root.content.paragraphs

            PanelText {
                content: modelData.text
                width: Math.min(implicitWidth, modelData.maximumWidth)
                anchors.horizontalCenter: parent.horizontalCenter
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                lineHeight: 1.15
            }
        }
        FormButton {
            objectName: "stepButton"
            visible: !!root.content.button
            text: root.content.button || ""
            anchors.horizontalCenter: parent.horizontalCenter
            onClicked: root.action()
        }
        Row {
            visible: !!root.content.toggle
            spacing: 10
            anchors.horizontalCenter: parent.horizontalCenter

            FormSwitch {
                id: toggle
                objectName: "stepToggle"
                isOn: root.content.isOn
                name: root.content.title.text
                accentColor: root.accentColor
                anchors.verticalCenter: parent.verticalCenter
                onFlipped: on => root.toggled(on)
            }
            Text {
                text: root.content.toggle || ""
                textFormat: Text.PlainText
                font.pixelSize: FormStyle.textSize
                color: FormStyle.textColor
                anchors.verticalCenter: parent.verticalCenter

                TapHandler {
                    onTapped: root.toggled(!root.content.isOn)
                }
            }
        }
        Loader {
            active: !!root.content.status
            visible: active
            anchors.horizontalCenter: parent.horizontalCenter
            sourceComponent: PanelText {
                objectName: "stepStatus"
                content: root.content.status
            }
        }
        Loader {
            active: !!root.content.note
            visible: active
            anchors.horizontalCenter: parent.horizontalCenter
            sourceComponent: PanelText {
                objectName: "stepNote"
                content: root.content.note
            }
        }
        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 8
            topPadding: visible ? 4 : 0
            visible: root.content.tips.length > 0

            Repeater {
                model: root.content.tips

                Row {
                    spacing: 10

                    Item {
                        width: root.tipSymbolWidth
                        height: tip.height

                        PanelSymbol {
                            content: modelData.symbol
                            anchors.centerIn: parent
                        }
                    }
                    PanelText {
                        id: tip
                        content: modelData.text
                    }
                }
            }
        }
    }
}
