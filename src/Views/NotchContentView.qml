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
        response: view.stateResponse
        dampingFraction: view.stateDampingFraction
        target: view.targetSize.width
    }
    SpringValue {
        id: shapeHeight
        response: view.stateResponse
        dampingFraction: view.stateDampingFraction
        target: view.targetSize.height
    }
    SpringValue {
        id: bodyInset
        response: view.stateResponse
        dampingFraction: view.stateDampingFraction
        target: view.shape.bodyInset
    }

    NotchShapeItem {
        id: shapeItem
        objectName: "shape"
        anchors.horizontalCenter: parent.horizontalCenter
        width: shapeWidth.value
        height: shapeHeight.value
        color: view.background
        stroke: view.border
        bottomCornerRadius: view.shape.bottomCornerRadius
        topFlare: view.shape.topFlare
        bodyInset: bodyInset.value

        Item {
            anchors.fill: parent
            clip: true

            // Content has its final size at once and does not ride the spring: the growing shape
            // uncovers it.
            FadingLoader {
                id: hoverBar
                objectName: "hoverBarLoader"
                anchors.horizontalCenter: parent.horizontalCenter
                shown: view.showsHoveringLayout
                response: view.stateResponse
                dampingFraction: view.stateDampingFraction
                settledSize: Qt.size(view.hoveringWidth, view.targetSize.height)
                source: "qrc:/Orvelle/NotchCollapsedView.qml"
            }
            FadingLoader {
                objectName: "expandedContentLoader"
                anchors.horizontalCenter: parent.horizontalCenter
                shown: view.showsExpandedContent
                response: view.stateResponse
                dampingFraction: view.stateDampingFraction
                settledSize: view.targetSize
                source: "qrc:/Orvelle/NotchExpandedContent.qml"
                properties: ({ view: view })
            }
        }
        Loader {
            anchors.fill: parent
            active: opacity > 0
            opacity: view.showsHUD ? 1 : 0
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
    }
}
