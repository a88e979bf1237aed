#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

/// A cluster on the loopback address, whose lines the test sends.
class Provserver {
public:
    Provserver() { Lyssna(); }

    quint16 Port() const { return port_; }
    /// Opens the door, on the same port as before.
    bool Lyssna() {
        const bool går = server_.listen(QHostAddress::LocalHost, port_);
        port_ = server_.serverPort();
        return går;
    }
    void Stäng() { server_.close(); }
    /// The server's end of the connection that has come.
    QTcpSocket* Gäst() {
        if (!QTest::qWaitFor([this] { return server_.hasPendingConnections(); })) return nullptr;
        return server_.nextPendingConnection();
    }
    bool HarGäst() const { return server_.hasPendingConnections(); }

private:
    QTcpServer server_;
    quint16 port_ = 0;
};
