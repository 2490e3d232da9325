#pragma once

#include <QFont>

namespace orvelle {

/// The face of every text: its figures are all equally wide, so that clocks and percentages do not
/// jitter. Scripts that it lacks come from the faces that the system names for them.
QFont panelFace();

} // namespace orvelle
