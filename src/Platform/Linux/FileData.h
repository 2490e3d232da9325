#pragma once

#include <atomic>

namespace orvelle {

/// Copies the data that the regular file `source` has at this moment into the empty file
/// `destination`, holes as holes. 0, or the number of the error that stopped it: ECANCELED soon
/// after `cancelled` is set.
int copyFileData(int source, int destination, const std::atomic<bool>& cancelled);

} // namespace orvelle
