#pragma once

namespace orvelle {

class RunLoop;
class SimulatedNowPlayingService;

namespace DemoMachine {

/// A player with a short list of tracks, each with a cover, that plays and obeys.
void script(SimulatedNowPlayingService& service, RunLoop& runLoop);

} // namespace DemoMachine

} // namespace orvelle
