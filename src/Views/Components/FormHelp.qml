import QtQuick
import QtQuick.Templates as T
import Orvelle

// A word of help under what the pointer rests on.
T.ToolTip {
    id: root

    x: parent ? (parent.width - width) / 2 : 0
    y: parent ? parent.height + 6 : 0
    implicitWidth: caption.implicitWidth + 2 * horizontalPadding
    implicitHeight: caption.implicitHeight + 2 * verticalPadding
    horizontalPadding: 7
    verticalPadding: 3
    margins: 6
    delay: 600
    closePolicy: T.Popup.NoAutoClose

    background: Rectangle {
        radius: 5
        color: FormStyle.popupColor
        border.color: FormStyle.edgeColor
    }
    contentItem: Text {
        id: caption
        text: root.text
        textFormat: Text.PlainText
        font.pixelSize: FormStyle.noteSize
        color: FormStyle.textColor
    }
}
