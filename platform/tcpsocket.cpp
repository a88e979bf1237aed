#include "platform/tcpsocket.h"

#include "platform/failure.h"
#include "platform/listener.h"
#include "platform/textfile.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QScopeGuard>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace platform {

namespace {

/// Some thirty lines; a reader has done with them long before the next frame.
constexpr qsizetype kPiece = 2048;
/// So long, in milliseconds, pieces follow one another before the event loop gets its turn.
constexpr qint64 kTurn = 5;
/// So long, in milliseconds, half a line waits for its rest.
constexpr int kTail = 10;
/// What waits here; behind it the network holds the sender up.
constexpr qint64 kWaiting = 65536;

} // namespace

TcpSocket::TcpSocket(const QString& name, QObject* parent)
    : QObject(parent) {
    setObjectName(name);
    socket_.setReadBufferSize(kWaiting);
    later_.setSingleShot(true);
    tail_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, [this] { HandOn(); });
    connect(&tail_, &QTimer::timeout, this, [this] {
        isTailDue_ = true;
        HandOn();
    });
    connect(&socket_, &QTcpSocket::connected, this, [this] { NoticeDeadLinks(); });
    connect(&socket_, &QTcpSocket::readyRead, this, [this] { later_.start(0); });
    const auto ended = [this] {
        if (isClosing_ || isEnded_) return;
        isEnded_ = true;
        later_.start(0);
    };
    connect(&socket_, &QTcpSocket::disconnected, this, ended);
    connect(&socket_, &QTcpSocket::errorOccurred, this, ended);
}

// Closed while everything that hears of it is still there.
TcpSocket::~TcpSocket() { Close(); }

void TcpSocket::Connect() {
    if (State() != sckClosed) throw Failure(QStringLiteral("Anslutningen är inte stängd."));
    if (host_.isEmpty()) throw Failure(QStringLiteral("Adressen saknas."));
    if (port_ < 1 || port_ > 65535) throw Failure(QStringLiteral("Porten %1 finns inte.").arg(port_));
    socket_.connectToHost(host_, static_cast<quint16>(port_));
}

/// A cable that is pulled out sends no farewell. The system's own patience is two hours; a contest has not
/// that long.
void TcpSocket::NoticeDeadLinks() {
    socket_.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    const int descriptor = static_cast<int>(socket_.socketDescriptor());
    for (const auto& [option, value] : {std::pair{TCP_KEEPIDLE, 60}, {TCP_KEEPINTVL, 10}, {TCP_KEEPCNT, 3}})
        setsockopt(descriptor, IPPROTO_TCP, option, &value, sizeof value);
}

int TcpSocket::State() const {
    if (isEnded_) return sckClosing;
    switch (socket_.state()) {
    case QAbstractSocket::UnconnectedState: return sckClosed;
    case QAbstractSocket::HostLookupState: return sckResolvingHost;
    case QAbstractSocket::ConnectedState: return sckConnected;
    case QAbstractSocket::ClosingState: return sckClosing;
    default: return sckConnecting;
    }
}

void TcpSocket::SendData(const QString& text) {
    if (State() != sckConnected) throw Failure(QStringLiteral("Ingen anslutning."));
    const QByteArray bytes = ToCp1252(text);
    if (socket_.write(bytes) != bytes.size()) throw Failure(QStringLiteral("Texten kunde inte sändas."));
    socket_.flush();
}

QString TcpSocket::GetData() { return FromCp1252(std::exchange(piece_, {})); }

void TcpSocket::Close() {
    isClosing_ = true;
    if (socket_.state() == QAbstractSocket::ConnectedState) {
        socket_.flush();
        socket_.disconnectFromHost();
    }
    socket_.abort();
    isClosing_ = false;
    isEnded_ = false;
    isTailDue_ = false;
    later_.stop();
    tail_.stop();
    waiting_.clear();
    piece_.clear();
}

/// How much of what waits is due; 0 while half a line waits for its rest.
qsizetype TcpSocket::PieceLength() {
    const qsizetype most = qMin(waiting_.size(), kPiece);
    const qsizetype lines = waiting_.lastIndexOf('\n', most - 1) + 1;
    if (lines > 0) return lines;
    if (waiting_.size() >= kPiece || isTailDue_ || isEnded_) return most;
    if (!waiting_.isEmpty() && !tail_.isActive()) tail_.start(kTail);
    return 0;
}

/// False if nothing is due.
bool TcpSocket::NextPiece() {
    if (socket_.isOpen()) waiting_ += socket_.read(kWaiting - waiting_.size());
    const qsizetype length = PieceLength();
    if (length == 0) return false;
    tail_.stop();
    isTailDue_ = false;
    piece_ = waiting_.first(length);
    waiting_.remove(0, length);
    return true;
}

void TcpSocket::HandOn() {
    if (isHandingOn_) return; // from the event loop of a listener; the loop below goes on
    const QPointer<TcpSocket> self(this);
    isHandingOn_ = true;
    const auto done = qScopeGuard([&] {
        if (self) isHandingOn_ = false;
    });
    QElapsedTimer turn;
    turn.start();
    while (NextPiece()) {
        Call(arrival_);
        if (!self) return;
        if (turn.elapsed() >= kTurn) return later_.start(0);
    }
    if (!isEnded_) return;
    isEnded_ = false;
    Call(close_);
}

} // namespace platform
