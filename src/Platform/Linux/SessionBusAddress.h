#pragma once

#include <chrono>
#include <string>

namespace orvelle {

/// Whether the message bus of this address may be asked to connect: false only when it takes calls
/// on its socket and then says nothing for as long as `patience`. Addresses of other kinds than
/// sockets of this machine are not tried.
bool answersOnBus(const std::string& address, std::chrono::milliseconds patience);

/// Where the toolkit will look for the session's bus; empty when nothing tells.
std::string sessionBusAddress();

} // namespace orvelle
