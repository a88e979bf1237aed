#include "platform/omnirig/rigsettings.h"

#include "platform/failure.h"
#include "platform/text.h"
#include "platform/textfile.h"

#include <QStringList>

#include <algorithm>

namespace platform {

namespace {

constexpr int kUsualPort = 4532;
constexpr std::array kWays{"av", "adress", "modell"};

RigSettings::Way ReadWay(const QString& word) {
    for (size_t i = 0; i < kWays.size(); ++i)
        if (word == QLatin1String(kWays[i])) return static_cast<RigSettings::Way>(i);
    throw Failure(QStringLiteral("Okänt sätt att nå radion: ") + word);
}

} // namespace

AllRigSettings DefaultRigSettings() {
    AllRigSettings rigs;
    rigs[0] = {.way = RigSettings::Way::Address, .address = QStringLiteral("127.0.0.1:%1").arg(kUsualPort)};
    return rigs;
}

std::optional<RigAddress> ReadRigAddress(const QString& text) {
    QString host = text.trimmed();
    int port = kUsualPort;
    const qsizetype colon = host.lastIndexOf(u':');
    const bool isBareIpv6 = host.count(u':') > 1 && !host.contains(u']');
    if (colon >= 0 && !isBareIpv6 && !host.endsWith(u']')) {
        bool isNumber = false;
        port = host.mid(colon + 1).toInt(&isNumber);
        if (!isNumber) return std::nullopt;
        host.truncate(colon);
    }
    if (host.startsWith(u'[') && host.endsWith(u']')) host = host.sliced(1).chopped(1);
    const bool hasBlank = std::any_of(host.begin(), host.end(), [](QChar c) { return c.isSpace(); });
    if (host.isEmpty() || hasBlank || port < 1 || port > 65535) return std::nullopt;
    return RigAddress{host, port};
}

QStringList DaemonArguments(const RigSettings& settings, int port) {
    // What the daemon remembers of the radio must not be older than what is asked for a few times a second.
    constexpr int remembered = 100;
    QStringList arguments{"--model",
                          QString::number(settings.model),
                          "--listen-addr",
                          "127.0.0.1",
                          "--port",
                          QString::number(port),
                          QStringLiteral("--set-conf=cache_timeout=%1").arg(remembered)};
    if (!settings.port.isEmpty()) arguments << "--rig-file" << settings.port;
    if (settings.speed > 0) arguments << "--serial-speed" << QString::number(settings.speed);
    return arguments;
}

QString RigSettingsToText(const AllRigSettings& rigs) {
    QStringList lines;
    for (const RigSettings& rig : rigs)
        lines << QStringList{WriteItem(QLatin1String(kWays[static_cast<size_t>(rig.way)])),
                             WriteItem(rig.address), QString::number(rig.model), WriteItem(rig.port),
                             QString::number(rig.speed)}
                     .join(u',');
    return LinesToText(lines);
}

AllRigSettings RigSettingsFromText(const QString& text) {
    AllRigSettings rigs;
    ItemReader items(text);
    for (RigSettings& rig : rigs) {
        rig.way = ReadWay(items.Next());
        rig.address = items.Next();
        rig.model = ToInt32(items.NextNumber());
        rig.port = items.Next();
        rig.speed = ToInt32(items.NextNumber());
    }
    return rigs;
}

} // namespace platform
