#pragma once

#include <algorithm>

namespace platform::modem {

/// Follows a value that moves at a nearly steady rate: Kalman's filter with two states. Its gain is high
/// while it knows little and sinks to what the rate's wandering wants.
class PskLoop {
public:
    struct Trust {
        double value, rate;     ///< standard deviations at the start
        double error;           ///< that of a measurement
        double wander;          ///< that of the rate's change a step
        double lowest, highest; ///< limits of the rate
    };

    PskLoop(const Trust& trust, double value, double rate)
        : trust_(trust) {
        Restart(value, rate);
    }
    void Restart(double value, double rate) {
        value_ = value;
        rate_ = rate;
        valueVariance_ = trust_.value * trust_.value;
        covariance_ = 0;
        rateVariance_ = trust_.rate * trust_.rate;
    }

    double Value() const { return value_; }
    /// A step.
    double Rate() const { return rate_; }

    /// One step on, @param steps or so many
    void Predict(double steps = 1) {
        value_ += steps * rate_;
        valueVariance_ += steps * (2 * covariance_ + steps * rateVariance_);
        covariance_ += steps * rateVariance_;
        rateVariance_ += trust_.wander * trust_.wander;
    }
    /// @param error a measured value less Value()
    void Correct(double error) {
        const double total = valueVariance_ + trust_.error * trust_.error;
        const double valueGain = valueVariance_ / total, rateGain = covariance_ / total;
        value_ += valueGain * error;
        rate_ = std::clamp(rate_ + rateGain * error, trust_.lowest, trust_.highest);
        rateVariance_ -= rateGain * covariance_;
        covariance_ *= 1 - valueGain;
        valueVariance_ *= 1 - valueGain;
    }

private:
    Trust trust_;
    double value_, rate_;
    double valueVariance_, covariance_, rateVariance_;
};

} // namespace platform::modem
