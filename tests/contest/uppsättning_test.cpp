// The main window as each of the fifteen contests sets it up when its log is opened.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include <QMenu>

#include <optional>

namespace {

using På = std::optional<bool>;          ///< nothing: stays as it is
using Text = std::optional<const char*>; ///< nothing: stays as it is

struct Uppsättning {
    int nummer;
    const char* titel;
    QStringList trafiksätt;
    bool trafiksättLåst;
    QStringList band;
    bool bandLåst;
    const char* rst; ///< as it stands when the form has been cleared for the first contact
    bool löpnr;
    Text löpnrFormat;
    const char* lblTyp;
    Text lblMultipelText;
    Text lblDiplomText;
    bool egenLokator;
    På txtZONMTabb;
    bool txtDiplomTabb;
    På cmbDiplom;
    bool längstaQSO; ///< "as is" comes to hidden: every open hides the label first
    int kolumn;      ///< of dgLogg, -1: none
    const char* kolumnRubrik;
    bool poängTexter; ///< RutPoäng 500 and KmPoäng 1
    bool mnuCW;
    bool mnuDigital;
};

const QStringList cw{"CW"}, ssb{"SSB"}, cwSsb{"CW", "SSB"}, cwSsbFt8{"CW", "SSB", "FT8"};
const QStringList m80m40{"80 M", "40 M"}, kortvåg{"80 M", "40 M", "20 M", "15 M", "10 M"};
constexpr auto kvar = std::nullopt;

// clang-format off
const Uppsättning uppsättningar[] = {
    {0,  "NAC 70 CM", cwSsb, false, {"70 CM"}, true, "599", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, false, true, true, true, 8, "Lokator", true, false, false},
    {1,  "NAC 2 M", cwSsbFt8, false, {"2 M"}, true, "599", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, false, true, true, true, 8, "Lokator", true, false, false},
    {2,  "NAC 6 M", cwSsbFt8, false, {"6 M"}, true, "599", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, false, true, true, true, 8, "Lokator", true, false, false},
    {3,  "NAC Test 10 M (CW)", cw, true, {"10 M"}, true, "599", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, kvar, true, true, false, 8, "Lokator", true, true, false},
    {4,  "NAC Test 10 M (SSB)", ssb, true, {"10 M"}, true, "59", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, kvar, true, true, false, 8, "Lokator", true, false, false},
    {5,  "NAC Test 10 M (FM)", {"FM"}, true, {"10 M"}, true, "59", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, kvar, true, true, false, 8, "Lokator", true, false, false},
    {6,  "NAC Test 10 M (Digi)", {"RTTY"}, true, {"10 M"}, true, "599", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, kvar, true, true, false, 8, "Lokator", true, false, true},
    {7,  "Månads Test KV (MT CW)", cw, true, m80m40, false, "599", true, "01",
     "Lokator", "Multiplar", "Rutor", true, kvar, true, true, false, 8, "Lokator", false, true, false},
    {8,  "Månads Test KV (MT SSB)", ssb, true, m80m40, false, "59", true, "01",
     "Lokator", "Multiplar", "Rutor", true, kvar, true, true, false, 8, "Lokator", false, false, false},
    {9,  "SAC Contest (CW)", cw, true, kortvåg, false, "599", true, "001",
     "", "Multiplar", "Prefix / Band", false, false, false, kvar, false, 11, "Prefix / Band", false, true, false},
    {10, "SAC Contest (SSB)", ssb, true, kortvåg, false, "59", true, "001",
     "", "Multiplar", "Prefix / Band", false, false, false, kvar, false, 11, "Prefix / Band", false, false, false},
    {11, "Kvartal Test", cwSsb, false, m80m40, false, "599", false, kvar,
     "Lokator", "Rut Poäng", "Antal Rutor", true, false, true, true, true, -1, "", true, false, false},
    {12, "NRAU Baltic Contest (CW)", cw, true, m80m40, false, "599", true, "001",
     "Län", kvar, kvar, false, kvar, true, true, false, -1, "", false, false, false},
    {13, "NRAU Baltic Contest (SSB)", ssb, true, m80m40, false, "59", true, "001",
     "Län", kvar, kvar, false, kvar, true, true, false, -1, "", false, false, false},
    {14, "VUS CHRISTMAS CONTEST", cwSsb, false, {"2 M", "70 CM", "24 CM"}, false, "599", true, "001",
     "Lokator", "Rut Poäng", "Antal Rutor", true, false, true, true, true, -1, "", true, false, false},
};
// clang-format on

void PrintTo(const Uppsättning& u, std::ostream* ut) { *ut << u.nummer << ' ' << u.titel; }

class Uppsättningar : public Programprov {
protected:
    /// Opens a log of the contest, copied from the template and numbered from outside as an old file would
    /// be.
    void ÖppnaGammal(int nummer) {
        const QString fil = Logg(QStringLiteral("test%1.svk").arg(nummer));
        if (!QFile::exists(fil)) {
            ASSERT_TRUE(QFile::copy(Fil("SVK"), fil));
            Ändra(fil, QStringLiteral("UPDATE INFO SET Aktuellt_Test=%1, LöpNr=7").arg(nummer));
        }
        filval.push_back(fil);
        frTest::instans().mnuArkiv_ÖppnaTestlogg_Click();
    }
    frTest& StartaMedStation() {
        Ändra(Fil("SVD.Dat"),
              "UPDATE SVDINI SET OpSignal='SK7MW', OpTestLokator='JO65MR', OpTestDatum='2026-12-01'");
        return Starta();
    }
    /// Puts everything that a set-up may leave alone into a state that no set-up makes.
    static void Märk(frTest& f, bool på) {
        f.txtZONM->TabStop(på);
        f.cmbDiplom->setEnabled(på);
        for (frTest::Fält* fält : {f.txtRSTM, f.txtRSTS, f.txtLöpnrM, f.txtDiplom}) fält->TabStop(!på);
        f.lblMultipelText->setText("förut");
        f.lblDiplomText->setText("förut");
        f.txtLokator->setText("XX00XX");
        f.lblLängstaQSO->setVisible(på);
        delat.LöpnrFormat = "01x";
        delat.RutPoäng = "R";
        delat.KmPoäng = "K";
        delat.DigitalTest = på;
        f.Meny("mnuCW")->menu()->setEnabled(på);
        f.Meny("mnuDigital")->menu()->setEnabled(på);
        f.cmbTrafik->Locked(på);
        f.cmbBand->Locked(på);
    }
};

class VarjeTest : public Uppsättningar, public testing::WithParamInterface<Uppsättning> {};

QStringList Poster(const platform::ComboBox& lista) {
    QStringList poster;
    for (int i = 0; i < lista.count(); ++i) poster += lista.itemText(i);
    return poster;
}

void KollaLista(const platform::ComboBox& lista, const QStringList& poster, bool låst) {
    SCOPED_TRACE(lista.objectName().toStdString());
    EXPECT_EQ(lista.Text(), poster.front());
    EXPECT_EQ(lista.Locked(), låst);
    if (!låst) {
        EXPECT_EQ(Poster(lista), poster);
        EXPECT_EQ(lista.currentIndex(), 0);
    } else {
        EXPECT_EQ(lista.lineEdit()->isReadOnly(), true);
    }
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Tester, VarjeTest, testing::ValuesIn(uppsättningar),
                         [](const auto& fall) { return std::to_string(fall.param.nummer); });

TEST_P(VarjeTest, FillsModesAndBands) {
    const Uppsättning& u = GetParam();
    frTest& f = StartaMedStation();
    for (bool på : {true, false}) {
        Märk(f, på);
        ÖppnaGammal(u.nummer);
        KollaLista(*f.cmbTrafik, u.trafiksätt, u.trafiksättLåst);
        KollaLista(*f.cmbBand, u.band, u.bandLåst);
    }
}

TEST_P(VarjeTest, SetsReportsAndSerials) {
    const Uppsättning& u = GetParam();
    frTest& f = StartaMedStation();
    for (bool på : {true, false}) {
        Märk(f, på);
        ÖppnaGammal(u.nummer);
        EXPECT_EQ(f.txtRSTS->text(), u.rst);
        EXPECT_EQ(f.txtRSTM->text(), u.rst);
        EXPECT_TRUE(f.txtRSTS->TabStop());
        EXPECT_TRUE(f.txtRSTM->TabStop());
        EXPECT_EQ(f.txtLöpnrM->TabStop(), u.löpnr);
        EXPECT_EQ(f.txtLöpnrS->isEnabled(), u.löpnr);
        EXPECT_TRUE(f.txtLöpnrM->isEnabled()) << "clearing the form enables it again in every contest";
        EXPECT_EQ(delat.LöpnrFormat, u.löpnrFormat.value_or("01x"));
        const QString väntat = !u.löpnrFormat ? "0007" : QLatin1String(*u.löpnrFormat) == "01" ? "07" : "007";
        EXPECT_EQ(f.txtLöpnrS->text(), väntat);
    }
}

TEST_P(VarjeTest, NamesTheExchangeAndTheScore) {
    const Uppsättning& u = GetParam();
    frTest& f = StartaMedStation();
    for (bool på : {true, false}) {
        Märk(f, på);
        ÖppnaGammal(u.nummer);
        EXPECT_EQ(f.windowTitle(), T(u.titel) + "  TestSignal: SK7MW");
        EXPECT_EQ(f.lblTyp->text(), T(u.lblTyp));
        EXPECT_EQ(f.lblMultipelText->text(), T(u.lblMultipelText.value_or("förut")));
        EXPECT_EQ(f.lblDiplomText->text(), T(u.lblDiplomText.value_or("förut")));
        EXPECT_EQ(f.txtLokator->text(), u.egenLokator ? "JO65MR" : "");
        EXPECT_EQ(f.txtZONM->TabStop(), u.txtZONMTabb.value_or(på));
        EXPECT_EQ(f.txtDiplom->TabStop(), u.txtDiplomTabb);
        EXPECT_EQ(f.cmbDiplom->isEnabled(), u.cmbDiplom.value_or(på));
        EXPECT_EQ(f.lblLängstaQSO->isVisible(), u.längstaQSO);
        EXPECT_EQ(delat.RutPoäng, u.poängTexter ? "500" : "R");
        EXPECT_EQ(delat.KmPoäng, u.poängTexter ? "1" : "K");
    }
}

TEST_P(VarjeTest, TurnsTheKeyingMenusOnOrOff) {
    const Uppsättning& u = GetParam();
    frTest& f = StartaMedStation();
    for (bool på : {true, false}) {
        Märk(f, på);
        ÖppnaGammal(u.nummer);
        EXPECT_EQ(f.Meny("mnuCW")->isEnabled(), u.mnuCW);
        EXPECT_EQ(f.Meny("mnuDigital")->isEnabled(), u.mnuDigital);
        EXPECT_EQ(delat.DigitalTest, u.mnuDigital);
        EXPECT_EQ(f.frmDigital->isVisible(), u.nummer == 6);
    }
}

TEST_P(VarjeTest, IsTheContestOfItsLogWhateverWasChosenAndCaptionsItsColumn) {
    const Uppsättning& u = GetParam();
    frTest& f = StartaMedStation();
    delat.AktuelltTest = (u.nummer + 5) % 15;
    ÖppnaGammal(u.nummer);
    EXPECT_EQ(delat.AktuelltTest, u.nummer);
    EXPECT_TRUE(f.HarLogg());
    EXPECT_EQ(f.dgLogg->Caption(8), u.kolumn == 8 ? "Lokator" : u.kolumn == 11 ? "LöpNr" : "Multiplar");
    EXPECT_EQ(f.dgLogg->Caption(11), u.kolumn == 11 ? T(u.kolumnRubrik) : "Zon");
}

TEST_F(Uppsättningar, OneContestAfterAnotherLeavesNoneOfTheFirstBehind) {
    frTest& f = StartaMedStation();
    for (const Uppsättning& före : uppsättningar) {
        for (const Uppsättning& u : uppsättningar) {
            if (u.nummer == före.nummer) continue;
            SCOPED_TRACE(testing::Message() << före.nummer << " then " << u.nummer);
            ÖppnaGammal(före.nummer);
            ÖppnaGammal(u.nummer);
            KollaLista(*f.cmbTrafik, u.trafiksätt, u.trafiksättLåst);
            KollaLista(*f.cmbBand, u.band, u.bandLåst);
            ASSERT_EQ(f.txtRSTS->text(), u.rst);
            ASSERT_EQ(f.txtLokator->text(), u.egenLokator ? "JO65MR" : "");
            ASSERT_EQ(f.Meny("mnuCW")->isEnabled(), u.mnuCW);
        }
    }
}

TEST_F(Uppsättningar, ALogOfContestFourReopenedNextYearIsContestFourAgain) {
    StartaLogg(4);
    nu = nu.addYears(1);
    frTest& g = StartaOm();
    delat.AktuelltTest = 11;
    filval.push_back(Logg());
    g.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(delat.AktuelltTest, 4);
    EXPECT_EQ(g.windowTitle(), "NAC Test 10 M (SSB)  TestSignal: SK7MW");
}

TEST_F(Uppsättningar, TheFourContestsWithoutAPresetReportKeepWhatTheModeGives) {
    frTest& f = StartaMedStation();
    for (int nummer : {0, 1, 2, 11}) {
        SCOPED_TRACE(nummer);
        ÖppnaGammal(nummer);
        EXPECT_EQ(f.txtRSTM->text(), "599");
        f.cmbTrafik->setCurrentIndex(1);
        EXPECT_EQ(f.cmbTrafik->Text(), "SSB");
        f.RensaTest();
        EXPECT_EQ(f.txtRSTM->text(), "59");
        EXPECT_EQ(f.txtRSTS->text(), "59");
    }
}

TEST_F(Uppsättningar, ALockedModeCannotBeChangedWithKeysAndAFreeOneCan) {
    frTest& f = StartaMedStation();
    ÖppnaGammal(3);
    SkrivI(f.cmbTrafik, "x");
    Tryck(Qt::Key_Down);
    EXPECT_EQ(f.cmbTrafik->Text(), "CW");
    ÖppnaGammal(14);
    f.cmbBand->setFocus();
    Tryck(Qt::Key_Down);
    EXPECT_EQ(f.cmbBand->Text(), "70 CM");
}

TEST_F(Uppsättningar, SavingInTheContestsWithoutASaverClearsTheFormAndStoresNothing) {
    frTest& f = StartaMedStation();
    for (int nummer : {11, 12, 13}) {
        SCOPED_TRACE(nummer);
        ÖppnaGammal(nummer);
        SkrivI(f.txtSignal, "sm5abc");
        f.txtDiplom->setFocus();
        Skriv("ab");
        Tryck(Qt::Key_Return);
        EXPECT_EQ(f.txtSignal->text(), "");
        EXPECT_EQ(f.txtDiplom->text(), "");
        const QString fil = Logg(QStringLiteral("test%1.svk").arg(nummer));
        EXPECT_EQ(LäsEtt(fil, "SELECT count(*) FROM TESTQSO"), "0");
        EXPECT_EQ(LäsEtt(fil, "SELECT LöpNr FROM INFO"), "7");
        for (const QLabel* etikett :
             {f.lblQSO, f.lblTotalPoäng, f.lblTotalQSOPoäng, f.lblMultiplar, f.lblDiplom})
            EXPECT_EQ(etikett->text(), "0") << etikett->objectName().toStdString();
    }
}

TEST_F(Uppsättningar, TheClearingRefreshesTheSerialFromTheLog) {
    frTest& f = StartaMedStation();
    ÖppnaGammal(9);
    f.txtLöpnrS->setText("99");
    f.Initiera_Contest();
    EXPECT_EQ(f.txtLöpnrS->text(), "007");
}

// ---- numbers outside the catalogue --------------------------------------------------------------------

TEST_F(Uppsättningar, ANumberOutsideTheCatalogueLeavesEverySetUpOut) {
    frTest& f = StartaMedStation();
    for (int nummer : {15, 20, -1}) {
        SCOPED_TRACE(nummer);
        Märk(f, true);
        f.lblTyp->setText("förut");
        ÖppnaGammal(nummer);
        EXPECT_EQ(delat.AktuelltTest, nummer);
        EXPECT_TRUE(f.HarLogg());
        for (const platform::ComboBox* lista : {f.cmbTrafik, f.cmbBand}) {
            EXPECT_EQ(lista->Text(), "");
            EXPECT_EQ(lista->count(), 0);
            EXPECT_FALSE(lista->Locked());
        }
        EXPECT_EQ(f.txtLokator->text(), "");
        EXPECT_EQ(f.lblTyp->text(), "förut");
        EXPECT_EQ(f.lblMultipelText->text(), "förut");
        EXPECT_EQ(delat.LöpnrFormat, "01x");
        EXPECT_FALSE(f.Meny("mnuCW")->isEnabled());
        EXPECT_FALSE(f.Meny("mnuDigital")->isEnabled());
        EXPECT_FALSE(delat.DigitalTest);
    }
}

TEST_F(Uppsättningar, AContactInALogOutsideTheCatalogueIsNotStored) {
    frTest& f = StartaMedStation();
    ÖppnaGammal(20);
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(LäsEtt(Logg("test20.svk"), "SELECT count(*) FROM TESTQSO"), "0");
}

TEST_F(Uppsättningar, TheNumberThatMeansNoContestRefusesTheSave) {
    frTest& f = StartaMedStation();
    ÖppnaGammal(255);
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag(), (Meddelande{T("Du har inte valt någon Test!"), T("Välj en TEST")}));
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_FALSE(delat.TidGår);
}

TEST_F(Uppsättningar, TheNumbersOfStatesAndProvincesReadTheirOwnColumns) {
    for (int nummer : {41, 42}) {
        SCOPED_TRACE(nummer);
        const QString fil = Logg(QStringLiteral("test%1.svk").arg(nummer));
        ASSERT_TRUE(QFile::copy(Fil("SVK"), fil));
        Ändra(fil, QStringLiteral("UPDATE INFO SET Aktuellt_Test=%1").arg(nummer));
        for (const char* kolumn : {"State", "Province"})
            Ändra(fil, QStringLiteral("ALTER TABLE TESTQSO ADD COLUMN %1 TEXT").arg(QLatin1String(kolumn)));
        frTest& f = StartaOm();
        ÖppnaGammal(nummer);
        EXPECT_TRUE(db().rsState.IsOpen());
        EXPECT_TRUE(db().rsProvince.IsOpen());
        EXPECT_FALSE(db().rsSignal.IsOpen());
        EXPECT_FALSE(db().rsDXCC.IsOpen());
        f.UppdateraTest();
        f.StängTestLogg();
        EXPECT_FALSE(db().rsState.IsOpen());
        EXPECT_FALSE(db().rsProvince.IsOpen());
    }
}
