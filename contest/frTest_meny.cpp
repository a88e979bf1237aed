#include "contest/frTest.h"

#include "cluster/DXSpottModul.h"
#include "cluster/frDXCluster.h"
#include "cluster/frDXSpott.h"
#include "cluster/frDXSpottFörval.h"
#include "cluster/frDXSpottLogg.h"
#include "contest/DeladeVärden.h"
#include "contest/Programval.h"
#include "contest/frGrid.h"
#include "contest/frHjälp.h"
#include "contest/frTestInst.h"
#include "contest/frTestOm.h"
#include "contest/frTestVal.h"
#include "radio/ModuleTest.h"
#include "radio/frInstDigi.h"
#include "reports/AdifModul.h"
#include "reports/frTestRapport_cbr.h"
#include "reports/frTestRapport_edi.h"
#include "reports/frTestRapport_sum.h"
#include "shared/Minnen.h"
#include "shared/frData.h"
#include "shared/frNätverkInst.h"
#include "store/frEditorTest.h"

#include <QMenuBar>

namespace {

/// One entry of the menu bar; the level tells which menu it stands in.
struct Menypost {
    int nivå;
    const char* namn;
    const char* text; ///< empty: a line between entries
};

// Names and captions are what operators' notes and scripts refer to; the capital or small letter behind
// "mnu", the blanks inside a caption and the bracketed keys are part of them.
constexpr Menypost menyposter[] = {
    {0, "mnuArkiv", "&Arkiv"},
    {1, "mnuArkiv_NyTestLogg", "Ny Testlogg..."},
    {1, "mnuArkiv_ValavTest", "Val av Test..."},
    {1, "mnuArkiv_ÖppnaTestlogg", "Öppna Testlogg..."},
    {1, "mnuArkiv_StängTestlogg", "Stäng Testlogg"},
    {1, "", ""},
    {1, "mnuarkiv_Export", "Exportera"},
    {2, "mnuarkiv_Export_ADI", ".ADI..."},
    {2, "mnuArkiv_Export_SVK", ".SVK..."},
    {1, "", ""},
    {1, "mnuArkiv_AnslutServer", "Anslut Server"},
    {1, "mnuArkiv_KopplafrånServer", "Koppla från Server"},
    {1, "", ""},
    {1, "mnuArkiv_Avsluta", "Avsluta"},
    {0, "mnuRedigera", "&Redigera"},
    {1, "mnuRedigera_SparaQSO", "Spara QSO    ( Enter )"},
    {1, "mnuRedigera_RaderaQSO", "Radera QSO  ( Del )"},
    {1, "", ""},
    {1, "mnuRedigera_NollställLöpnr", "Nollställ Löpnr."},
    {1, "mnuRedigera_NollställTimer", "Nollställ Timer"},
    {1, "", ""},
    {1, "mnuRedigera_Uppdatera_Lokator", "Uppdatera Lokator..."},
    {1, "mnuRedigera_Uppdatera_Friend", "Uppdatera Friend..."},
    {1, "mnuRedigera_TömLokator", "Töm Lokator"},
    {1, "mnuRedigera_TömFriend", "Töm Friend"},
    {0, "mnuInställning", "&Inställning"},
    {1, "mnuInställning_Station_Test", "Station / Test..."},
    {1, "", ""},
    {1, "mnuInställning_RoppaCQ", "Tabföljd 1  (roppa CQ)"},
    {1, "mnuInställning_SvaraCQ", "Tabbföljd 2 (svara CQ)"},
    {1, "mnuInställning_Tabbstop_RST", "Tabbstop RST"},
    {1, "mnuInställning_Tabbstop_Löpnr", "Tabbstop Löpnr."},
    {1, "", ""},
    {1, "mnuInställning_Vila", "Vila"},
    {1, "", ""},
    {1, "mnuInställning_Volymkontroll", "Volymkontroll"},
    {1, "mnuInställning_RadioPort", "Radio Port"},
    {1, "mnuInställning_Digital", "Digital Inställning..."},
    {1, "mnuInställning_Nätverk_Inställning", "Nätverk Inställning..."},
    {1, "mnuInställning_Epost", "E-post program..."},
    {0, "mnuDXCluster", "&DX Cluster"},
    {1, "mnuDXSpot_DXSpot_Connect", "Connect..."},
    {1, "mnuDXSpot_DXSpot_Disconnect", "Disconnect"},
    {1, "", ""},
    {1, "mnuDXSpot_Visa", "DX Spot Visa"},
    {1, "mnuDXSpot_logg", "DX Spot Logg"},
    {1, "mnuDXSpot_Förval", "DX Spot Förval..."},
    {1, "mnuDXSpott_DXLogg_TömLogg", "Töm DX Spot Logg"},
    {1, "", ""},
    {1, "mnufrDXSpotMeny_VisaDXCluster", "Visa DXCluster"},
    {1, "mnufrDXSpotMeny_DöljDXCluster", "Dölj DXCluster"},
    {1, "mnufrDXSpotMeny_VisaLogg", "Visa Logg"},
    {0, "mnuRadio", "Radi&o"},
    {1, "mnuRadio_På", "På"},
    {1, "mnuRadio_Av", "Av"},
    {1, "mnuRadio_Shift", "Shift"},
    {0, "mnuCW", "&CW"},
    {1, "mnuCW_CWTest", "CW Test"},
    {1, "mnuCW_CWTestInst", "CW Test Inst."},
    {1, "mnuCW_Macrofiler_Laddafil", "Ladda Fil"},
    {0, "mnuDigital", "Di&gital"},
    {1, "mnuDigital_Macro_Laddafil", "Ladda Fil"},
    {0, "mnuRapport", "Ra&pport"},
    {1, "mnuRapport_Cabrillo", "Cabrillo..."},
    {1, "mnuRapport_EDI", "EDI..."},
    {1, "mnuRapport_Summa", "Summa..."},
    {1, "", ""},
    {1, "mnuRapport_Editor", "Editor..."},
    {0, "mnufönster", "&Fönster"},
    {1, "mnufönster_Grid", "Grid Karta"},
    {1, "mnufönster_Lokator", "Lokator (lista)"},
    {1, "mnufönster_Editor", "Logg Data (Editor)"},
    {1, "mnuFönster_DXSpot", "DX Spot"},
    {1, "mnuFönster_Digi", "Digital Test (FT8)"},
    {1, "mnuFönster_Spelaljudfiler", "Spela ljudfiler (wav)"},
    {0, "mnuHjälp", "&Hjälp"},
    {1, "mnuHjälp_Sorvik", "Sorvik Hjälp"},
    {1, "mnuHjälp_Om", "Om Sorvik"},
};

bool ÄrMeny(size_t post) {
    return post + 1 < std::size(menyposter) && menyposter[post + 1].nivå > menyposter[post].nivå;
}

} // namespace

