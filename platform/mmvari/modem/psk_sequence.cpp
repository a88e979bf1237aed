#include "platform/mmvari/modem/psk_sequence.h"

#include "platform/mmvari/modem/psk_pulse.h"

#include <algorithm>

namespace platform::modem {

int PskSequence::Decide(std::span<const double> filtered, double amplitude) {
    const double coupling = PskPulse::neighbour * amplitude;
    const auto step = [coupling](const std::array<double, 2>& from, double q) {
        return std::array{std::max(from[0] - coupling, from[1] + coupling) - q,
                          std::max(from[0] + coupling, from[1] - coupling) + q};
    };
    metric_ = step(metric_, filtered.front());
    // What the later ones say of each of its two values: rows that begin with it.
    double best[2];
    for (const std::size_t value : {0U, 1U}) {
        std::array<double, 2> row = {-1e30, -1e30};
        row[value] = metric_[value];
        for (const double q : filtered.subspan(1)) row = step(row, q);
        best[value] = std::max(row[0], row[1]);
    }
    const std::size_t decided = best[1] > best[0] ? 1 : 0;
    // It is decided: no row leads through the other value any more.
    metric_ = {-1e30, -1e30};
    metric_[decided] = 0;
    return decided != 0 ? 1 : -1;
}

} // namespace platform::modem
