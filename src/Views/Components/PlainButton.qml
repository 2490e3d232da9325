import QtQuick
import Orvelle

// A button that is its symbol and its text alone.
Row {
    id: root

    property var symbol
    property var label
    signal clicked

    spacing: 4
    opacity: pointer.pressed ? 0.6 : 1
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: label.text
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: clicked()
    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    PanelSymbol {
        content: root.symbol
        anchors.verticalCenter: parent.verticalCenter
    }
    PanelText {
        content: root.label
        font.underline: root.activeFocus
        anchors.verticalCenter: parent.verticalCenter
        Accessible.ignored: true // the button bears it
    }
    TapHandler {
        id: pointer
        onTapped: root.clicked()
    }
}
