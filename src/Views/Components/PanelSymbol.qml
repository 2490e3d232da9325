import QtQuick
import Orvelle

// A symbol in the style that its C++ half gave it.
Symbol {
    property var content

    name: content.name
    size: content.size
    color: content.color
    weight: content.weight
    isHierarchical: content.isHierarchical
}
