#include "platform/mmvari/steadyinput.h"

namespace platform {

namespace {

QString Missing(const SoundWish& wish) {
    return wish.id < 0 ? QStringLiteral("Inget ljudkort: modemet hör bara tystnad")
                       : QStringLiteral("Ljudkort %1 finns inte: modemet hör bara tystnad").arg(wish.id);
}

} // namespace

void SteadyInput::Wish(const SoundWish& wish) {
    if (wish == wish_) return;
    reopen_ = true;
    wish_ = wish;
    card_.clear();
}

void SteadyInput::Open() {
    reopen_ = silent_ = false;
    trouble_.clear();
    input_.reset(); // first: a card may be open only once
    input_ = OpenSoundInput(wish_);
    if (!input_) return HearSilence(Missing(wish_));
    card_ = input_->Card();
}

void SteadyInput::Close() {
    input_.reset();
    trouble_.clear();
}

bool SteadyInput::Read(std::vector<float>& frames) {
    bool another = false;
    if (reopen_) {
        Open();
        another = true;
    } else if (silent_ && waiting_.hasExpired(SoundCards().retryEvery)) {
        another = TryAgain();
    }
    input_->Read(frames);
    if (silent_) return another;
    if (const QString trouble = input_->Trouble(); !trouble.isEmpty()) {
        HearSilence(trouble);
        frames.clear();
        return true;
    }
    // A card that was gone is back when it is heard.
    if (!frames.empty()) trouble_.clear();
    return another;
}

/// @return whether the card is there again
bool SteadyInput::TryAgain() {
    waiting_.start();
    SoundWish same = wish_;
    same.card = card_; // the radio's, not the one that has its place in the list now
    std::unique_ptr<SoundInput> card = OpenSoundInput(same);
    if (!card) {
        trouble_ = Missing(wish_);
        return false;
    }
    input_ = std::move(card);
    card_ = input_->Card();
    silent_ = false;
    return true;
}

void SteadyInput::HearSilence(const QString& trouble) {
    input_ = SilentInput(wish_.rate);
    trouble_ = trouble;
    silent_ = true;
    waiting_.start();
}

} // namespace platform
