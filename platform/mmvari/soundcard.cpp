#include "platform/mmvari/soundcard.h"

#include "platform/mmvari/patience.h"
#include "platform/mmvari/soundring.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QAudioSource>
#include <QElapsedTimer>
#include <QMediaDevices>

#include <cmath>

namespace platform {

namespace {

/// What comes in stays in the card's own buffer no longer than this: it would only be late.
constexpr double cardSeconds = 0.02;
/// Milliseconds without a sample behind which a card is gone: one that was pulled out may end in no error.
constexpr int deafAfter = 2000;

const QString noAnswer = QStringLiteral("Ljudkortet svarar inte");

std::size_t Samples(double seconds, int rate) { return static_cast<std::size_t>(seconds * rate); }

/// The wished card of the machine's list; a null device if there is none.
QAudioDevice Device(const QList<QAudioDevice>& devices, const QAudioDevice& usual, const SoundWish& wish) {
    if (!wish.card.isEmpty()) {
        for (const QAudioDevice& device : devices)
            if (device.id() == wish.card) return device;
        return {};
    }
    if (wish.id < 0) return usual;
    return wish.id < devices.size() ? devices[wish.id] : QAudioDevice();
}

/// 16-bit samples at the wished rate, else at the card's own.
QAudioFormat Format(const QAudioDevice& device, const SoundWish& wish) {
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Int16);
    format.setSampleRate(wish.rate);
    format.setChannelCount(wish.channels);
    if (device.isFormatSupported(format)) return format;
    format.setSampleRate(device.preferredFormat().sampleRate());
    if (device.isFormatSupported(format)) return format;
    format.setChannelCount(std::clamp(device.preferredFormat().channelCount(), 1, 2));
    return format;
}

/// An underrun is a moment's silence, no more.
QString TroubleOf(QAudio::Error error) {
    return error == QAudio::NoError || error == QAudio::UnderrunError ? QString() : noAnswer;
}

class CardInput final : public SoundInput {
public:
    CardInput(const QAudioDevice& device, const QAudioFormat& format, const SoundWish& wish)
        : card_(device.id())
        , format_(format)
        , ring_(Samples(wish.seconds, format.sampleRate() * format.channelCount()), format.channelCount())
        , source_(device, format) {
        source_.setBufferSize(static_cast<qsizetype>(Samples(cardSeconds, format.sampleRate())) *
                              format.bytesPerFrame());
        source_.start(&ring_);
        clock_.start();
    }
    ~CardInput() override { source_.stop(); }

    bool Works() const { return source_.error() == QAudio::NoError; }
    int Rate() const override { return format_.sampleRate(); }
    int Channels() const override { return format_.channelCount(); }
    void Read(std::vector<float>& frames) override {
        ring_.Take(frames);
        deaf_ = patience_.Over(clock_.elapsed(), !frames.empty());
    }
    QString Trouble() const override { return deaf_ ? noAnswer : TroubleOf(source_.error()); }
    QByteArray Card() const override { return card_; }

private:
    QByteArray card_;
    QAudioFormat format_;
    SoundRing ring_;
    QAudioSource source_;
    QElapsedTimer clock_;
    Patience patience_{deafAfter};
    bool deaf_ = false;
};

class CardOutput final : public SoundOutput {
public:
    CardOutput(const QAudioDevice& device, const QAudioFormat& format, const SoundWish& wish)
        : card_(device.id())
        , format_(format)
        , sink_(device, format) {
        sink_.setBufferSize(static_cast<qsizetype>(Samples(wish.seconds, format.sampleRate())) *
                            format.bytesPerFrame());
        device_ = sink_.start();
    }
    ~CardOutput() override { sink_.reset(); }

