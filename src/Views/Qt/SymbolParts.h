#pragma once

#include <QImage>

/// A symbol's parts: what is drawn and does not touch.
namespace orvelle::SymbolParts {

/// Halves the opacity of every part but the largest. The picture is premultiplied ARGB.
void fadeAllButTheLargest(QImage& image);

} // namespace orvelle::SymbolParts
