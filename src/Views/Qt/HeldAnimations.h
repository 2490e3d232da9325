#pragma once

#include <QAnimationDriver>

namespace orvelle {

/// While one lives, the animations of this process move only when told, so that any moment of a
/// movement can be looked at for as long as it takes. One at a time, and none beside a renderer
/// that drives the animations itself: the software renderer does not.
class HeldAnimations : public QAnimationDriver {
public:
    HeldAnimations();
    ~HeldAnimations() override;

    /// Begins what is due to begin, and moves everything on by `milliseconds`.
    void step(int milliseconds);

    qint64 elapsed() const override { return time_; }

protected:
    void start() override;

private:
    qint64 time_ = 0; ///< since something began to move
};

} // namespace orvelle
