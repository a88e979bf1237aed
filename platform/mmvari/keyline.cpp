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

    bool Open(const QString& device) {
        port_.setPortName(device);
        // A port comes up with both lines on: the radio must not be keyed by that.
        if (!port_.open(QIODevice::ReadWrite)) return false;
        Set(false);
        return true;
    }
    void Key(bool down) override { Set(down); }

private:
    /// A line that the port does not have, such as DTR of a bare cable, is no reason to leave the other.
    void Set(bool on) {
        port_.setRequestToSend(on);
        port_.setDataTerminalReady(on);
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

std::unique_ptr<KeyLine> OpenKeyLine(const QString& name) {
    if (KeyLines().open) return KeyLines().open(name);
    for (const QString& device : Devices(name)) {
        auto line = std::make_unique<SerialKeyLine>();
        if (line->Open(device)) return line;
    }
    return nullptr;
}

} // namespace platform
