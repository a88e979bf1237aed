#pragma once

#include "platform/mmvari/soundcard.h"

#include <QElapsedTimer>

namespace platform {

/// The engine's ear: a sound card that is tried again at a calm pace while it is gone, and silence meanwhile.
class SteadyInput {
public:
    /// Is taken over at the next Read.
    void Wish(const SoundWish& wish);
    const SoundWish& Wish() const { return wish_; }
    void Open();
    void Close();
    bool IsOpen() const { return input_ != nullptr; }
    /// Opens at the next Read what is missing, without the wait; another card than before will do.
    void Retry() { reopen_ |= !trouble_.isEmpty(); }
    /// Takes what has come. @param frames the channels by turns; what was there is gone
    /// @return whether they come from another input than before, with a Rate and Channels of its own
    bool Read(std::vector<float>& frames);
    int Rate() const { return input_->Rate(); }
    int Channels() const { return input_->Channels(); }
    /// What stands in the way, or nothing.
    const QString& Trouble() const { return trouble_; }

private:
    bool TryAgain();
    void HearSilence(const QString& trouble);

    SoundWish wish_;
    std::unique_ptr<SoundInput> input_;
    QByteArray card_; ///< that was open last
    QString trouble_;
    bool reopen_ = false;
    bool silent_ = false;   ///< silence stands in
    QElapsedTimer waiting_; ///< since the card was found missing, or tried last
};

} // namespace platform
