import QtQuick
import Orvelle

// A level on a track. Without `interactive` it only shows.
Item {
    id: root

    property var slider
    property bool interactive: false
    property bool isDragging: false
    property string name
    signal moved(real value)

    function step(direction) {
        const size = (slider.upperBound - slider.lowerBound) / 20
        const value = slider.value + direction * size
        moved(Math.max(slider.lowerBound, Math.min(slider.upperBound, value)))
    }

    implicitHeight: slider.height
    activeFocusOnTab: interactive
    Accessible.role: interactive ? Accessible.Slider : Accessible.ProgressBar
    Accessible.name: name ? qsTr("%1, %2").arg(name).arg(slider.levelText) : slider.levelText
    Accessible.focusable: interactive
    Accessible.onIncreaseAction: step(1)
    Accessible.onDecreaseAction: step(-1)
    Keys.enabled: interactive
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onDownPressed: step(-1)
    Keys.onUpPressed: step(1)

    FocusRing {
        shown: root.activeFocus
    }

    SpringValue {
        id: fill
        target: root.slider.fraction
        restDistance: 0.0005
        response: Style.fillResponse
        dampingFraction: Style.fillDampingFraction
    }

    Rectangle {
        objectName: "track"
        width: parent.width
        height: root.slider.height
        anchors.verticalCenter: parent.verticalCenter
        radius: height / 2
        color: Style.trackColor
    }
    // A level near nothing keeps its round ends: the capsule is cut, not squeezed.
    Item {
        objectName: "fill"
        width: Math.max(0, fill.value * root.width)
        height: root.slider.height
        anchors.verticalCenter: parent.verticalCenter
        clip: width < height

        Rectangle {
            width: Math.max(parent.width, height)
            height: parent.height
            radius: height / 2
            color: root.slider.tintColor
        }
    }
    Loader {
        id: knob
        active: root.slider.showThumb
        x: root.slider.thumbOffset(root.width)
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: SliderThumb {
            objectName: "thumb"
            diameter: root.slider.thumbDiameter
            pixelShift: Math.round(knob.x * Screen.devicePixelRatio) / Screen.devicePixelRatio
                        - knob.x
            isDragging: root.isDragging
        }
    }
    MouseArea {
        anchors.fill: parent
        enabled: root.interactive
        preventStealing: true
        cursorShape: enabled ? Qt.PointingHandCursor : undefined

        function move(x) {
            root.isDragging = true
            root.moved(root.slider.valueAt(x, root.width))
        }
        onPressed: mouse => move(mouse.x)
        onPositionChanged: mouse => move(mouse.x)
        onReleased: root.isDragging = false
        onCanceled: root.isDragging = false
    }
}
