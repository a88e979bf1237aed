#include "store/SparaKolumner.h"

#include "store/PrefixSök.h"

#include <QStringBuilder>

namespace store {
namespace {

/// Collects the assignments of one save.
class Kolumnlista {
public:
    Kolumnlista(Sparare sparare, const QSOFormulär& formulär, bool redigera)
        : sparare_(sparare)
        , f_(formulär)
        , redigera_(redigera) {}

    std::vector<Tilldelning> Fyll() {
        Inledning();
        Rapporter();
        Zoner();
        switch (sparare_) {
        case Sparare::MT: FyllMT(); break;
        case Sparare::SAC: FyllSAC(); break;
        case Sparare::VHF:
        case Sparare::TioM:
        case Sparare::VUS: FyllVHF(); break;
        }
        return std::move(lista_);
    }

private:
    const Sparare sparare_;
    const QSOFormulär& f_;
    const bool redigera_;
    std::vector<Tilldelning> lista_;

    void Sätt(QStringView kolumn, const QString& värde) { lista_.emplace_back(kolumn.toString(), värde); }
    void SättOmIfyllt(QStringView kolumn, const QString& värde) {
        if (!värde.isEmpty()) Sätt(kolumn, värde);
    }

    /// Månadstest and SAC keep the serial with the report, in these last characters of it; 0 for the others.
    int LöpnrTecken() const { return sparare_ == Sparare::MT ? 2 : sparare_ == Sparare::SAC ? 3 : 0; }

    /// When editing, the report fields already hold report and serial together.
    QString Rapport(const QString& rst, const QString& löpnr) const {
        return redigera_ || LöpnrTecken() == 0 ? rst : rst + u' ' + löpnr;
    }

    void Inledning() {
        Sätt(u"Datum", f_.txtDatum);
        Sätt(u"Tid", f_.txtUTCTid);
        Sätt(u"Signal", f_.txtSignal);
        SättOmIfyllt(u"Frekvens", f_.txtFrekvens);
        Sätt(u"Trafiksätt", f_.cmbTrafik);
        Sätt(u"Band ", f_.cmbBand);
    }

    void Rapporter() {
        Sätt(u"Mottaget", Rapport(f_.txtRSTM, f_.txtLöpnrM));
        Sätt(u"Sänt", Rapport(f_.txtRSTS, f_.txtLöpnrS));
        // Without a serial in the report, an edit blanks the serial sent and leaves the one received.
        Sätt(u"LöpNrSR", redigera_ ? f_.txtRSTS.right(LöpnrTecken()) : f_.txtLöpnrS);
        Sätt(u"Namn", f_.txtNamn);
        if (!redigera_) {
            SättOmIfyllt(u"Löpnr", f_.txtLöpnrM);
        } else if (LöpnrTecken() != 0) {
            Sätt(u"Löpnr", f_.txtRSTM.right(LöpnrTecken()));
        }
    }

    void Zoner() {
        Sätt(u"ITU", f_.txtITUM);
        Sätt(u"Zon", f_.txtZONM);
    }

    /// The exchange, unless the operator has made it one for an award.
    QString Utbyte() const { return f_.lblTyp == u"Diplom" ? QString() : f_.txtDiplom; }

    bool HarRuta() const { return f_.txtDiplom.size() >= 4; }
    QString Ruta() const { return f_.txtDiplom.left(4); }

    void LandOchPoäng() {
        Sätt(u"DXCC", f_.lblDXCC);
        Sätt(u"Land", f_.lblLand);
        Sätt(u"Notering", f_.txtNotering);
        Sätt(u"Prefix", f_.txtPrefix);
        Sätt(u"DXCC Nr", f_.txtDXCCNR);
        Sätt(u"Poäng", f_.lblQSOPoäng);
        Sätt(u"NDXCC", f_.txtNDXCC);
        Sätt(u"NRUTA", f_.txtNRUTA);
        Sätt(u"Dubblett", f_.txtDubblett);
    }

    void FyllVHF() {
        Sätt(u"Multiplar", Utbyte());
        LandOchPoäng();
        SättOmIfyllt(u"Diplom", Ruta());
        if (HarRuta()) Sätt(u"Rutor", Ruta());
    }

    void FyllMT() {
        Sätt(u"Multiplar", HarRuta() ? f_.txtDiplom : QString());
        const QString rutaOchBand = Ruta() + u' ' + f_.cmbBand;
        if (HarRuta()) Sätt(u"Rutor", rutaOchBand);
        LandOchPoäng();
        // The own square is no multiplier.
        if (HarRuta() && Ruta() != f_.txtLokator.left(4)) Sätt(u"Diplom", rutaOchBand);
    }

    void FyllSAC() {
        Sätt(u"Multiplar", Utbyte());
        // A Nordic station counts for nothing: an edited row keeps its country and points as they were.
        if (ÄrNordisk(f_.lblDXCC, f_.lblKont)) return;
        Sätt(u"Multiplar", f_.txtPrefix);
        Sätt(u"Diplom", f_.txtPrefix % u" (" % f_.cmbBand % u')');
        LandOchPoäng();
    }
};

bool KräverSändRapport(Sparare sparare) {
    return sparare == Sparare::VHF || sparare == Sparare::TioM || sparare == Sparare::VUS;
}

} // namespace

std::vector<Tilldelning> Kolumner(Sparare sparare, const QSOFormulär& formulär, bool redigera) {
    return Kolumnlista(sparare, formulär, redigera).Fyll();
}

bool SaknarData(Sparare sparare, const QSOFormulär& formulär) {
    return formulär.txtSignal.isEmpty() || formulär.txtRSTM.isEmpty() || formulär.txtPrefix.isEmpty() ||
           formulär.lblDXCC == u"DXCC" || (KräverSändRapport(sparare) && formulär.txtRSTS.isEmpty());
}

} // namespace store
