import QtQuick
import Orvelle

Rectangle {
    implicitHeight: Style.dividerThickness
    color: Style.dividerColor
}
