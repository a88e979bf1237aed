#include "platform/omnirig/riglink.h"

#include "platform/listener.h"

#include <QFile>

#include <utility>

namespace platform {

using rigctld::Answer;
using rigctld::Asked;

namespace {

const QString kOnLine = QStringLiteral("On-line");
const QString kSilent = QStringLiteral("Rig is not responding");
const QString kUnused = QStringLiteral("Rig is not configured");
const QString kNoAnswer = QStringLiteral("rigctld svarar inte");
const QString kNonsense = QStringLiteral("obegripligt svar");

// All in milliseconds.
constexpr int kPoll = 200;      ///< between two rounds of questions
constexpr int kPatience = 1600; ///< without a good round
constexpr int kConnecting = 3000;
constexpr int kAnswering = 12000; ///< rigctld gives up on a dead radio after ten seconds
constexpr int kAnsweringFirst = 3000;
constexpr int kRetry = 500;
constexpr int kRetryOwn = 100; ///< while a daemon of our own comes up
constexpr int kRestart = 2000; ///< of a daemon that has ended by itself
constexpr int kTuneWithin = 5000;

} // namespace

RigLink::RigLink(QObject* parent)
    : QObject(parent)
    , status_(kUnused)
    , daemon_(this) {
    const auto on = [this](QTimer& timer, void (RigLink::*due)()) {
        timer.setSingleShot(true);
        connect(&timer, &QTimer::timeout, this, due);
    };
    on(later_, &RigLink::Attend);
    on(poll_, &RigLink::AskNext);
    on(retry_, &RigLink::Connect);
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, [this] {
        if (trouble_.isEmpty()) trouble_ = kNoAnswer;
        SetStatus(kSilent);
    });
    on(giveUp_, &RigLink::GiveUp);
    // An answer fits many times over; what sends more is held up by the network until it is dropped.
    constexpr qint64 waiting = 4096;
    socket_.setReadBufferSize(waiting);
    const auto soon = [this] { later_.start(0); };
    connect(&socket_, &QTcpSocket::connected, this, soon);
    connect(&socket_, &QTcpSocket::readyRead, this, soon);
    connect(&socket_, &QTcpSocket::errorOccurred, this, soon);
    daemon_.OnEnd([this] {
        Lost(WhyClosed());
        retry_.start(kRestart);
        SetStatus(kSilent);
    });
}

RigLink::~RigLink() {
    onStatus_ = onChange_ = onReading_ = {};
    Drop();
}

bool RigLink::IsOnLine() const { return status_ == kOnLine; }

void RigLink::Use(const RigSettings& settings) {
    const int use = ++useCount_;
    Drop();
    for (QTimer* timer : {&retry_, &patience_}) timer->stop();
    daemon_.Stop();
    settings_ = settings;
    frequency_ = 0;
    mode_.clear();
    trouble_.clear();
    tuneA_.reset();
    tuneCurrent_.reset();
    const bool isUsed = settings.way != RigSettings::Way::Unused;
    vfoMode_ = false;
    asksVfoMode_ = true;
    if (isUsed) Connect();
    if (use == useCount_)
        SetStatus(isUsed ? kSilent : kUnused); // a daemon that fails at once has listeners too
}

void RigLink::SetStatus(const QString& status) {
    if (status == status_) return;
    status_ = status;
    Call(onStatus_);
}

// ---- the connection -----------------------------------------------------------------------------------
//
// What runs in each state, so that there is always something to go on with:
//   waiting for the next try             retry_
//   connecting                           giveUp_; later_ as soon as the socket says something
//   awaiting an answer                   giveUp_; later_ as soon as the socket says something
//   between two rounds                   poll_
//   on line, in any of these             patience_ too

