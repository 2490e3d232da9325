import QtQuick
import Orvelle

// The hover bar's stocks: one symbol at a time, each of which comes in from below while the one
// before leaves to there. The symbol is what gives way when room is short.
Item {
    id: root
    objectName: "stockLine"

    property var widget
    readonly property real naturalWidth: view.emptySymbol ? empty.width : line.naturalWidth
    readonly property real titleWidth: line.titleWidth
    readonly property string summary: line.summary

    // How far the step has come.
    property real progress: 1
    property int shownIndex: 0

    implicitWidth: naturalWidth
    implicitHeight: Math.max(empty.height, line.height)

    StockTickerCycleBinding {
        id: view
        onLineChanged: root.take()
    }
    Loader {
        id: empty
        active: !!view.emptySymbol
        sourceComponent: PanelSymbol {
            content: view.emptySymbol
        }
    }
    Item {
        width: Math.max(line.width, leaving.width)
        height: parent.height
        clip: step.running

        StockTickerCycleLine {
            id: leaving
            objectName: "leavingLine"
            spacing: view.spacing
            spinner: view.spinner
            visible: !!content
            y: root.progress * root.height
            opacity: 1 - root.progress
        }
        StockTickerCycleLine {
            id: line
            objectName: "line"
            spacing: view.spacing
            spinner: view.spinner
            excess: Math.max(0, root.naturalWidth - root.width)
            visible: !!content
            y: (1 - root.progress) * root.height
            opacity: root.progress
        }
    }
    NumberAnimation {
        id: step
        target: root
        property: "progress"
        from: 0
        to: 1
        duration: view.stepDuration * 1000
        easing.type: Easing.InOutQuad
        onFinished: leaving.content = undefined
    }

    // New figures stay in their row; another place among the symbols is another row.
    function take() {
        if (view.line.index !== shownIndex) {
            leaving.excess = line.excess
            leaving.content = line.content
            step.restart()
        }
        shownIndex = view.line.index
        line.content = view.line.content
    }
    Component.onCompleted: {
        shownIndex = view.line.index
        line.content = view.line.content
    }
}
