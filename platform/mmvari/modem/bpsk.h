#pragma once

#include "platform/mmvari/modem/modem.h"

/// Binary phase shift keying with varicode: 31.25, 62.5 and 125 baud.
namespace platform::modem {

std::unique_ptr<Receiver> MakeBpskReceiver(const Setup& setup);
std::unique_ptr<Transmitter> MakeBpskTransmitter(const Setup& setup);

} // namespace platform::modem
