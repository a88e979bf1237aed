#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace platform {

/// The line that keys the radio.
class KeyLine {
public:
    virtual ~KeyLine() = default;
    /// Down is transmit. @return whether the port could do it: one that was pulled out cannot
    virtual bool Key(bool down) = 0;
};

/// RTS and DTR of a serial port together, both off until the key goes down. The port is let go of, key up,
/// when the line is deleted.
/// @param name "Com1" to "Com8": the first of ttyS, ttyUSB and ttyACM with a number one less whose lines can
/// be set, else the first that can be opened; or the name or path of a device
/// @return nothing if there is no such port
std::unique_ptr<KeyLine> OpenKeyLine(const QString& name);

/// The first of these devices whose lines can be set, else the first that can be opened.
std::unique_ptr<KeyLine> OpenFirstKeyLine(const QStringList& devices);

/// What stands in for the serial port in tests. An unset function opens the real one.
struct KeyLineSeam {
    std::function<std::unique_ptr<KeyLine>(const QString& name)> open;
};
KeyLineSeam& KeyLines();

} // namespace platform
