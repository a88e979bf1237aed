// What reads the record of the FT8 program, from the bytes of a datagram on, and the two files about the
// digital modes.
//
// The first byte chooses the reader. Beyond crashes and what the sanitizers see, it checks what the readers
// promise.
#include "platform/failure.h"
#include "platform/textfile.h"
#include "radio/Digitalval.h"
#include "reports/FT8Post.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Kräv(bool sant) {
    if (!sant) std::abort();
}

/// A reader's value comes out of the text and is no longer than its length's digits can tell.
void LäsFält(std::optional<QString> (*läs)(const QString&), const QString& text, qsizetype längst) {
    try {
        const auto värde = läs(text);
        Kräv(!värde || (värde->size() <= längst && värde->size() <= text.size()));
    } catch (const platform::Failure&) {
        // A length that is none.
    }
}

/// The datagram as it is parked, read and taken apart.
void LäsRecord(const QString& datagram) {
    const QString fil = platform::LinesToText({platform::WriteItem(datagram)});
    Kräv(platform::FromCp1252(platform::ToCp1252(fil)) == fil);
    const QString text = reports::FT8Text(fil);
    Kräv(!text.contains(u'\r') && !text.contains(u'\n') && text.size() < fil.size());
    LäsFält(reports::LäsFT8Signal, text, 255);
    LäsFält(reports::LäsFT8Frekvens, text, 99);
    LäsFält(reports::LäsFT8Mottaget, text, 9);
    LäsFält(reports::LäsFT8Sänt, text, 9);
    LäsFält(reports::LäsFT8Lokator, text, 99);
}

void LäsDigitalval(const QString& text) {
    const radio::Digitalval val = radio::DigitalvalFrånText(text);
    for (const QString& värde : {val.DigiBandbredd, val.DigiComport, val.DigiFlöde, val.DigiTrafik,
                                 val.DigiDisplay, val.DigiEffekt, val.DigiUDP})
        if (värde.contains(u'"')) return; // a bare text in the place of a quoted one
    Kräv(radio::DigitalvalFrånText(radio::DigitalvalTillText(val)) == val);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const QString text = platform::FromCp1252(
        QByteArray(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1)));
    if (data[0] % 4 != 3) {
        LäsRecord(text);
        return 0;
    }
    try {
        LäsDigitalval(text);
    } catch (const platform::Failure&) {
        // Not the text of the settings.
    }
    return 0;
}
