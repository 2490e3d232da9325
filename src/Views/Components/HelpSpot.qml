import QtQuick
import Orvelle

// Offers help on what it is laid over, while the pointer or the keyboard rests there. A press ends
// it until either comes anew.
Item {
    id: root

    property string helpText
    property Item subject: parent
    property bool isFocused: subject ? subject.showsFocus ?? subject.activeFocus : false
    readonly property bool isOffered: enabled && visible && helpText !== ""
                                      && (pointer.hovered || isFocused)
    // What lies below does not hear of a pointer that rests here.
    readonly property alias isHovered: pointer.hovered
    property HelpTip tip: null

    function findTip() {
        for (let holder = root; holder; holder = holder.parent)
            if (holder.helpTip)
                return holder.helpTip
        return null
    }

    anchors.fill: subject
    onIsOfferedChanged: {
        tip = tip ?? findTip()
        if (isOffered)
            tip?.offer(root)
        else
            tip?.withdraw(root)
    }
    Component.onDestruction: tip?.withdraw(root)

    HoverHandler {
        id: pointer
    }
    PointHandler {
        acceptedButtons: Qt.AllButtons
        onActiveChanged: if (active) root.tip?.dismiss()
    }
    Connections {
        target: root.subject
        ignoreUnknownSignals: true
        function onClicked() {
            root.tip?.dismiss()
        }
    }
}
