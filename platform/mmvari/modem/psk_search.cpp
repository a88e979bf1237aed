#include "platform/mmvari/modem/psk_search.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

constexpr double pi = std::numbers::pi;

/// How much of the worst quarter's line counts against the best's. An idle signal is two tones; a filter on
/// one of them sees a steady line, as strong as one in their middle sees at the best quarter, but there the
/// worst quarter has none.
constexpr float steadyCounts = 0.3F;
/// A symbol whose square's angle has a cosine beyond this, against the line, speaks for the signal.
constexpr float noiseCounts = 0.35F;
/// In baud: a signal is no side of a stronger one further away than this.
constexpr double shoulder = 0.6;

Complex Product(Complex a, Complex b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

} // namespace

PskSearch::PskSearch(double symbol)
    : symbol_(symbol)
    , squares_(static_cast<std::size_t>(bands * (window + 1))) {
    for (int n = 0; n < symbol; ++n) {
        const double pulse = (1 + std::cos(pi * n / symbol)) / 2 / (0.75 * symbol);
        std::array<float, side + 1> cosines{}, sines{};
        for (int band = 0; band <= side; ++band) {
            const double angle = 2 * pi * band / 4 * n / symbol;
            cosines[static_cast<std::size_t>(band)] = static_cast<float>(pulse * std::cos(angle));
            sines[static_cast<std::size_t>(band)] = static_cast<float>(pulse * std::sin(angle));
        }
        cosines_.push_back(cosines);
        sines_.push_back(sines);
    }
    for (int k = 0; k < spectrum / 2; ++k) turns_.push_back(Complex(std::polar(1.0, -2 * pi * k / spectrum)));
    Clear(0);
}

void PskSearch::Clear(std::int64_t end) {
    std::fill(squares_.begin(), squares_.end(), Quarters());
    next_ = static_cast<std::int64_t>(std::ceil((static_cast<double>(end) + symbol_) / symbol_ * quarters));
    heard_ = 0;
}

std::int64_t PskSearch::SampleOf(std::int64_t strobe) const {
    return std::llround(static_cast<double>(strobe) * symbol_ / quarters);
}

void PskSearch::Advance(const PskSamples& samples) {
    const auto reach = static_cast<std::int64_t>(cosines_.size()) - 1;
    for (; SampleOf(next_) + reach < samples.End(); ++next_, ++heard_) TakeStrobe(samples, SampleOf(next_));
}

void PskSearch::TakeStrobe(const PskSamples& samples, std::int64_t middle) {
    // Bands on both sides share their products: sum z p cos and sum z p sin.
    std::array<Complex, side + 1> even{}, odd{};
    const Complex* at = samples.At(middle);
    even.fill(*at * cosines_[0][0]);
    for (std::size_t n = 1; n < cosines_.size(); ++n) {
        const auto offset = static_cast<std::ptrdiff_t>(n);
        const Complex sum = at[offset] + at[-offset], difference = at[offset] - at[-offset];
        for (std::size_t band = 0; band <= side; ++band) {
            even[band] += sum * cosines_[n][band];
            odd[band] += difference * sines_[n][band];
        }
    }
    const auto quarter = static_cast<std::size_t>(next_ % quarters);
    const auto symbol = next_ / quarters;
    for (int band = -side; band <= side; ++band) {
        const auto b = static_cast<std::size_t>(std::abs(band));
        const Complex turned(-odd[b].imag(), odd[b].real());
        const Complex value = band < 0 ? even[b] + turned : even[b] - turned;
        const Complex square = Product(value, value);
        Quarters& place = squares_[Place(band, symbol)];
        place.real[quarter] = square.real();
        place.imag[quarter] = square.imag();
    }
}

std::size_t PskSearch::Place(int band, std::int64_t symbol) const {
    constexpr std::int64_t kept = window + 1;
    const std::int64_t row = band + side;
    return static_cast<std::size_t>(row * kept + symbol % kept);
}

const PskSearch::Quarters& PskSearch::Square(int band, int symbol) const {
    return squares_[Place(band, next_ / quarters + 1 + symbol)];
}

