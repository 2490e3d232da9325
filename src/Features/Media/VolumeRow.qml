import QtQuick
import Orvelle

// The output's volume, to be dragged.
Row {
    id: root

    spacing: view.spacing

    VolumeRowBinding {
        id: view
    }
    PanelSymbol {
        objectName: "quietSymbol"
        width: view.symbolWidth
        anchors.verticalCenter: parent.verticalCenter
        content: view.quietSymbol
    }
    AnimatedSlider {
        id: slider
        objectName: "volumeSlider"
        width: root.width - 2 * (view.symbolWidth + view.spacing)
        height: 20 // easier to hit than the track alone
        anchors.verticalCenter: parent.verticalCenter
        slider: view.slider
        name: qsTr("Volume")
        interactive: true
        enabled: view.hasDevice
        opacity: enabled ? 1 : view.disabledOpacity
        onMoved: value => view.setVolume(value)
    }
    PanelSymbol {
        width: view.symbolWidth
        anchors.verticalCenter: parent.verticalCenter
        content: view.loudSymbol
    }
}
