// Everything that reads text from a cluster, or a file about one, on any bytes whatever.
//
// The first byte chooses the reader. Beyond crashes and what the sanitizers see, it checks what the readers
// promise.
#include "cluster/DXSite.h"
#include "cluster/Spottförval.h"
#include "cluster/Spottolk.h"
#include "platform/failure.h"
#include "platform/textfile.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Kräv(bool sant) {
    if (!sant) std::abort();
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
