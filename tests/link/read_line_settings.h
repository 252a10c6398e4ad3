#pragma once

#include <string>

namespace orlo::testing
{

/// Bits per second of the device in both directions, -1 when they differ or cannot be read.
int ReadLineSpeed(const std::string& device);

/// Whether the device is under RTS/CTS handshaking.
bool HasRtsCts(const std::string& device);

}  // namespace orlo::testing
