import QtQuick
import Orvelle

// The tab bar over the active panel.
FocusScope {
    id: root

    property NotchContentBinding view
    readonly property HelpTip helpTip: help

    objectName: "expandedContent"
    focus: true
    Keys.onEscapePressed: view.close()
    Keys.onMenuPressed: openMenu()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
            openMenu()
        if (event.matches(StandardKey.Undo))
            event.accepted = takeBack()
        else if (event.modifiers & Qt.ControlModifier)
            event.accepted = goToTab(event) || performShortcut(event)
    }

    // Control with Tab, or with a digit.
    function goToTab(event) {
        if (event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab)
            return tabs.step(event.modifiers & Qt.ShiftModifier ? -1 : 1)
        if (event.key < Qt.Key_1 || event.key > Qt.Key_9)
            return false
        return tabs.choose(event.key - Qt.Key_1)
    }
    function performShortcut(event) {
        const isPlain = event.modifiers === Qt.ControlModifier && event.key < 128
        return isPlain && view.performShortcut(String.fromCharCode(event.key).toLowerCase())
    }

    // Is found in every menu of the panels.
    function commonMenu() {
        return view.contextMenu()
    }
    // Also for the fields, which keep the key for what is typed in them. False without an offer.
    function takeBack() {
        const isOffered = undoBar.isOffered
        undoBar.undo()
        return isOffered
    }
    // That of the panel, else the one that is found beside it.
    function openMenu() {
        if (!panels.panel?.openMenu?.())
            menu.openAt(width / 2, divider.y)
    }

    HelpTip {
        id: help
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
    }
    UndoBar {
        id: undoBar
        x: root.view.tabBarPadding + 6 // beside the notch, where nothing else stands
        y: root.view.wingTop
        width: Math.min(implicitWidth, root.view.wingWidth - 6)
        textColor: Style.textColor
        onKeyboardLeft: panels.panel?.forceActiveFocus(Qt.TabFocusReason)
    }
    PanelButton {
        objectName: "settingsButton"
        anchors.right: tabs.right
        anchors.rightMargin: 8 // clear of the round corner
        y: root.view.wingTop + (undoBar.implicitHeight - height) / 2
        visible: root.view.showsSettingsButton
        content: root.view.settingsButton
        name: qsTr("Settings")
        help: qsTr("Settings")
        onClicked: root.view.openSettings()
    }
    TabBar {
        id: tabs
        objectName: "tabBar"
        z: 1
        focus: true
        x: root.view.tabBarPadding
        y: root.view.tabBarTopPadding
        width: parent.width - 2 * x
        height: root.view.tabMinHeight
        model: root.view.tabs
        spacing: root.view.tabSpacing
        cornerRadius: root.view.tabCornerRadius
        resting: root.view.restingTab
        active: root.view.activeTab
        response: root.view.panelResponse
        dampingFraction: root.view.panelDampingFraction
        onSelected: id => {
            const isByKey = activeFocus
            root.view.selectPanel(id)
            if (isByKey)
                root.view.takeKeyboard()
        }
    }
    Divider {
        id: divider
        x: root.view.dividerPadding
        anchors.top: tabs.bottom
        width: parent.width - 2 * x
    }
    Item {
        anchors.top: divider.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true

        PanelSlide {
            id: panels
            objectName: "panels"
            anchors.fill: parent
            anchors.margins: root.view.contentPadding
            response: root.view.panelResponse
            dampingFraction: root.view.panelDampingFraction
        }
    }

    UnsavedNotice { anchors.bottom: parent.bottom; width: parent.width }

    Connections {
        target: root.view
        function onPanelChanged() {
            panels.show(root.view.panel.source, root.view.panel.entersFromTrailing ? 1 : -1)
        }
    }
    Component.onCompleted: panels.show(view.panel.source, 0)
}
