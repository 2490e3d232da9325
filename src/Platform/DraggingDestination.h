#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orvelle {

/// What a drop would do with what is dragged.
enum class DragOperation { none, copy };

/// The one type of data that panels take.
inline constexpr const char* draggedFileType = "text/uri-list";

/// Takes what other programs drag over a window. The window calls it on the main thread, in the
/// order entered, updated any number of times, then exited or performed; and only for drags that
/// hold a file of this machine.
class DraggingDestination {
public:
    virtual ~DraggingDestination() = default;

    virtual DragOperation draggingEntered() = 0;
    virtual DragOperation draggingUpdated() = 0;
    virtual void draggingExited() = 0;
    virtual bool prepareForDragOperation() = 0;
    /// `fileURLs` is what the drag held, in its order; none when it could not be read. True when
    /// something was taken.
    virtual bool performDragOperation(const std::optional<std::vector<std::string>>& fileURLs) = 0;
};

} // namespace orvelle
