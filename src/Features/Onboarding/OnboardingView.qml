import QtQuick
import Orvelle

// The wizard: dots for the steps, the step, and the buttons that lead on.
FocusScope {
    id: root

    implicitWidth: 480
    implicitHeight: 380

    // A control that goes with its step, or with its permission, leaves the keyboard to "Next".
    readonly property Item keyboard: Window.activeFocusItem
    readonly property bool isKeyboardLost: Window.active && !(
        keyboard && keyboard.activeFocusOnTab && keyboard.visible && keyboard.enabled)
    onIsKeyboardLostChanged: Qt.callLater(findKeyboard) // not amid the change of the focus itself

    function findKeyboard() {
        if (isKeyboardLost)
            forward.forceActiveFocus(Qt.TabFocusReason)
    }

    readonly property bool isInFront: Window.active
    onIsInFrontChanged: if (isInFront) view.appear()

    OnboardingBinding {
        id: view
    }
    Rectangle {
        anchors.fill: parent
        color: FormStyle.windowColor
    }
    Row {
        id: dots
        objectName: "dots"
        y: view.verticalPadding
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 8
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("Step %1 of %2").arg(view.step + 1).arg(view.dots.length)

        Repeater {
            model: view.dots

            Rectangle {
                width: 8
                height: 8
                radius: 4
                color: modelData
            }
        }
    }
    Item {
        id: stage
        anchors.top: dots.bottom
        anchors.bottom: navigation.top
        anchors.topMargin: view.verticalPadding
        anchors.bottomMargin: view.verticalPadding
        x: view.horizontalPadding
        width: parent.width - 2 * x
        clip: true

        Loader {
            active: entrance.running
            sourceComponent: OnboardingStep {
                enabled: false
                x: entering.x - entering.from
                opacity: 1 - entering.opacity
                width: stage.width
                height: stage.height
                content: entering.previous
                accentColor: view.dots[0]
                tipSymbolWidth: view.tipSymbolWidth
            }
        }
        OnboardingStep {
            id: entering
            objectName: "step"
            width: parent.width
            height: parent.height
            content: view.content
            accentColor: view.dots[0]
            tipSymbolWidth: view.tipSymbolWidth
            onAction: view.performAction()
            onToggled: on => view.updateLaunchAtLogin(on)

            // Where the step comes in from: the side that it lies on.
            property real from: 0
            property int shown: 0
            property var previous
            readonly property int number: view.step
            onNumberChanged: {
                previous = view.content
                from = (number > shown ? 1 : -1) * width
                shown = number
                entrance.restart()
            }
        }
        ParallelAnimation {
            id: entrance

            NumberAnimation {
                target: entering
                property: "x"
                from: entering.from
                to: 0
                duration: view.transitionDuration
                easing.type: Easing.InOutQuad
            }
            NumberAnimation {
                target: entering
                property: "opacity"
                from: 0
                to: 1
                duration: view.transitionDuration
            }
        }
    }
    Item {
        id: navigation
        x: view.horizontalPadding
        y: parent.height - height - view.verticalPadding
        width: parent.width - 2 * x
        height: forward.height

        FormButton {
            id: back
            objectName: "back"
            visible: view.navigation.showsBack
            text: qsTr("Back")
            onClicked: view.goBack()
        }
        Row {
            anchors.right: parent.right
            spacing: 8

            FormButton {
                id: skip
                objectName: "skip"
                visible: view.navigation.showsSkip
                opacity: view.navigation.skipOpacity
                enabled: opacity > 0
                plain: true
                width: implicitWidth + 10
                anchors.verticalCenter: parent.verticalCenter
                textColor: FormStyle.secondaryColor
                text: qsTr("Skip")
                onClicked: view.skip()
            }
            FormButton {
                id: forward
                objectName: "forward"
                focus: true
                prominent: true
                accentColor: view.dots[0]
                text: view.navigation.forward
                onClicked: view.goForward()
            }
        }
    }
}
