#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>
#include <utility>
#include <vector>

/// What a saved contact puts into the columns of the log.
namespace store {

/// The savers; TioM writes what VHF writes.
enum class Sparare { VHF, TioM, MT, SAC, VUS };

/// The saver of a contest. Contests 11, 12 and 13 have none: they store nothing, on purpose.
constexpr std::optional<Sparare> SparareFör(int test) {
    if (test >= 0 && test <= 2) return Sparare::VHF;
    if (test >= 3 && test <= 6) return Sparare::TioM;
    if (test == 7 || test == 8) return Sparare::MT;
    if (test == 9 || test == 10) return Sparare::SAC;
    if (test == 14) return Sparare::VUS;
    return std::nullopt;
}

/// The fields that the savers read, named as on the entry form.
struct QSOFormulär {
    QString txtDatum;
    QString txtUTCTid;
    QString txtSignal;
    QString txtFrekvens;
    QString cmbTrafik;
    QString cmbBand;
    QString txtRSTM;
    QString txtRSTS;
    QString txtLöpnrM;
    QString txtLöpnrS;
    QString txtNamn;
    QString txtITUM;
    QString txtZONM;
    QString txtDiplom;
    QString txtLokator;
    QString lblTyp;
    QString lblDXCC;
    QString lblKont;
    QString lblLand;
    QString txtNotering; ///< of frEditorTest, not of the form
    QString txtPrefix;
    QString txtDXCCNR;
    QString lblQSOPoäng;
    QString txtNDXCC;
    QString txtNRUTA;
    QString txtDubblett;
};

using Tilldelning = std::pair<QString, QString>;

/// The assignments of a save, column and value, in the order in which they are made. A column that is not
/// named keeps what it has.
/// @param redigera the contact is written back over a logged row
std::vector<Tilldelning> Kolumner(Sparare sparare, const QSOFormulär& formulär, bool redigera);

/// Whether a new contact lacks what it cannot be stored without. Not asked when editing.
bool SaknarData(Sparare sparare, const QSOFormulär& formulär);

/// Whether a new contact moves INFO.LöpNr on.
constexpr bool RäknarLöpnr(Sparare sparare) {
    return sparare == Sparare::MT || sparare == Sparare::SAC || sparare == Sparare::VUS;
}

/// The words for a failure while saving; two savers spell them with capitals.
constexpr QStringView SparaFelText(Sparare sparare) {
    return sparare == Sparare::VHF || sparare == Sparare::VUS
               ? QStringView(u"Ett fel har inträffat vid Sparande/Uppdatering av QSO.")
               : QStringView(u"Ett fel har inträffat vid sparande/uppdatering av QSO.");
}

/// A column of TESTQSO and the value of an empty row.
struct KolumnVärde {
    QStringView kolumn;
    QStringView värde; ///< for Poäng, a number column, the digits of the number
};

/// Every column with what TömTESTQSO puts there, in its order.
inline constexpr std::array tomtQSO{
    KolumnVärde{u"Datum", u""},      KolumnVärde{u"Tid", u""},
    KolumnVärde{u"Signal", u""},     KolumnVärde{u"Frekvens", u"0,000,00"},
    KolumnVärde{u"Trafiksätt", u""}, KolumnVärde{u"Band ", u""},
    KolumnVärde{u"Sänt", u""},       KolumnVärde{u"Mottaget", u""},
    KolumnVärde{u"Multiplar", u""},  KolumnVärde{u"LöpNr", u""},
    KolumnVärde{u"Namn", u""},       KolumnVärde{u"QTH", u""},
    KolumnVärde{u"ITU", u""},        KolumnVärde{u"Zon", u""},
    KolumnVärde{u"Diplom", u""},     KolumnVärde{u"DXCC", u""},
    KolumnVärde{u"Land", u""},       KolumnVärde{u"Notering", u""},
    KolumnVärde{u"Prefix", u""},     KolumnVärde{u"DXCC Nr", u""},
    KolumnVärde{u"Poäng", u"0"},     KolumnVärde{u"Distrikt", u""},
    KolumnVärde{u"NDXCC", u""},      KolumnVärde{u"NRUTA", u""},
    KolumnVärde{u"Dubblett", u""},   KolumnVärde{u"Rutor", u""},
    KolumnVärde{u"LöpNrSR", u""},
};

} // namespace store
