// What reads the text of a cluster, and the two files about clusters, on any bytes whatever.
//
// The first byte chooses the reader. Beyond crashes and what the sanitizers see, it checks what the readers
// promise.
#include "cluster/Bandplan.h"
#include "cluster/DXSite.h"
#include "cluster/Spottförval.h"
#include "cluster/Spottolk.h"
#include "platform/failure.h"
#include "platform/filter.h"
#include "platform/text.h"
#include "platform/textfile.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Kräv(bool sant) {
    if (!sant) std::abort();
}

/// The frequency as the band plan takes it.
void TaFrekvens(const QString& frekvens) {
    try {
        const int tal = platform::ToInt32(platform::ToNumber(QString(frekvens).remove(u',')));
        const cluster::BandTrafik träff = cluster::HittaBandTrafik(tal);
        Kräv((träff.band == 0) == träff.trafiksätt.isEmpty());
        cluster::ÄrAvvisad(träff, {});
    } catch (const platform::Failure&) {
        // No number: the spot is shown without a band of its own.
    }
}

/// The search for repeats: a call goes into the filter as it is.
void SökUpprepning(const cluster::Annons& annons) {
    platform::CellPool pool;
    try {
        platform::Filter::parse(
            cluster::UpprepningsFilter(annons.signal, QStringLiteral("2026-12-01"), annons.frekvens,
                                       QStringLiteral("19:00:00")),
            [](const QString& namn) -> std::optional<platform::Column> {
                const qsizetype plats = QStringList{QStringLiteral("Signal"), QStringLiteral("Datum"),
                                                    QStringLiteral("Frekvens"), QStringLiteral("Tid")}
                                            .indexOf(namn);
                if (plats < 0) return std::nullopt;
                return platform::Column{static_cast<int>(plats), false};
            },
            pool);
    } catch (const platform::Failure&) {
        // An apostrophe: the filter is refused.
    }
}

/// The announcements of a text; by the bits of the choice some are left behind as repeats.
void LäsSpottar(const QString& text, unsigned val) {
    cluster::Arbetstext arbete(text);
    cluster::Annons annons;
    qsizetype kvar = text.size() + 1;
    while (!arbete.Kvar().isEmpty() && arbete.LäsHuvud(annons)) {
        // It comes to an end, because each head takes something off the text.
        Kräv(arbete.Kvar().size() < kvar);
        kvar = arbete.Kvar().size();
        Kräv(!annons.signal.contains(u' ') && !annons.frekvens.contains(u' ') &&
             !annons.frekvens.contains(u'.'));
        Kräv(!annons.spotter.startsWith(u' ') && !annons.spotter.endsWith(u' '));
        TaFrekvens(annons.frekvens);
        SökUpprepning(annons);
        val = (val >> 1) | (val << 31);
        if (val & 1) continue;
        if (!arbete.LäsNotering(annons)) {
            Kräv(annons.notering.isEmpty());
            continue;
        }
        Kräv(!annons.notering.contains(QLatin1String("\r\n")));
        const cluster::Notering delad = cluster::DelaNotering(annons.notering);
        Kräv(delad.tid.isEmpty() || delad.tid.size() == 7);
        Kräv(annons.notering.startsWith(delad.text) && annons.notering.endsWith(delad.tid));
    }
}

void VisaText(const QString& text) {
    const QString visbar = cluster::VisbarText(text);
    Kräv(visbar.size() <= text.size());
    for (const QChar tecken : visbar)
        Kräv(tecken == u'\n' || tecken == u'\t' || tecken.category() != QChar::Other_Control);
    Kräv(platform::FromCp1252(platform::ToCp1252(text)) == text);
}

void LäsSite(const QString& text) {
    const cluster::DXSite site = cluster::SiteFrånText(text);
    Kräv(cluster::SiteFrånText(cluster::SiteTillText(site)) == site || site.namn.contains(u'"') ||
         site.adress.contains(u'"'));
}

void LäsFörval(const QString& text) {
    const cluster::Spottförval förval = cluster::FörvalFrånText(text);
    Kräv(cluster::FörvalFrånText(cluster::FörvalTillText(förval)) == förval);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const QString text = platform::FromCp1252(
        QByteArray(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1)));
    try {
        switch (data[0] % 8) {
        case 0: LäsSite(text); break;
        case 1: LäsFörval(text); break;
        case 2: VisaText(text); break;
        default: LäsSpottar(text, data[0] * 0x01010101u);
        }
    } catch (const platform::Failure&) {
        // A file that cannot be read says so.
    }
    return 0;
}
