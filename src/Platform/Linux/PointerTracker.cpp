#include "Platform/Linux/PointerTracker.h"

namespace orvelle {

void PointerTracker::frameChanged(const std::optional<Rect>& frame, Point pointer) {
    const bool wasWithin = frame_ && frame_->contains(pointer);
    const bool isWithin = frame && frame->contains(pointer);
    // The window withdrew from under the pointer. Where neither frame holds it, the pointer left by
    // itself, and the window system's report is still on its way.
    if ((wasWithin && !isWithin) || !frame) {
        inside_ = false;
        unsure_ = false;
    }
    frame_ = frame;
    resting_ = pointer;
}

PointerTracker::Crossing PointerTracker::reportedInside(Point pointer) {
    unsure_ = false;
    if (inside_ || pointer == resting_)
        return Crossing::none;
    inside_ = true;
    return Crossing::entered;
}

PointerTracker::Crossing PointerTracker::reportedOutside(Point pointer) {
    unsure_ = inside_ && frame_ && frame_->contains(pointer);
    if (!inside_ || unsure_)
        return Crossing::none;
    inside_ = false;
    return Crossing::exited;
}

} // namespace orvelle
