#pragma once

#include "platform/mmvari/highpass.h"
#include "platform/mmvari/keyer.h"
#include "platform/mmvari/mmvari.h"
#include "platform/mmvari/modem/modem.h"
#include "platform/mmvari/modem/resampler.h"
#include "platform/mmvari/modem/spectrum.h"
#include "platform/mmvari/steadyinput.h"

#include <QElapsedTimer>
#include <QTimer>

#include <array>

namespace platform {

/// The engine over the software modem and the sound card. All of it runs on the message loop, a piece of
/// sound at a time: a second of it costs a few thousandths of one.
class SoftModem : public MmvariX {
public:
    SoftModem();
    ~SoftModem() override;

    int ModeCount() const override;
    QString ModeName(int number) const override;
    void Mode(int channel, const QString& name) override;
    QString Mode(int channel) const override;
    QStringList Speeds(int channel) const override;
    void Speed(int channel, const QString& baud) override;
    QString Speed(int channel) const override;
    QStringList ReceiveList(int channel) const override;
    void ReceiveChoice(int channel, int choice) override;
    int ReceiveChoice(int channel) const override;
    void Carrier(int channel, double hertz) override;
    double Carrier(int channel) const override;
    void Afc(int channel, bool on) override;
    void Switch(int which, bool on) override;
    bool IsOn(int which) const override;
    void Transmit(bool on) override;
    void EndTransmit() override;
    int State() const override { return state_; }
    void SendCharacter(QChar character) override;
    void ComPort(const QString& name) override;
    void FifoRx(int depth) override;
    void FifoTx(int depth) override;
    void SoundChannel(int radio, int side) override;
    void SoundCard(int id) override;
    void RxClock(int rate) override;
    void Start() override;
    void Stop() override;

    /// One turn of the loop; the timer calls it some hundred times a second, tests when they like.
    void Turn();

private:
    /// One receiver, and how it was set.
    struct Channel {
        modem::Setup setup;
        bool squelch = true, afc = false;
        int side = 0; ///< of the sound: 0 both, 1 left, 2 right
        HighPass highPass{};
        std::unique_ptr<modem::Receiver> receiver{};
        std::unique_ptr<modem::Resampler> resampler{};
        std::vector<float> audio{};
        std::string text{};
    };

    /// The numbers of the settings that are checked.
    enum Setting { RxDepth, TxDepth, Card, Clock, Settings };

    Channel& At(int channel) { return channels_.at(static_cast<std::size_t>(channel)); }
    const Channel& At(int channel) const { return channels_.at(static_cast<std::size_t>(channel)); }
    void Rebuild(Channel& channel);
    void RebuildAll();
    void MakeResamplers();
    void Say();
    int Usable(Setting setting, int value);

    void Listen();
    void Hear(Channel& channel, int number);
    void Watch(std::span<const float> audio, bool own);
    void Show();
    void SetState(int state);
    void MakeTransmitter();
    void BeginSound();
    void Feed();
    bool Generate();
    void Silence();
    void EndSound();
    double TransmitCarrier() const;

    std::array<Channel, 2> channels_;
    std::array<bool, 5> switches_{};
    SoundWish outWish_;

    SteadyInput input_;
    std::unique_ptr<SoundOutput> output_;
    Keyer keyer_;
    std::array<QString, Settings> unusable_;
    QString outTrouble_, said_;
    bool running_ = false, turning_ = false;
    QElapsedTimer checked_; ///< since the port was looked at

    std::unique_ptr<modem::Spectrum> spectrum_;
    std::vector<float> frames_, mono_;
    double level_ = 0;
    MmvSpectrum view_;

    int state_ = 0;
    bool toReceive_ = false; ///< EndTransmit came before the sound began
    bool ending_ = false;    ///< the transmitter sends its ending
    bool again_ = false;     ///< and more is to follow behind it
    bool flushed_ = false;   ///< the silence behind the ending has been written
    std::string held_;       ///< came while the ending went out
    double transmitRate_ = 0;
    std::unique_ptr<modem::Transmitter> transmitter_;
    std::unique_ptr<modem::Resampler> upsampler_;
    std::vector<float> piece_, outgoing_;
    QElapsedTimer keyed_;
    QElapsedTimer moving_; ///< since the card last took something
    std::size_t free_ = 0; ///< of its buffer, when it was last filled
    QTimer timer_;
};

} // namespace platform
