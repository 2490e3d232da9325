import QtQuick
import Orvelle

// A system level over whatever the notch's shape holds.
NotchShapeItem {
    id: root

    property var hud
    signal moved(real value)

    objectName: "hud"
    color: hud.background
    bottomCornerRadius: hud.shape.bottomCornerRadius
    topFlare: hud.shape.topFlare
    bodyInset: hud.shape.bodyInset

    Item {
        id: inside
        x: root.contentRect.x
        y: root.contentRect.y
        width: root.contentRect.width
        height: root.contentRect.height
        clip: true

        Column {
            x: Math.round((root.width - width) / 2) - inside.x
            y: Math.round((root.height - height) / 2) - inside.y
            spacing: root.hud.spacing

            PanelSymbol {
                content: root.hud.symbol
                anchors.horizontalCenter: parent.horizontalCenter
            }
            AnimatedSlider {
                slider: root.hud.slider
                interactive: true
                width: root.hud.sliderSize.width
                height: root.hud.sliderSize.height
                onMoved: value => root.moved(value)
            }
        }
    }
}
