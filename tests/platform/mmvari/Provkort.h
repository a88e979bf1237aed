#pragma once

#include "platform/mmvari/keyline.h"
#include "platform/mmvari/soundcard.h"

#include <QElapsedTimer>
#include <QStringList>
#include <gtest/gtest.h>

/// A sound card of the test's own. Its clock is the test's: sound is heard when Play says so.
struct ProvCard {
    int rate = 11025, channels = 1;
    bool inputOpens = true, outputOpens = true;
    QByteArray name = "radions";
    QString inputTrouble, outputTrouble;
    std::vector<float> coming; ///< frames that wait for the program
    std::vector<float> sent;   ///< all that was written since the output was opened
    std::size_t played = 0;    ///< samples of it that were heard
    std::size_t depth = 0;     ///< of the output's buffer
    QList<platform::SoundWish> inWishes, outWishes;
    int inputs = 0, outputs = 0; ///< open now
    QElapsedTimer firstWrite;    ///< since the first sample was written

    void Play(double seconds) {
        played = std::min(sent.size(), played + static_cast<std::size_t>(seconds * rate));
    }
};

class ProvInput final : public platform::SoundInput {
public:
    explicit ProvInput(ProvCard& card)
        : card_(card) {
        ++card_.inputs;
    }
    ~ProvInput() override { --card_.inputs; }
    int Rate() const override { return card_.rate; }
    int Channels() const override { return card_.channels; }
    void Read(std::vector<float>& frames) override {
        frames.clear();
        frames.swap(card_.coming);
    }
    QString Trouble() const override { return card_.inputTrouble; }
    QByteArray Card() const override { return card_.name; }

private:
    ProvCard& card_;
};

class ProvOutput final : public platform::SoundOutput {
public:
    ProvOutput(ProvCard& card, const platform::SoundWish& wish)
        : card_(card) {
        ++card_.outputs;
        card_.sent.clear();
        card_.played = 0;
        card_.firstWrite.invalidate();
        card_.depth = static_cast<std::size_t>(wish.seconds * card_.rate);
    }
    ~ProvOutput() override { --card_.outputs; }
    int Rate() const override { return card_.rate; }
    std::size_t Free() const override { return card_.depth - (card_.sent.size() - card_.played); }
    void Write(std::span<const float> samples) override {
        EXPECT_LE(samples.size(), Free());
        if (!card_.firstWrite.isValid() && !samples.empty()) card_.firstWrite.start();
        card_.sent.insert(card_.sent.end(), samples.begin(), samples.end());
    }
    bool Drained() const override { return card_.played == card_.sent.size(); }
    QString Trouble() const override { return card_.outputTrouble; }
    QByteArray Card() const override { return card_.name; }

private:
    ProvCard& card_;
};

/// What became of the line that keys the radio.
struct ProvLine {
    bool exists = true, works = true;
    bool down = false;
    int open = 0;
    QStringList opened;
    QElapsedTimer keyed;            ///< since the key went down
    std::function<void(bool)> told; ///< of each change
};

class ProvKeyLine final : public platform::KeyLine {
public:
    explicit ProvKeyLine(ProvLine& line)
        : line_(line) {
        ++line_.open;
    }
    ~ProvKeyLine() override {
        Key(false); // as the real one does
        --line_.open;
    }
    bool Key(bool down) final {
        if (!line_.works || down == line_.down) return line_.works;
        line_.down = down;
        if (down) line_.keyed.start();
        if (line_.told) line_.told(down);
        return true;
    }

private:
    ProvLine& line_;
};

/// Puts them in the place of the machine's own until SoundCards and KeyLines are reset.
inline void UseInstead(ProvCard& card, ProvLine& line) {
    platform::SoundCards().input =
        [&card](const platform::SoundWish& wish) -> std::unique_ptr<platform::SoundInput> {
        card.inWishes << wish;
        if (!card.inputOpens) return nullptr;
        return std::make_unique<ProvInput>(card);
    };
    platform::SoundCards().output =
        [&card](const platform::SoundWish& wish) -> std::unique_ptr<platform::SoundOutput> {
        card.outWishes << wish;
        if (!card.outputOpens) return nullptr;
        return std::make_unique<ProvOutput>(card, wish);
    };
    platform::KeyLines().open = [&line](const QString& name) -> std::unique_ptr<platform::KeyLine> {
        line.opened << name;
        if (!line.exists) return nullptr;
        return std::make_unique<ProvKeyLine>(line);
    };
}
