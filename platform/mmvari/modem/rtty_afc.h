#pragma once

#include "platform/mmvari/modem/downconverter.h"

#include <optional>

namespace platform::modem {

/// Looks for a pair of keyed tones beside the place where they should be, with windows of one bit over the
/// last second.
///
/// Tones that are keyed against each other show in how much the difference of their energies swings: a steady
/// tone swings next to nothing, however strong. The row of offsets that is looked at is twice as wide as that
/// in which a signal is accepted, so that what somebody else's station leaves in the middle is seen for what
/// it is: the side of something stronger.
class TonePairSearch {
public:
    /// Hz to each side in which a pair counts as ours.
    static constexpr double range = 42;

    /// @param rate samples a second @param baud @param low, high the tones' places, Hz
    TonePairSearch(double rate, double baud, double low, double high);

    void Push(std::span<const Complex> samples);
    /// Hz by which both tones lie above their places; nothing as long as there is no pair that noise would
    /// not make.
    /// @param over times that it must be stronger than what is at the places themselves
    std::optional<double> Offset(double over) const;
    /// What is at the places is but the side of a station beside them.
    bool Beside() const;
    void Reset();

private:
    struct Place {
        std::vector<Complex> lowTone, highTone; ///< one bit of each, turning backwards
        double low = 0, high = 0;               ///< energies, means of the last second
        double difference = 0;                  ///< of the energies, likewise
        double swing = 0;                       ///< mean distance of the differences from that
    };
    void Window(const Complex* from);
    double Floor() const;
    double Most() const;
    double Middle() const;
    bool IsPair(std::size_t at) const;
    std::optional<std::size_t> Best() const;
    void Watch();

    std::size_t length_, step_;
    double spacing_, keep_;
    std::size_t side_; ///< places on each side of the middle
    std::vector<Place> row_;
    std::vector<Complex> waiting_;
    double weight_ = 0;    ///< of the windows seen, 0 to 1
    std::size_t last_ = 0; ///< where in the row the pair was
    int stayed_ = 0;       ///< windows for which it was there
    bool current_ = false; ///< it is there still
};

} // namespace platform::modem
