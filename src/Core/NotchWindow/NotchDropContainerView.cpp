#include "Core/NotchWindow/NotchDropContainerView.h"

namespace orvelle {

DragOperation NotchDropContainerView::draggingEntered() {
    if (onDragEntered)
        onDragEntered();
    return DragOperation::copy;
}

DragOperation NotchDropContainerView::draggingUpdated() {
    return DragOperation::copy;
}

void NotchDropContainerView::draggingExited() {
    if (onDragExited)
        onDragExited();
}

bool NotchDropContainerView::prepareForDragOperation() {
    return true;
}

bool NotchDropContainerView::performDragOperation(
    const std::optional<std::vector<std::string>>& fileURLs) {
    if (!fileURLs || fileURLs->empty() || !onDragPerformed)
        return false;
    return onDragPerformed(*fileURLs);
}

} // namespace orvelle
