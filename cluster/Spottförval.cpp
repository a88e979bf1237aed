#include "cluster/Spottförval.h"

#include "platform/textfile.h"

#include <span>

namespace cluster {

namespace {
auto Bandval(auto& förval) { return std::span(förval.SpotBandVal).subspan(1); }
auto Trafikval(auto& förval) { return std::span(förval.SpotTrafikVal).subspan(1); }
} // namespace

QString FörvalTillText(const Spottförval& förval) {
    QStringList rader;
    for (const bool val : Bandval(förval)) rader << platform::WriteFlag(val);
    rader << platform::WriteFlag(förval.SpotLjudPå) << förval.SpotLjudFil;
    for (const bool val : Trafikval(förval)) rader << platform::WriteFlag(val);
    return platform::LinesToText(rader);
}

Spottförval FörvalFrånText(const QString& text) {
    platform::ItemReader rader(text);
    Spottförval förval;
    for (bool& val : Bandval(förval)) val = rader.NextFlag();
    förval.SpotLjudPå = rader.NextFlag();
    förval.SpotLjudFil = rader.NextLine();
    for (bool& val : Trafikval(förval)) val = rader.NextFlag();
    return förval;
}

} // namespace cluster
