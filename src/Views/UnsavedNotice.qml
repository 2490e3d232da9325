import QtQuick
import Orvelle

// Tells over the panel's lower edge what the disk refuses; nothing while all is saved.
Loader {
    id: root

    active: view.notice !== undefined
    height: view.height

    sourceComponent: Rectangle {
        color: view.background

        PanelText {
            objectName: "unsavedNotice"
            anchors.fill: parent
            content: view.notice
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            Accessible.role: Accessible.AlertMessage
        }
    }

    UnsavedNoticeBinding {
        id: view
    }
}