void RigLink::Connect() {
    RigAddress address{QStringLiteral("127.0.0.1"), daemonPort_};
    if (settings_.way == RigSettings::Way::Address) {
        const auto set = ReadRigAddress(settings_.address);
        if (!set) return Lost(QStringLiteral("adressen är ogiltig"));
        address = *set;
    } else {
        if (!daemon_.IsRunning()) {
            if (RigDaemon::IsAnyEnding()) return retry_.start(kRetryOwn); // it may hold this radio's port
            address.port = daemonPort_ = RigDaemon::FreePort();
            daemon_.Start(DaemonArguments(settings_, daemonPort_));
            if (!daemon_.IsRunning()) return; // OnEnd has been called, and tries again later
        }
    }
    isOpen_ = true;
    // A daemon of our own wants no names. Without an answer what was answered last holds.
    const bool asks = asksVfoMode_ && settings_.way == RigSettings::Way::Address;
    next_ = asks ? Asked::VfoMode : Asked::Frequency;
    asksVfoMode_ = true;
    giveUp_.start(kConnecting);
    socket_.connectToHost(address.host, static_cast<quint16>(address.port));
}

/// Closes the connection without a word.
void RigLink::Drop() {
    isOpen_ = isConnected_ = false;
    asked_.reset();
    received_.clear();
    for (QTimer* timer : {&later_, &poll_, &giveUp_}) timer->stop();
    socket_.abort();
}

/// Closes the connection and opens another one soon. The radio stays on line for as long as patience lasts.
void RigLink::Lost(const QString& trouble) {
    if (asked_ == Asked::Write) {
        // Whether it was heeded is not known: it is said again, unless something newer is to be said.
        auto& queued = written_.vfo == rigctld::Vfo::A ? tuneA_ : tuneCurrent_;
        if (!queued) queued = written_.hertz;
        isNews_ = true;
    }
    Drop();
    trouble_ = trouble;
    retry_.start(settings_.way == RigSettings::Way::Model ? kRetryOwn : kRetry);
}

/// For the moment before the connection is dropped.
QString RigLink::WhyClosed() const {
    if (settings_.way != RigSettings::Way::Model) return socket_.errorString();
    if (settings_.port.startsWith(u'/') && !QFile::exists(settings_.port))
        return QStringLiteral("porten %1 finns inte").arg(settings_.port);
    if (daemon_.IsRunning() && isConnected_) return socket_.errorString();
    if (!daemon_.LastWords().isEmpty()) return daemon_.LastWords();
    return daemon_.IsRunning() ? QStringLiteral("rigctld har inte fått kontakt med radion")
                               : QStringLiteral("rigctld har avslutats");
}

/// The connection is not worth waiting on any longer.
void RigLink::GiveUp() {
    const bool isOwn = settings_.way == RigSettings::Way::Model;
    if (asked_ == Asked::VfoMode) {
        // Some servers are silent about a question that they do not know; the next connection does without.
        asksVfoMode_ = false;
    } else if (isOwn && isConnected_) {
        daemon_.Stop(); // it hangs
    }
    Lost(isOwn && !isConnected_ ? WhyClosed() : kNoAnswer);
}

void RigLink::Attend() {
    if (!isConnected_ && socket_.state() == QAbstractSocket::ConnectedState) {
        isConnected_ = true;
        trouble_.clear();
        socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        AskNext();
    }
    if (socket_.bytesAvailable() > 0) Receive();
    if (!isOpen_ || socket_.state() != QAbstractSocket::UnconnectedState) return;
    const bool wasConnected = isConnected_;
    Lost(WhyClosed());
    if (wasConnected) SetStatus(kSilent);
}

// ---- questions and answers ----------------------------------------------------------------------------

void RigLink::AskNext() {
    if (next_ == Asked::Frequency && SendTuning()) return;
    Send(next_, rigctld::Question(next_, vfoMode_));
}

