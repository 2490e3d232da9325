import QtQuick
import Orvelle

// The wizard: dots for the steps, the step, and the buttons that lead on.
FocusScope {
    id: root

    implicitWidth: 480
    implicitHeight: 380

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

        OnboardingStep {
            id: step
            objectName: "step"
            width: parent.width
            height: parent.height
            content: view.content
            accentColor: view.dots[0]
            tipSymbolWidth: view.tipSymbolWidth
            onAction: view.performAction()
            onToggled: on => view.updateLaunchAtLogin(on)

            // The step comes in from the side that it lies on.
            property int shown: 0
            readonly property int number: view.step
            onNumberChanged: {
                entrance.from = (number > shown ? 1 : -1) * width
                shown = number
                entrance.restart()
                fade.restart()
                if (!forward.activeFocus && !skip.activeFocus && !back.activeFocus)
                    forward.forceActiveFocus(Qt.TabFocusReason)
            }
            NumberAnimation on x {
                id: entrance
                running: false
                to: 0
                duration: 350
                easing.type: Easing.InOutQuad
            }
            NumberAnimation on opacity {
                id: fade
                running: false
                from: 0
                to: 1
                duration: 350
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
            spacing: 12

            FormButton {
                id: skip
                objectName: "skip"
                visible: view.navigation.showsSkip
                opacity: view.navigation.skipOpacity
                enabled: opacity > 0
                plain: true
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
