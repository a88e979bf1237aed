#include "platform/mmvari/keyline.h"

#include <QSerialPort>
#include <QStringList>

namespace platform {

namespace {

class SerialKeyLine final : public KeyLine {
public:
    ~SerialKeyLine() override {
        if (port_.isOpen()) Set(false);
    }

    /// What the radio sends is not read: nobody would take it away again.
    bool Open(const QString& device) {
        port_.setPortName(device);
        return port_.open(QIODevice::WriteOnly);
    }
    bool Key(bool down) override { return Set(down); }

private:
    /// One line that fails is no reason to leave the other.
    bool Set(bool on) {
        const bool rts = port_.setRequestToSend(on);
        return port_.setDataTerminalReady(on) && rts;
    }

    QSerialPort port_;
};

/// Windows counts its ports from 1; here each kind has numbers of its own, from 0.
QStringList Devices(const QString& name) {
    if (!name.startsWith(QLatin1String("Com"), Qt::CaseInsensitive)) return {name};
    bool isNumber = false;
    const int number = name.mid(3).toInt(&isNumber);
    if (!isNumber || number < 1) return {name};
    QStringList devices;
    for (const char* kind : {"ttyS", "ttyUSB", "ttyACM"})
        devices << QLatin1String(kind) + QString::number(number - 1);
    return devices;
}

} // namespace

KeyLineSeam& KeyLines() {
    static KeyLineSeam seam;
    return seam;
}

std::unique_ptr<KeyLine> OpenFirstKeyLine(const QStringList& devices) {
    std::unique_ptr<KeyLine> deaf;
    for (const QString& device : devices) {
        auto line = std::make_unique<SerialKeyLine>();
        if (!line->Open(device)) continue;
        // A port comes up with both lines on: the radio must not be keyed by that.
        if (line->Key(false)) return line;
        if (!deaf) deaf = std::move(line);
    }
    return deaf;
}

std::unique_ptr<KeyLine> OpenKeyLine(const QString& name) {
    return KeyLines().open ? KeyLines().open(name) : OpenFirstKeyLine(Devices(name));
}

} // namespace platform
