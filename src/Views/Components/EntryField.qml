import QtQuick
import Orvelle

// The field over a list for new entries, with the button that adds what was typed.
FocusScope {
    id: root

    readonly property real inset: 4 // to the ends of the line above
    readonly property real spacing: 6
    property alias horizontalPadding: box.horizontalPadding
    property alias verticalPadding: box.verticalPadding
    property alias content: box.content
    property alias prompt: box.prompt
    property alias promptColor: box.promptColor
    property alias addButton: button.content
    property alias canAdd: button.enabled
    property alias text: box.text
    readonly property alias notice: box.notice
    property alias box: box
    signal added(string text)
    signal pressed

    function add() {
        added(text)
        text = ""
        box.forceActiveFocus()
    }

    implicitHeight: box.implicitHeight

    FieldBox {
        id: box
        objectName: "entryField"
        x: root.inset
        width: parent.width - 2 * x - button.width - root.spacing
        height: implicitHeight
        focus: true
        onAccepted: root.add()
        onPressed: root.pressed()
    }
    PanelButton {
        id: button
        objectName: "addButton"
        anchors.right: parent.right
        anchors.rightMargin: root.inset
        anchors.verticalCenter: box.verticalCenter
        name: qsTr("Add")
        onClicked: root.add()
    }
}
