#include "platform/serialport.h"

#include "platform/failure.h"
#include "platform/textfile.h"

namespace platform {

SerialPort::SerialPort(const QString& name, QObject* parent)
    : QObject(parent) {
    setObjectName(name);
    constexpr qint64 kWaiting = 4096;
    port_.setReadBufferSize(kWaiting);
}

void SerialPort::PortOpen(bool open) {
    if (!open) return port_.close();
    if (!port_.open(QIODevice::ReadWrite))
        throw Failure(QStringLiteral("Porten %1 kan inte öppnas.").arg(port_.portName()));
}

void SerialPort::RequireOpen() const {
    if (!port_.isOpen()) throw Failure(QStringLiteral("Porten är inte öppen."));
}

int SerialPort::InBufferCount() const {
    RequireOpen();
    return static_cast<int>(port_.bytesAvailable());
}

QString SerialPort::Input() {
    RequireOpen();
    return FromCp1252(inputLen_ == 0 ? port_.readAll() : port_.read(inputLen_));
}

void SerialPort::Output(const QString& text) {
    RequireOpen();
    const QByteArray bytes = ToCp1252(text);
    if (port_.write(bytes) != bytes.size()) throw Failure(QStringLiteral("Texten kunde inte sändas."));
    port_.flush();
}

} // namespace platform
