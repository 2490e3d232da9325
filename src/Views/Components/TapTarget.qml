import QtQuick

// Something to click on: a button for those who hear it, paler while it is pressed.
MouseArea {
    property string name

    opacity: pressed ? 0.6 : 1
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.onPressAction: clicked(null)
}
