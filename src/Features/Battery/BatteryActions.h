#pragma once

#include "Platform/Platform.h"

/// What the battery panel offers to do with the machine. Nothing waits for these, and nothing hears
/// of their failure.
namespace orvelle::BatteryActions {

void lockScreen(Platform& platform = Platform::shared());
void sleepDisplay(Platform& platform = Platform::shared());
void openEnergySettings(Platform& platform = Platform::shared());

} // namespace orvelle::BatteryActions
