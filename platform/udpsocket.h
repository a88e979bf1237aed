#pragma once

#include <QTimer>
#include <QUdpSocket>

#include <deque>
#include <functional>

namespace platform {

/// Receives datagrams of text in the 8-bit code page from programs of the same computer.
///
/// Each datagram is one call of the listener, in the order in which they came. A listener may close or delete
/// the socket. One that lets the event loop run, with a message on screen for instance, is called again
/// meanwhile for what arrives, unless it holds that back.
class UdpSocket : public QObject {
public:
    UdpSocket(const QString& name, QObject* parent);
    ~UdpSocket() override;

    int LocalPort() const { return port_; }
    /// Counts from the next Bind on.
    void LocalPort(int port) { port_ = port; }

    /// Receives on the port from now on, on the loopback address alone.
    /// @throws Failure if the port is not 1 to 65535, another program has it, or the socket is not closed
    void Bind();
    /// Lets go of the port. What has arrived and not been handed on is dropped.
    void Close();
    /// The datagram that has arrived; empty when it has been taken.
    QString GetData();

    void OnDataArrival(std::function<void()> arrival) { arrival_ = std::move(arrival); }

    /// While this says true, what arrives waits; it is asked before each datagram.
    void HoldWhile(std::function<bool()> held) { held_ = std::move(held); }

private:
    void Collect();
    void HandOn();

    QUdpSocket socket_;
    std::deque<QByteArray> waiting_; ///< arrived and not handed on
    qsizetype waitingSize_ = 0;      ///< bytes
    QTimer later_;                   ///< HandOn is due; never from within the socket's own calls
    int port_ = 0;
    QByteArray datagram_;
    std::function<void()> arrival_;
    std::function<bool()> held_;
};

} // namespace platform
