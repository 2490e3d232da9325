import QtQuick
import Orvelle

SettingsForm {
    view: FeatureSettingsBinding {}
}
