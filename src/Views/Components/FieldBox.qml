import QtQuick
import Orvelle

// The box of a panel's field. All of it takes the click, the symbol before the text too.
FocusScope {
    id: root

    property var symbol: null // none without
    property real horizontalPadding
    property real verticalPadding: 0 // at least
    property alias content: field.content
    property alias prompt: field.prompt
    property alias promptColor: field.promptColor
    property alias text: field.text
    readonly property alias notice: field.notice
    signal accepted
    signal pressed

    // As if the keyboard had been in the field.
    function type(text) {
        forceActiveFocus()
        field.type(text)
    }

    implicitHeight: field.implicitHeight + 2 * Math.max(verticalPadding, Style.fieldPadding)

    Rectangle {
        objectName: "fieldGround"
        anchors.fill: parent
        radius: Style.fieldRadius
        color: Style.fieldGround
        border.width: root.activeFocus ? 1 : 0
        border.color: Style.focusColor
    }
    Loader {
        id: glass
        active: !!root.symbol
        x: root.horizontalPadding
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: PanelSymbol {
            objectName: "fieldSymbol"
            content: root.symbol
        }
    }
    PanelField {
        id: field
        anchors.fill: parent
        focus: true
        leftPadding: root.horizontalPadding + (glass.active ? glass.width + root.horizontalPadding : 0)
        rightPadding: root.horizontalPadding
        onAccepted: root.accepted()
        onPressed: root.pressed()
    }
}
