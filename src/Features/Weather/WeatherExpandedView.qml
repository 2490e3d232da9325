import QtQuick
import Orvelle

// The weather: the conditions on a card, or a spinner before there are any.
Item {
    WeatherExpandedBinding {
        id: weather
    }
    Component {
        id: loading

        WeatherLoading {
            view: weather
        }
    }
    Component {
        id: card

        WeatherCard {
            view: weather
        }
    }
    Loader {
        anchors.fill: parent
        sourceComponent: weather.showsLoadingView ? loading : card
    }
}
