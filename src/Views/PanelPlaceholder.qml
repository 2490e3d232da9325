import QtQuick
import Orvelle

// Stands for a panel that has no view of its own.
FilePlaceholder {
    placeholder: view.placeholder

    PanelPlaceholderBinding {
        id: view
    }
}