void frTest::ByggMenyer() {
    std::vector<QMenu*> öppna;
    for (size_t i = 0; i < std::size(menyposter); ++i) {
        const Menypost& post = menyposter[i];
        öppna.resize(static_cast<size_t>(post.nivå));
        const QString text = QString::fromUtf8(post.text);
        if (text.isEmpty()) {
            öppna.back()->addSeparator();
            continue;
        }
        QAction* åtgärd = nullptr;
        if (ÄrMeny(i)) {
            auto* meny = new QMenu(text, this);
            åtgärd = öppna.empty() ? menuBar()->addMenu(meny) : öppna.back()->addMenu(meny);
            öppna.push_back(meny);
        } else {
            åtgärd = öppna.back()->addAction(text);
        }
        platform::Named(åtgärd, post.namn);
        menyer_[QString::fromUtf8(post.namn)] = åtgärd;
    }
    for (const char* namn :
         {"mnuInställning_RoppaCQ", "mnuInställning_SvaraCQ", "mnuInställning_Tabbstop_RST",
          "mnuInställning_Tabbstop_Löpnr", "mnuRadio_På", "mnuRadio_Av"})
        Meny(namn)->setCheckable(true);
    Meny("mnuInställning_Tabbstop_RST")->setChecked(true);
    Meny("mnuInställning_SvaraCQ")->setChecked(true);
    Meny("mnuRedigera_RaderaQSO")->setShortcut(QKeySequence(Qt::Key_Delete));
}

