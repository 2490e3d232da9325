import QtQuick
import Orvelle

// The knob of a slider, a little larger under the finger.
Item {
    id: root

    property real diameter
    property bool isDragging
    property real pixelShift: 0 // to the next whole pixel: between two it is no circle

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
        x: root.pixelShift - 1
        width: root.diameter + 2
        height: width
        radius: width / 2
        color: Style.thumbShadowColor
    }
    Rectangle {
        x: root.pixelShift
        width: root.diameter
        height: width
        radius: width / 2
        color: Style.thumbColor
    }
}
