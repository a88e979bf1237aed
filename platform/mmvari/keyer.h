#pragma once

#include "platform/mmvari/keyline.h"

namespace platform {

/// The radio's key as the engine holds it: a port by its name, which may be missing, fail, and come back.
/// Whatever fails, the engine goes on; the port is tried again when it is next needed, and not before.
class Keyer {
public:
    /// @param name as of OpenKeyLine; "" and "None" are no port. The same name again opens a port that failed
    void Port(const QString& name);
    /// From now on the port is held.
    void Open();
    /// Key up, and the port is free for others.
    void Close();
    /// Down is transmit.
    void Key(bool down);
    /// Notices a port that was pulled out, and lets go of it: its name is free when it is plugged in again.
    void Check() { Set(); }
    /// What stands in the way, or nothing.
    const QString& Trouble() const { return trouble_; }

private:
    void Connect();
    void Set();

    QString name_, trouble_;
    std::unique_ptr<KeyLine> line_;
    bool open_ = false, down_ = false;
};

} // namespace platform
