#pragma once

#include "Foundation/SharedBytes.h"
#include "Models/MediaInfo.h"
#include "Platform/NowPlayingService.h"

#include <optional>

namespace orvelle {

/// One answer of the service as the program understands it: a key that is missing or holds another
/// type counts as empty, 0 or none.
struct NowPlayingReading {
    explicit NowPlayingReading(const NowPlayingInfo& info);

    MediaInfo media;                    ///< without artwork
    std::optional<SharedBytes> artwork; ///< the bytes of the cover's file
};

} // namespace orvelle
