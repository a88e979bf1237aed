#include "platform/mmvari/softmodem.h"

#include "platform/textfile.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace platform {

namespace {

/// Milliseconds between turns.
constexpr int turnEvery = 10;
/// Milliseconds that a radio may need from its key to full power.
constexpr int keyLead = 50;
/// A step of the buffers' depths: incoming sound must wait for as long as the program may be busy with a
/// large log, outgoing sound is late by what lies in its buffer.
constexpr double fifoRxSeconds = 0.1, fifoTxSeconds = 0.05;
/// Of what the card can do: the radio's own level is set at the card, and a peak must not be cut.
constexpr float loudness = 0.7F;
/// Samples of the waveform that are shown.
constexpr std::size_t shownSamples = 512;

QString Number(double value) { return QString::number(value, 'g', 8); }

/// The carrier next to a wished one with which the signal lies inside the audio.
double Allowed(const modem::Setup& setup, double carrier) {
    const auto [low, high] = modem::CarrierRange(setup);
    return std::clamp(carrier, low, high);
}

char To8Bit(QChar character) {
    const QByteArray bytes = ToCp1252(QString(character));
    return bytes.isEmpty() ? '?' : bytes.front();
}

} // namespace

MmvariSeam& Mmvaris() {
    static MmvariSeam seam;
    return seam;
}

std::unique_ptr<MmvariX> CreateMmvari() {
    if (Mmvaris().create) return Mmvaris().create();
    return std::make_unique<SoftModem>();
}

SoftModem::SoftModem() {
    input_.Wish({.channels = 2});
    switches_[mmvswitch::Uos] = true;
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(turnEvery);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Turn(); });
    RebuildAll();
}

SoftModem::~SoftModem() {
    events = {};
    Stop();
}

// ---- what the receivers are set to
// ---------------------------------------------------------------------------

int SoftModem::ModeCount() const { return static_cast<int>(modem::Modes().size()); }

QString SoftModem::ModeName(int number) const {
    return QString::fromLatin1(modem::Modes().at(static_cast<std::size_t>(number)).name);
}

void SoftModem::Mode(int channel, const QString& name) {
    const auto mode = modem::ModeNamed(name.toStdString());
    Channel& at = At(channel);
    if (!mode || *mode == at.setup.mode) return;
    at.setup.mode = *mode;
    at.setup.baud = modem::Info(*mode).speeds.front();
    Rebuild(at);
    if (events.speedChanged) events.speedChanged(channel);
    if (events.receiveListChanged) events.receiveListChanged(channel);
}

QString SoftModem::Mode(int channel) const {
    return QString::fromLatin1(modem::Info(At(channel).setup.mode).name);
}

QStringList SoftModem::Speeds(int channel) const {
    QStringList speeds;
    for (const double baud : modem::Info(At(channel).setup.mode).speeds) speeds << Number(baud);
    return speeds;
}

void SoftModem::Speed(int channel, const QString& baud) {
    Channel& at = At(channel);
    const qsizetype chosen = Speeds(channel).indexOf(baud);
    if (chosen < 0) return;
    const double speed = modem::Info(at.setup.mode).speeds[static_cast<std::size_t>(chosen)];
    if (speed == at.setup.baud) return;
    at.setup.baud = speed;
    Rebuild(at);
    if (events.speedChanged) events.speedChanged(channel);
}

QString SoftModem::Speed(int channel) const { return Number(At(channel).setup.baud); }

QStringList SoftModem::ReceiveList(int) const {
    return {QStringLiteral("Brusspärr"), QStringLiteral("Öppen")};
}

void SoftModem::ReceiveChoice(int channel, int choice) {
    At(channel).squelch = choice != 1;
    At(channel).receiver->Squelch(At(channel).squelch);
}

int SoftModem::ReceiveChoice(int channel) const { return At(channel).squelch ? 0 : 1; }

void SoftModem::Carrier(int channel, double hertz) {
    Channel& at = At(channel);
    at.setup.carrier = Allowed(at.setup, hertz);
    at.receiver->Carrier(at.setup.carrier);
}

double SoftModem::Carrier(int channel) const { return At(channel).receiver->Carrier(); }

void SoftModem::Afc(int channel, bool on) {
    Channel& at = At(channel);
    if (at.afc == on) return;
    at.afc = on;
    at.receiver->Afc(on);
    if (channel == 0 && events.switchChanged) events.switchChanged(mmvswitch::Afc);
}

