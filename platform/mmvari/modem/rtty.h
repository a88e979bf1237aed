#pragma once

#include "platform/mmvari/modem/modem.h"

/// Radio teletype: two tones 170 Hz apart, start and stop bits, ITA2.
namespace platform::modem {

std::unique_ptr<Receiver> MakeRttyReceiver(const Setup& setup);
std::unique_ptr<Transmitter> MakeRttyTransmitter(const Setup& setup);

} // namespace platform::modem
