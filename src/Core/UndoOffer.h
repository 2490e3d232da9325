#pragma once

#include "Foundation/Published.h"
#include "Foundation/UUID.h"
#include "Platform/RunLoop.h"

#include <functional>
#include <optional>
#include <string>

namespace orvelle {

class NotchState;
enum class ActivePanel;

/// What the user has just taken away, and the way back: for a moment, or until something else is
/// taken away or `finish` is called. Main thread only.
class UndoOffer {
public:
    static constexpr Seconds duration = 6;

    struct Removal {
        std::string text; ///< what was done, for the user
        std::function<void()> undo;
        /// What is left to do once there is no way back.
        std::function<void()> finish = {};
        /// What its manager still has, and nobody is to see.
        std::optional<UUID> heldBack = {};
    };

    explicit UndoOffer(RunLoop& runLoop) : runLoop_(runLoop) {}
    UndoOffer(const UndoOffer&) = delete;
    UndoOffer& operator=(const UndoOffer&) = delete;
    ~UndoOffer() { finish(); }

    Published<std::string> text; ///< empty without an offer

    void offer(Removal removal);
    /// Nothing without an offer.
    void undo();
    /// Ends the offer: what is gone is gone.
    void finish();
    bool holdsBack(UUID id) const;

private:
    std::optional<Removal> take();

    RunLoop& runLoop_;
    std::optional<Removal> removal_;
    Timer timeOver_;
};

/// The panel's offer. It ends with what shows it, and before a file is dropped.
class PanelUndoOffer : public UndoOffer {
public:
    PanelUndoOffer(const NotchState& state, RunLoop& runLoop);

private:
    ActivePanel shown_;
    Subscription panelFollows_;
    Subscription stateFollows_;
    Subscription dragFollows_;
};

} // namespace orvelle