void SoftModem::Switch(int which, bool on) {
    if (which == mmvswitch::Afc) return Afc(0, on);
    bool& state = switches_.at(static_cast<std::size_t>(which));
    if (state == on) return;
    state = on;
    for (Channel& channel : channels_) {
        channel.receiver->Atc(switches_[mmvswitch::Atc]);
        channel.receiver->UnshiftOnSpace(switches_[mmvswitch::Uos]);
    }
    if (events.switchChanged) events.switchChanged(which);
}

bool SoftModem::IsOn(int which) const {
    return which == mmvswitch::Afc ? channels_[0].afc : switches_.at(static_cast<std::size_t>(which));
}

void SoftModem::Rebuild(Channel& channel) {
    channel.setup.carrier = Allowed(channel.setup, channel.setup.carrier);
    channel.receiver = modem::MakeReceiver(channel.setup);
    channel.receiver->Squelch(channel.squelch);
    channel.receiver->Afc(channel.afc);
    channel.receiver->Atc(switches_[mmvswitch::Atc]);
    channel.receiver->UnshiftOnSpace(switches_[mmvswitch::Uos]);
}

void SoftModem::RebuildAll() {
    for (Channel& channel : channels_) Rebuild(channel);
    if (input_.IsOpen()) MakeResamplers();
    spectrum_ = std::make_unique<modem::Spectrum>(channels_[0].setup.rate);
}

// ---- sound card and serial port
// ------------------------------------------------------------------------------

void SoftModem::ComPort(const QString& name) {
    keyer_.Port(name);
    Say();
}

/// A number of the settings, or the usual one in the place of one that was mistyped.
int SoftModem::Usable(Setting setting, int value) {
    struct Limits {
        const char* name;
        int least, most, usual;
    };
    static constexpr Limits all[] = {{"FIFO RX", 1, 64, 12},
                                     {"FIFO TX", 1, 64, 6},
                                     {"Ljudkort ID", -1, std::numeric_limits<int>::max(), -1},
                                     {"RX Klocka", 6000, 50000, 11025}};
    const Limits& limits = all[setting];
    const bool usable = value >= limits.least && value <= limits.most;
    unusable_[setting] = usable ? QString()
                                : QStringLiteral("%1 går inte att använda: %2 gäller")
                                      .arg(QLatin1String(limits.name))
                                      .arg(limits.usual);
    Say();
    return usable ? value : limits.usual;
}

void SoftModem::FifoRx(int depth) {
    SoundWish wish = input_.Wish();
    wish.seconds = Usable(RxDepth, depth) * fifoRxSeconds;
    input_.Wish(wish);
}

void SoftModem::FifoTx(int depth) { outWish_.seconds = Usable(TxDepth, depth) * fifoTxSeconds; }

void SoftModem::SoundChannel(int radio, int side) {
    if (side >= 0 && side <= 2) At(radio).side = side;
}

void SoftModem::SoundCard(int id) {
    SoundWish wish = input_.Wish();
    wish.id = outWish_.id = Usable(Card, id);
    outWish_.card.clear();
    input_.Wish(wish);
}

void SoftModem::RxClock(int rate) {
    const int allowed = Usable(Clock, rate);
    SoundWish wish = input_.Wish();
    if (wish.rate == allowed) return;
    wish.rate = outWish_.rate = allowed;
    input_.Wish(wish);
    for (Channel& channel : channels_) channel.setup.rate = allowed;
    RebuildAll();
}

void SoftModem::Start() {
    if (running_) {
        // What was missing may have been plugged in since, or replaced.
        input_.Retry();
        outWish_.card.clear();
        keyer_.Open();
        return Say();
    }
    running_ = true;
    outWish_.card.clear();
    keyer_.Open();
    input_.Open();
    MakeResamplers();
    checked_.start();
    timer_.start();
    Say();
}

/// All is let go of before anybody hears of it: what a listener then does finds the engine at rest.
void SoftModem::Stop() {
    if (!running_) return;
    running_ = false;
    timer_.stop();
    Silence();
    input_.Close();
    keyer_.Close();
    outTrouble_.clear();
    Say();
    SetState(mmvstate::Receive);
}

void SoftModem::MakeResamplers() {
    for (Channel& channel : channels_)
        channel.resampler = std::make_unique<modem::Resampler>(input_.Rate(), channel.setup.rate);
}

