#include "platform/mmvari/modem/mfsk_viterbi.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// Outputs by window, the newest bit lowest.
constexpr auto MakeCodeOutputs() {
    std::array<std::uint8_t, std::size_t{2} * MfskCode::states> codeOutputs{};
    for (unsigned window = 0; window < codeOutputs.size(); ++window)
        codeOutputs[window] = static_cast<std::uint8_t>(MfskCode::Output(window));
    return codeOutputs;
}
constexpr auto codeOutputs = MakeCodeOutputs();

/// log2 of the likelihood of a code bit being 0 over that of a fair coin: 1 - log2(1 + e^-llr).
float GainOverCoin(float llr) {
    return 1 - std::numbers::log2e_v<float> * (std::max(-llr, 0.0F) + std::log1p(std::exp(-std::abs(llr))));
}

} // namespace

bool MfskViterbi::Take(float first, float second) {
    const float zero[] = {GainOverCoin(first), GainOverCoin(second)},
                one[] = {GainOverCoin(-first), GainOverCoin(-second)};
    const float gains[] = {zero[0] + zero[1], zero[0] + one[1], one[0] + zero[1], one[0] + one[1]};

    std::array<float, MfskCode::states> metrics;
    std::array<std::uint64_t, MfskCode::states> paths;
    constexpr unsigned oldest = MfskCode::states / 2;
    float best = -1e30F;
    unsigned bestState = 0;
    for (unsigned state = 0; state < MfskCode::states; ++state) {
        // The state holds the newest six bits: the one before it lacks the newest and has one older.
        const unsigned a = state >> 1U, b = a | oldest;
        const float viaA = metrics_[a] + gains[codeOutputs[state]];
        const float viaB = metrics_[b] + gains[codeOutputs[state | MfskCode::states]];
        metrics[state] = std::max(viaA, viaB);
        paths[state] = (viaA >= viaB ? paths_[a] : paths_[b]) << 1U | (state & 1U);
        if (metrics[state] > best) {
            best = metrics[state];
            bestState = state;
        }
    }
    for (float& metric : metrics) metric -= best;
    metrics_ = metrics;
    paths_ = paths;
    total_ += static_cast<double>(best) - 1;
    totals_[static_cast<std::size_t>(++steps_ % remembered)] = total_;
    return (paths_[bestState] >> lookBack & 1U) != 0;
}

float MfskViterbi::Evidence(int count, int ago) const {
    const auto at = [this](std::int64_t step) {
        return totals_[static_cast<std::size_t>(std::max<std::int64_t>(step, 0) % remembered)];
    };
    const std::int64_t to = steps_ - std::min(ago, remembered - 1);
    const std::int64_t from = std::max(to - count, steps_ - (remembered - 1));
    return static_cast<float>(at(to) - at(from));
}

} // namespace platform::modem
