#pragma once

#include <QTcpSocket>
#include <QTimer>

#include <functional>

namespace platform {

/// A connection to a server that sends text in the 8-bit code page.
///
/// What has arrived is handed on in pieces of whole lines, two kilobytes at most, one call of the listener
/// each; so a flood is taken as it comes without holding up the window. Text that ends in the middle of a
/// line, a prompt for instance, is handed on as it is when its rest has not come within a hundredth of a
/// second: where the network happens to cut is no reason to cut a line in two.
///
/// A listener may close or delete the socket. One that lets the event loop run is not called again before it
/// is done. As long as it stands in a modal window, what arrives waits.
class TcpSocket : public QObject {
public:
    enum : int { sckClosed = 0, sckResolvingHost = 4, sckConnecting = 6, sckConnected = 7, sckClosing = 8 };

    TcpSocket(const QString& name, QObject* parent);
    ~TcpSocket() override;

    /// A name or an address.
    void RemoteHost(const QString& host) { host_ = host; }
    int RemotePort() const { return port_; }
    void RemotePort(int port) { port_ = port; }

    /// Asks for the connection and returns at once.
    /// @throws Failure if there is no host, the port is not 1 to 65535, or the socket is not closed
    void Connect();
    /// One of the five values above.
    int State() const;
    /// Characters outside the code page go out as '?'. @throws Failure unless connected
    void SendData(const QString& text);
    /// The piece that has arrived; empty when it has been taken.
    QString GetData();
    /// Sends what it can without waiting and closes the connection, whatever its state. What has arrived and
    /// not been handed on is dropped. No listener hears of it.
    void Close();

    void OnDataArrival(std::function<void()> arrival) { arrival_ = std::move(arrival); }
    /// The other end has closed, the link has broken, or there never was one. All data has been handed on
    /// then.
    void OnClose(std::function<void()> close) { close_ = std::move(close); }

private:
    void NoticeDeadLinks();
    void HandOn();
    bool NextPiece();
    qsizetype PieceLength();

    QTcpSocket socket_;
    QTimer later_; ///< HandOn is due; never from within the socket's own calls
    QTimer tail_;  ///< runs while text without a line end waits for its rest
    QString host_;
    int port_ = 0;
    QByteArray waiting_;
    QByteArray piece_;
    bool isHandingOn_ = false;
    bool isTailDue_ = false;
    bool isEnded_ = false; ///< by the other side; what it has sent may still wait
    bool isClosing_ = false;
    std::function<void()> arrival_;
    std::function<void()> close_;
};

} // namespace platform
