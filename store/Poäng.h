#pragma once

#include <QString>

#include <optional>

/// Points of a contact, and the total of a log.
namespace store {

/// How a contest judges a contact and counts its log.
enum class PoängRegel { Ingen, Km, MT, SAC };

constexpr PoängRegel PoängRegelFör(int test) {
    if ((test >= 0 && test <= 6) || test == 14) return PoängRegel::Km;
    if (test == 7 || test == 8) return PoängRegel::MT;
    if (test == 9 || test == 10) return PoängRegel::SAC;
    return PoängRegel::Ingen;
}

/// What a contact is worth and which signs it raises.
struct Bedömning {
    int poäng = 0;
    bool nyRuta = false;       ///< show lblNyRuta, put "N" into txtNRUTA
    bool nyMultipel = false;   ///< show lblMultipel
    bool döljNyttLand = false; ///< hide lblNyttLand
    bool operator==(const Bedömning&) const = default;
};

// Kilometres: contests 0 to 6 and 14.

struct KmFråga {
    QString diplom;               ///< text of txtDiplom
    QString lokator;              ///< text of txtLokator
    QString avstånd;              ///< text of lblAvstånd, which begins with the kilometres
    qsizetype antalMultiplar = 0; ///< rows of rsMultiplar under KmFilter
    bool redigera = false;
};

/// Filter on rsMultiplar for the square of a locator. Nothing if the exchange has neither 4 nor 6
/// characters: the cursor is then not asked.
std::optional<QString> KmFilter(const QString& diplom);

/// @throws platform::Failure if the distance does not fit 32 bits.
Bedömning BedömKm(const KmFråga& fråga);

// Månadstest: contests 7 and 8.

struct MTFråga {
    QString diplom;               ///< text of txtDiplom
    QString lokator;              ///< text of txtLokator
    qsizetype antalDiplom = 0;    ///< rows of rsDiplom under MTFilter
    qsizetype antalMultiplar = 0; ///< rows of rsMultiplar without a filter
    bool redigera = false;
};

/// Filter on rsDiplom for the square of a locator on a band, nothing as for KmFilter.
std::optional<QString> MTFilter(const QString& diplom, const QString& band);

Bedömning BedömMT(const MTFråga& fråga);

// SAC: contests 9 and 10.

struct SACFråga {
    QString dxcc;              ///< caption of lblDXCC
    QString kontinent;         ///< caption of lblKont
    QString band;              ///< text of cmbBand
    qsizetype antalDiplom = 0; ///< rows of rsDiplom under SACFilter
};

/// Filter on rsDiplom for a country on a band. Nothing for a Nordic station or one without a country.
std::optional<QString> SACFilter(const QString& dxcc, const QString& kontinent, const QString& band);

/// Editing makes no difference here.
Bedömning BedömSAC(const SACFråga& fråga);

// Totals.

/// The score board.
struct Ställning {
    int totalPoäng = 0;    ///< lblTotalPoäng
    int totalQSOPoäng = 0; ///< lblTotalQSOPoäng and lblQSOPoäng
    int multiplar = 0;     ///< lblMultiplar
    int diplom = 0;        ///< lblDiplom
    bool operator==(const Ställning&) const = default;
};

/// What the cursors hold when the log is counted.
struct LoggAntal {
    double sumPoäng = 0;      ///< sum of Poäng over rsPoäng
    qsizetype poängRader = 0; ///< rows of rsPoäng
    qsizetype diplom = 0;     ///< rows of rsDiplom
    qsizetype multiplar = 0;  ///< rows of rsMultiplar
};

/// Sum of the points, and the points of one square for each square.
/// @param rutPoäng the points of one square as text
/// @throws platform::Failure if rutPoäng is no number, or a result does not fit 32 bits.
Ställning RäknaRutor(double sumPoäng, qsizetype antalRader, qsizetype antalDiplom, const QString& rutPoäng);

/// Sum of the points times the multipliers; the sum alone while there are none. Månadstest and SAC count so,
/// with the two cursors exchanged.
/// @param antalMultiplar rows of the cursor that multiplies and goes to lblMultiplar
/// @param antalDiplom rows of the other cursor, for lblDiplom
/// @throws platform::Failure if a result does not fit 32 bits.
Ställning RäknaMultiplar(double sumPoäng, qsizetype antalRader, qsizetype antalMultiplar,
                         qsizetype antalDiplom);

/// The counter of a contest. @return nothing for a contest without one: lblTotalPoäng and lblQSOPoäng then
/// become 0 and nothing else changes. @throws platform::Failure as the counters
std::optional<Ställning> Räkna(PoängRegel regel, const LoggAntal& antal, const QString& rutPoäng);

// The two points of a square, in contests 3, 4 and 5 when a row is deleted.

constexpr bool ÄrverTvåPoäng(int test) { return test >= 3 && test <= 5; }

/// Filter for the rows of a square that hold its two points; nothing if the deleted row's Multiplar has fewer
/// than 4 characters.
std::optional<QString> TvåPoängFilter(const QString& multiplar);

/// Filter for all rows of the square. @pre at least 4 characters
QString RutaFilter(const QString& multiplar);

} // namespace store
