#pragma once

#include "platform/mmvari/modem/bpsk_varicode.h"
#include "platform/mmvari/modem/psk_evidence.h"
#include "platform/mmvari/modem/psk_loop.h"
#include "platform/mmvari/modem/psk_phase.h"
#include "platform/mmvari/modem/psk_pulse.h"
#include "platform/mmvari/modem/psk_sequence.h"

#include <array>
#include <string>

namespace platform::modem {

/// Follows one BPSK signal in its carrier, clock and phase, and reads it.
class PskDemodulator {
public:
    /// Where a signal is to be followed.
    struct Place {
        double moment;          ///< number of the sample in the middle of its first symbol, or between two
        double turn;            ///< its carrier in radians a sample
        double lowest, highest; ///< limits of its carrier
        double read = 0;        ///< number of a sample: characters that end before it are not wanted
    };

    /// @param symbol samples in a symbol
    PskDemodulator(double symbol, const Place& place);

    /// Reads as far as the samples reach. @param text what is read is put behind what it holds
    /// @param squelch keep characters back until there is evidence of a signal, and drop them if it stays out
    void Advance(const PskSamples& samples, bool squelch, std::string& text);

    /// Radians a sample.
    double Turn() const { return reference_ + phase_.Rate() / symbol_; }
    /// Mean magnitude of the symbols, neighbours and noise included.
    double Amplitude() const { return amplitude_; }
    /// The pulses' own: the same for text, an idle signal and a steady one, which a neighbour's part makes
    /// weaker and stronger by a third.
    double Strength() const { return strength_; }
    const PskEvidence& Evidence() const { return evidence_; }
    /// End of the last character that was put out with evidence: the number of a sample.
    double Read() const { return read_; }
    /// Middle of the next symbol: the number of a sample, or between two.
    double Moment() const { return clock_.Value() * symbol_; }

    static constexpr std::size_t shown = 64;
    /// The last symbols decided on, the newest last, a clean one at 1 or -1.
    void Points(std::vector<float>& points) const;

private:
    void TakeSymbol(const PskStrobe& strobe);
    void Sink(double power);
    void Weigh(double magnitude, int sign);
    /// All so far was noise: it has taught the loops nothing.
    void Forget();
    /// The symbol of which the phase can be told.
    void Decide(bool squelch, std::string& text);
    /// A character that ends with this symbol is part of the signal, and worth holding back.
    bool IsSent(std::int64_t end, std::int64_t length) const;
    void PutBit(bool bit, std::int64_t number, bool squelch, std::string& text);

    static constexpr std::size_t memory = 64; ///< symbols, a power of two
    double symbol_;
    PskPulse pulse_;
    double reference_; ///< radians a sample: phases are those against this carrier
    PskLoop phase_;    ///< radians, and radians a symbol
    PskLoop clock_;    ///< symbols since sample 0: of the next symbol's middle
    PskEvidence evidence_;
    PskPhase history_;
    PskSequence sequence_;
    VaricodeReader reader_;
    double amplitude_ = 0, strength_ = 0;
    double lastMagnitude_ = 0; ///< of the symbol before
    int lastSign_ = 1, secondLastSign_ = 1;
    /// Running means of the cosine of twice the error of the phase that the loop foretold, and the last
    /// symbols.
    double loopMerit_ = 0.5, recentMerit_ = 0;
    std::int64_t count_ = 0;     ///< symbols taken
    std::int64_t heardFrom_ = 0; ///< symbol at which the evidence began to rise
    int decided_ = 1;
    std::array<bool, memory> open_{}; ///< the evidence at each of them
    std::array<float, shown> points_{};
    std::string held_;
    double heldEnd_ = 0, read_; ///< numbers of samples: ends of the last character held and put out
};

} // namespace platform::modem