/// False if there is nothing to tune.
bool RigLink::SendTuning() {
    if (!tuneA_ && !tuneCurrent_) return false;
    if (tuneBefore_.hasExpired()) {
        tuneA_.reset();
        tuneCurrent_.reset();
        isNews_ = true; // whoever wanted it elsewhere must see where it is
        return false;
    }
    // Where VFOs have no names there is one to tune.
    if (!vfoMode_ && tuneCurrent_) tuneA_.reset();
    const auto vfo = tuneA_ ? rigctld::Vfo::A : rigctld::Vfo::Current;
    written_ = {vfo, *std::exchange(tuneA_ ? tuneA_ : tuneCurrent_, std::nullopt)};
    Send(Asked::Write, rigctld::Tuning(written_.hertz, vfo, vfoMode_));
    return true;
}

void RigLink::Send(Asked asked, const QByteArray& command) {
    asked_ = asked;
    // What came unasked would be taken for the answer.
    if (socket_.bytesAvailable() > 0) return Lost(kNonsense);
    giveUp_.start(asked == Asked::VfoMode ? kAnsweringFirst : kAnswering);
    socket_.write(command);
}

void RigLink::Receive() {
    received_ += socket_.readAll();
    if (!asked_) return Lost(kNonsense);
    const Answer answer = rigctld::ReadAnswer(*asked_, received_);
    if (answer.kind == Answer::Kind::Unfinished) return;
    if (answer.kind == Answer::Kind::Garbage) return Lost(kNonsense);
    received_.clear();
    giveUp_.stop();
    Take(*std::exchange(asked_, std::nullopt), answer);
}

void RigLink::Take(Asked asked, const Answer& answer) {
    const bool isGood = answer.kind == Answer::Kind::Good;
    next_ = Asked::Frequency;
    switch (asked) {
    case Asked::VfoMode:
        vfoMode_ = answer.vfoMode; // a daemon that does not know the question wants no names
        return AskNext();
    case Asked::Frequency:
        if (!isGood) return Refused(answer.error);
        heardFrequency_ = answer.frequency;
        heardUntil_.setRemainingTime(kPatience);
        next_ = Asked::Mode;
        return AskNext();
    case Asked::Mode:
        // A receiver without modes has answered all the same.
        if (!isGood && !rigctld::IsMissing(answer.error)) return Refused(answer.error);
        if (heardUntil_.hasExpired()) { // where the radio was so long ago is not where it is
            trouble_ = QStringLiteral("radion svarar för långsamt");
            return poll_.start(kPoll);
        }
        heardMode_ = answer.mode;
        return TakeRound();
    case Asked::Write:
        // Done or refused, the operator wants to see where the radio is.
        isNews_ = true;
        if (isGood && IsOnLine()) patience_.start(kPatience);
        return AskNext();
    }
}

void RigLink::Refused(int error) {
    trouble_ = rigctld::ErrorText(error);
    poll_.start(kPoll);
}

/// Frequency and mode have both been heard.
void RigLink::TakeRound() {
    patience_.start(kPatience);
    trouble_.clear();
    const bool isToBeTuned = tuneA_ || tuneCurrent_;
    poll_.start(isToBeTuned ? 0 : kPoll);
    const int use = useCount_;
    SetStatus(kOnLine);
    // Where the radio was before it is tuned is history.
    if (use != useCount_ || isToBeTuned) return;
    const bool isChange = heardFrequency_ != frequency_ || heardMode_ != mode_;
    frequency_ = heardFrequency_;
    mode_ = heardMode_;
    if (std::exchange(isNews_, false) || isChange) Call(onChange_);
    if (use == useCount_) Call(onReading_);
}

void RigLink::Tune(rigctld::Vfo vfo, qint64 hertz) {
    if (settings_.way == RigSettings::Way::Unused) return;
    (vfo == rigctld::Vfo::A ? tuneA_ : tuneCurrent_) = hertz;
    tuneBefore_.setRemainingTime(kTuneWithin);
    // Not at once: the other VFO's is often tuned in the same breath.
    if (poll_.isActive()) poll_.start(0);
}

} // namespace platform
