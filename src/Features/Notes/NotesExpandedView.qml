import QtQuick
import Orvelle

// The notes.
EntryListPanel {
    view: NotesExpandedBinding {}
}
