import QtQuick
import Orvelle

SettingsForm {
    view: AppearanceSettingsBinding {}
}
