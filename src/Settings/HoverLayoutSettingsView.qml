import QtQuick
import Orvelle

// The widgets of the hover bar, zone by zone.
FormPage {
    id: root

    // The widget that its picker has just moved, whose picker keeps the keyboard.
    property string moving

    HoverLayoutSettingsBinding {
        id: view
    }
    FormTitle {
        text: view.title
        leftPadding: 12
        bottomPadding: 3
    }
    FormNote {
        width: parent.width
        text: view.explanation
        leftPadding: 12
    }
    Repeater {
        model: view.zones

        Column {
            id: zone

            required property var modelData

            objectName: "zone." + modelData.value
            width: parent.width

            FormTitle {
                text: zone.modelData.label
                leftPadding: 12
                topPadding: 14
                font.pixelSize: 12
                color: FormStyle.secondaryColor
            }
            Rectangle {
                width: parent.width
                height: Math.max(list.height, list.rowHeight) + 6
                radius: FormStyle.groupRadius
                color: FormStyle.groupColor
                border.color: FormStyle.edgeColor

                Text {
                    objectName: "empty"
                    anchors.centerIn: parent
                    visible: list.count === 0
                    text: view.emptyText
                    textFormat: Text.PlainText
                    font.pixelSize: 12
                    color: FormStyle.tertiaryColor
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    Accessible.ignored: !visible
                }
                ReorderList {
                    id: list
                    page: root
                    y: 3
                    width: parent.width
                    name: zone.modelData.label
                    model: view.rows(zone.modelData.value)
                    onMoved: (from, to) => view.move(zone.modelData.value, from, to)
                    delegate: ReorderRow {
                        id: row
                        owner: list
                        name: entry.name.text

                        Item {
                            width: view.symbolWidth
                            height: parent.height

                            PanelSymbol {
                                anchors.centerIn: parent
                                content: row.entry.symbol
                            }
                        }
                        PanelText {
                            x: view.symbolWidth + 8
                            anchors.verticalCenter: parent.verticalCenter
                            content: row.entry.name
                        }
                        FormPicker {
                            id: picker
                            objectName: "zonePicker"
                            anchors.right: toggle.left
                            anchors.rightMargin: 14
                            anchors.verticalCenter: parent.verticalCenter
                            width: view.pickerWidth
                            name: qsTr("Zone of %1").arg(row.name)
                            choices: view.zones
                            choice: row.entry.zone
                            onChosen: value => {
                                root.moving = row.entry.id
                                view.changeZone(row.entry.id, value)
                            }
                            Component.onCompleted: {
                                if (root.moving !== row.entry.id)
                                    return
                                root.moving = ""
                                forceActiveFocus(Qt.OtherFocusReason)
                            }
                        }
                        FormSwitch {
                            id: toggle
                            objectName: "shown"
                            anchors.right: parent.right
                            anchors.verticalCenter: parent.verticalCenter
                            name: qsTr("Show %1").arg(row.name)
                            isOn: row.entry.isVisible
                            accentColor: view.accentColor
                            onFlipped: on => view.setVisible(row.entry.id, on)
                        }
                    }
                }
            }
        }
    }
    Item {
        width: parent.width
        height: 44

        FormButton {
            objectName: "reset"
            anchors.centerIn: parent
            plain: true
            text: view.resetText
            textSize: view.resetTextSize
            textColor: FormStyle.dangerColor
            onClicked: view.reset()
        }
    }
}
