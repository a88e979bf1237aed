#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A software modem: samples in, characters out; characters in, samples out. Plain C++, no threads, no clocks
/// and no devices: what it does depends on its input alone.
///
/// Audio is mono, full scale is -1 to 1, at any rate from 6,000 to 50,000 samples a second. Characters are
/// those of Windows-1252; the modes send what their codes hold.
namespace platform::modem {

enum class Mode : std::uint8_t { Bpsk, RttyL, RttyU, MfskL, MfskU };

struct ModeInfo {
    Mode mode;
    const char* name;           ///< "rtty-L"
    std::vector<double> speeds; ///< in baud, the usual one first
};
/// The modes in the order in which they are offered.
const std::vector<ModeInfo>& Modes();
const ModeInfo& Info(Mode mode);
std::optional<Mode> ModeNamed(std::string_view name);

/// What a modem is made for.
struct Setup {
    Mode mode = Mode::Bpsk;
    double baud = 31.25;   ///< one of the mode's speeds, or one near it
    double carrier = 2125; ///< Hz: RTTY's mark tone, the middle of the others
    double rate = 11025;   ///< samples a second
};

/// Where a signal is received, and how well: for a view of the receiver at work.
struct Sync {
    std::vector<float> points; ///< -1 to 1: what was decided on last, one value a symbol
    double quality = 0;        ///< 0 nothing but noise, 1 clean
};

/// Turns the audio of one mode into characters.
class Receiver {
public:
    virtual ~Receiver() = default;

    /// Takes samples in pieces of any length. @param text what was received is put behind what it holds
    virtual void Receive(std::span<const float> audio, std::string& text) = 0;

    /// In Hz. With AFC on it follows the signal.
    virtual double Carrier() const = 0;
    /// Tunes; what was heard before counts no more.
    virtual void Carrier(double hertz) = 0;
    /// Follow a signal that is off the carrier. Off at first.
    virtual void Afc(bool on) = 0;
    /// Keep quiet on noise. On at first.
    virtual void Squelch(bool on) = 0;
    /// RTTY: weigh the two tones by their own strengths. Off at first; elsewhere it does nothing.
    virtual void Atc(bool) {}
    /// RTTY: letters again after a space. On at first; elsewhere it does nothing.
    virtual void UnshiftOnSpace(bool) {}

    virtual Sync Now() const = 0;
};

/// Turns characters into the audio of one mode.
class Transmitter {
public:
    virtual ~Transmitter() = default;

    /// Queues a character. One that the mode's code does not hold is left out.
    virtual void Put(char character) = 0;
    /// Characters that have not begun to go out.
    virtual int Waiting() const = 0;
    /// The mode's ending follows when nothing waits any more.
    virtual void Finish() = 0;
    /// The ending has gone out: only silence follows.
    virtual bool Done() const = 0;
    /// The next samples, peak at most 1: the mode's idle signal while nothing waits.
    virtual void Generate(std::span<float> audio) = 0;
    /// RTTY: a space goes back to letters, and figures behind it are shifted to again. On at first.
    virtual void UnshiftOnSpace(bool) {}
};

/// Where in the spectrum a signal is expected: RTTY's mark and space, the outermost tones of MFSK, a PSK
/// carrier. In Hz.
std::vector<double> TonesShown(Mode mode, double baud, double carrier);

/// The least and the greatest carrier with which the whole signal lies inside the audio.
std::pair<double, double> CarrierRange(const Setup& setup);

/// @throws std::invalid_argument if rate, baud or carrier are outside what the modem can do
std::unique_ptr<Receiver> MakeReceiver(const Setup& setup);
std::unique_ptr<Transmitter> MakeTransmitter(const Setup& setup);

} // namespace platform::modem
