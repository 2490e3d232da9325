import QtQuick
import Orvelle

// A line of text that runs by when it is wider than its room. The offset moves evenly, the copies
// in whole pixels, so that the letters stay crisp.
Item {
    id: root

    property var content
    property real offset: 0
    readonly property real textWidth: first.implicitWidth
    readonly property bool scrolls: Marquee.scrolls(textWidth, width)
    readonly property alias running: run.running
    readonly property string text: content.text

    function restart() {
        run.stop()
        offset = 0
        if (visible)
            rest.restart()
        else
            rest.stop()
    }

    implicitWidth: first.implicitWidth
    implicitHeight: first.implicitHeight
    clip: scrolls
    onTextChanged: restart()
    onTextWidthChanged: restart()
    onWidthChanged: restart()
    onVisibleChanged: restart()

    PanelText {
        id: first
        x: Math.round(root.offset * Screen.devicePixelRatio) / Screen.devicePixelRatio
        content: root.content
        elide: Text.ElideNone
        horizontalAlignment: Text.AlignLeft
    }
    Loader {
        active: root.scrolls
        x: first.x + Marquee.travel(first.implicitWidth)
        sourceComponent: PanelText {
            content: root.content
            elide: Text.ElideNone
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
    }
    NumberAnimation {
        id: run
        target: root
        property: "offset"
        from: 0
        to: -Marquee.travel(root.textWidth)
        duration: Marquee.duration(root.textWidth)
        loops: Animation.Infinite
    }
    Timer {
        id: rest
        interval: Marquee.restartDelay
        onTriggered: if (root.scrolls) run.start()
    }
}
