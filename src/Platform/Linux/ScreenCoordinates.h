#pragma once

#include "Foundation/Geometry.h"

#include <QPointF>
#include <QRect>

/// Between the toolkit's coordinates, y downward from the top left, and the program's, y upward
/// from the primary screen's bottom left. Needs a QGuiApplication; without a screen the origin is
/// the toolkit's own.
namespace orvelle::ScreenCoordinates {

Rect fromQt(const QRectF& rect);
Point fromQt(const QPointF& point);
/// Where the pointer really is: the middle of its pixel, so that it lies within a rectangle exactly
/// when it is over it. Asks the window system, which takes some hundredths of a millisecond.
Point pointer();
/// To whole points, as windows stand.
QRect toQt(const Rect& rect);

} // namespace orvelle::ScreenCoordinates
