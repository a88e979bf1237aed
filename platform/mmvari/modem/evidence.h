#pragma once

#include <algorithm>
#include <string>

namespace platform::modem {

/// A squelch that weighs: the log-likelihood ratio of a signal to noise alone, summed up from the moment from
/// which a signal is likeliest (Page's test). Characters wait until it is enough and then come all together.
class Evidence {
public:
    /// @param enough from which a signal is believed in @param most no more is saved up, so that noise ends
    /// it soon
    /// @param sure what a single character of a signal mostly has, and of noise next to never
    Evidence(double enough, double most, double sure)
        : enough_(enough)
        , most_(most)
        , sure_(sure) {}

    void On(bool on) { on_ = on; }
    bool Open() const { return open_ || !on_; }
    /// There is a signal, whether the squelch asks for one or not.
    bool Believed() const { return open_; }
    double Sum() const { return sum_; }

    /// @param ratio of one character, less what noise makes of it on the average
    void Weigh(double ratio) {
        // A strong signal is not followed by doubtful characters, but by its end.
        rising_ = ratio >= std::max(sure_, usual_ - lessThanUsual);
        usual_ += (ratio - usual_) / usualMemory;
        sum_ = std::clamp(sum_ + ratio, 0.0, most_);
        if (sum_ >= enough_) open_ = true;
        if (sum_ == 0) Reset();
    }
    /// A character whose ratio was weighed. One that speaks for noise waits for better company, so that the
    /// end of a transmission is not followed by what the noise behind it looks like.
    /// @param text what may be printed is put behind what it holds
    void Print(char character, std::string& text) {
        // Noise, and no signal before it; or a text would begin with a doubtful character.
        if (on_ && (sum_ == 0 || (!open_ && !rising_ && waiting_.empty()))) return;
        waiting_ += character;
        if (on_ && !(open_ && (rising_ || waiting_.size() > longestWait))) return;
        text += waiting_;
        waiting_.clear();
    }
    /// What was heard has become much weaker: a fade, or the end. The next characters decide.
    void Doubt() { sum_ = std::min(sum_, doubtful); }
    void Reset() {
        sum_ = usual_ = 0;
        open_ = false;
        waiting_.clear();
    }

private:
    /// A signal that stays doubtful is read all the same.
    static constexpr std::size_t longestWait = 40;
    static constexpr double doubtful = 6; ///< two characters of noise, or a little more, end it
    /// A character's ratio so far below that of the last half dozen is not the same station's.
    static constexpr double lessThanUsual = 2.5, usualMemory = 6;

    double enough_, most_, sure_;
    double usual_ = 0; ///< ratio of the last characters
    double sum_ = 0;
    bool on_ = true, open_ = false, rising_ = false;
    std::string waiting_;
};

} // namespace platform::modem
