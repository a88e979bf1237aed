#include "store/SparaKolumner.h"
#include "support/ToPrint.h"

#include <QMap>
#include <QSet>
#include <QStringList>

namespace store {
namespace {

constexpr std::array allaSparare{Sparare::VHF, Sparare::TioM, Sparare::MT, Sparare::SAC, Sparare::VUS};

/// A form whose every field can be told from the others.
QSOFormulär Formulär() {
    return {.txtDatum = T("2026-01-06"),
            .txtUTCTid = T("18:04:11"),
            .txtSignal = T("DL1ABC"),
            .txtFrekvens = T("3,512,50"),
            .cmbTrafik = T("CW"),
            .cmbBand = T("80 M"),
            .txtRSTM = T("579"),
            .txtRSTS = T("599"),
            .txtLöpnrM = T("017"),
            .txtLöpnrS = T("042"),
            .txtNamn = T("Karl"),
            .txtITUM = T("28"),
            .txtZONM = T("14"),
            .txtDiplom = T("JO62QM"),
            .txtLokator = T("JO89XI"),
            .lblTyp = T("Lokator"),
            .lblDXCC = T("DL"),
            .lblKont = T("EU"),
            .lblLand = T("Germany"),
            .txtNotering = T("anm"),
            .txtPrefix = T("DL1"),
            .txtDXCCNR = T("230"),
            .lblQSOPoäng = T("812"),
            .txtNDXCC = T("N1"),
            .txtNRUTA = T("N2"),
            .txtDubblett = T("D")};
}

QStringList Text(const std::vector<Tilldelning>& lista) {
    QStringList rader;
    for (const auto& [kolumn, värde] : lista) rader.append(kolumn + T("=") + värde);
    return rader;
}

/// What the row holds when all assignments are made.
QMap<QString, QString> Rad(Sparare sparare, const QSOFormulär& formulär, bool redigera) {
    QMap<QString, QString> rad;
    for (const auto& [kolumn, värde] : Kolumner(sparare, formulär, redigera)) rad[kolumn] = värde;
    return rad;
}

QMap<QString, QString> NyRad(Sparare sparare, const QSOFormulär& formulär) {
    return Rad(sparare, formulär, false);
}
QMap<QString, QString> RedigeradRad(Sparare sparare, const QSOFormulär& formulär) {
    return Rad(sparare, formulär, true);
}

QStringList Lista(const char* text) { return T(text).split(u'|'); }

constexpr const char* början =
    "Datum=2026-01-06|Tid=18:04:11|Signal=DL1ABC|Frekvens=3,512,50|Trafiksätt=CW|Band =80 M|";
constexpr const char* slut = "DXCC=DL|Land=Germany|Notering=anm|Prefix=DL1|DXCC Nr=230|Poäng=812|NDXCC=N1|"
                             "NRUTA=N2|Dubblett=D";

struct HelRad {
    const char* namn;
    Sparare sparare;
    bool redigera;
    std::string kolumner;
};

class HelRadTest : public testing::TestWithParam<HelRad> {};

TEST_P(HelRadTest, SkriverKolumnernaISinOrdning) {
    const HelRad& fall = GetParam();
    SCOPED_TRACE(fall.namn);
    QSOFormulär formulär = Formulär();
    if (fall.redigera) {
        formulär.txtRSTM = T("579 017");
        formulär.txtRSTS = T("599 042");
    }
    EXPECT_EQ(Text(Kolumner(fall.sparare, formulär, fall.redigera)), Lista(fall.kolumner.c_str()));
}

std::string Vhf() {
    return std::string(början) + "Mottaget=579|Sänt=599|LöpNrSR=042|Namn=Karl|Löpnr=017|ITU=28|Zon=14|" +
           "Multiplar=JO62QM|" + slut + "|Diplom=JO62|Rutor=JO62";
}
std::string VhfRedigerad() {
    return std::string(början) + "Mottaget=579 017|Sänt=599 042|LöpNrSR=|Namn=Karl|ITU=28|Zon=14|" +
           "Multiplar=JO62QM|" + slut + "|Diplom=JO62|Rutor=JO62";
}

INSTANTIATE_TEST_SUITE_P(
    Sparare, HelRadTest,
    testing::Values(
        HelRad{"VHF, new", Sparare::VHF, false, Vhf()}, HelRad{"10 m is VHF", Sparare::TioM, false, Vhf()},
        HelRad{"VUS writes the same", Sparare::VUS, false, Vhf()},
        HelRad{"VHF, edited", Sparare::VHF, true, VhfRedigerad()},
        HelRad{"10 m, edited", Sparare::TioM, true, VhfRedigerad()},
        HelRad{"VUS, edited", Sparare::VUS, true, VhfRedigerad()},
        HelRad{"Månadstest, new", Sparare::MT, false,
               std::string(början) +
                   "Mottaget=579 017|Sänt=599 042|LöpNrSR=042|Namn=Karl|Löpnr=017|ITU=28|Zon=14|" +
                   "Multiplar=JO62QM|Rutor=JO62 80 M|" + slut + "|Diplom=JO62 80 M"},
        HelRad{"Månadstest, edited", Sparare::MT, true,
               std::string(början) +
                   "Mottaget=579 017|Sänt=599 042|LöpNrSR=42|Namn=Karl|Löpnr=17|ITU=28|Zon=14|" +
                   "Multiplar=JO62QM|Rutor=JO62 80 M|" + slut + "|Diplom=JO62 80 M"},
        HelRad{"SAC, new", Sparare::SAC, false,
               std::string(början) +
                   "Mottaget=579 017|Sänt=599 042|LöpNrSR=042|Namn=Karl|Löpnr=017|ITU=28|Zon=14|" +
                   "Multiplar=JO62QM|Multiplar=DL1|Diplom=DL1 (80 M)|" + slut},
        HelRad{"SAC, edited", Sparare::SAC, true,
               std::string(början) +
                   "Mottaget=579 017|Sänt=599 042|LöpNrSR=042|Namn=Karl|Löpnr=017|ITU=28|Zon=14|" +
                   "Multiplar=JO62QM|Multiplar=DL1|Diplom=DL1 (80 M)|" + slut}));

TEST(SparareFör, FöljerTestensFamilj) {
    const std::pair<int, std::optional<Sparare>> fall[] = {
        {0, Sparare::VHF},  {1, Sparare::VHF},  {2, Sparare::VHF},   {3, Sparare::TioM}, {4, Sparare::TioM},
        {5, Sparare::TioM}, {6, Sparare::TioM}, {7, Sparare::MT},    {8, Sparare::MT},   {9, Sparare::SAC},
        {10, Sparare::SAC}, {11, std::nullopt}, {12, std::nullopt},  {13, std::nullopt}, {14, Sparare::VUS},
        {15, std::nullopt}, {-1, std::nullopt}, {255, std::nullopt}, {41, std::nullopt}};
    for (const auto& [test, sparare] : fall) EXPECT_EQ(SparareFör(test), sparare) << test;
}

TEST(Kolumner, SkriverVarjeKolumnSomTomRadenHar) {
    QSet<QString> kända;
    for (const auto& [kolumn, värde] : tomtQSO) kända.insert(kolumn.toString().toLower());
    for (const Sparare sparare : allaSparare) {
        for (const bool redigera : {false, true}) {
            for (const auto& [kolumn, värde] : Kolumner(sparare, Formulär(), redigera)) {
                EXPECT_TRUE(kända.contains(kolumn.toLower())) << kolumn.toStdString();
            }
        }
    }
}

TEST(Kolumner, EttTomtFältTömmerSinKolumnMenInteFrekvensen) {
    for (const Sparare sparare : allaSparare) {
        QSOFormulär formulär;
        formulär.lblDXCC = T("DL");
        const auto rad = RedigeradRad(sparare, formulär);
        for (const char* kolumn : {"Namn", "ITU", "Zon", "Land", "Notering", "NDXCC", "NRUTA", "Dubblett"}) {
            ASSERT_TRUE(rad.contains(T(kolumn))) << kolumn;
            EXPECT_EQ(rad[T(kolumn)], T("")) << kolumn;
        }
        EXPECT_FALSE(rad.contains(T("Frekvens")));
    }
}

// VHF, 10 m and VUS.

class VhfSparareTest : public testing::TestWithParam<Sparare> {};

INSTANTIATE_TEST_SUITE_P(Lika, VhfSparareTest, testing::Values(Sparare::VHF, Sparare::TioM, Sparare::VUS));

TEST_P(VhfSparareTest, SkärTillRutanIDiplomOchRutorMenInteIMultiplar) {
    struct Fall {
        const char* diplom;
        const char* multiplar;
        std::optional<QString> diplomKolumn;
        std::optional<QString> rutor;
    };
    const Fall fall[] = {{"JO62QM", "JO62QM", T("JO62"), T("JO62")}, {"JO62Q", "JO62Q", T("JO62"), T("JO62")},
                         {"JO62", "JO62", T("JO62"), T("JO62")},     {"JO6", "JO6", T("JO6"), std::nullopt},
                         {"J", "J", T("J"), std::nullopt},           {"", "", std::nullopt, std::nullopt}};
    for (const Fall& f : fall) {
        QSOFormulär formulär = Formulär();
        formulär.txtDiplom = T(f.diplom);
        const auto rad = NyRad(GetParam(), formulär);
        EXPECT_EQ(rad[T("Multiplar")], T(f.multiplar));
        EXPECT_EQ(rad.contains(T("Diplom")), f.diplomKolumn.has_value()) << f.diplom;
        EXPECT_EQ(rad.value(T("Diplom")), f.diplomKolumn.value_or(QString())) << f.diplom;
        EXPECT_EQ(rad.contains(T("Rutor")), f.rutor.has_value()) << f.diplom;
        EXPECT_EQ(rad.value(T("Rutor")), f.rutor.value_or(QString())) << f.diplom;
    }
}

TEST_P(VhfSparareTest, LämnarMultiplarTomNärUtbytetÄrEttDiplom) {
    QSOFormulär formulär = Formulär();
    formulär.lblTyp = T("Diplom");
    EXPECT_EQ(NyRad(GetParam(), formulär)[T("Multiplar")], T(""));
    EXPECT_EQ(NyRad(GetParam(), formulär)[T("Diplom")], T("JO62"));
    formulär.lblTyp = T("diplom");
    EXPECT_EQ(NyRad(GetParam(), formulär)[T("Multiplar")], T("JO62QM"));
}

TEST_P(VhfSparareTest, TömmerSäntLöpnummerVidRedigeringOchLåterMottagetStå) {
    const auto rad = RedigeradRad(GetParam(), Formulär());
    EXPECT_TRUE(rad.contains(T("LöpNrSR")));
    EXPECT_EQ(rad[T("LöpNrSR")], T(""));
    EXPECT_FALSE(rad.contains(T("Löpnr")));
}

TEST_P(VhfSparareTest, SkriverTommaLöpnummerFörNyaQSO) {
    QSOFormulär formulär = Formulär();
    formulär.txtLöpnrS.clear();
    formulär.txtLöpnrM.clear();
    const auto rad = NyRad(GetParam(), formulär);
    EXPECT_EQ(rad.value(T("LöpNrSR"), T("?")), T(""));
    EXPECT_FALSE(rad.contains(T("Löpnr")));
}

// Månadstest.

TEST(MTSparare, RäknarEgnaRutanInteSomMultipel) {
    QSOFormulär formulär = Formulär();
    formulär.txtDiplom = T("JO89AA");
    const auto rad = NyRad(Sparare::MT, formulär);
    EXPECT_EQ(rad[T("Multiplar")], T("JO89AA"));
    EXPECT_EQ(rad[T("Rutor")], T("JO89 80 M"));
    EXPECT_FALSE(rad.contains(T("Diplom")));
}

TEST(MTSparare, BryrSigBaraOmEttUtbyteMedFyraTecken) {
    for (const char* diplom : {"", "J", "JO6"}) {
        QSOFormulär formulär = Formulär();
        formulär.txtDiplom = T(diplom);
        const auto rad = NyRad(Sparare::MT, formulär);
        EXPECT_EQ(rad.value(T("Multiplar"), T("?")), T("")) << diplom;
        EXPECT_FALSE(rad.contains(T("Rutor"))) << diplom;
        EXPECT_FALSE(rad.contains(T("Diplom"))) << diplom;
    }
    QSOFormulär formulär = Formulär();
    formulär.txtDiplom = T("JO62");
    EXPECT_EQ(NyRad(Sparare::MT, formulär)[T("Diplom")], T("JO62 80 M"));
}

TEST(MTSparare, SerInteTillTypen) {
    QSOFormulär formulär = Formulär();
    formulär.lblTyp = T("Diplom");
    EXPECT_EQ(NyRad(Sparare::MT, formulär)[T("Multiplar")], T("JO62QM"));
}

// Serials in the report.

struct RapportFall {
    const char* namn;
    Sparare sparare;
    const char* rstm;
    const char* rsts;
    const char* löpnr;
    const char* löpnrSR;
};

class RapportTest : public testing::TestWithParam<RapportFall> {};

TEST_P(RapportTest, HämtarLöpnumretUrRapportensSlutVidRedigering) {
    const RapportFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    QSOFormulär formulär = Formulär();
    formulär.txtRSTM = T(f.rstm);
    formulär.txtRSTS = T(f.rsts);
    const auto rad = RedigeradRad(f.sparare, formulär);
    EXPECT_EQ(rad.value(T("Löpnr"), T("?")), T(f.löpnr));
    EXPECT_EQ(rad.value(T("LöpNrSR"), T("?")), T(f.löpnrSR));
    EXPECT_EQ(rad[T("Mottaget")], T(f.rstm));
    EXPECT_EQ(rad[T("Sänt")], T(f.rsts));
}

INSTANTIATE_TEST_SUITE_P(
    Rapporter, RapportTest,
    testing::Values(
        RapportFall{"two characters in Månadstest", Sparare::MT, "599 07", "579 12", "07", "12"},
        RapportFall{"a serial of three is cut there", Sparare::MT, "599 107", "579 112", "07", "12"},
        RapportFall{"three characters in SAC", Sparare::SAC, "599 007", "579 012", "007", "012"},
        RapportFall{"a report without a serial gives its own end", Sparare::MT, "599", "59", "99", "59"},
        RapportFall{"a report shorter than that is taken whole", Sparare::SAC, "59", "5", "59", "5"},
        RapportFall{"empty reports give empty serials", Sparare::MT, "", "", "", ""}));

TEST(LöpnummerSparare, SkriverBlankenÄvenUtanLöpnummer) {
    for (const Sparare sparare : {Sparare::MT, Sparare::SAC}) {
        QSOFormulär formulär = Formulär();
        formulär.txtLöpnrM.clear();
        formulär.txtLöpnrS.clear();
        const auto rad = NyRad(sparare, formulär);
        EXPECT_EQ(rad[T("Mottaget")], T("579 "));
        EXPECT_EQ(rad[T("Sänt")], T("599 "));
        EXPECT_EQ(rad.value(T("LöpNrSR"), T("?")), T(""));
        EXPECT_FALSE(rad.contains(T("Löpnr")));
    }
}

// SAC.

TEST(SACSparare, SkriverIngetLandFörNorden) {
    for (const auto& [dxcc, kontinent] : {std::pair{"SM", "EU"}, {"OX", "NA"}, {"OY", "EU"}}) {
        QSOFormulär formulär = Formulär();
        formulär.lblDXCC = T(dxcc);
        formulär.lblKont = T(kontinent);
        formulär.txtDiplom.clear();
        for (const bool redigera : {false, true}) {
            const auto rad = Rad(Sparare::SAC, formulär, redigera);
            EXPECT_EQ(rad.value(T("Multiplar"), T("?")), T(""));
            for (const char* kolumn : {"Diplom", "DXCC", "Land", "Notering", "Prefix", "DXCC Nr", "Poäng",
                                       "NDXCC", "NRUTA", "Dubblett", "Rutor", "Distrikt"}) {
                EXPECT_FALSE(rad.contains(T(kolumn))) << dxcc << ' ' << kolumn;
            }
            EXPECT_EQ(rad[T("Signal")], T("DL1ABC"));
        }
    }
}

TEST(SACSparare, RäknarFäröarnaUtanförEuropaSomAndraLänder) {
    QSOFormulär formulär = Formulär();
    formulär.lblDXCC = T("OY");
    formulär.lblKont = T("NA");
    EXPECT_EQ(NyRad(Sparare::SAC, formulär)[T("DXCC")], T("OY"));
}

TEST(SACSparare, SkriverAldrigDistriktEllerRutor) {
    for (const bool redigera : {false, true}) {
        const auto rad = Rad(Sparare::SAC, Formulär(), redigera);
        EXPECT_FALSE(rad.contains(T("Distrikt")));
        EXPECT_FALSE(rad.contains(T("Rutor")));
    }
}

// Mandatory data.

struct SaknasFall {
    const char* namn;
    QString QSOFormulär::*fält;
    const char* värde;
    bool vhf; ///< missing for VHF, 10 m and VUS
    bool mt;  ///< missing for Månadstest and SAC
};

class SaknarDataTest : public testing::TestWithParam<SaknasFall> {};

TEST_P(SaknarDataTest, SägerVadSomKrävs) {
    const SaknasFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    QSOFormulär formulär = Formulär();
    formulär.*f.fält = T(f.värde);
    for (const Sparare sparare : {Sparare::VHF, Sparare::TioM, Sparare::VUS}) {
        EXPECT_EQ(SaknarData(sparare, formulär), f.vhf);
    }
    for (const Sparare sparare : {Sparare::MT, Sparare::SAC}) EXPECT_EQ(SaknarData(sparare, formulär), f.mt);
}

INSTANTIATE_TEST_SUITE_P(
    Fält, SaknarDataTest,
    testing::Values(SaknasFall{"no call", &QSOFormulär::txtSignal, "", true, true},
                    SaknasFall{"no report received", &QSOFormulär::txtRSTM, "", true, true},
                    SaknasFall{"no prefix", &QSOFormulär::txtPrefix, "", true, true},
                    SaknasFall{"the country's resting text", &QSOFormulär::lblDXCC, "DXCC", true, true},
                    SaknasFall{"no report sent", &QSOFormulär::txtRSTS, "", true, false},
                    SaknasFall{"an empty country passes", &QSOFormulär::lblDXCC, "", false, false},
                    SaknasFall{"the resting text in lower case passes", &QSOFormulär::lblDXCC, "dxcc", false,
                               false},
                    SaknasFall{"no exchange passes", &QSOFormulär::txtDiplom, "", false, false},
                    SaknasFall{"no serial passes", &QSOFormulär::txtLöpnrM, "", false, false},
                    SaknasFall{"no date passes", &QSOFormulär::txtDatum, "", false, false},
                    SaknasFall{"a blank is a call", &QSOFormulär::txtSignal, " ", false, false}));

TEST(SaknarData, EttFulltFormulärSaknarInget) {
    for (const Sparare sparare : allaSparare) EXPECT_FALSE(SaknarData(sparare, Formulär()));
}

// What differs besides the columns.

TEST(RäknarLöpnr, GällerMånadstestSACOchVUS) {
    EXPECT_FALSE(RäknarLöpnr(Sparare::VHF));
    EXPECT_FALSE(RäknarLöpnr(Sparare::TioM));
    EXPECT_TRUE(RäknarLöpnr(Sparare::MT));
    EXPECT_TRUE(RäknarLöpnr(Sparare::SAC));
    EXPECT_TRUE(RäknarLöpnr(Sparare::VUS));
}

TEST(SparaFelText, HarVersalerITvåSparare) {
    const QString små = T("Ett fel har inträffat vid sparande/uppdatering av QSO.");
    const QString stora = T("Ett fel har inträffat vid Sparande/Uppdatering av QSO.");
    EXPECT_EQ(SparaFelText(Sparare::VHF), stora);
    EXPECT_EQ(SparaFelText(Sparare::VUS), stora);
    EXPECT_EQ(SparaFelText(Sparare::TioM), små);
    EXPECT_EQ(SparaFelText(Sparare::MT), små);
    EXPECT_EQ(SparaFelText(Sparare::SAC), små);
}

TEST(TomtQSO, NämnerVarjeKolumnEnGångISinOrdning) {
    QStringList kolumner;
    for (const auto& [kolumn, värde] : tomtQSO) kolumner.append(kolumn.toString());
    EXPECT_EQ(kolumner,
              Lista("Datum|Tid|Signal|Frekvens|Trafiksätt|Band |Sänt|Mottaget|Multiplar|LöpNr|Namn|QTH|"
                    "ITU|Zon|Diplom|DXCC|Land|Notering|Prefix|DXCC Nr|Poäng|Distrikt|NDXCC|NRUTA|"
                    "Dubblett|Rutor|LöpNrSR"));
}

TEST(TomtQSO, ÄrTomUtomFrekvensOchPoäng) {
    for (const auto& [kolumn, värde] : tomtQSO) {
        const QString väntat = kolumn == u"Frekvens" ? T("0,000,00") : kolumn == u"Poäng" ? T("0") : T("");
        EXPECT_EQ(värde.toString(), väntat) << kolumn.toString().toStdString();
    }
}

} // namespace
} // namespace store
