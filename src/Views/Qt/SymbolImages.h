#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QImage>
#include <QSizeF>
#include <QString>

/// The pictures of the symbol table's names.
namespace orvelle::SymbolImages {

struct Style {
    /// On Qt's scale. The drawings are regular; heavier ones have their lines thickened.
    int weight = QFont::Normal;
    /// The largest of the parts that do not touch is in the full colour, the others in half of it.
    bool isHierarchical = false;
};

/// How large a symbol is beside a text of `size` pixels: a little higher than the text's capitals,
/// wide symbols by their area rather than their width. Empty for an unknown name.
QSizeF extent(const QString& name, double size, int weight = QFont::Normal);

/// The symbol in one colour, `extent` times `devicePixelRatio` large; null for an unknown name.
/// Equal requests share one picture.
QImage render(const QString& name, double size, const QColor& color, double devicePixelRatio,
              Style style = {});

/// The symbol for the desktop's own bars and menus, in a grey that stands out from light and dark
/// ones alike; null for an unknown name.
QIcon trayIcon(const QString& name, double size);

} // namespace orvelle::SymbolImages
