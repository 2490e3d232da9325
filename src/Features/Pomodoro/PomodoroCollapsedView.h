#pragma once

#include "Views/Components/TextStyle.h"

namespace orvelle {

class PomodoroManager;

/// The focus timer in the hover bar: the phase's symbol, and the time that is left.
class PomodoroCollapsedView {
public:
    explicit PomodoroCollapsedView(const PomodoroManager& manager) : manager_(manager) {}

    StyledSymbol icon() const;
    StyledText text() const;

private:
    bool isIdle() const;

    const PomodoroManager& manager_;
};

} // namespace orvelle
