#pragma once

#include <QFont>
#include <QString>

namespace orvelle {

/// The face of every text: its figures are all equally wide, so that clocks and percentages do not
/// jitter. Scripts that it lacks come from the faces that the system names for them.
QFont panelFace();

/// The family of texts whose letters are all equally wide.
QString monospacedFamily();

} // namespace orvelle
