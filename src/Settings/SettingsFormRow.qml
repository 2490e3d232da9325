import QtQuick
import Orvelle

// One row of a page: the ground of its group behind it, and what its kind calls for.
Item {
    id: root

    required property var entry
    property var view
    readonly property real padding: 12
    readonly property real radius: FormStyle.groupRadius

    objectName: "row." + entry.id
    implicitHeight: body.item ? body.item.height : 0
    clip: true

    // The ground's corners are round where the group begins and ends, and cut off elsewhere.
    Rectangle {
        visible: root.entry.isInGroup
        y: root.entry.isFirst ? 0 : -root.radius
        width: parent.width
        height: parent.height - y + (root.entry.isLast ? 0 : root.radius)
        radius: root.radius
        color: FormStyle.groupColor
        border.color: FormStyle.edgeColor
    }
    Rectangle {
        visible: root.entry.isInGroup && !root.entry.isFirst
        x: root.padding + root.entry.indent
        width: parent.width - x - 1
        height: 1
        color: FormStyle.edgeColor
    }
    Loader {
        id: body
        x: root.padding + root.entry.indent
        width: parent.width - x - root.padding
        sourceComponent: ({
            title: title, footnote: footnote, text: text, toggle: toggle, slider: slider,
            picker: picker, segments: segments, swatch: swatch, action: action, place: place,
            found: found, search: search, about: about
        })[root.entry.kind]
    }

    Component {
        id: title
        FormTitle {
            text: root.entry.label
        }
    }
    Component {
        id: footnote
        FormNote {
            text: root.entry.label
            topPadding: 6
        }
    }
    Component {
        id: text
        FormNote {
            text: root.entry.label
            topPadding: 9
            bottomPadding: 9
        }
    }
    Component {
        id: toggle
        FormLine {
            label: root.entry.label
            isToldByControl: true
            onLabelClicked: root.view.flip(root.entry.id, !root.entry.isOn)

            FormSwitch {
                objectName: "control"
                anchors.verticalCenter: parent.verticalCenter
                name: root.entry.label
                isOn: root.entry.isOn
                accentColor: root.view.accentColor
                onFlipped: on => root.view.flip(root.entry.id, on)
            }
        }
    }
    Component {
        id: slider
        SettingsSliderRow {
            row: root.entry
            accentColor: root.view.accentColor
            onSlid: value => root.view.slide(root.entry.id, value)
        }
    }
    Component {
        id: picker
        FormLine {
            label: root.entry.label
            isToldByControl: true

            FormPicker {
                objectName: "control"
                anchors.verticalCenter: parent.verticalCenter
                name: root.entry.label
                choices: root.entry.choices
                choice: root.entry.choice
                onChosen: value => root.view.choose(root.entry.id, value)
            }
        }
    }
    Component {
        id: segments
        FormLine {
            label: root.entry.label
            isToldByControl: true

            FormSegments {
                objectName: "control"
                anchors.verticalCenter: parent.verticalCenter
                name: root.entry.label
                choices: root.entry.choices
                choice: root.entry.choice
                onChosen: value => root.view.choose(root.entry.id, value)
            }
        }
    }
    Component {
        id: swatch
        Item {
            implicitHeight: 34

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: FormStyle.swatchDiameter
                height: width
                radius: width / 2
                color: root.entry.color
                Accessible.role: Accessible.Graphic
                Accessible.name: root.entry.label
            }
        }
    }
    Component {
        id: action
        FormLine {
            symbol: root.entry.symbol
            label: root.entry.label
            detail: root.entry.detail
            isDimmed: root.entry.isDimmed

            FormButton {
                objectName: "control"
                anchors.verticalCenter: parent.verticalCenter
                text: root.entry.button
                textColor: root.entry.isDestructive ? FormStyle.dangerColor : FormStyle.textColor
                onClicked: root.view.press(root.entry.id)
            }
        }
    }
    Component {
        id: place
        FormLine {
            label: root.entry.label

            PanelButton {
                objectName: "control"
                anchors.verticalCenter: parent.verticalCenter
                content: root.entry.symbol
                name: root.entry.button
                onClicked: root.view.press(root.entry.id)
            }
        }
    }
    Component {
        id: found
        SettingsFoundRow {
            row: root.entry
            onClicked: root.view.press(root.entry.id)
        }
    }
    Component {
        id: search
        SettingsSearchRow {
            row: root.entry
            onTyped: text => root.view.type(root.entry.id, text)
            onSearched: root.view.press(root.entry.id)
        }
    }
    Component {
        id: about
        Column {
            topPadding: 20
            spacing: 2

            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: root.entry.label
                textFormat: Text.PlainText
                font.pixelSize: FormStyle.textSize
                font.weight: Font.DemiBold
                color: FormStyle.secondaryColor
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: root.entry.detail
                textFormat: Text.PlainText
                font.pixelSize: FormStyle.noteSize
                color: FormStyle.tertiaryColor
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
}
