import QtQuick
import Orvelle

// A rounded field with a line of text to type.
FocusScope {
    id: root

    property alias prompt: field.prompt
    property string text
    signal typed(string text)
    signal accepted

    // The field's own text is the user's; this brings in what others set.
    onTextChanged: if (field.text !== text) field.text = text
    implicitHeight: 26
    Keys.onEscapePressed: event => {
        event.accepted = field.text !== ""
        field.text = ""
    }

    Rectangle {
        anchors.fill: parent
        radius: FormStyle.cornerRadius
        color: FormStyle.wellColor
        border.color: FormStyle.edgeColor
    }
    FocusRing {
        shown: field.activeFocus
    }
    // The room around the text belongs to the field.
    TapHandler {
        onTapped: field.forceActiveFocus(Qt.MouseFocusReason)
    }
    PanelField {
        id: field
        anchors.fill: parent
        anchors.leftMargin: 9
        anchors.rightMargin: 9
        focus: true
        content: FormStyle.fieldText
        promptColor: FormStyle.tertiaryColor
        onTextChanged: root.typed(text)
        onAccepted: root.accepted()
    }
}