    bool Works() const {
        return device_ && sink_.error() != QAudio::OpenError && sink_.error() != QAudio::FatalError;
    }
    int Rate() const override { return format_.sampleRate(); }
    std::size_t Free() const override {
        return static_cast<std::size_t>(std::max<qsizetype>(sink_.bytesFree(), 0) / format_.bytesPerFrame());
    }
    void Write(std::span<const float> samples) override {
        const auto channels = static_cast<std::size_t>(format_.channelCount());
        frames_.resize(samples.size() * channels);
        for (std::size_t i = 0; i < frames_.size(); ++i)
            frames_[i] =
                static_cast<qint16>(std::lround(std::clamp(samples[i / channels], -1.0F, 1.0F) * 32767));
        device_->write(reinterpret_cast<const char*>(frames_.data()),
                       static_cast<qint64>(frames_.size()) * static_cast<qint64>(sizeof(qint16)));
        written_ += static_cast<qint64>(samples.size());
    }
    bool Drained() const override {
        return sink_.state() == QAudio::IdleState ||
               sink_.processedUSecs() >= written_ * 1'000'000 / format_.sampleRate();
    }
    QString Trouble() const override { return TroubleOf(sink_.error()); }
    QByteArray Card() const override { return card_; }

private:
    QByteArray card_;
    QAudioFormat format_;
    QAudioSink sink_;
    QIODevice* device_ = nullptr;
    std::vector<qint16> frames_;
    qint64 written_ = 0;
};

/// Samples since the beginning, by the clock.
class Pace {
public:
    explicit Pace(int rate)
        : rate_(rate) {
        clock_.start();
    }
    int Rate() const { return rate_; }
    qint64 Now() const { return clock_.nsecsElapsed() / 1000 * rate_ / 1'000'000; }

private:
    int rate_;
    QElapsedTimer clock_;
};

class NoInput final : public SoundInput {
public:
    explicit NoInput(int rate)
        : pace_(rate) {}
    int Rate() const override { return pace_.Rate(); }
    int Channels() const override { return 1; }
    void Read(std::vector<float>& frames) override {
        const qint64 now = pace_.Now();
        frames.assign(static_cast<std::size_t>(std::min<qint64>(now - read_, Rate())), 0.0F);
        read_ = now;
    }

private:
    Pace pace_;
    qint64 read_ = 0;
};

class NoOutput final : public SoundOutput {
public:
    explicit NoOutput(const SoundWish& wish)
        : pace_(wish.rate)
        , depth_(static_cast<qint64>(Samples(wish.seconds, wish.rate))) {}
    int Rate() const override { return pace_.Rate(); }
    std::size_t Free() const override {
        return static_cast<std::size_t>(std::clamp<qint64>(depth_ - Waiting(), 0, depth_));
    }
    void Write(std::span<const float> samples) override {
        end_ = std::max(end_, pace_.Now()) + static_cast<qint64>(samples.size());
    }
    bool Drained() const override { return Waiting() <= 0; }

private:
    qint64 Waiting() const { return end_ - pace_.Now(); }

    Pace pace_;
    qint64 depth_, end_ = 0;
};

} // namespace

SoundCardSeam& SoundCards() {
    static SoundCardSeam seam;
    return seam;
}

std::unique_ptr<SoundInput> OpenSoundInput(const SoundWish& wish) {
    if (SoundCards().input) return SoundCards().input(wish);
    const QAudioDevice device =
        Device(QMediaDevices::audioInputs(), QMediaDevices::defaultAudioInput(), wish);
    if (device.isNull()) return nullptr;
    auto input = std::make_unique<CardInput>(device, Format(device, wish), wish);
    if (!input->Works()) return nullptr;
    return input;
}

std::unique_ptr<SoundOutput> OpenSoundOutput(const SoundWish& wish) {
    if (SoundCards().output) return SoundCards().output(wish);
    const QAudioDevice device =
        Device(QMediaDevices::audioOutputs(), QMediaDevices::defaultAudioOutput(), wish);
    if (device.isNull()) return nullptr;
    auto output = std::make_unique<CardOutput>(device, Format(device, wish), wish);
    if (!output->Works()) return nullptr;
    return output;
}

std::unique_ptr<SoundInput> SilentInput(int rate) { return std::make_unique<NoInput>(rate); }

std::unique_ptr<SoundOutput> SilentOutput(const SoundWish& wish) { return std::make_unique<NoOutput>(wish); }

} // namespace platform
