import QtQuick
import Orvelle

// One entry of a list: a text with a button before or behind it. What its pulls do, keys do too:
// space or return the leading one, delete the trailing one.
SwipeRow {
    id: root

    required property var entry

    implicitHeight: Math.max(text.implicitHeight, 16) + 10
    leading: entry.leading
    trailing: entry.trailing
    Accessible.role: Accessible.ListItem
    Accessible.name: entry.text.text
    Accessible.description: entry.isStruckThrough ? qsTr("completed") : ""
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Keys.onSpacePressed: leadingPerformed()
    Keys.onReturnPressed: leadingPerformed()
    Keys.onEnterPressed: leadingPerformed()
    Keys.onDeletePressed: trailingPerformed()
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace)
            return
        event.accepted = true
        trailingPerformed()
    }

    PanelButton {
        id: button
        objectName: "rowButton"
        x: root.entry.isButtonFirst ? 8 : root.width - width - 8
        width: 16
        height: 16
        anchors.verticalCenter: parent.verticalCenter
        content: root.entry.button
        name: help
        help: root.entry.help
        activeFocusOnTab: false
        onClicked: root.leadingPerformed()
    }
    PanelText {
        id: text
        objectName: "rowText"
        x: root.entry.isButtonFirst ? button.x + button.width + 8 : 10
        width: root.width - x - (root.entry.isButtonFirst ? 10 : button.width + 16)
        anchors.verticalCenter: parent.verticalCenter
        content: root.entry.text
        wrapMode: Text.Wrap
        font.strikeout: root.entry.isStruckThrough
    }
}
