#include "platform/mmvari/modem/mfsk.h"

#include <cmath>
#include <stdexcept>

namespace platform::modem {

MfskShape MfskShapeOf(const Setup& setup) {
    struct Kind {
        double baud;
        int bits, depth;
    };
    // A clock may be off by parts of a hundred; a speed in between is none of them.
    constexpr double near = 0.05;
    for (const Kind& kind : {Kind{15.625, 4, 10}, Kind{7.8125, 5, 5}, Kind{31.25, 4, 10}}) {
        if (std::abs(setup.baud / kind.baud - 1) > near) continue;
        const MfskShape shape{setup.baud, kind.bits, kind.depth, setup.mode == Mode::MfskL};
        if (setup.carrier < MfskLowestCarrier(shape) || setup.carrier > MfskHighestCarrier(shape, setup.rate))
            throw std::invalid_argument("carrier: the tones would lie outside the audio");
        return shape;
    }
    throw std::invalid_argument("baud: 7.8125, 15.625 or 31.25");
}

double MfskLowestCarrier(const MfskShape& shape) { return shape.baud * shape.Tones() / 2; }

double MfskHighestCarrier(const MfskShape& shape, double rate) {
    return rate / 2 - shape.baud * shape.Tones() / 2;
}

unsigned MfskToneOfBits(unsigned bits) {
    unsigned tone = bits;
    for (unsigned shift = 1; shift < 16; shift *= 2) tone ^= tone >> shift;
    return tone;
}

} // namespace platform::modem
