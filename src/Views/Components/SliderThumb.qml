import QtQuick
import Orvelle

// The knob of a slider, a little larger under the finger.
Item {
    id: root

    property real diameter
    property bool isDragging

    implicitWidth: diameter
    implicitHeight: diameter
    scale: growth.value

    SpringValue {
        id: growth
        target: Style.thumbScale(root.isDragging)
        response: Style.thumbResponse
        dampingFraction: Style.thumbDampingFraction
        restDistance: 0.001
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -1
        anchors.topMargin: 0
        radius: width / 2
        color: Style.thumbShadowColor
    }
    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: Style.thumbColor
    }
}
