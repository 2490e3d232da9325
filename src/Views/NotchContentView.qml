import QtQuick
import Orvelle

// The root of the notch's window: the black shape that hangs from its top edge, and what is inside.
// Nothing but the shape exists while the notch is collapsed.
FocusScope {
    id: root

    readonly property NotchShapeItem shape: shapeItem

    NotchContentBinding {
        id: view
    }
    SpringValue {
        id: shapeWidth
        response: view.stage.response
        dampingFraction: view.stage.dampingFraction
        target: view.stage.size.width
    }
    SpringValue {
        id: shapeHeight
        response: view.stage.response
        dampingFraction: view.stage.dampingFraction
        target: view.stage.size.height
    }
    SpringValue {
        id: bodyInset
        response: view.stage.response
        dampingFraction: view.stage.dampingFraction
        target: view.stage.shape.bodyInset
    }
    SpringValue {
        id: borderPresence
        response: view.stage.response
        dampingFraction: view.stage.dampingFraction
        target: view.stage.border.isShown ? 1 : 0
        restDistance: 0.002
    }

    NotchShapeItem {
        id: shapeItem
        objectName: "shape"
        x: root.middle(width)
        width: shapeWidth.value
        height: shapeHeight.value
        color: view.background
        bottomCornerRadius: view.stage.shape.bottomCornerRadius
        topFlare: view.stage.shape.topFlare
        bodyInset: bodyInset.value
    }
    Item {
        id: inside
        x: shapeItem.x + shapeItem.contentRect.x
        y: shapeItem.y + shapeItem.contentRect.y
        width: shapeItem.contentRect.width
        height: shapeItem.contentRect.height
        clip: true

        // Content has its final size and place at once and does not ride the spring: the growing
        // shape uncovers it.
        FadingLoader {
            objectName: "hoverBarLoader"
            x: root.middle(width) - inside.x
            y: -inside.y
            part: view.stage.hoverBar
            response: view.stage.response
            dampingFraction: view.stage.dampingFraction
            source: "qrc:/Orvelle/NotchCollapsedView.qml"
        }
        FadingLoader {
            objectName: "expandedContentLoader"
            x: root.middle(width) - inside.x
            y: -inside.y
            part: view.stage.expandedContent
            response: view.stage.response
            dampingFraction: view.stage.dampingFraction
            source: "qrc:/Orvelle/NotchExpandedContent.qml"
            properties: ({ view: view })
        }
    }
    Loader {
        anchors.fill: shapeItem
        active: opacity > 0
        opacity: view.hud.isShown ? 1 : 0
        sourceComponent: HUDOverlay {
            hud: view.hud
            onMoved: value => view.setHUDValue(value)
        }
        Behavior on opacity {
            NumberAnimation {
                duration: view.hudFadeDuration * 1000
                easing.type: Easing.InOutQuad
            }
        }
    }
    NotchShapeItem {
        objectName: "border"
        anchors.fill: shapeItem
        opacity: borderPresence.value
        visible: opacity > 0
        color: "transparent"
        stroke: view.stage.border.stroke
        bottomCornerRadius: view.stage.border.shape.bottomCornerRadius
        topFlare: view.stage.border.shape.topFlare
        bodyInset: view.stage.border.shape.bodyInset
    }

    // Where something of this width stands in the middle of the window, on a whole point.
    function middle(width) {
        return Math.round((root.width - width) / 2)
    }
}
