import QtQuick
import QtQuick.Templates as T
import Orvelle

// A list that drops down; `choices` have a `value` and a `label`, and `chosen` asks for another one.
T.ComboBox {
    id: root

    property string name
    property var choices: []
    property string choice
    signal chosen(string value)

    implicitWidth: 130
    implicitHeight: 24
    leftPadding: 10
    rightPadding: 26
    focusPolicy: Qt.StrongFocus
    model: choices
    textRole: "label"
    currentIndex: choices.findIndex(entry => entry.value === choice)
    Accessible.role: Accessible.ComboBox
    Accessible.name: name
    onActivated: index => chosen(choices[index].value)
    // The toolkit takes from an open list at the key's release, so that a closed one opens there.
    Keys.onReleased: event => {
        if (popup.visible || event.key !== Qt.Key_Return && event.key !== Qt.Key_Enter)
            return
        event.accepted = true
        popup.open()
    }

    background: Rectangle {
        radius: FormStyle.cornerRadius
        color: root.down ? FormStyle.pressedColor : FormStyle.controlColor

        FocusRing {
            control: root
        }
    }
    contentItem: Text {
        text: root.displayText
        textFormat: Text.PlainText
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
        font.pixelSize: 12
        color: FormStyle.textColor
    }
    indicator: Symbol {
        x: root.width - width - 9
        y: (root.height - height) / 2
        name: "chevron.up.chevron.down"
        size: 11
        color: FormStyle.secondaryColor
    }
    delegate: T.ItemDelegate {
        id: option

        required property int index
        required property var modelData
        readonly property bool isChosen: root.currentIndex === index

        width: ListView.view.width
        height: 26
        highlighted: root.highlightedIndex === index
        text: modelData.label
        Accessible.role: Accessible.ListItem
        Accessible.name: text
        Accessible.selected: isChosen

        background: Rectangle {
            radius: FormStyle.cornerRadius - 2
            color: option.highlighted ? FormStyle.selectedColor : "transparent"
        }
        contentItem: Item {
            Symbol {
                x: 8
                anchors.verticalCenter: parent.verticalCenter
                visible: option.isChosen
                name: "checkmark"
                size: 11
                color: FormStyle.textColor
            }
            Text {
                x: 26
                anchors.verticalCenter: parent.verticalCenter
                text: option.text
                textFormat: Text.PlainText
                font.pixelSize: 12
                color: FormStyle.textColor
            }
        }
    }
    popup: T.Popup {
        y: root.height + 3
        width: Math.max(root.width, 130)
        height: contentItem.implicitHeight + 2 * padding
        padding: 4
        margins: 6
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

        background: Rectangle {
            radius: FormStyle.cornerRadius + 2
            color: FormStyle.popupColor
            border.color: FormStyle.edgeColor
        }
        contentItem: ListView {
            implicitHeight: contentHeight
            interactive: false
            currentIndex: root.highlightedIndex
            model: root.popup.visible ? root.delegateModel : null
            Accessible.role: Accessible.List
            Accessible.name: root.name
        }
    }
}
