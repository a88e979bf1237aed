#include "platform/mmvari/modem/resampler.h"

#include <samplerate.h>

#include <cmath>
#include <stdexcept>

namespace platform::modem {

struct Resampler::State {
    SRC_STATE* src;
    explicit State(int& error)
        : src(src_new(SRC_SINC_FASTEST, 1, &error)) {}
    ~State() { src_delete(src); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
};

Resampler::Resampler(double from, double to)
    : ratio_(to / from) {
    if (from == to) return;
    if (!src_is_valid_ratio(ratio_)) throw std::runtime_error("no such ratio of clocks");
    int error = 0;
    state_ = std::make_unique<State>(error);
    if (!state_->src) throw std::runtime_error(src_strerror(error));
}

Resampler::~Resampler() = default;

void Resampler::Reset() {
    if (state_) src_reset(state_->src);
}

void Resampler::Process(std::span<const float> in, std::vector<float>& out) {
    if (!state_) {
        out.insert(out.end(), in.begin(), in.end());
        return;
    }
    while (!in.empty()) {
        const std::size_t had = out.size();
        out.resize(had + static_cast<std::size_t>(std::ceil(static_cast<double>(in.size()) * ratio_)) + 16);
        SRC_DATA data{};
        data.data_in = in.data();
        data.input_frames = static_cast<long>(in.size());
        data.data_out = out.data() + had;
        data.output_frames = static_cast<long>(out.size() - had);
        data.src_ratio = ratio_;
        if (const int error = src_process(state_->src, &data)) throw std::runtime_error(src_strerror(error));
        out.resize(had + static_cast<std::size_t>(data.output_frames_gen));
        in = in.subspan(static_cast<std::size_t>(data.input_frames_used));
    }
}

} // namespace platform::modem
