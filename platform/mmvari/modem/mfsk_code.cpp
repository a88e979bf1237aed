#include "platform/mmvari/modem/mfsk_code.h"

namespace platform::modem {

MfskEncoder::MfskEncoder(const MfskShape& shape)
    : shape_(shape)
    , symbols_(static_cast<std::size_t>(shape.Span() + 1), 0U) {}

std::optional<unsigned> MfskEncoder::Put(unsigned codeBit) {
    const auto later = static_cast<std::size_t>(shape_.depth) * static_cast<std::size_t>(filled_);
    symbols_[(now_ + later) % symbols_.size()] |= codeBit << static_cast<unsigned>(shape_.bits - 1 - filled_);
    if (++filled_ < shape_.bits) return std::nullopt;
    filled_ = 0;
    const unsigned tone = MfskToneOfBits(symbols_[now_]);
    symbols_[now_] = 0;
    now_ = (now_ + 1) % symbols_.size();
    return tone;
}

std::optional<unsigned> MfskEncoder::Take(bool bit) {
    window_ = (window_ << 1U | (bit ? 1U : 0U)) & ((1U << MfskCode::length) - 1);
    const unsigned code = MfskCode::Output(window_);
    const auto before = Put(code >> 1U);
    const auto behind = Put(code & 1U);
    return before ? before : behind;
}

} // namespace platform::modem
