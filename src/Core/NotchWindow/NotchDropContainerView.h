#pragma once

#include "Platform/DraggingDestination.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// The panel's content as a target of drags: takes files, and nothing else, wherever over the panel
/// they are.
class NotchDropContainerView : public DraggingDestination {
public:
    std::function<void()> onDragEntered;
    std::function<void()> onDragExited;
    std::function<bool(const std::vector<std::string>& urls)> onDragPerformed;

    DragOperation draggingEntered() override;
    DragOperation draggingUpdated() override;
    void draggingExited() override;
    bool prepareForDragOperation() override;
    bool performDragOperation(const std::optional<std::vector<std::string>>& fileURLs) override;
};

} // namespace orvelle
