#include "Platform/Qt/QtFileIcons.h"

#include "Platform/Qt/IconTheme.h"

#include <QIcon>
#include <QImage>
#include <QMimeType>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>

#include <cstdint>
#include <vector>

namespace orvelle {

namespace {

constexpr const char* folderIcon = "inode-directory";
/// Every theme has it.
constexpr const char* plainIcon = "text-x-generic";
/// Between the special name and the general one that stands in for it.
constexpr QChar separator = u';';

Image imageFrom(const QImage& picture) {
    const auto pixels = picture.convertToFormat(QImage::Format_RGBA8888);
    std::vector<std::uint8_t> bytes;
    for (int row = 0; row < pixels.height(); ++row) {
        const auto* line = pixels.constScanLine(row);
        bytes.insert(bytes.end(), line, line + 4 * pixels.width());
    }
    return Image(pixels.width(), pixels.height(), std::move(bytes));
}

/// In the middle of the square, enlarged when the theme has none so large.
QImage inSquare(const QIcon& icon, int side) {
    const auto drawn = icon.pixmap(QSize(side, side), 1.0)
                           .toImage()
                           .scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage square(side, side, QImage::Format_RGBA8888);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.drawImage((side - drawn.width()) / 2, (side - drawn.height()) / 2, drawn);
    return square;
}

} // namespace

std::optional<std::string> QtFileIcons::type(const std::string& name) const {
    const auto type =
        types_.mimeTypeForFile(QString::fromStdString(name), QMimeDatabase::MatchExtension);
    if (type.isDefault())
        return std::nullopt;
    return type.name().toStdString();
}

std::string QtFileIcons::icon(const std::string& name, bool isFolder) const {
    if (isFolder)
        return folderIcon;
    const auto type =
        types_.mimeTypeForFile(QString::fromStdString(name), QMimeDatabase::MatchExtension);
    return (type.iconName() + separator + type.genericIconName()).toStdString();
}

void QtFileIcons::chooseTheme() const {
    if (isThemeChosen_)
        return;
    isThemeChosen_ = true;
    const auto configHome = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QIcon::setThemeSearchPaths(IconTheme::searchPaths());
    QIcon::setThemeName(IconTheme::choose(configHome, &IconTheme::isInstalled));
    if (IconTheme::isInstalled(QStringLiteral("Adwaita")))
        QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
}

Image QtFileIcons::picture(const std::string& icon, int side) const {
    if (side <= 0)
        return {};
    chooseTheme();
    auto names = QString::fromStdString(icon).split(separator, Qt::SkipEmptyParts);
    names.append(QLatin1String(plainIcon));
    for (const auto& name : names)
        if (const auto found = QIcon::fromTheme(name); !found.isNull())
            return imageFrom(inSquare(found, side));
    return {};
}

} // namespace orvelle
