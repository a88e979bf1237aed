#include "platform/tcpsocket.h"

#include "platform/failure.h"
#include "platform/textfile.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QScopeGuard>

namespace platform {

namespace {

/// Some fifteen lines; a reader has done with them long before the next frame.
constexpr qint64 kPiece = 1024;
/// So long, in milliseconds, pieces follow one another before the event loop gets its turn.
constexpr qint64 kTurn = 5;
/// What waits here; behind it the network holds the sender up.
constexpr qint64 kWaiting = 65536;

} // namespace

TcpSocket::TcpSocket(const QString& name, QObject* parent)
    : QObject(parent) {
    setObjectName(name);
    socket_.setReadBufferSize(kWaiting);
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, [this] { HandOn(); });
    connect(&socket_, &QTcpSocket::connected, this,
            [this] { socket_.setSocketOption(QAbstractSocket::KeepAliveOption, 1); });
    connect(&socket_, &QTcpSocket::readyRead, this, [this] { HandOn(); });
    const auto ended = [this] {
        if (isClosing_ || isEnded_) return;
        isEnded_ = true;
        later_.start(0); // never from within the call that asked for the connection
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
    later_.stop();
    piece_.clear();
}

/// False if nothing waits.
bool TcpSocket::NextPiece() {
    if (!socket_.isOpen()) return false;
    const QByteArray head = socket_.peek(kPiece);
    qsizetype length = head.size();
    if (socket_.bytesAvailable() > length) {
        if (const qsizetype lineEnd = head.lastIndexOf('\n'); lineEnd >= 0) length = lineEnd + 1;
    }
    piece_ = socket_.read(length);
    return !piece_.isEmpty();
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
    while (turn.elapsed() < kTurn && NextPiece()) {
        if (arrival_) arrival_();
        if (!self) return;
    }
    if (socket_.bytesAvailable() > 0) return later_.start(0);
    if (!isEnded_) return;
    isEnded_ = false;
    if (close_) close_();
}

} // namespace platform
