#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace platform::modem {

/// Steps in which a bit is looked at: fine enough that the best of them loses nothing.
inline constexpr int hopsPerBit = 16;

/// Finds the characters in a stream of bits that begin anywhere. At each step a character may end or steady
/// mark go on; the likeliest way through all of them (Viterbi) is followed back one character after the fact,
/// so that a start bit is judged with what comes behind it.
class FrameSearch {
public:
    /// A character with one and a half stop bits.
    static constexpr int frameHops = 15 * hopsPerBit / 2;

    FrameSearch();

    /// @param mark log-likelihood ratio of mark to space for the bit that begins a step later than that of
    /// the call before
    /// @param starts the places at which characters begin that this settles, in steps and parts of one, are
    /// put behind what it holds, in order
    void Push(double mark, std::vector<double>& starts);

    /// The ratio given for a bit that begins at a step, one of the last two thousand.
    double Mark(std::uint64_t step) const { return marks_[step & mask]; }

private:
    /// The best ways to a step: one on which a character ends there, one on which mark goes on.
    struct Node {
        double frame = 0, idle = 0; ///< how likely they are
        double next = 0;            ///< where that character's sender would begin another, as far as is known
        std::int16_t length = 0;    ///< steps of that character
        bool frameFromIdle = false; ///< mark lies before that character
        bool idleFromFrame = false; ///< a character ends where this step of mark begins
    };
    static constexpr std::uint64_t mask = 2047;

    const Node& At(std::uint64_t step) const { return nodes_[step & mask]; }
    double FrameScore(std::uint64_t start) const;
    void Extend();
    std::pair<std::uint64_t, bool> BestEnd() const;
    void TraceBack(std::vector<double>& starts);
    void Settle(double start, std::vector<double>& starts);

    std::vector<double> marks_, either_, scores_;
    std::vector<Node> nodes_;
    std::uint64_t taken_ = 0;   ///< ratios
    std::uint64_t reached_ = 0; ///< the newest node
    double last_ = 0;           ///< start of the last character settled
    double pace_ = frameHops;   ///< steps from a character to the next, as the sender does it
    std::vector<double> found_; ///< by TraceBack, newest first
};

} // namespace platform::modem
