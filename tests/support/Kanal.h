#pragma once

#include "platform/mmvari/modem/modem.h"

#include <cstdint>
#include <random>

/// Short wave in a bottle: what lies between a transmitter and a receiver.
namespace provkanal {

using Audio = std::vector<float>;

/// What a transmission suffers.
struct Väg {
    double snr = 100;      ///< dB: mean power of the signal while it is sent over the noise in 2,500 Hz
    double eko = 0;        ///< a second path: its amplitude beside the first
    double ekoMs = 2.82;   ///< and how much later it comes
    double fädning = 0;    ///< two paths of equal strength, 1 ms apart, that fade: Doppler spread in Hz
    double drift = 0;      ///< Hz a minute
    double tystnad = 1;    ///< seconds of bare noise in front and behind
    std::uint32_t frö = 1; ///< the same seed makes the same noise
};

/// The signal through the path, with noise before and behind it. Noise is white up to half the rate.
Audio Sänd(const Audio& ren, double rate, const Väg& väg);

/// White noise of the strength that Sänd has.
Audio Brus(double sekunder, double rate, std::uint32_t frö);

/// The whole transmission of a text, at amplitude 1.
Audio Koda(const platform::modem::Setup& setup, const std::string& text);

/// What contest stations send: calls, reports, serials. Capitals, figures and single blanks.
std::string Testtext(int tecken, std::uint32_t frö);

/// Insertions, deletions and exchanges that lead from the text to what fits best in what was received: junk
/// in front and behind costs nothing.
int Fel(const std::string& sänt, const std::string& mottaget);

/// Lower case to upper, runs of blanks and line ends to one blank, control characters out.
std::string Städa(const std::string& text);

} // namespace provkanal
