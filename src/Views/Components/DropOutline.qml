import QtQuick
import QtQuick.Shapes

// A dashed line with round corners, inside the bounds: the place to drop something on.
Item {
    id: root

    property real radius
    property real lineWidth
    property real dash
    property color color

    Shape {
        anchors.fill: parent

        ShapePath {
            id: line

            readonly property real edge: root.lineWidth / 2
            readonly property real bend: root.radius - edge

            strokeColor: root.color
            strokeWidth: root.lineWidth
            strokeStyle: ShapePath.DashLine
            dashPattern: [root.dash / root.lineWidth, root.dash / root.lineWidth]
            capStyle: ShapePath.FlatCap
            fillColor: "transparent"
            startX: root.radius
            startY: edge

            PathLine { relativeX: root.width - 2 * root.radius; relativeY: 0 }
            PathArc { relativeX: line.bend; relativeY: line.bend; radiusX: line.bend; radiusY: line.bend }
            PathLine { relativeX: 0; relativeY: root.height - 2 * root.radius }
            PathArc { relativeX: -line.bend; relativeY: line.bend; radiusX: line.bend; radiusY: line.bend }
            PathLine { relativeX: -(root.width - 2 * root.radius); relativeY: 0 }
            PathArc { relativeX: -line.bend; relativeY: -line.bend; radiusX: line.bend; radiusY: line.bend }
            PathLine { relativeX: 0; relativeY: -(root.height - 2 * root.radius) }
            PathArc { relativeX: line.bend; relativeY: -line.bend; radiusX: line.bend; radiusY: line.bend }
        }
    }
}
