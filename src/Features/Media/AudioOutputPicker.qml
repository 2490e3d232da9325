import QtQuick
import Orvelle

// The devices that sound can go to, as a menu.
SymbolButton {
    id: root

    name: qsTr("Sound Output")
    content: view.label
    onClicked: {
        const entries = view.menu()
        if (entries.lines.length === 0)
            return
        loader.active = true
        loader.item.open(entries, mapToGlobal(0, height))
    }

    AudioOutputPickerBinding {
        id: view
    }
    Loader {
        id: loader
        active: false
        source: "qrc:/Orvelle/PopupMenu.qml"
    }
}
