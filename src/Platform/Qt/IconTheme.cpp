#include "Platform/Qt/IconTheme.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

namespace orvelle::IconTheme {

namespace {

/// A key of one of the INI files in which desktops keep the choice.
struct Choice {
    const char* file;
    const char* key;
};

constexpr Choice choices[] = {
    {"kdeglobals", "Icons/Theme"},
    {"gtk-3.0/settings.ini", "Settings/gtk-icon-theme-name"},
    {"gtk-4.0/settings.ini", "Settings/gtk-icon-theme-name"},
    {"lxqt/lxqt.conf", "icon_theme"},
};

/// What desktops bring when nobody has chosen.
constexpr const char* common[] = {"breeze-dark", "breeze",  "Papirus-Dark",    "Papirus",
                                  "Yaru",        "Adwaita", "elementary-xfce", "gnome"};

} // namespace

QString choose(const QString& configHome, bool (*isInstalled)(const QString& name)) {
    for (const auto& choice : choices) {
        const auto file = configHome + u'/' + QLatin1String(choice.file);
        if (!QFile::exists(file))
            continue;
        const auto name =
            QSettings(file, QSettings::IniFormat).value(QLatin1String(choice.key)).toString();
        if (isInstalled(name))
            return name;
    }
    for (const char* name : common)
        if (isInstalled(QLatin1String(name)))
            return QLatin1String(name);
    return QStringLiteral("hicolor");
}

QStringList searchPaths() {
    auto folders =
        QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("icons"),
                                  QStandardPaths::LocateDirectory);
    folders.prepend(QDir::homePath() + QStringLiteral("/.icons"));
    return folders;
}

bool isInstalled(const QString& name) {
    if (name.isEmpty() || name.contains(u'/'))
        return false;
    for (const auto& folder : searchPaths())
        if (QFile::exists(folder + u'/' + name + QStringLiteral("/index.theme")))
            return true;
    return false;
}

} // namespace orvelle::IconTheme
