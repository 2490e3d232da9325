#pragma once

#include <QMimeData>

#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// Files as programs and file managers hand them to each other.
std::unique_ptr<QMimeData> fileMimeData(const std::vector<std::string>& urls);

} // namespace orvelle
