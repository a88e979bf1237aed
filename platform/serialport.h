#pragma once

#include <QSerialPort>

namespace platform {

/// A serial line that carries text in the 8-bit code page. It is asked for what has come; it calls nobody.
class SerialPort : public QObject {
public:
    SerialPort(const QString& name, QObject* parent);

    /// The device, "ttyUSB0" or its path.
    void CommPort(const QString& device) { port_.setPortName(device); }

    bool PortOpen() const { return port_.isOpen(); }
    /// @throws Failure if the device cannot be opened
    void PortOpen(bool open);

    /// How many characters Input takes at most; 0 for all that have come.
    void InputLen(int characters) { inputLen_ = characters; }
    /// Characters that wait, at most a few thousand: behind that the line is held up.
    /// @throws Failure if the port is not open
    int InBufferCount() const;
    /// Takes what waits, as far as InputLen lets it. @throws Failure if the port is not open
    QString Input();
    /// @throws Failure if the port is not open or takes nothing
    void Output(const QString& text);

private:
    void RequireOpen() const;

    QSerialPort port_;
    int inputLen_ = 0;
};

} // namespace platform
