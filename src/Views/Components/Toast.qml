import QtQuick
import Orvelle

// A word on what has just been done, gone again after a moment, or on what is so.
Rectangle {
    id: root

    property string standing // as long as it is no empty text
    property string said

    function say(text) {
        if (text === "")
            return
        said = text
        moment.restart()
    }

    objectName: "toast"
    anchors.horizontalCenter: parent.horizontalCenter
    anchors.bottom: parent.bottom
    z: 2
    visible: caption.text !== ""
    width: caption.implicitWidth + 20
    height: caption.implicitHeight + 8
    radius: height / 2
    color: Style.fillColor
    border.color: Style.edgeColor
    Accessible.role: Accessible.AlertMessage
    Accessible.name: caption.text

    Text {
        id: caption
        objectName: "toastText"
        text: moment.running ? root.said : root.standing
        anchors.centerIn: parent
        textFormat: Text.PlainText
        font.pixelSize: 11
        color: Style.textColor
    }
    Timer {
        id: moment
        interval: 1500
    }
}