/// The trouble of the moment, when it is another than before. A modem at rest has none.
void SoftModem::Say() {
    QStringList troubles;
    if (running_) troubles << input_.Trouble() << outTrouble_ << keyer_.Trouble();
    for (const QString& number : unusable_)
        if (running_) troubles << number;
    troubles.removeAll(QString());
    const QString text = troubles.join(QStringLiteral("; "));
    if (text == said_) return;
    said_ = text;
    if (events.status) events.status(text);
}

// ---- the loop
// ------------------------------------------------------------------------------------------------

void SoftModem::Turn() {
    // A listener that opens a dialog runs the loop while this turn still stands in the middle of its sound.
    if (!running_ || turning_) return;
    const QScopedValueRollback<bool> turning(turning_, true);
    if (checked_.hasExpired(SoundCards().retryEvery)) {
        checked_.start();
        keyer_.Check();
    }
    Listen();
    if (state_ == mmvstate::Wait && keyed_.elapsed() >= keyLead)
        BeginSound();
    else if (state_ == mmvstate::Transmit || state_ == mmvstate::ToReceive)
        Feed();
}

// Whoever is told of something may stop the engine, and with it goes the card.
void SoftModem::Listen() {
    if (input_.Read(frames_)) MakeResamplers();
    Say();
    for (int number = 0; running_ && number < static_cast<int>(channels_.size()); ++number)
        Hear(At(number), number);
}

/// The channel's side of the sound, through its receiver.
void SoftModem::Hear(Channel& channel, int number) {
    mono_.clear();
    const auto step = static_cast<std::size_t>(input_.Channels());
    for (std::size_t i = 0; i + step <= frames_.size(); i += step) {
        const float left = frames_[i], right = frames_[i + step - 1];
        mono_.push_back(channel.side == 0 ? (left + right) / 2 : channel.side == 1 ? left : right);
    }
    channel.audio.clear();
    channel.resampler->Process(mono_, channel.audio);
    // While it transmits a radio hears itself at best.
    if (state_ != mmvstate::Receive) return;
    if (IsOn(mmvswitch::Hpf)) channel.highPass.Filter(channel.audio, channel.setup.rate);
    if (number == 0) Watch(channel.audio, false);
    channel.text.clear();
    channel.receiver->Receive(channel.audio, channel.text);
    for (const QChar character : FromCp1252(QByteArray::fromStdString(channel.text)))
        if (running_ && events.received) events.received(number, character);
}

/// The views' lines come at an even pace, also where sound comes in large pieces.
/// @param own it is sent, not heard
void SoftModem::Watch(std::span<const float> audio, bool own) {
    view_.own = own;
    const auto most = static_cast<std::size_t>(channels_[0].setup.rate / 50);
    for (std::size_t at = 0; running_ && at < audio.size(); at += most) {
        const auto piece = audio.subspan(at, std::min(most, audio.size() - at));
        for (const float sample : piece) level_ = std::max(level_, static_cast<double>(std::abs(sample)));
        const std::size_t shown = std::min(shownSamples, piece.size());
        view_.waveform.insert(view_.waveform.end(), piece.end() - static_cast<std::ptrdiff_t>(shown),
                              piece.end());
        if (view_.waveform.size() > shownSamples)
            view_.waveform.erase(view_.waveform.begin(),
                                 view_.waveform.end() - static_cast<std::ptrdiff_t>(shownSamples));
        if (spectrum_->Push(piece)) Show();
    }
}

void SoftModem::Show() {
    const Channel& channel = channels_[0];
    view_.line = spectrum_->Line();
    view_.spacing = spectrum_->Spacing();
    view_.sync = channel.receiver->Now().points;
    view_.tones = modem::TonesShown(channel.setup.mode, channel.setup.baud, channel.receiver->Carrier());
    if (events.spectrum) events.spectrum(view_);
    if (events.level) events.level(std::min(level_, 1.0));
    level_ = 0;
}

// ---- transmit
// ------------------------------------------------------------------------------------------------

void SoftModem::SetState(int state) {
    if (state == state_) return;
    state_ = state;
    if (events.transmitState) events.transmitState(state);
}

double SoftModem::TransmitCarrier() const {
    return IsOn(mmvswitch::Net) ? Carrier(0) : channels_[0].setup.carrier;
}

void SoftModem::Transmit(bool on) {
    if (!on) {
        if (state_ != mmvstate::Receive) EndSound();
        return;
    }
    if (!running_) return;
    toReceive_ = false;
    // If the ending goes out already, what comes now follows behind it.
    again_ = ending_;
    if (state_ == mmvstate::ToReceive) return SetState(mmvstate::Transmit);
    if (state_ != mmvstate::Receive) return;
    transmitRate_ = channels_[0].setup.rate;
    MakeTransmitter();
    keyer_.Key(true);
    keyed_.start();
    SetState(mmvstate::Wait);
    Say();
}

