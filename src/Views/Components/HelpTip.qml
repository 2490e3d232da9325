import QtQuick
import Orvelle

// A word of help that shows below what the pointer rests on.
Rectangle {
    id: root

    property Item subject

    // From one subject to the next the help follows at once.
    function offer(item) {
        subject = item
        if (visible)
            show()
        else
            rest.restart()
    }
    function withdraw(item) {
        if (item !== subject)
            return
        rest.stop()
        visible = false
    }
    function show() {
        x = Math.max(0, Math.min(parent.width - width, subject.x + (subject.width - width) / 2))
        y = subject.y + subject.height + 5
        visible = true
    }

    objectName: "help"
    visible: false
    z: 1
    width: caption.implicitWidth + 14
    height: caption.implicitHeight + 6
    radius: 5
    color: Style.fillColor
    border.color: Style.edgeColor

    Timer {
        id: rest
        interval: 600
        onTriggered: root.show()
    }
    Text {
        id: caption
        anchors.centerIn: parent
        text: root.subject ? root.subject.helpText : ""
        textFormat: Text.PlainText
        font.pixelSize: 11
        color: Style.textColor
    }
}
