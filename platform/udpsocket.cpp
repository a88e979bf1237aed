#include "platform/udpsocket.h"

#include "platform/failure.h"
#include "platform/listener.h"
#include "platform/textfile.h"

#include <QElapsedTimer>
#include <QNetworkDatagram>
#include <QPointer>

namespace platform {

namespace {

/// So long, in milliseconds, datagrams follow one another before the event loop gets its turn.
constexpr qint64 kDatagramTurn = 5;

/// So often, in milliseconds, it is asked whether what is held may come: at once for an eye, idle for the
/// machine.
constexpr int kHeldTurn = 50;

/// Bytes. Hours of what a talkative program sends, in case a message stands so long.
constexpr qsizetype kMostWaiting = qsizetype{16} * 1024 * 1024;

} // namespace

UdpSocket::UdpSocket(const QString& name, QObject* parent)
    : QObject(parent) {
    setObjectName(name);
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, [this] { HandOn(); });
    connect(&socket_, &QUdpSocket::readyRead, this, [this] { later_.start(0); });
}

UdpSocket::~UdpSocket() { Close(); }

void UdpSocket::Bind() {
    if (socket_.state() != QAbstractSocket::UnconnectedState)
        throw Failure(QStringLiteral("Porten är redan öppen."));
    if (port_ < 1 || port_ > 65535) throw Failure(QStringLiteral("Porten %1 finns inte.").arg(port_));
    // Shared, a datagram would reach one of two programs and nobody could tell which.
    if (!socket_.bind(QHostAddress::LocalHost, static_cast<quint16>(port_), QUdpSocket::DontShareAddress))
        throw Failure(QStringLiteral("Porten %1 kan inte öppnas.").arg(port_));
}

void UdpSocket::Close() {
    socket_.close();
    later_.stop();
    waiting_.clear();
    waitingSize_ = 0;
    datagram_.clear();
}

QString UdpSocket::GetData() { return FromCp1252(std::exchange(datagram_, {})); }

/// Out of the system's buffer, which holds some hundred datagrams and drops the next without a word.
void UdpSocket::Collect() {
    while (socket_.state() == QAbstractSocket::BoundState && socket_.hasPendingDatagrams()) {
        QByteArray datagram = socket_.receiveDatagram().data();
        if (waitingSize_ + datagram.size() > kMostWaiting) continue;
        waitingSize_ += datagram.size();
        waiting_.push_back(std::move(datagram));
    }
}

void UdpSocket::HandOn() {
    const QPointer<UdpSocket> self(this);
    QElapsedTimer turn;
    turn.start();
    for (Collect(); !waiting_.empty(); Collect()) {
        if (turn.elapsed() >= kDatagramTurn) return later_.start(0);
        if (held_ && held_()) return later_.start(kHeldTurn);
        datagram_ = std::move(waiting_.front());
        waiting_.pop_front();
        waitingSize_ -= datagram_.size();
        Call(arrival_);
        if (!self) return;
    }
}

} // namespace platform
