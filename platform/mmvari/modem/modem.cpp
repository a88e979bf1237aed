#include "platform/mmvari/modem/modem.h"

#include "platform/mmvari/modem/bpsk.h"
#include "platform/mmvari/modem/mfsk.h"
#include "platform/mmvari/modem/rtty.h"
#include "platform/mmvari/modem/rtty_tones.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace platform::modem {

namespace {

struct Makers {
    std::unique_ptr<Receiver> (*receiver)(const Setup&);
    std::unique_ptr<Transmitter> (*transmitter)(const Setup&);
};

/// By mode.
constexpr Makers makers[] = {{MakeBpskReceiver, MakeBpskTransmitter},
                             {MakeRttyReceiver, MakeRttyTransmitter},
                             {MakeRttyReceiver, MakeRttyTransmitter},
                             {MakeMfskReceiver, MakeMfskTransmitter},
                             {MakeMfskReceiver, MakeMfskTransmitter}};
const Makers& MakersOf(Mode mode) { return makers[static_cast<std::size_t>(mode)]; }

void Check(const Setup& setup) {
    if (!(setup.rate >= 6000 && setup.rate <= 50000)) throw std::invalid_argument("rate: 6000 to 50000");
    if (!(setup.baud >= 5 && setup.baud <= 300)) throw std::invalid_argument("baud: 5 to 300");
    const auto [low, high] = CarrierRange(setup);
    if (!(setup.carrier >= low && setup.carrier <= high))
        throw std::invalid_argument("carrier: the signal would lie outside the audio");
}

} // namespace

const std::vector<ModeInfo>& Modes() {
    static const std::vector<ModeInfo> modes = {
        {Mode::Bpsk, "bpsk", {31.25, 62.5, 125}},         {Mode::RttyL, "rtty-L", {45.45, 50, 75}},
        {Mode::RttyU, "rtty-U", {45.45, 50, 75}},         {Mode::MfskL, "mfsk-L", {15.625, 7.8125, 31.25}},
        {Mode::MfskU, "mfsk-U", {15.625, 7.8125, 31.25}},
    };
    return modes;
}

const ModeInfo& Info(Mode mode) { return Modes().at(static_cast<std::size_t>(mode)); }

std::optional<Mode> ModeNamed(std::string_view name) {
    for (const ModeInfo& info : Modes())
        if (name == info.name) return info.mode;
    return std::nullopt;
}

std::pair<double, double> CarrierRange(const Setup& setup) {
    // The keying's own width, and a margin for what filters do to the ends of the audio.
    const double margin = 50 + setup.baud;
    const std::vector<double> tones = TonesShown(setup.mode, setup.baud, 0);
    const auto [lowest, highest] = std::minmax_element(tones.begin(), tones.end());
    return {margin - *lowest, setup.rate / 2 - margin - *highest};
}

std::unique_ptr<Receiver> MakeReceiver(const Setup& setup) {
    Check(setup);
    return MakersOf(setup.mode).receiver(setup);
}

std::unique_ptr<Transmitter> MakeTransmitter(const Setup& setup) {
    Check(setup);
    return MakersOf(setup.mode).transmitter(setup);
}

std::vector<double> TonesShown(Mode mode, double baud, double carrier) {
    switch (mode) {
    case Mode::Bpsk: return {carrier};
    case Mode::RttyL: return {carrier, carrier + rttyShift};
    case Mode::RttyU: return {carrier, carrier - rttyShift};
    case Mode::MfskL:
    case Mode::MfskU: break;
    }
    // Only the shape is asked for: at this place any of them fits in.
    const MfskShape shape = MfskShapeOf({.mode = mode, .baud = baud, .carrier = 3000, .rate = 12000});
    const double half = (shape.Tones() - 1) / 2.0 * baud;
    return {carrier - half, carrier + half};
}

} // namespace platform::modem
