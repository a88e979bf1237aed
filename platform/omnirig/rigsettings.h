#pragma once

#include <QString>

#include <array>
#include <optional>

/// How the service reaches each of its four rigs, as the operator has set it.
namespace platform {

struct RigSettings {
    enum class Way {
        Unused,
        Address, ///< a rigctld that runs already
        Model    ///< a radio at this machine, for which rigctld is started
    };
    Way way = Way::Unused;
    QString address = {}; ///< host:port
    int model = 0;        ///< Hamlib's number
    QString port = {};    ///< serial port or what else the radio hangs on; empty: the model's own
    int speed = 0;        ///< bits a second; 0: the model's own
    bool operator==(const RigSettings&) const = default;
};

using AllRigSettings = std::array<RigSettings, 4>;

/// What holds before anybody has set anything: rig 1 is the rigctld of this machine, on its usual port.
AllRigSettings DefaultRigSettings();

/// Host and port of an address. Without a port rigctld's own, 4532; an IPv6 address with a port stands in
/// square brackets.
struct RigAddress {
    QString host;
    int port = 0;
    bool operator==(const RigAddress&) const = default;
};
/// Nothing if no host is named or the port is not 1 to 65535.
std::optional<RigAddress> ReadRigAddress(const QString& text);

/// Arguments with which rigctld serves the radio to this machine alone, on that port.
/// @pre the way is Model
QStringList DaemonArguments(const RigSettings& settings, int port);

/// Four lines, a rig each: way, address, model, port, speed, as `Write #` puts them.
QString RigSettingsToText(const AllRigSettings& rigs);
/// @throws Failure if it is no such text
AllRigSettings RigSettingsFromText(const QString& text);

} // namespace platform
