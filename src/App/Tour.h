#pragma once

#include "Models/NotchState.h"

#include <QDir>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

class AppDelegate;
class TrayMenu;

/// Leads the running program through every state and panel, writes a picture of each as the screen
/// shows it, and ends the program: with exit code 0, or 1 when a picture could not be made.
class Tour : public QObject {
public:
    Tour(AppDelegate& app, const std::string& directory);
    ~Tour() override;

private:
    struct Stop {
        QString name;
        std::function<void()> go;
        QString window = {}; ///< the title of those to photograph; empty for the panel
    };

    void addStops();
    /// The media panel in every theme mode, with tracks of all kinds and with none.
    void addMediaStops();
    void addShelfStops();
    void addTimerStops();
    void addWeatherStops();
    void addEmptyStops();
    /// The status item's menu with the system's lines, as a tray without menus of its own shows it.
    void addMenuStop();
    /// Each tab, from its top and from its end.
    void addSettingsStops();
    void addWizardStops();
    /// The film of the changes of state comes first.
    void begin();
    void next();
    /// Takes the picture once nothing moves any more.
    void look();
    bool isStill() const;
    bool takePicture();
    void fail(const QString& reason);

    AppDelegate& app_;
    QDir directory_;
    std::unique_ptr<TrayMenu> menu_; ///< while its picture is taken
    std::vector<Stop> stops_;
    std::size_t index_ = 0;
    QTimer watch_;
    QElapsedTimer since_;
    int stillLooks_ = 0; ///< in a row
};

} // namespace orvelle
