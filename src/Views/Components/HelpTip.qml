import QtQuick
import Orvelle

// A word of help below what the pointer or the keyboard rests on. One serves a whole panel or page:
// the items that offer help find it as the property `helpTip` of whatever holds them.
Rectangle {
    id: root

    property Item subject
    property alias textColor: caption.color
    property alias textSize: caption.font.pixelSize

    // From one subject to the next the help follows at once.
    function offer(item) {
        subject = item
        if (visible || linger.running)
            show()
        else
            rest.restart()
    }
    function withdraw(item) {
        if (item !== subject)
            return
        if (visible)
            linger.restart()
        hide()
    }
    // A press wants no help, from no subject.
    function dismiss() {
        linger.stop()
        hide()
    }
    function hide() {
        rest.stop()
        visible = false
    }
    function show() {
        if (!subject)
            return
        const place = parent.mapFromItem(subject, 0, 0)
        const below = place.y + subject.height + 5
        x = Math.max(0, Math.min(parent.width - width, place.x + (subject.width - width) / 2))
        y = below + height <= parent.height ? below : place.y - height - 5
        visible = true
    }

    objectName: "help"
    visible: false
    z: 2
    width: caption.implicitWidth + 14
    height: caption.implicitHeight + 6
    radius: 5
    color: Style.fillColor
    border.color: Style.edgeColor

    Timer {
        id: linger
        interval: 100
    }
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
