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

    Column {
        anchors.centerIn: parent
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
