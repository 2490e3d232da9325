#include "Platform/Linux/DesktopEntry.h"

#include "Platform/Linux/SmallFile.h"

#include <QHash>
#include <QLocale>
#include <QStandardPaths>
#include <QStringList>

namespace orvelle {

namespace {

constexpr std::size_t largestEntry = 1 << 18; // bytes; translations make them long

/// The keys of the file's main group.
QHash<QString, QString> valuesIn(const std::string& path) {
    QHash<QString, QString> values;
    bool isInEntry = false;
    const auto entry = QString::fromStdString(readSmallFile(path, largestEntry).value_or(""));
    for (const auto& line : entry.split(u'\n')) {
        if (line.startsWith(u'['))
            isInEntry = line.trimmed() == QLatin1String("[Desktop Entry]");
        else if (const auto equals = line.indexOf(u'='); isInEntry && equals > 0)
            values.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return values;
}

/// The entry's "Name" in the language that is nearest to the user's.
QString nameIn(const QHash<QString, QString>& values) {
    const auto locale = QLocale::system().name(); // such as "de_DE"
    for (const auto& language : {locale, locale.section(u'_', 0, 0)})
        if (const auto name = values.value(QStringLiteral("Name[%1]").arg(language));
            !name.isEmpty())
            return name;
    return values.value(QStringLiteral("Name"));
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
    for (const auto& name : names) {
        const auto path = installedDesktopEntry(name);
        if (path.isEmpty())
            continue;
        const auto label = nameIn(valuesIn(path.toStdString()));
        return {name, label.isEmpty() ? name : label.toStdString()};
    }
    ApplicationIdentity unknown;
    if (!names.empty())
        unknown.localizedName = names.back();
    return unknown;
}

DesktopEntryTraits desktopEntryTraits(const std::string& path) {
    const auto values = valuesIn(path);
    const auto says = [&](const char* key) {
        return values.value(QLatin1String(key)) == QLatin1String("true");
    };
    return {.windowClass = values.value(QStringLiteral("StartupWMClass")).toStdString(),
            .startsNoSecondCopy = says("DBusActivatable") || says("SingleMainWindow")};
}

} // namespace orvelle
