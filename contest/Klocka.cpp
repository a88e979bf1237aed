#include "contest/Klocka.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <cmath>

namespace contest {
namespace {

/// One part of a clock text: two places, of which one may be a blank.
int Del(const QString& klocka, qsizetype plats) {
    bool läst = false;
    const uint tal = klocka.mid(plats, 2).toUInt(&läst);
    if (!läst) throw platform::Failure(QStringLiteral("Klockan \"%1\" kan inte läsas.").arg(klocka));
    return static_cast<int>(tal);
}

QString TvåSiffror(int tal) { return platform::PadLeft(QString::number(tal), 2, u'0'); }

} // namespace

QString EnSekundTill(const QString& klocka) {
    int timmar = Del(klocka, 0);
    int minuter = Del(klocka, 3);
    int sekunder = Del(klocka, 6) + 1;
    if (sekunder >= 60) {
        sekunder = 0;
        ++minuter;
    }
    if (minuter >= 60) {
        minuter = 0;
        ++timmar;
    }
    if (timmar >= 100) timmar = 99;
    return TvåSiffror(timmar) + u':' + TvåSiffror(minuter) + u':' + TvåSiffror(sekunder);
}

QString TidText(const QDateTime& tid) { return tid.toString(u"HH:mm:ss"); }

QString UTCTidText(const QDateTime& nu, const QString& opUTCTid) {
    constexpr int sekunderPerTimme = 3600;
    // A clock on the wall: the hours are added to what the local clock shows, changes of summer time aside.
    const QDateTime väggklocka(nu.date(), nu.time(), Qt::UTC);
    const double timmar = platform::Val(opUTCTid);
    const bool användbar = std::abs(timmar) <= 24;
    return TidText(väggklocka.addSecs(användbar ? qint64{platform::ToInt16(timmar)} * sekunderPerTimme : 0));
}

QString TestDatumText(const QDateTime& nu, const QString& opUTCTid) {
    const int timme = nu.time().hour();
    int dagarTillbaka = 0;
    if (opUTCTid == u"-1" && timme == 0) dagarTillbaka = 1;
    if (opUTCTid == u"-2" && timme <= 1) dagarTillbaka = 1;
    if (opUTCTid == u"-3" && timme <= 2) dagarTillbaka = 2;
    return nu.date().addDays(-dagarTillbaka).toString(u"yyyy-MM-dd");
}

} // namespace contest
