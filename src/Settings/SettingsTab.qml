import QtQuick
import QtQuick.Templates as T
import Orvelle

// One tab of the settings: its symbol over its title.
T.TabButton {
    id: root

    property var tab
    property bool isChosen: false
    property color accentColor
    signal stepped(int step)

    objectName: "tab." + tab.title
    width: 84
    height: 48
    focus: isChosen
    focusPolicy: Qt.ClickFocus // the bar is what Tab leads to
    text: tab.title
    checked: isChosen
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: isChosen
    Accessible.onPressAction: clicked()
    Keys.onLeftPressed: stepped(-1)
    Keys.onRightPressed: stepped(1)
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        radius: FormStyle.cornerRadius + 1
        color: root.isChosen ? FormStyle.selectedColor
               : pointer.hovered ? FormStyle.hoverColor : "transparent"

        HoverHandler {
            id: pointer
        }
        FocusRing {
            anchors.margins: 0
            radius: parent.radius
            control: root
        }
    }
    contentItem: Item {
        Item {
            y: 7
            width: parent.width
            height: 20

            Symbol {
                anchors.centerIn: parent
                name: root.tab.symbol
                size: 17
                color: root.isChosen ? root.accentColor : FormStyle.secondaryColor
            }
        }
        Text {
            y: 29
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: root.text
            textFormat: Text.PlainText
            font.pixelSize: FormStyle.noteSize
            color: root.isChosen ? FormStyle.textColor : FormStyle.secondaryColor
        }
    }
}
