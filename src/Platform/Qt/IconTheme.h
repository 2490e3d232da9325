#pragma once

#include <QString>
#include <QStringList>

/// Which icon theme the desktop's user has chosen.
namespace orvelle::IconTheme {

/// The themes to look in, the best first: the one of the settings files under `configHome` that
/// desktops keep, then those that are commonly there. `isInstalled` tells of a theme's name.
QString choose(const QString& configHome, bool (*isInstalled)(const QString& name));

/// The folders in which themes lie.
QStringList searchPaths();
/// Whether a theme of that name lies in one of them.
bool isInstalled(const QString& name);

} // namespace orvelle::IconTheme
