#pragma once

#include <QString>

#include <array>

/// Macros: prepared transmit texts, their placeholders, and their file.
namespace radio {

/// So many macros have a button, and stand in a file.
inline constexpr int makroKnappar = 12;

/// Caption and text of each macro [14 x 2]. The last two rows have no button.
using MakroTabell = std::array<std::array<QString, 2>, 14>;

struct Makrokommando {
    const char* kommando;
    const char* hjälp;
};

/// What the operator is told of. Two of them, for the serial number and the time, stand for nothing and go
/// out as they are written.
inline constexpr Makrokommando makrokommandon[] = {
    {"%TX", "För TX läge"},
    {"%RX", "För RX läge"},
    {"%SS", "Min Signal"},
    {"%SM", "Mot stations Signal"},
    {"%RS", "Sänd Rapport"},
    {"%LN", "Sänd Löpnummer"},
    {"%RM", "Mottagen Rapport"},
    {"%NS", "Mitt Namn"},
    {"%NM", "Mottaget Namn"},
    {"%QS", "Mitt QTH"},
    {"%LS", "Min Lokator"},
    {"%DS", "Datum"},
    {"%TS", "Tid"},
};

/// What the placeholders stand for.
struct Makrovärden {
    QString minSignal = {}, motSignal = {}, sändRapport = {}, mottagenRapport = {}, mittNamn = {},
            mottagetNamn = {}, mittQTH = {}, minLokator = {}, datum = {};
};

struct Makrosändning {
    QString text;
    bool tx = false; ///< the transmitter goes on before the text is placed
    bool rx = false; ///< back to receive, also before
    bool operator==(const Makrosändning&) const = default;
};

/// A macro's text with the values in the places of its placeholders, in any letter case. One after the other,
/// so a placeholder in a value counts if its turn comes later. An unknown one stays in the text.
Makrosändning ExpanderaMakro(QString text, const Makrovärden& värden);

/// The first macros as their file holds them: caption and text by turns, each between double quotes on a line
/// of its own. A quote inside is not escaped, and ends the value for the reader.
/// @param antal 0 to 14
QString MakronTillText(const MakroTabell& tabell, int antal);

/// Takes the pairs of a file over into the table, from the top. Of a file with fewer than twelve the last
/// pair is wiped again, and with it what the table holds up to the twelfth.
/// @throws platform::Failure if there is no pair, half a pair, or one more than the table has rows. What has
/// been
///         read by then stands in the table.
void LäsMakron(const QString& text, MakroTabell& tabell);

} // namespace radio
