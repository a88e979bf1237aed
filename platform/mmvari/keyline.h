#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace platform {

/// The line that keys the radio.
class KeyLine {
public:
    virtual ~KeyLine() = default;
    /// Down is transmit.
    virtual void Key(bool down) = 0;
};

/// RTS and DTR of a serial port together, both up until the key goes down. The port is let go of, key up,
/// when the line is deleted.
/// @param name "Com1" to "Com8": the first of ttyS, ttyUSB and ttyACM with a number one less that can be
/// opened; or the name or path of a device
/// @return nothing if there is no such port
std::unique_ptr<KeyLine> OpenKeyLine(const QString& name);

/// What stands in for the serial port in tests. An unset function opens the real one.
struct KeyLineSeam {
    std::function<std::unique_ptr<KeyLine>(const QString& name)> open;
};
KeyLineSeam& KeyLines();

} // namespace platform