void SoftModem::MakeTransmitter() {
    modem::Setup setup = channels_[0].setup;
    setup.rate = transmitRate_;
    setup.carrier = Allowed(setup, TransmitCarrier());
    transmitter_ = modem::MakeTransmitter(setup);
    transmitter_->UnshiftOnSpace(IsOn(mmvswitch::Uos));
    ending_ = again_ = flushed_ = false;
    for (const char character : std::exchange(held_, {})) transmitter_->Put(character);
}

void SoftModem::EndTransmit() {
    if (state_ == mmvstate::Wait)
        toReceive_ = true;
    else if (state_ == mmvstate::Transmit)
        SetState(mmvstate::ToReceive);
}

void SoftModem::SendCharacter(QChar character) {
    if (ending_)
        held_ += To8Bit(character);
    else if (transmitter_)
        transmitter_->Put(To8Bit(character));
}

/// The radio stands ready: the sound begins.
void SoftModem::BeginSound() {
    output_ = OpenSoundOutput(outWish_);
    if (output_) outWish_.card = output_->Card(); // the radio's; while it is away no other one is for sending
    outTrouble_ = output_ ? QString() : QStringLiteral("Inget ljudkort att sända med: inget hörs");
    if (!output_) output_ = SilentOutput(outWish_);
    upsampler_ = std::make_unique<modem::Resampler>(transmitRate_, output_->Rate());
    outgoing_.clear();
    moving_.start();
    free_ = output_->Free();
    Say();
    if (output_) SetState(toReceive_ ? mmvstate::ToReceive : mmvstate::Transmit);
    if (output_) Feed();
}

/// Keeps the card's buffer full.
void SoftModem::Feed() {
    if (output_->Free() != free_) moving_.start();
    const QString trouble = moving_.hasExpired(SoundCards().stuckAfter)
                                ? QStringLiteral("Ljudkortet svarar inte")
                                : output_->Trouble();
    if (!trouble.isEmpty()) {
        // Nobody hears the rest: the radio must not stay keyed for it.
        outTrouble_ = trouble;
        return EndSound();
    }
    while (output_ && output_->Free() > 0) {
        if (outgoing_.empty() && !Generate()) break;
        if (!output_) return;
        const std::size_t part = std::min(output_->Free(), outgoing_.size());
        output_->Write(std::span(outgoing_).first(part));
        outgoing_.erase(outgoing_.begin(), outgoing_.begin() + static_cast<std::ptrdiff_t>(part));
    }
    if (!output_) return;
    free_ = output_->Free();
    if (flushed_ && outgoing_.empty() && output_->Drained()) EndSound();
}

/// The next hundredth of a second. The next character is asked for when nothing waits: as late as may be, so
/// that what is typed meanwhile goes along. @return whether there is anything to come: a listener may have
/// stopped it
bool SoftModem::Generate() {
    if (transmitter_->Done()) {
        if (again_) MakeTransmitter();
        // One piece of silence pushes the ending's last samples out of the resampler.
        else if (std::exchange(flushed_, true))
            return false;
    }
    if (transmitter_->Waiting() == 0 && !ending_ && events.transmitRequest) events.transmitRequest();
    if (!output_) return false;
    if (state_ == mmvstate::ToReceive && transmitter_->Waiting() == 0 && !ending_) {
        ending_ = true;
        transmitter_->Finish();
    }
    piece_.resize(static_cast<std::size_t>(transmitRate_ / 100));
    transmitter_->Generate(piece_);
    for (float& sample : piece_) sample *= loudness;
    upsampler_->Process(piece_, outgoing_);
    // The operator sees his own signal. A clock that was changed meanwhile holds for the next one.
    if (transmitRate_ == channels_[0].setup.rate) Watch(piece_, true);
    return output_ != nullptr;
}

/// Sound first, key last: a radio must not send what is behind the signal, and nothing may be cut off.
void SoftModem::Silence() {
    output_.reset();
    transmitter_.reset();
    outgoing_.clear();
    held_.clear();
    ending_ = again_ = toReceive_ = false;
    keyer_.Key(false);
}

void SoftModem::EndSound() {
    Silence();
    SetState(mmvstate::Receive);
    Say();
}

} // namespace platform
