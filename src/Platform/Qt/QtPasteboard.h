#pragma once

#include "Platform/Pasteboard.h"

namespace orvelle {

/// The desktop's clipboard. Needs a QGuiApplication.
class QtPasteboard : public Pasteboard {
public:
    void writeFiles(const std::vector<std::string>& urls) override;
};

} // namespace orvelle
