#pragma once

#include "platform/mmvari/modem/downconverter.h"

#include <optional>

namespace platform::modem {

/// Looks for a pair of tones beside the place where they should be: the energy that each of a row of offsets
/// has caught in the last second, with windows of one bit.
class TonePairSearch {
public:
    /// @param rate samples a second @param baud @param low, high the tones' places, Hz
    TonePairSearch(double rate, double baud, double low, double high);

    void Push(std::span<const Complex> samples);
    /// Hz by which both tones lie above their places; nothing as long as there is no pair that noise would
    /// not make.
    std::optional<double> Offset() const;
    void Reset();

private:
    struct Place {
        std::vector<Complex> tone; ///< one bit of it, turning backwards
        double energy = 0;         ///< mean of the last second
    };
    void Window(const Complex* from);

    std::size_t length_, step_;
    double spacing_, keep_;
    std::vector<Place> low_, high_;
    std::vector<Complex> waiting_;
    double weight_ = 0; ///< of the windows seen, 0 to 1
};

} // namespace platform::modem
