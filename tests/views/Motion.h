#pragma once

#include "views/ViewFixture.h"

#include <QImage>

#include <functional>
#include <map>
#include <string>

namespace orvelle {

/// The notch's views full of content, whose every frame can be looked at: no animation moves by
/// itself. The notch is 180 by 32 at the middle of a window of 566 by 220.
class Motion : public ViewFixture {
protected:
    Motion();

    using Places = std::map<std::string, QRectF>;

    /// Asks for a state, and looks at each frame until everything rests.
    void move(NotchExpandedState to, const std::function<void()>& look);
    /// The next frame.
    void frame();
    void rest(NotchExpandedState state);
    bool isMoving() const;

    /// Where on the window each part of bar and panel stands that can be seen at all.
    Places places() const;
    /// What is painted beside the shape, in pixels of the picture.
    int strayPixels() const;
    /// Whether each row of the body is black along both of its sides, where no content comes.
    bool isBodyFilled() const;

    static constexpr int frameTime = 8; ///< milliseconds
    QImage picture;                     ///< the window in the present frame
};

} // namespace orvelle
