#pragma once

#include "platform/mmvari/modem/modem.h"

/// Frequency shift keying of sixteen tones and more, with error correction: MFSK16 and its kin.
namespace platform::modem {

/// What one of these modes looks like on the air. The tones lie as far apart as there are symbols a second,
/// the lowest is tone 0 in "mfsk-U" and the highest in "mfsk-L", and the carrier is the middle of them.
struct MfskShape {
    double baud;   ///< symbols a second, and Hz between tones
    int bits;      ///< that a symbol carries
    int depth;     ///< symbols by which the interleaver delays each bit of a symbol more than the bit before
    bool reversed; ///< "mfsk-L"

    int Tones() const { return 1 << bits; }
    /// Symbols between the first and the last bit of those that went into the interleaver together.
    int Span() const { return depth * (bits - 1); }
};

/// MFSK16 (15.625 baud), MFSK8 (7.8125) or MFSK32 (31.25), whichever is near.
/// @throws std::invalid_argument if none is, or if tones would lie outside the audio
MfskShape MfskShapeOf(const Setup& setup);
/// Carriers that keep all tones inside the audio.
double MfskLowestCarrier(const MfskShape& shape);
double MfskHighestCarrier(const MfskShape& shape, double rate);

/// A tone carries the bits tone ^ (tone >> 1), the first the most significant: neighbours differ in one bit.
constexpr unsigned MfskBitsOfTone(unsigned tone) { return tone ^ (tone >> 1U); }
unsigned MfskToneOfBits(unsigned bits);

std::unique_ptr<Receiver> MakeMfskReceiver(const Setup& setup);
std::unique_ptr<Transmitter> MakeMfskTransmitter(const Setup& setup);

} // namespace platform::modem
