import QtQuick
import Orvelle

// The hover bar's stocks: one symbol at a time, each of which comes in from below. The symbol is
// what gives way when room is short.
Item {
    id: root
    objectName: "stockLine"

    property var widget
    readonly property real naturalWidth: view.emptySymbol
            ? empty.width : titleWidth + view.spacing + quote.width
    readonly property real titleWidth: line.visible ? symbol.implicitWidth : 0
    readonly property string summary: line.summary

    implicitWidth: naturalWidth
    implicitHeight: Math.max(empty.height, line.height)
    clip: step.running

    StockTickerCycleBinding {
        id: view
        onCurrentIndexChanged: step.restart()
    }
    Loader {
        id: empty
        active: !!view.emptySymbol
        sourceComponent: PanelSymbol {
            content: view.emptySymbol
        }
    }
    Row {
        id: line

        readonly property var shown: view.tickerContent
        readonly property var figures: shown ? shown.figures : undefined
        readonly property string summary: !shown ? "" : !figures ? shown.symbol.text
                : [shown.symbol, figures.price, figures.arrow, figures.percent]
                      .map(text => text.text).join(" ")

        spacing: view.spacing
        visible: !!shown

        Loader {
            id: symbol
            active: !!line.shown
            width: Math.max(0, implicitWidth - Math.max(0, root.naturalWidth - root.width))
            anchors.verticalCenter: parent.verticalCenter
            sourceComponent: PanelText {
                objectName: "text"
                content: line.shown.symbol
            }
        }
        Row {
            id: quote
            spacing: view.spacing
            anchors.verticalCenter: parent.verticalCenter

            Repeater {
                model: line.figures
                       ? [line.figures.price, line.figures.arrow, line.figures.percent] : []

                PanelText {
                    required property var modelData

                    content: modelData
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
            Loader {
                active: !!line.shown && !line.figures
                visible: active
                anchors.verticalCenter: parent.verticalCenter
                sourceComponent: ProgressSpinner {
                    spinner: view.spinner
                }
            }
        }
    }
    ParallelAnimation {
        id: step

        NumberAnimation {
            target: line
            property: "y"
            from: root.height
            to: 0
            duration: view.stepDuration * 1000
            easing.type: Easing.InOutQuad
        }
        NumberAnimation {
            target: line
            property: "opacity"
            from: 0
            to: 1
            duration: view.stepDuration * 1000
            easing.type: Easing.InOutQuad
        }
    }
}
