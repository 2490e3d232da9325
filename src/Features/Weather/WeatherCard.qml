import QtQuick
import QtQuick.Shapes
import Orvelle

// The conditions over the colours of their sky.
Item {
    id: root

    required property WeatherExpandedBinding view
    property real figuresOpacity: view.figuresOpacity

    Behavior on figuresOpacity {
        NumberAnimation { duration: root.view.dimming * 1000 }
    }
    Shape {
        id: sky
        anchors.fill: parent
        opacity: root.view.gradientOpacity

        ShapePath {
            strokeWidth: -1
            fillGradient: LinearGradient {
                x2: sky.width
                y2: sky.height

                GradientStop {
                    position: 0
                    color: root.view.skyStart
                }
                GradientStop {
                    position: 1
                    color: root.view.skyEnd
                }
            }

            PathSvg {
                readonly property real r: root.view.cornerRadius

                path: `M ${r} 0 H ${sky.width - r} A ${r} ${r} 0 0 1 ${sky.width} ${r}
                       V ${sky.height - r} A ${r} ${r} 0 0 1 ${sky.width - r} ${sky.height}
                       H ${r} A ${r} ${r} 0 0 1 0 ${sky.height - r}
                       V ${r} A ${r} ${r} 0 0 1 ${r} 0 Z`
            }
        }
    }
    PanelSymbol {
        content: root.view.watermark
        anchors.centerIn: parent
    }
    Column {
        anchors.fill: parent
        anchors.margins: root.view.padding
        spacing: root.view.spacing

        Row {
            id: conditions
            objectName: "conditions"
            width: parent.width
            spacing: root.view.spacing

            PanelSymbol {
                id: icon
                objectName: "conditionIcon"
                opacity: root.figuresOpacity
                content: root.view.icon
            }
            Row {
                id: temperature
                objectName: "figures"
                opacity: root.figuresOpacity

                PanelText {
                    objectName: "temperature"
                    content: root.view.temperature
                    // The figures' own height: what is below them is the row's spacing.
                    height: root.view.temperature.size * 1.1
                    verticalAlignment: Text.AlignVCenter
                    width: Math.min(implicitWidth, conditions.width / 2)
                }
                PanelText {
                    content: root.view.degreeSign
                }
            }
            Column {
                width: conditions.width - x
                topPadding: root.view.trailingTopPadding
                spacing: root.view.trailingSpacing

                PanelText {
                    objectName: "condition"
                    opacity: root.figuresOpacity
                    content: root.view.condition
                    width: parent.width
                    horizontalAlignment: Text.AlignRight
                }
                Loader {
                    active: !!root.view.location
                    width: parent.width
                    sourceComponent: PanelText {
                        objectName: "location"
                        content: root.view.location
                        horizontalAlignment: Text.AlignRight
                    }
                }
            }
        }
        Row {
            id: chips
            objectName: "chips"
            opacity: root.figuresOpacity
            spacing: root.view.chipSpacing

            Repeater {
                model: root.view.chips

                WeatherChip {
                    view: root.view
                }
            }
        }
        Item {
            id: footer
            objectName: "weatherFooter"
            width: parent.width
            height: refresh.height

            Loader {
                active: !!root.view.locationControl
                height: parent.height
                sourceComponent: WeatherPlaces {
                    view: root.view
                    height: footer.height
                }
            }
            PanelText {
                objectName: "updatedAgo"
                opacity: root.figuresOpacity
                content: root.view.updatedAgo
                anchors.right: refresh.left
                anchors.rightMargin: root.view.spacing
                anchors.verticalCenter: parent.verticalCenter
            }
            PanelButton {
                id: refresh
                objectName: "refreshButton"
                content: root.view.refreshButton
                name: qsTr("Refresh")
                isBusy: root.view.isRefreshing
                anchors.right: parent.right
                onClicked: root.view.reload()
            }
        }
    }
}
