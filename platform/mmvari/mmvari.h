#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

/// The engine of the digital modes: a modem between the sound card and the windows.
namespace platform {

/// What the engine hears, or sends, for XMMVView.
struct MmvSpectrum {
    std::vector<float> line;     ///< dB, 0 for a tone of full scale; the first place is at 0 Hz
    double spacing = 0;          ///< Hz from a place to the next
    std::vector<float> waveform; ///< the newest samples, -1 to 1
    std::vector<float> sync;     ///< what the receiver decided on last, -1 to 1
    std::vector<double> tones;   ///< Hz where the signal is expected: a mark for each
    bool own = false;            ///< it is what the engine sends, without the noise of the air
};

/// What the engine asks and tells. Functions that are not set are not called.
struct MmvEvents {
    std::function<void(const MmvSpectrum& spectrum)> spectrum; ///< some twenty times a second
    std::function<void(double level)> level;                   ///< of the sound, 0 to 1, at the same times
    std::function<void(int state)> transmitState;              ///< one of MmvState
    std::function<void()> transmitRequest; ///< SendCharacter may be called for the next one
    std::function<void(int channel, QChar character)> received;
    std::function<void(int channel)> speedChanged;
    std::function<void(int channel)> receiveListChanged;
    std::function<void(int which)> switchChanged;    ///< one of MmvSwitch
    std::function<void(const QString& text)> status; ///< what stands in the way, or nothing
};

namespace mmvstate {
inline constexpr int Receive = 0;
inline constexpr int Transmit = 1;
inline constexpr int ToReceive = 2; ///< what is in the buffer still goes out
inline constexpr int Wait = 3;      ///< the radio is keyed and not yet ready
inline constexpr int Tone = 4;
} // namespace mmvstate

namespace mmvswitch {
inline constexpr int Afc = 0; ///< follow a signal that is off the carrier
inline constexpr int Atc = 1; ///< weigh RTTY's two tones by their own strengths
inline constexpr int Net = 2; ///< transmit where the receiver is, not where it was tuned to
inline constexpr int Uos = 3; ///< RTTY: letters again after a space
inline constexpr int Hpf = 4; ///< take hum and rumble out of the sound
} // namespace mmvswitch

/// A number of the settings that cannot be read: no engine can use it, and says so.
inline constexpr int mmvUnreadable = std::numeric_limits<int>::min();

/// The engine. Channel 0 listens to radio A, channel 1 to radio B; channel 0 transmits. It starts with the
/// first Start and lets go of sound card and serial port when it is deleted. Events come by the message loop.
class MmvariX {
public:
    virtual ~MmvariX() = default;
    MmvEvents events;

    virtual int ModeCount() const = 0;
    /// @param number from 0
    virtual QString ModeName(int number) const = 0;
    /// @param name as ModeName tells it; another changes nothing
    virtual void Mode(int channel, const QString& name) = 0;
    virtual QString Mode(int channel) const = 0;
    /// The speeds of the channel's mode in baud, the usual one first.
    virtual QStringList Speeds(int channel) const = 0;
    /// @param baud one of Speeds; another text changes nothing
    virtual void Speed(int channel, const QString& baud) = 0;
    virtual QString Speed(int channel) const = 0;
    /// How noise is treated: the ways, and the one chosen, from 0.
    virtual QStringList ReceiveList(int channel) const = 0;
    virtual void ReceiveChoice(int channel, int choice) = 0;
    virtual int ReceiveChoice(int channel) const = 0;
    /// Hz: RTTY's mark tone, the middle of the others. With AFC it follows.
    virtual void Carrier(int channel, double hertz) = 0;
    virtual double Carrier(int channel) const = 0;

    virtual void Afc(int channel, bool on) = 0;
    /// @param which one of mmvswitch but Afc
    virtual void Switch(int which, bool on) = 0;
    virtual bool IsOn(int which) const = 0;

    /// On keys the radio and sends; off stops at once, and what waits in the buffer is thrown away.
    virtual void Transmit(bool on) = 0;
    /// Back to receive when there is nothing more to send.
    virtual void EndTransmit() = 0;
    virtual int State() const = 0;
    /// One character behind those that wait.
    virtual void SendCharacter(QChar character) = 0;

    /// The serial line whose RTS and DTR key the radio: "Com1" and up, or "None".
    virtual void ComPort(const QString& name) = 0;
    /// Depths of the buffers, 1 to 64: tenths of a second of sound that waits to be heard, twentieths that
    /// wait to go out. In the place of a depth, card or clock that cannot be used the usual one is, and the
    /// status says so.
    virtual void FifoRx(int depth) = 0;
    virtual void FifoTx(int depth) = 0;
    /// @param radio 0 or 1 @param side 0 both mixed, 1 left, 2 right
    virtual void SoundChannel(int radio, int side) = 0;
    /// @param id -1 for the machine's own choice, from 0 in the order of its list. One that is not there is
    /// silence: another card would bring to a loudspeaker what is meant for the radio
    virtual void SoundCard(int id) = 0;
    /// @param rate samples a second, 6000 to 50000
    virtual void RxClock(int rate) = 0;

    /// Opens sound card and serial port with what was set; what is set later is taken over by itself.
    virtual void Start() = 0;
    /// Transmission ends at once; sound card and serial port are free for others.
    virtual void Stop() = 0;
};

/// The engine with the sound card.
std::unique_ptr<MmvariX> CreateMmvari();

/// What stands in for the engine in tests. An unset function makes the real one.
struct MmvariSeam {
    std::function<std::unique_ptr<MmvariX>()> create;
};
MmvariSeam& Mmvaris();

} // namespace platform
