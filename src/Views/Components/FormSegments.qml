import QtQuick
import QtQuick.Templates as T
import Orvelle

// A few choices side by side, one of them taken. The arrow keys take the next one.
FocusScope {
    id: root

    property string name
    property var choices: []
    property string choice
    signal chosen(string value)

    function take(index) {
        if (index < 0 || index >= choices.length)
            return
        chosen(choices[index].value)
        segments.itemAt(index).forceActiveFocus(Qt.TabFocusReason)
    }

    implicitWidth: row.width + 4
    implicitHeight: 24
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: name

    Rectangle {
        anchors.fill: parent
        radius: FormStyle.cornerRadius
        color: FormStyle.wellColor
    }
    Row {
        id: row
        x: 2
        y: 2

        Repeater {
            id: segments
            model: root.choices

            T.RadioButton {
                id: segment

                required property int index
                required property var modelData
                readonly property bool isTaken: modelData.value === root.choice

                width: 52
                height: root.height - 4
                focus: isTaken
                focusPolicy: Qt.ClickFocus // the row of them is what Tab leads to
                text: modelData.label
                checked: isTaken
                onClicked: root.take(index)
                Accessible.name: text
                Accessible.onPressAction: clicked()
                Keys.onLeftPressed: root.take(index - 1)
                Keys.onRightPressed: root.take(index + 1)

                background: Rectangle {
                    radius: FormStyle.cornerRadius - 1
                    color: segment.isTaken ? FormStyle.pressedColor : "transparent"

                    FocusRing {
                        control: segment
                    }
                }
                contentItem: Text {
                    text: segment.text
                    textFormat: Text.PlainText
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    font.pixelSize: 12
                    color: segment.isTaken ? FormStyle.textColor : FormStyle.secondaryColor
                }
            }
        }
    }
}
