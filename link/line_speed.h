#pragma once

namespace orlo
{

/// Sets the speed of an open serial device to exactly `bits_per_second` in both directions, also
/// one without a constant of its own such as 14400, and checks it by reading it back. False when
/// the device does not take it. Linux; the interface is described in ioctl_tty(2), TCSETS2.
[[nodiscard]] bool SetLineSpeed(int file_descriptor, int bits_per_second);

}  // namespace orlo
