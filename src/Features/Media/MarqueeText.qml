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
    component Fade: Rectangle {
        property color start
        property color end

        width: Math.min(Marquee.fadeWidth, parent.width / 4)
        height: parent.height
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop { position: 0; color: start }
            GradientStop { position: 1; color: end }
        }
    }
    Fade {
        objectName: "leadingFade"
        visible: root.scrolls && root.offset < 0
        start: Marquee.fadeColor
        end: Qt.alpha(Marquee.fadeColor, 0)
    }
    Fade {
        objectName: "trailingFade"
        anchors.right: parent.right
        visible: root.scrolls
        start: Qt.alpha(Marquee.fadeColor, 0)
        end: Marquee.fadeColor
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
        onTriggered: if (root.scrolls && !Marquee.isHeld) run.start()
    }
}
