// The control of the tests beside it: with the core's own flags this compiles.
#include "Core/PanelOrderManager.h"
#include "Foundation/Geometry.h"
#include "Models/Symbol.h"
#include "Platform/Platform.h"
#include "Platform/RunLoop.h"

constexpr auto known = orvelle::operator""_symbol("cpu", 3);
