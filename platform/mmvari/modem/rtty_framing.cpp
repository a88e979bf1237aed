#include "platform/mmvari/modem/rtty_framing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform::modem {

namespace {

/// To fall out of the rhythm of the characters, or back into it, costs as much as a good bit against the
/// odds.
constexpr double idleCost = 4;
/// A character that begins when none is expected costs twice that; by a step early or late it costs little
/// (timing is that uncertain in noise), and more with the square of it.
constexpr double lateCost = 0.7, latestCost = 8;
/// Part of a character's lateness by which the next is expected later, up to where it is taken for a new
/// rhythm.
constexpr double follow = 0.25, follows = 3;
/// Steps from a character's beginning to its stop bit, and to the half of it that may be missing.
constexpr std::uint64_t stopBit = 6ULL * hopsPerBit, halfStop = 13ULL * hopsPerBit / 2;
/// Senders use from 1 to 2 stop bits.
constexpr int shortestFrame = 7 * hopsPerBit, longestFrame = 8 * hopsPerBit + 2;
/// How fast the rhythm itself is learnt.
constexpr double paceGain = 0.2;
/// No single bit outweighs several others: a crash of static is as strong as it is wrong. Above this a ratio
/// counts by its logarithm alone, enough to tell the middle of a strong bit from its sides.
constexpr double mostPerBit = 12, above = 2;
/// Ways are followed back this often.
constexpr std::uint64_t traceEvery = hopsPerBit / 4;

double Tamed(double ratio) {
    const double size = std::abs(ratio);
    return size <= mostPerBit
               ? ratio
               : std::copysign(mostPerBit + above * std::log1p((size - mostPerBit) / above), ratio);
}

/// A bit that may be either: twice the log of the mean likelihood of both, on the scale of the ratio.
double Either(double ratio) { return std::abs(ratio) + 2 * std::log1p(std::exp(-std::abs(ratio))); }

double LateCost(double steps) { return std::min(lateCost * steps * steps, latestCost); }

} // namespace

FrameSearch::FrameSearch()
    : marks_(mask + 1)
    , either_(mask + 1)
    , scores_(mask + 1)
    , nodes_(mask + 1) {
    // Before the first step there was nothing: no character ends there.
    for (Node& node : nodes_) node.frame = -1e9;
    reached_ = hopsPerBit / 2 - 1;
}

void FrameSearch::Push(double mark, std::vector<double>& starts) {
    marks_[taken_ & mask] = Tamed(mark);
    either_[taken_ & mask] = Either(marks_[taken_ & mask]);
    ++taken_;
    // The half of the stop bit that all senders have begins six and a half bits behind the start.
    constexpr std::uint64_t needed = halfStop;
    if (taken_ > needed) scores_[(taken_ - 1 - needed) & mask] = FrameScore(taken_ - 1 - needed);
    Extend();
    if (reached_ % traceEvery == 0) TraceBack(starts);
}

double FrameSearch::FrameScore(std::uint64_t start) const {
    double score = -Mark(start);
    for (std::uint64_t bit = 1; bit <= 5; ++bit) score += either_[(start + bit * hopsPerBit) & mask];
    return score + Mark(start + stopBit) + 0.5 * Mark(start + halfStop);
}

/// The newest ratio reaches half a bit beyond the step: so much the shortest character's last half bit needs.
/// The ratio of the bit that ends at a step is what the mark before that step has to say.
void FrameSearch::Extend() {
    const std::uint64_t step = ++reached_;
    Node node;
    const Node& before = At(step - 1);
    node.idleFromFrame = before.frame - idleCost > before.idle;
    node.idle = (node.idleFromFrame ? before.frame - idleCost : before.idle) +
                (step > hopsPerBit ? Mark(step - 1 - hopsPerBit) / hopsPerBit : 0);
    node.frame = -std::numeric_limits<double>::infinity();
    for (int length = shortestFrame; length <= longestFrame; ++length) {
        if (step < static_cast<std::uint64_t>(length)) break;
        const std::uint64_t start = step - static_cast<std::uint64_t>(length);
        const Node& from = At(start);
        const bool fromIdle = from.idle - idleCost > from.frame;
        const double expected = (fromIdle ? static_cast<double>(start) : from.next) + pace_;
        const double late = static_cast<double>(step) - expected;
        const double metric =
            (fromIdle ? from.idle - idleCost : from.frame) + scores_[start & mask] - LateCost(late);
        if (metric > node.frame) {
            node.frame = metric;
            node.length = static_cast<std::int16_t>(length);
            node.frameFromIdle = fromIdle;
            node.next = std::abs(late) < follows ? expected + follow * late : static_cast<double>(step);
        }
    }
    nodes_[step & mask] = node;
    // Only differences count; keep the numbers small.
    if ((step & mask) == 0) {
        const double most = std::max(node.frame, node.idle);
        for (Node& each : nodes_) {
            each.frame -= most;
            each.idle -= most;
        }
    }
}

/// Where the likeliest way up to now leaves what is complete: at the newest step, or at one where a character
/// began that is still being heard. Without those a character in the midst of which the search stands would
/// count for nothing, and a wrong one that ended a little earlier would win.
std::pair<std::uint64_t, bool> FrameSearch::BestEnd() const {
    const Node& newest = At(reached_);
    double best = std::max(newest.frame, newest.idle);
    std::pair<std::uint64_t, bool> end{reached_, newest.frame > newest.idle};
    const std::uint64_t first = reached_ > shortestFrame ? reached_ - shortestFrame + 1 : 0;
    for (std::uint64_t start = first; start < reached_ && start < taken_; ++start) {
        const Node& from = At(start);
        const bool fromIdle = from.idle - idleCost > from.frame;
        double metric = (fromIdle ? from.idle - idleCost : from.frame) - Mark(start);
        for (std::uint64_t bit = start + hopsPerBit; bit < taken_; bit += hopsPerBit)
            metric += bit < start + stopBit ? either_[bit & mask] : Mark(bit);
        if (metric <= best) continue;
        best = metric;
        end = {start, !fromIdle};
    }
    return end;
}

void FrameSearch::TraceBack(std::vector<double>& starts) {
    found_.clear();
    auto [step, frame] = BestEnd();
    const double settled = last_ + shortestFrame - hopsPerBit / 4.0;
    const std::uint64_t oldest = reached_ > mask / 2 ? reached_ - mask / 2 : 0;
    while (step > oldest && static_cast<double>(step) > settled) {
        const Node& node = At(step);
        if (frame) {
            if (node.length == 0) break;
            step -= static_cast<std::uint64_t>(node.length);
            frame = !node.frameFromIdle;
            found_.push_back(frame ? At(step).next : static_cast<double>(step));
        } else {
            frame = node.idleFromFrame;
            --step;
        }
    }
    // The last character found may end when it likes; those that ended one character ago are settled.
    for (auto start = found_.rbegin(); start != found_.rend(); ++start)
        if (*start + 2 * frameHops <= static_cast<double>(reached_) && *start >= settled)
            Settle(*start, starts);
}

void FrameSearch::Settle(double start, std::vector<double>& starts) {
    const double interval = start - last_;
    if (interval >= shortestFrame - 1 && interval <= longestFrame + 1) pace_ += paceGain * (interval - pace_);
    last_ = start;
    starts.push_back(start);
}

} // namespace platform::modem
