#include "Views/Qt/Face.h"

#include <QFontInfo>
#include <QStringList>

namespace orvelle {

QFont panelFace() {
    QFont face;
    face.setFamilies({QStringLiteral("Roboto"), QStringLiteral("Noto Sans"),
                      QStringLiteral("Open Sans"), QStringLiteral("DejaVu Sans")});
    face.setPixelSize(13);
    // Whole-pixel hinting would make small texts uneven and wider than they were designed.
    face.setHintingPreference(QFont::PreferNoHinting);
    return face;
}

QString monospacedFamily() {
    return QFontInfo(
               QFont(QStringList{QStringLiteral("Roboto Mono"), QStringLiteral("Noto Sans Mono"),
                                 QStringLiteral("DejaVu Sans Mono")}))
        .family();
}

} // namespace orvelle