void frTest::KopplaMenyer() {
    const auto vid = [this](const char* namn, auto gör) {
        connect(Meny(namn), &QAction::triggered, this, [gör] { gör(); });
    };
    vid("mnuArkiv_NyTestLogg", [] { frTestVal::instans().Visa(); });
    vid("mnuArkiv_ValavTest", [] { frTestVal::instans().Visa(); });
    vid("mnuArkiv_ÖppnaTestlogg", [this] { mnuArkiv_ÖppnaTestlogg_Click(); });
    vid("mnuArkiv_StängTestlogg", [this] { mnuArkiv_StängTestlogg_Click(); });
    vid("mnuArkiv_Avsluta", [this] { close(); });
    vid("mnuRedigera_SparaQSO", [this] { mnuRedigera_SparaQSO_Click(); });
    vid("mnuRedigera_RaderaQSO", [this] { cmdRadera_Click(); });
    vid("mnuRedigera_NollställLöpnr", [this] { mnuRedigera_NollställLöpnr_Click(); });
    vid("mnuRedigera_NollställTimer", [this] { mnuRedigera_NollställTimer_Click(); });
    vid("mnuInställning_Station_Test", [] { frTestInst::instans().VisaModalt(); });
    vid("mnuInställning_RoppaCQ", [this] { Tabbföljd(1); });
    vid("mnuInställning_SvaraCQ", [this] { Tabbföljd(2); });
    vid("mnuInställning_Tabbstop_RST", [this] { TabbstoppRST(!delat.TabbstopRST); });
    vid("mnuInställning_Tabbstop_Löpnr", [this] { TabbstoppLöpnr(!delat.TabbstopLöpnr); });
    vid("mnuInställning_Vila", [this] { cmdVila_Click(); });
    vid("mnuInställning_Digital", [] { frInstDigi::instans().Visa(); });
    vid("mnuInställning_Epost", [] { VäljEpostprogram(); });
    vid("mnuInställning_Volymkontroll", [] { StartaVolymkontroll(); });
    vid("mnuDXSpot_DXSpot_Connect", [] { DXTele_Connect(); });
    vid("mnuDXSpot_DXSpot_Disconnect", [] { KopplaFrånDXCluster(); });
    vid("mnuDXSpot_Visa", [this] { mnuDXSpot_Visa_Click(); });
    vid("mnuDXSpot_logg", [] { frDXSpottLogg::instans().Visa(); });
    vid("mnuDXSpot_Förval", [] { frDXSpottFörval::instans().Visa(); });
    vid("mnuDXSpott_DXLogg_TömLogg", [] { frDXSpottLogg::instans().TömDXSpottLogg(); });
    vid("mnufrDXSpotMeny_VisaDXCluster", [] { frDXCluster::instans().Visa(); });
    vid("mnufrDXSpotMeny_DöljDXCluster", [] { frDXCluster::instans().hide(); });
    vid("mnufrDXSpotMeny_VisaLogg", [] { frDXSpottLogg::instans().Visa(); });
    vid("mnuFönster_DXSpot", [] {
        frDXSpott::instans().Visa();
        frDXCluster::instans().Visa();
    });
    vid("mnuRapport_Cabrillo",
        [] { frTestRapport_cbr::instans().Visa(QStringLiteral("Rapport (Cabrillo)")); });
    vid("mnuRapport_EDI",
        [] { frTestRapport_edi::instans().Visa(QStringLiteral("Rapport  [Reg1Test] (EDI)")); });
    vid("mnuRapport_Summa",
        [] { frTestRapport_sum::instans().Visa(QStringLiteral("Rapport (Summa, Rapport)")); });
    vid("mnuRapport_Editor", [] { VäljEditor(); });
    vid("mnuarkiv_Export_ADI", [] { ExporteraAdif(); });
    vid("mnuRedigera_Uppdatera_Lokator", [] { UppdateraLokator(); });
    vid("mnuRedigera_Uppdatera_Friend", [] { UppdateraFriend(); });
    vid("mnuRedigera_TömLokator", [] { TömLokator(); });
    vid("mnuRedigera_TömFriend", [] { TömFriend(); });
    vid("mnuArkiv_AnslutServer", [this] { AnslutTillServer(); });
    vid("mnuArkiv_KopplafrånServer", [this] { KopplafrånSever(); });
    vid("mnuInställning_Nätverk_Inställning", [] { frNätverkInst::instans().Visa(); });
    vid("mnufönster_Lokator", [] { frData::instans().Visa(); });
    vid("mnufönster_Editor", [] { frEditorTest::instans().Visa(); });
    vid("mnufönster_Grid", [] { frGrid::instans().Visa(); });
    vid("mnuCW_Macrofiler_Laddafil", [this] { LaddaMakrofil(QStringLiteral("Macrofiler/CW")); });
    vid("mnuDigital_Macro_Laddafil", [this] { LaddaMakrofil(QStringLiteral("Macrofiler/Digital/")); });
    vid("mnuFönster_Digi", [this] { StartFT8(); });
    vid("mnuHjälp_Sorvik", [] { frHjälp::instans().Visa(); });
    vid("mnuHjälp_Om", [] { frTestOm::instans().Visa(); });
    vid("mnuRadio_På", [this] { mnuRadio_På_Click(); });
    vid("mnuRadio_Av", [this] { mnuRadio_Av_Click(); });
    vid("mnuRadio_Shift", [this] { mnuRadio_Shift_Click(); });
}
