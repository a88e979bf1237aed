#include "platform/mmvari/modem/psk_demodulator.h"

#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

using Vector = std::complex<double>;

/// Symbols that the search for the likeliest row sees: what lies further off counts for a sixth of a sixth of
/// a sixth at most.
constexpr std::size_t searched = 5;
/// Symbols behind a character whose evidence counts for a character: with all of them the last one of a
/// signal would go, with none the first noise behind it would come.
constexpr std::int64_t witnesses = 6;
/// Symbols over which the amplitude is taken.
constexpr double amplitudeMemory = 32;
/// Symbols whose loudest says how much it can be at most, and by how much; a signal that is there is far from
/// that. What was louder than the last ones by this factor has ended: 8 dB within a dozen symbols are seldom
/// a fade.
constexpr std::int64_t recentSymbols = 12;
constexpr double mostOverLoudest = 1.5, ends = 2.5;
/// Of that, which noise and neighbours make greater, the part that is the pulse's own.
constexpr double pulseShare = 0.85;
/// Symbols at a signal's beginning in which nothing is read: the pulse that rises there is none of the
/// code's.
constexpr std::int64_t settling = 12;
/// More than that are not held back: a signal in which the evidence rises so slowly is none.
constexpr std::size_t mostHeld = 64;

/// In radians and radians a symbol. The search finds the carrier within a fraction of a hertz; a symbol's
/// phase is some 20 degrees off at the noise at which a tenth of the characters is wrong. The wandering lets
/// the carrier change by some hertz a minute.
PskLoop::Trust PhaseTrust(double lowest, double highest) {
    return {.value = 1, .rate = 0.03, .error = 0.35, .wander = 0.0012, .lowest = lowest, .highest = highest};
}

/// In symbols and symbols a symbol. The search finds the clock's phase within an eighth, for the middle of
/// the stretch it looks at; a sound card's clock can be off by half a percent, and stays so.
constexpr PskLoop::Trust clockTrust = {
    .value = 0.15, .rate = 0.003, .error = 0.2, .wander = 2e-5, .lowest = 0.993, .highest = 1.007};
/// Symbols over which the two ways to foretell a phase are compared.
constexpr double meritMemory = 16;
/// Fractions of a symbol: further off than that is noise.
constexpr double mostClockError = 0.3;

/// Other control characters are noise, or commands to whoever shows the text.
bool IsText(char character) {
    const auto code = static_cast<unsigned char>(character);
    return (code >= ' ' && code != 127) || code == '\r' || code == '\n' || code == '\b';
}

/// Written out: with the product and polar() of the library GCC 12 drops it at -O1 and -O2, and nothing is
/// received.
Vector Turned(Vector value, double phase) {
    const double cosine = std::cos(phase), sine = std::sin(phase);
    return {value.real() * cosine + value.imag() * sine, value.imag() * cosine - value.real() * sine};
}

} // namespace

PskDemodulator::PskDemodulator(double symbol, const Place& place)
    : symbol_(symbol)
    , pulse_(symbol)
    , reference_(place.turn)
    , phase_(PhaseTrust((place.lowest - place.turn) * symbol, (place.highest - place.turn) * symbol), 0, 0)
    , clock_(clockTrust, place.moment / symbol, 1)
    , read_(place.read) {
    held_.reserve(mostHeld);
}

void PskDemodulator::Advance(const PskSamples& samples, bool squelch, std::string& text) {
    for (; pulse_.Reaches(samples, Moment()); clock_.Predict()) {
        TakeSymbol(pulse_.At(samples, Moment(), Turn()));
        if (count_ > PskPhase::ahead) Decide(squelch, text);
    }
}

void PskDemodulator::TakeSymbol(const PskStrobe& strobe) {
    // Against the reference, whose phase at sample 0 is 0.
    const double back = std::fmod(reference_ * Moment(), 2 * std::numbers::pi);
    const Vector symbol = Turned(strobe.value, back);
    phase_.Predict();
    const double power = std::norm(symbol);
    // The square has twice the angle, in which both signs are the same.
    const Vector square = power > 0 ? symbol * symbol / power : Vector();
    const double foretold = history_.Foretold(phase_.Rate());
    const Vector loop = Turned(square, 2 * phase_.Value()), recent = Turned(square, 2 * foretold);
    const bool lost = recentMerit_ > loopMerit_;
    evidence_.Put((lost ? recent : loop).real());
    loopMerit_ += (loop.real() - loopMerit_) / meritMemory;
    recentMerit_ += (recent.real() - recentMerit_) / meritMemory;
    phase_.Correct(loop.imag() / 2);
    amplitude_ +=
        (std::sqrt(power) - amplitude_) / std::min(amplitudeMemory, static_cast<double>(count_ + 1));
    Sink(power);
    Weigh(std::sqrt(power), Turned(symbol, phase_.Value()).real() < 0 ? -1 : 1);

    // On the pulse's rising side the symbol's middle is still to come.
    if (amplitude_ > 0) {
        const double phase = lost ? foretold : phase_.Value();
        const double sign = Turned(symbol, phase).real() < 0 ? -1 : 1;
        const double slope = sign * Turned(Turned(strobe.slope, back), phase).real();
        clock_.Correct(
            std::clamp(slope / (PskPulse::curvature * amplitude_), -mostClockError, mostClockError));
    }
    history_.Put(symbol);
    open_[static_cast<std::size_t>(count_) % memory] = evidence_.Open();
    if (evidence_.Sum() == 0) Forget();
    ++count_;
}

