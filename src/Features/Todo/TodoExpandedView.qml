import QtQuick
import Orvelle

// The checklist.
EntryListPanel {
    view: TodoExpandedBinding {}
}
