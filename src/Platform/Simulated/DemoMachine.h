#pragma once

#include "Foundation/Date.h"

namespace orvelle {

class SimulatedAudioHardware;
class SimulatedDisplayBrightness;
class SimulatedCameraService;
class SimulatedEventStore;
class SimulatedFileSystem;
class SimulatedFrontmostApplication;
class SimulatedHostStatistics;
class SimulatedPasteboard;
class SimulatedPowerSources;
class SimulatedSMCService;
class UserDefaults;

/// A machine that has something to show for every feature, and lives: its battery discharges, its
/// load and traffic go up and down. The same run shows the same figures.
namespace DemoMachine {

void switchEverythingOn(UserDefaults& defaults);
void script(SimulatedAudioHardware& audio);
void script(SimulatedDisplayBrightness& brightness);
void script(SimulatedCameraService& camera);
void script(SimulatedEventStore& calendars);
/// Puts files on the shelf.
void fill(SimulatedFileSystem& files);
void script(SimulatedPowerSources& power);
void script(SimulatedHostStatistics& statistics);
void script(SimulatedSMCService& smc);
/// Lists that were kept, counted back from `now`.
void script(SimulatedFileSystem& files, Date now);
/// Texts that are copied in several programs, one at each look.
void script(SimulatedPasteboard& pasteboard, SimulatedFrontmostApplication& frontmost);

} // namespace DemoMachine

} // namespace orvelle