/// Who answers may be a hundredth as strong, and nobody as strong as the mean says if no symbol of late was.
void PskDemodulator::Sink(double power) {
    double loudest = power;
    for (std::int64_t k = std::max<std::int64_t>(0, count_ - recentSymbols); k < count_; ++k)
        loudest = std::max(loudest, std::norm(history_.Symbol(k)));
    const double amplitude = std::sqrt(loudest);
    // What begins there is the noise behind a signal, or the pulse of another one.
    if (amplitude_ > ends * amplitude) {
        heardFrom_ = std::max(heardFrom_, count_ - recentSymbols);
        evidence_.Doubt();
    }
    amplitude_ = std::min(amplitude_, mostOverLoudest * amplitude);
}

/// Both neighbours of the symbol before are known now.
void PskDemodulator::Weigh(double magnitude, int sign) {
    const double own = 1 + PskPulse::neighbour * lastSign_ * (secondLastSign_ + sign);
    if (count_ > 0)
        strength_ +=
            (lastMagnitude_ / own - strength_) / std::min(amplitudeMemory, static_cast<double>(count_));
    lastMagnitude_ = magnitude;
    secondLastSign_ = lastSign_;
    lastSign_ = sign;
}

void PskDemodulator::Forget() {
    heardFrom_ = count_ + 1;
    held_.clear();
    phase_.Restart(phase_.Value(), 0);
    clock_.Restart(clock_.Value(), 1);
}

void PskDemodulator::Decide(bool squelch, std::string& text) {
    const std::int64_t number = count_ - 1 - PskPhase::ahead;
    const double phase = history_.Estimate(phase_.Rate());
    std::array<double, searched> filtered{};
    for (std::size_t k = 0; k < searched; ++k)
        filtered[k] = Turned(history_.Symbol(number + static_cast<std::int64_t>(k)),
                             phase + phase_.Rate() * static_cast<double>(k))
                          .real();
    const int decided = sequence_.Decide(filtered, pulseShare * amplitude_);
    points_[static_cast<std::size_t>(number) % shown] =
        static_cast<float>(amplitude_ > 0 ? std::clamp(filtered[0] / amplitude_, -1.0, 1.0) : 0);
    const bool bit = decided == decided_;
    decided_ = decided;
    PutBit(bit, number, squelch, text);
}

void PskDemodulator::PutBit(bool bit, std::int64_t number, bool squelch, std::string& text) {
    const std::int64_t length = reader_.Length() + 1; // of the character that may end here, with its gap
    const std::optional<char> character = reader_.Put(bit);
    const double end = Moment() - static_cast<double>(count_ - number) * symbol_;
    if (character && IsText(*character) && end > read_ + symbol_ && (!squelch || IsSent(number, length))) {
        held_ += *character;
        heldEnd_ = end;
    }
    const bool open = open_[static_cast<std::size_t>(number + witnesses) % memory];
    if (held_.empty() || (squelch && !open)) return;
    text += held_;
    held_.clear();
    if (open) read_ = heldEnd_;
}

bool PskDemodulator::IsSent(std::int64_t end, std::int64_t length) const {
    return end - length >= heardFrom_ + settling && held_.size() < mostHeld &&
           !evidence_.Ended(static_cast<std::size_t>(PskPhase::ahead + length / 2));
}

void PskDemodulator::Points(std::vector<float>& points) const {
    const std::int64_t decided = std::max<std::int64_t>(0, count_ - PskPhase::ahead);
    for (std::int64_t k = std::max<std::int64_t>(0, decided - static_cast<std::int64_t>(shown)); k < decided;
         ++k)
        points.push_back(points_[static_cast<std::size_t>(k) % shown]);
}

} // namespace platform::modem
