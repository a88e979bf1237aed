#pragma once

#include "store/Dubblett.h"
#include "store/Poäng.h"
#include "store/SparaKolumner.h"

#include <QStringView>

#include <optional>
#include <span>

/// The catalogue of the fifteen contests.
///
/// A contest is its number, and everything in which contests differ stands in its row here. An optional
/// without a value means: the set-up leaves the thing as it is.
namespace contest {

inline constexpr int antalTest = 15;

enum class Familj { Ingen, NacVhf, Nac10m, Månadstest, Sac, Vus };

using Namnlista = std::span<const QStringView>;

/// What a combo box holds after the set-up.
struct ListVal {
    Namnlista poster;  ///< the first is selected
    bool låst = false; ///< the one entry is set and the box locked; otherwise it is left unlocked

    QStringView första() const { return poster.empty() ? QStringView() : poster.front(); }
};

/// A column of dgLogg that RensaTest gives a caption.
struct LoggKolumn {
    int nummer;
    QStringView rubrik;
};

/// Which of the two keying menus a set-up turns on.
enum class MenyVal {
    Ingen,  ///< mnuCW and mnuDigital disabled
    Cw,     ///< RensaTest first; mnuCW enabled, mnuDigital disabled
    Digital ///< the modem is set up, mnuDigital enabled, mnuCW disabled
};

struct Test {
    int nummer = -1; ///< -1 in the row for numbers outside the catalogue
    QStringView radText{};
    QStringView titel{};
    Familj familj = Familj::Ingen;

    // The set-up.
    ListVal trafiksätt{};
    ListVal band{};
    std::optional<QStringView> rst{}; ///< for both RST fields
    bool löpnrPå = false;             ///< serial fields enabled, and the tab stop of txtLöpnrM with them
    std::optional<QStringView> löpnrFormat{};
    std::optional<QStringView> lblTyp{};
    std::optional<QStringView> lblMultipelText{};
    std::optional<QStringView> lblDiplomText{};
    bool egenLokator = false; ///< txtLokator gets OpTestLokator, else it is left empty
    std::optional<bool> txtZONMTabb{};
    bool txtDiplomTabb = true;
    std::optional<bool> cmbDiplomPå{};
    std::optional<bool> lblLängstaQSOSynlig{};
    std::optional<QStringView> rutPoäng{};
    std::optional<QStringView> kmPoäng{};
    MenyVal meny = MenyVal::Ingen;

    // The grids.
    int dgLoggHöjd = 6825;   ///< in twips
    bool prefixLogg = false; ///< Initiera_dgLogg1, rsMultiplar in dgMulti; else Initiera_dgLogg2, rsDiplom
    std::optional<LoggKolumn> loggKolumn{}; ///< set by RensaTest

    // The tab orders, field names by tab index from 0; empty: unchanged.
    Namnlista tabbföljd1{};
    Namnlista tabbföljd2{};

    // What is asked of a contact, and what follows a save.
    bool kollaDXCC = false;      ///< announce a country that is new in the log
    bool kollaDistrikt = false;  ///< announce a call area that is new in the log
    bool kollaLokator = false;   ///< fetch a known locator when txtSignal is left
    bool diplomVisarVäg = false; ///< bearing and distance when txtDiplom is left
    bool fyllLöpnrM = false;     ///< pad a one-character txtLöpnrM when it is left
    bool sparaLokator = false;   ///< UppdateraLängstaQSO and SparaLokator after a save
    bool visaLängstaQSO = false; ///< lblLängstaQSO gets the stored text when the log is opened
    bool kollaTestDatum = false; ///< frTestInst checks the date when it saves
    bool ärverTvåPoäng = false;  ///< cmdRadera hands the two points of a square on
    store::DubblettRegel dubblett = store::DubblettRegelFör(-1);
    std::optional<store::Sparare> sparare{}; ///< nothing: a save stores nothing
    store::PoängRegel poäng = store::PoängRegel::Ingen;
};

/// The row of a contest. @return nullptr outside 0 to 14.
const Test* HämtaTest(int nummer);

/// The row of a contest, or for a number outside the catalogue one without a family, lists and checks.
const Test& TestFör(int nummer);

/// Numbers of a family that is no longer offered; cursors over states and provinces stand in for those over
/// calls and countries there, and the checks of a call are left out.
constexpr bool ÄrStatTest(int nummer) { return nummer == 41 || nummer == 42; }

/// The number that would mean that no contest is chosen. Nothing sets it.
inline constexpr int ingenTest = 255;

} // namespace contest
