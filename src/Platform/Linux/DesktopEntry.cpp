#include "Platform/Linux/DesktopEntry.h"

#include "Platform/Linux/SmallFile.h"

#include <QHash>
#include <QLocale>
#include <QStandardPaths>
#include <QString>
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

} // namespace

ApplicationIdentity desktopEntryNamed(const std::vector<std::string>& names) {
    constexpr std::size_t largestEntry = 1 << 18; // bytes; translations make them long
    for (const auto& name : names) {
        const auto file = QString::fromStdString(name) + QStringLiteral(".desktop");
        const auto path = file.contains(u'/')
                              ? QString()
                              : QStandardPaths::locate(QStandardPaths::ApplicationsLocation, file);
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
