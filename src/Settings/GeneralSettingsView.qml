import QtQuick
import Orvelle

SettingsForm {
    view: GeneralSettingsBinding {}
}
