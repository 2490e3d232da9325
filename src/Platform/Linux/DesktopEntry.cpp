#include "Platform/Linux/DesktopEntry.h"

#include "Platform/Linux/SmallFile.h"

#include <QHash>
#include <QLocale>
#include <QStandardPaths>
#include <QStringList>

namespace orvelle {

namespace {

/// The entry's "Name" in the language that is nearest to the user's.
QString nameIn(const QString& entry) {
    QHash<QString, QString> names;
    bool isInEntry = false;
    for (const auto& line : entry.split(u'\n')) {
        if (line.startsWith(u'['))
            isInEntry = line.trimmed() == QLatin1String("[Desktop Entry]");
        else if (const auto equals = line.indexOf(u'='); isInEntry && equals > 0)
            names.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    const auto locale = QLocale::system().name(); // such as "de_DE"
    for (const auto& language : {locale, locale.section(u'_', 0, 0)})
        if (const auto name = names.value(QStringLiteral("Name[%1]").arg(language));
            !name.isEmpty())
            return name;
    return names.value(QStringLiteral("Name"));
}

/// Whether its first line that says something opens the group of an entry.
bool beginsAsEntry(const QString& text) {
    for (const auto& line : text.split(u'\n')) {
        const auto said = line.trimmed();
        if (!said.isEmpty() && !said.startsWith(u'#'))
            return said.startsWith(QLatin1String("[Desktop Entry]")) ||
                   said.startsWith(QLatin1String("[KDE Desktop Entry]"));
    }
    return false;
}

} // namespace

QString installedDesktopEntry(const std::string& name) {
    const auto file = QString::fromStdString(name);
    if (file.isEmpty() || file.contains(u'/'))
        return {};
    return QStandardPaths::locate(QStandardPaths::ApplicationsLocation,
                                  file + QStringLiteral(".desktop"));
}

bool isDesktopEntry(const std::string& path) {
    const auto name = QString::fromStdString(path);
    for (const auto* suffix : {".desktop", ".kdelnk"})
        if (name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive))
            return true;
    const auto beginning = readSmallFile(path);
    return beginning && beginsAsEntry(QString::fromStdString(*beginning));
}

ApplicationIdentity desktopEntryNamed(const std::vector<std::string>& names) {
    constexpr std::size_t largestEntry = 1 << 18; // bytes; translations make them long
    for (const auto& name : names) {
        const auto path = installedDesktopEntry(name);
        if (path.isEmpty())
            continue;
        const auto entry = readSmallFile(path.toStdString(), largestEntry);
        const auto label = entry ? nameIn(QString::fromStdString(*entry)) : QString();
        return {name, label.isEmpty() ? name : label.toStdString()};
    }
    ApplicationIdentity unknown;
    if (!names.empty())
        unknown.localizedName = names.back();
    return unknown;
}

} // namespace orvelle