void PskSearch::Transform() {
    // Cooley and Tukey's, in place.
    for (std::size_t i = 1, j = 0; i < spectrum; ++i) {
        std::size_t bit = spectrum / 2;
        for (; (j & bit) != 0; bit /= 2) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(spectrum_[i], spectrum_[j]);
    }
    for (std::size_t half = 1; half < spectrum; half *= 2)
        for (std::size_t start = 0; start < spectrum; start += 2 * half)
            for (std::size_t k = 0; k < half; ++k) {
                const Complex turn = turns_[k * (spectrum / 2 / half)];
                const float re = turn.real(), im = turn.imag();
                Quarters& a = spectrum_[start + k];
                Quarters& b = spectrum_[start + half + k];
                for (std::size_t q = 0; q < quarters; ++q) {
                    const float real = b.real[q] * re - b.imag[q] * im,
                                imag = b.real[q] * im + b.imag[q] * re;
                    b.real[q] = a.real[q] - real;
                    b.imag[q] = a.imag[q] - imag;
                    a.real[q] += real;
                    a.imag[q] += imag;
                }
            }
}

PskSearch::Line PskSearch::LineOf(int band) {
    std::array<float, quarters> power{};
    spectrum_.fill(Quarters());
    for (int k = 0; k < window; ++k) {
        const Quarters& square = Square(band, k);
        spectrum_[static_cast<std::size_t>(k)] = square;
        for (std::size_t q = 0; q < quarters; ++q)
            power[q] += std::sqrt(square.real[q] * square.real[q] + square.imag[q] * square.imag[q]);
    }
    Transform();

    // Twice the carrier turns by half a baud more from a band to the next one: what is in the band's middle
    // is in the spectrum's middle or at its start in turn.
    constexpr int reach = spectrum / 4;
    const int middle = band % 2 != 0 ? spectrum / 2 : 0;
    Line line{.band = band};
    for (int offset = -reach; offset <= reach; ++offset) {
        const auto bin = static_cast<std::size_t>(middle + offset + spectrum) % spectrum;
        std::array<float, quarters> strength{};
        const Quarters& value = spectrum_[bin];
        for (std::size_t q = 0; q < quarters; ++q)
            strength[q] = std::sqrt(value.real[q] * value.real[q] + value.imag[q] * value.imag[q]);
        const auto best = std::max_element(strength.begin(), strength.end());
        const float worst = *std::min_element(strength.begin(), strength.end());
        if (*best - steadyCounts * worst <= line.strength) continue;
        line.strength = *best - steadyCounts * worst;
        line.quarter = static_cast<std::size_t>(best - strength.begin());
        line.turn = static_cast<float>(2 * pi * static_cast<double>(bin) / spectrum);
        line.phase = std::atan2(value.imag[line.quarter], value.real[line.quarter]);
        line.coherence = power[line.quarter] > 0 ? static_cast<double>(*best / power[line.quarter]) : 0;
        line.clock =
            static_cast<double>(std::atan2(strength[1] - strength[3], strength[0] - strength[2])) / (2 * pi);
        line.baud = band / 4.0 + static_cast<double>(offset) / spectrum / 2;
    }
    return line;
}

int PskSearch::BeginOf(const Line& line) const {
    // From which symbol on do they keep together best?
    float sum = 0, best = 0;
    int begin = window - 1;
    for (int k = window - 1; k >= 0; --k) {
        const Quarters& square = Square(line.band, k);
        const Complex value(square.real[line.quarter], square.imag[line.quarter]);
        const float length = std::sqrt(std::norm(value));
        if (length > 0)
            sum +=
                (value * std::polar(1.0F, -line.phase - line.turn * static_cast<float>(k))).real() / length;
        sum -= noiseCounts;
        if (sum <= best) continue;
        best = sum;
        begin = k;
    }
    return begin;
}

std::optional<PskSearch::Found> PskSearch::Strongest(double turn, double range) {
    if (heard_ / quarters <= window) return std::nullopt;
    const double toBaud = symbol_ / (2 * pi);
    std::array<Line, bands> lines;
    std::generate(lines.begin(), lines.end(), [this, band = -side]() mutable { return LineOf(band++); });
    const Line* best = nullptr;
    for (const Line& line : lines)
        if (std::abs(line.baud - turn * toBaud) <= range * toBaud &&
            (!best || line.strength > best->strength))
            best = &line;
    if (!best || best->strength <= 0) return std::nullopt;
    for (const Line& line : lines)
        if (line.strength > best->strength && std::abs(line.baud - best->baud) < shoulder)
            return std::nullopt;

    const std::int64_t start = next_ / quarters - window;
    const double first = static_cast<double>(start) + best->clock;
    const int begin = BeginOf(*best), middle = (begin + window) / 2;
    return Found{.moment = (first + middle) * symbol_,
                 .begin = (first + begin) * symbol_,
                 .turn = best->baud / toBaud,
                 .coherence = best->coherence};
}

} // namespace platform::modem
