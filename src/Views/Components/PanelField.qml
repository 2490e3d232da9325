import QtQuick
import Orvelle

// A line of text to type. Its content is its style.
FocusScope {
    id: root

    property var content
    property string prompt
    property color promptColor
    property alias text: input.text
    // The room beside the text takes presses for it.
    property real leftPadding: 0
    property real rightPadding: 0
    // In words, once nothing more fits; what was pasted may have been cut.
    readonly property string notice:
        input.length < input.maximumLength ? "" :
        qsTr("No more than %L1 characters fit").arg(input.maximumLength)
    signal accepted
    signal pressed

    function type(text) {
        input.remove(input.selectionStart, input.selectionEnd)
        input.insert(input.cursorPosition, text)
    }
    // The text's place under a place of the field.
    function placeAt(mouse) {
        return input.positionAt(mouse.x - input.x, input.height / 2)
    }
    // What was taken away around the field, where nothing typed can be undone. False without it.
    function takeBack() {
        for (let ancestor = parent; ancestor; ancestor = ancestor.parent)
            if (ancestor.takeBack)
                return ancestor.takeBack()
        return false
    }

    implicitHeight: input.implicitHeight

    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.IBeamCursor
        onPressed: mouse => {
            input.forceActiveFocus(Qt.MouseFocusReason)
            input.cursorPosition = root.placeAt(mouse)
            root.pressed()
        }
        onPositionChanged: mouse => input.moveCursorSelection(root.placeAt(mouse))
    }
    TextInput {
        id: input
        objectName: "field"
        x: root.leftPadding
        width: parent.width - x - root.rightPadding
        anchors.verticalCenter: parent.verticalCenter
        focus: true
        activeFocusOnTab: true
        clip: true
        selectByMouse: true
        maximumLength: Style.longestInput
        color: root.content.color
        selectionColor: Style.selectionColor
        selectedTextColor: color
        font.pixelSize: root.content.size
        font.weight: root.content.weight
        Accessible.role: Accessible.EditableText
        Accessible.name: root.prompt
        Accessible.focusable: true
        onAccepted: root.accepted()

        TapHandler {
            onPressedChanged: {
                if (pressed)
                    root.pressed()
            }
        }
        Keys.onPressed: event => {
            event.accepted = true
            if (event.matches(StandardKey.Paste))
                clipboard.paste()
            else if (!event.matches(StandardKey.Undo) || canUndo || !root.takeBack())
                event.accepted = false
        }
    }
    Text {
        anchors.fill: input
        visible: input.length === 0 && input.preeditText === ""
        text: root.prompt
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: root.promptColor
        font: input.font
    }
    // The field would wait for the selection's owner.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.MiddleButton
        cursorShape: Qt.IBeamCursor
        onPressed: {
            input.forceActiveFocus(Qt.MouseFocusReason)
            root.pressed()
        }
        onReleased: mouse => {
            input.deselect()
            input.cursorPosition = root.placeAt(mouse)
            clipboard.pasteSelection()
        }
    }
    FieldClipboard {
        id: clipboard
        field: input
        onPasted: text => root.type(text)
    }
}
