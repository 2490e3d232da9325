#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QSizeF>
#include <QString>

/// The pictures of the symbol table's names.
namespace orvelle::SymbolImages {

/// How large a symbol is beside a text of `size` pixels: a little higher than the text's capitals,
/// wide symbols by their area rather than their width. Empty for an unknown name.
QSizeF extent(const QString& name, double size);

/// The symbol in one colour, `extent` times `devicePixelRatio` large; null for an unknown name.
/// Equal requests share one picture.
QImage render(const QString& name, double size, const QColor& color, double devicePixelRatio);

/// The symbol for the desktop's own bars and menus, in a grey that stands out from light and dark
/// ones alike; null for an unknown name.
QIcon trayIcon(const QString& name, double size);

} // namespace orvelle::SymbolImages
