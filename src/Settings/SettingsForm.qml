import QtQuick
import Orvelle

// A page that is a list of rows, in groups. What cannot be followed is read anew whenever the
// window gets the keyboard back.
FormPage {
    id: root

    property var view
    readonly property bool isInFront: Window.active

    onIsInFrontChanged: if (isInFront) view.appear()

    // What a search found stands below its field, and so may be out of sight.
    function revealFound() {
        for (let index = rows.count - 1; index >= 0; --index)
            if (rows.itemAt(index).entry.kind === "found")
                return reveal(rows.itemAt(index))
    }

    Repeater {
        id: rows
        model: root.view.rows

        SettingsFormRow {
            view: root.view
            width: parent.width
            Component.onCompleted: if (entry.kind === "found") Qt.callLater(root.revealFound)
        }
    }
}
