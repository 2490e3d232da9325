#pragma once

#include <QString>
#include <QStringList>

namespace orvelle {

/// Starts a program that goes on by itself; false when it cannot be started. Where the environment
/// says ORVELLE_START_OUTSIDE, as the service's unit does, the user's service manager starts it,
/// and so none of the fences around this process hold for it.
bool startProgram(const QString& path, const QStringList& arguments);

} // namespace orvelle
