#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace platform {

/// Sound that comes in. It is asked for what has come; it calls nobody.
class SoundInput {
public:
    virtual ~SoundInput() = default;
    virtual int Rate() const = 0;
    /// 1 or 2.
    virtual int Channels() const = 0;
    /// Takes what has come since the last call. @param frames the channels by turns, -1 to 1; what was there
    /// is gone
    virtual void Read(std::vector<float>& frames) = 0;
    /// The card is gone, and what it said.
    virtual QString Trouble() const { return {}; }
    /// The card's own name, which it keeps when others come and go; empty if it has none.
    virtual QByteArray Card() const { return {}; }
};

/// Sound that goes out, on all channels alike.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;
    virtual int Rate() const = 0;
    /// How many samples it takes now.
    virtual std::size_t Free() const = 0;
    /// @param samples no more than Free tells
    virtual void Write(std::span<const float> samples) = 0;
    /// All that was written has been heard.
    virtual bool Drained() const = 0;
    /// The card is gone, and what it said.
    virtual QString Trouble() const { return {}; }
    /// As of SoundInput.
    virtual QByteArray Card() const { return {}; }
};

struct SoundWish {
    int id = -1;        ///< of the card, from 0 in the machine's list; -1 the machine's own choice
    int rate = 11025;   ///< if the card has it, else it takes what it has
    int channels = 1;   ///< wanted
    double seconds = 1; ///< what the buffer holds: sound that waits for the program, or for the card
    /// This card and no other, by its own name, whatever the id: when a card is pulled out, its place in the
    /// list is another's.
    QByteArray card = {};
    bool operator==(const SoundWish&) const = default;
};

/// The machine's sound card. @return nothing if there is none that can be opened
std::unique_ptr<SoundInput> OpenSoundInput(const SoundWish& wish);
std::unique_ptr<SoundOutput> OpenSoundOutput(const SoundWish& wish);

/// What stands in for a card that is not there: silence comes in and what goes out is lost, at the pace of
/// the clock.
std::unique_ptr<SoundInput> SilentInput(int rate);
std::unique_ptr<SoundOutput> SilentOutput(const SoundWish& wish);

/// What stands in for the card in tests, which are less patient too. An unset function opens the real one.
struct SoundCardSeam {
    std::function<std::unique_ptr<SoundInput>(const SoundWish&)> input;
    std::function<std::unique_ptr<SoundOutput>(const SoundWish&)> output;
    int retryEvery = 2500; ///< milliseconds between attempts to find a card or a port that is gone
    int stuckAfter = 5000; ///< milliseconds that a card may take nothing: longer than any buffer lasts
};
SoundCardSeam& SoundCards();

} // namespace platform
