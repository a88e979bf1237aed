// The spot windows: from a spot to the entry form, the store with its search, the presets.
#include "cluster/Klusterprov.h"

#include "cluster/frDXSpottFörval.h"
#include "cluster/frDXSpottLogg.h"
#include "platform/launch.h"
#include "platform/sound.h"
#include "platform/textfile.h"
#include "platform/windows.h"
#include "radio/ModuleTest.h"

#include <QDir>
#include <QFile>

namespace {

class SpottvyProv : public Klusterprov {
protected:
    ~SpottvyProv() override {
        platform::Sounds() = {};
        platform::Launches() = {};
    }
    static frDXSpottLogg& Loggfönster() { return frDXSpottLogg::instans(); }
    /// The live grid on screen.
    static frDXSpott& Levande() {
        frDXSpott& f = frDXSpott::instans();
        f.Visa();
        EXPECT_TRUE(Aktivera(f));
        return f;
    }
    static frDXSpottLogg& Sök(const QString& ord) {
        frDXSpottLogg& f = Loggfönster();
        f.txtSökOrd->setText(ord);
        f.cmdSök->click();
        return f;
    }
    /// A store with five spots of a minute each.
    void FyllLager() {
        for (const auto& [signal, kHz, notering] : {std::tuple{"SM5ABC", "14025.5", "CQ NAC  1234Z"},
                                                    {"SM7XYZ", "14200.0", "SM STAR 1235Z"},
                                                    {"OH2BH", "7005.0", "SM5 WKD  1236Z"},
                                                    {"LA1XX", "432050.0", "         1237Z"},
                                                    {"OZ1AA", "145500.0", "SMOKE   1238Z"}}) {
            Ta(Rad(signal, kHz, notering));
            nu = nu.addSecs(60);
        }
    }
};

using Poster = std::vector<std::vector<QString>>;

} // namespace

// ---- the live grid ------------------------------------------------------------------------------------

TEST_F(SpottvyProv, ADoubleClickCarriesTheSpotToTheEntryForm) {
    frTest& f = StartaLogg(9); // SAC, with several bands
    Ta(Rad("SM5ABC", "7005.0") + Rad("OH2BH", "21025.5"));
    Dubbelklicka(*Levande().fgDXSpott, 1);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.txtFrekvens->text(), "7,005,00");
    EXPECT_EQ(f.cmbBand->Text(), "40 M");
    EXPECT_EQ(f.lblLand->text(), "Sverige");
    EXPECT_TRUE(HarFokus(f.txtSignal));
    Dubbelklicka(*Levande().fgDXSpott, 2);
    EXPECT_EQ(f.txtSignal->text(), "OH2BH");
    EXPECT_EQ(f.cmbBand->Text(), "15 M");
}

TEST_F(SpottvyProv, TheSpotUnderTheMouseIsTakenAlsoWhenAnotherComesBetweenTheClicks) {
    frTest& f = StartaLogg(9);
    Ta(Rad("SM5ABC", "7005.0") + Rad("OH2BH", "21025.5"));
    platform::FlexGrid& rutnät = *Levande().fgDXSpott;
    QPoint plats = rutnät.visualItemRect(rutnät.item(1, 1)).center();
    QTest::mouseClick(rutnät.viewport(), Qt::LeftButton, {}, plats);
    Ta(Rad("LA1XX", "13000.0") + Rad("OZ1AA"));
    QTest::mouseDClick(rutnät.viewport(), Qt::LeftButton, {}, plats);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    Loggfönster().Visa();
    ASSERT_TRUE(Aktivera(Loggfönster()));
    platform::DataGrid& logg = *Loggfönster().dgDXspottLogg;
    logg.Refresh();
    plats = logg.visualRect(logg.model()->index(1, 2)).center();
    QTest::mouseClick(logg.viewport(), Qt::LeftButton, {}, plats);
    Ta(Rad("SK0AA"));
    QTest::mouseDClick(logg.viewport(), Qt::LeftButton, {}, plats);
    EXPECT_EQ(f.txtSignal->text(), "OH2BH");
}

TEST_F(SpottvyProv, AnEmptyRowEmptiesTheFormByTheMenu) {
    frTest& f = StartaLogg(1);
    f.txtSignal->setText("SM5ABC");
    f.Meny("mnuDXSpot_Visa")->trigger();
    EXPECT_EQ(f.txtSignal->text(), "");
}

TEST_F(SpottvyProv, ASpotGoesToTheFormAlsoWithNoLogOpen) {
    frTest& f = StartaLogg(1);
    Ta(Rad("SM5ABC", "144050.0"));
    f.mnuArkiv_StängTestlogg_Click();
    Levande().fgDXSpott->Row(1);
    frDXSpott::instans().fgDXSpott_DblClick();
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    f.Meny("mnuDXSpot_Visa")->trigger();
    EXPECT_EQ(f.txtFrekvens->text(), "144,050,00");
}

TEST_F(SpottvyProv, ModeAndBandAreSetWhereTheListsHaveThemAndOtherwiseStay) {
    frTest& f = StartaLogg(9);
    f.cmbTrafik->Clear();
    for (const char* text : {"SSB", "CW"}) f.cmbTrafik->addItem(text);
    f.cmbBand->Clear();
    for (const char* text : {"80 M", "20 M", "2 M", "70 CM"}) f.cmbBand->addItem(text);
    Ta(Rad("SM5ABC", "14025.5") + Rad("SM5ABC", "21025.5") + Rad("SM5ABC", "432050.0") +
       Rad("SM5ABC", "145500.0"));
    frDXSpott& spottar = Levande();
    const auto välj = [&](int rad) {
        spottar.fgDXSpott->Row(rad);
        spottar.fgDXSpott_DblClick();
        return f.cmbTrafik->Text() + u' ' + f.cmbBand->Text();
    };
    EXPECT_EQ(välj(1), "CW 20 M");
    f.cmbTrafik->setCurrentIndex(0);
    EXPECT_EQ(välj(2), "CW 20 M") << "no 15 m in the list";
    EXPECT_EQ(välj(3), "CW 70 CM");
    EXPECT_EQ(välj(4), "CW 2 M") << "no FM in the list; 2 is not 20";
}

TEST_F(SpottvyProv, CallAndFrequencyStandInTheFormWhenTheBandIsClicked) {
    frTest& f = StartaLogg(9);
    QStringList ordning;
    f.txtSignal->OnChange([&] { ordning << "signal"; });
    f.txtFrekvens->OnChange([&] { ordning << "frekvens"; });
    f.cmbTrafik->Clear();
    f.cmbTrafik->addItem("CW");
    f.cmbTrafik->setCurrentIndex(-1);
    f.cmbTrafik->OnClick([&] { ordning << "trafik"; });
    f.cmbBand->OnClick([&] { ordning << "band " + f.txtFrekvens->text(); });
    Ta(Rad("SM5ABC", "21025.5"));
    Levande().fgDXSpott->Row(1);
    frDXSpott::instans().fgDXSpott_DblClick();
    EXPECT_EQ(ordning, (QStringList{"signal", "frekvens", "trafik", "band 21,025,50"}));
    frDXSpott::instans().fgDXSpott_DblClick();
    EXPECT_EQ(ordning.size(), 4) << "what stands there already is not clicked again";
}

TEST_F(SpottvyProv, ADoubleClickOnAnEmptyRowOnlyMovesTheFocus) {
    frTest& f = StartaLogg(9);
    f.txtFrekvens->setText("1,830,00");
    Dubbelklicka(*Levande().fgDXSpott, 3);
    EXPECT_TRUE(HarFokus(f.txtSignal));
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(f.txtFrekvens->text(), "1,830,00");
}

TEST_F(SpottvyProv, ACallThatNoSearchCanHoldIsNotTaken) {
    frTest& f = StartaLogg(9);
    Ta(Rad("XX9'B"));
    Dubbelklicka(*Levande().fgDXSpott, 1);
    EXPECT_EQ(Tag().text, "Signalen XX9'B kan inte loggas.");
    EXPECT_EQ(f.txtSignal->text(), "");
    frDXSpott::instans().fgDXSpott->Row(1);
    f.Meny("mnuDXSpot_Visa")->trigger();
    EXPECT_EQ(Tag().text, "Signalen XX9'B kan inte loggas.");
}

TEST_F(SpottvyProv, TheMenuTakesTheCurrentSpotIntoAnEmptiedForm) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    Ta(Rad("SM5ABC", "144050.0") + Rad("OH2BH", "144060.0"));
    f.txtNamn->setText("Nils");
    Rutnät().Row(1);
    f.Meny("mnuDXSpot_Visa")->trigger();
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.txtFrekvens->text(), "144,050,00");
    EXPECT_EQ(f.txtNamn->text(), "");
    EXPECT_EQ(db().rsTidigare.RecordCount(), 1) << "earlier contacts are shown";
}

TEST_F(SpottvyProv, TheWindowMenuShowsBothWindows) {
    frTest& f = StartaLogg(1);
    f.Meny("mnuFönster_DXSpot")->trigger();
    EXPECT_TRUE(frDXSpott::instans().isVisible());
    EXPECT_TRUE(frDXCluster::instans().isVisible());
    EXPECT_EQ(frDXSpott::instans().windowTitle(), "DX Spot");
}

TEST_F(SpottvyProv, ControlCharactersOfACallAreNotDrawn) {
    StartaLogg(1);
    const platform::OneLineDelegate visning;
    EXPECT_EQ(visning.displayText("XX\a9\r\nBB", QLocale()), "XX9BB");
}

// ---- the store ----------------------------------------------------------------------------------------

TEST_F(SpottvyProv, TheLogWindowShowsTheStoreAndStandsOnItsLastSpot) {
    frTest& f = StartaLogg(1);
    FyllLager();
    f.Meny("mnuDXSpot_logg")->trigger();
    frDXSpottLogg& l = Loggfönster();
    EXPECT_TRUE(l.isVisible());
    EXPECT_EQ(l.windowTitle(), "DX Spot Logg");
    EXPECT_TRUE(l.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(l.txtSumma->text(), "5");
    EXPECT_EQ(l.dgDXspottLogg->model()->rowCount(), 5);
    EXPECT_EQ(db().rsDXSpottLogg.Field("Signal").text(), "OZ1AA");
    QStringList rubriker;
    for (int i = 0; i < l.dgDXspottLogg->model()->columnCount(); ++i) rubriker << l.dgDXspottLogg->Caption(i);
    EXPECT_EQ(rubriker, (QStringList{"Datum", "Tid", "Signal", "Frekvens", "DXBand", T("TrafikSätt"),
                                     "Notering", "Spott Tid", "Prefix"}));
    l.close();
    f.Meny("mnufrDXSpotMeny_VisaLogg")->trigger();
    EXPECT_TRUE(l.isVisible());
    Ta(Rad("SK0AA"));
    l.dgDXspottLogg->Refresh();
    EXPECT_EQ(l.dgDXspottLogg->model()->rowCount(), 6) << "it follows what comes in";
    EXPECT_EQ(l.txtSumma->text(), "6");
    EXPECT_EQ(l.cmdSök->text() + l.cmdTömLogg->text() + l.cmdAvbryt->text(), T("SökTöm LoggAvbryt"));
    EXPECT_EQ(l.txtSökOrd->accessibleName() + l.txtSumma->accessibleName(), T("Sök DX Spot :Antal:"));
}

TEST_F(SpottvyProv, ASearchFindsAWordInSixColumns) {
    StartaLogg(1);
    FyllLager();
    struct Fall {
        const char *ord, *antal;
    };
    for (const Fall& fall : {Fall{"SM5ABC", "1"}, Fall{"sm5abc", "1"}, Fall{"14,200,00", "1"},
                             Fall{"19:02:00", "1"}, Fall{"2026-12-01", "5"}, Fall{"CQ NAC", "1"},
                             Fall{"  1234Z", "1"}, Fall{"SM5", "0"}, Fall{"CW", "0"}, Fall{"SM", "0"}}) {
        EXPECT_EQ(Sök(fall.ord).txtSumma->text(), fall.antal) << fall.ord;
        EXPECT_EQ(Loggfönster().txtSökOrd->text(), "");
    }
}

TEST_F(SpottvyProv, WithAStarItFindsWhatBeginsSo) {
    StartaLogg(1);
    FyllLager();
    EXPECT_EQ(Sök("SM*").txtSumma->text(), "4") << "two calls and two notes";
    EXPECT_EQ(Sök("*").txtSumma->text(), "5");
    EXPECT_EQ(Sök("19:0*").txtSumma->text(), "5");
    EXPECT_EQ(Sök("QQ*").txtSumma->text(), "0");
}

TEST_F(SpottvyProv, AvbrytShowsTheWholeStoreAgain) {
    StartaLogg(1);
    FyllLager();
    frDXSpottLogg& l = Sök("SM5ABC");
    l.txtSökOrd->setText("X");
    l.cmdAvbryt->click();
    EXPECT_EQ(l.txtSumma->text(), "5");
    EXPECT_EQ(l.txtSökOrd->text(), "");
    EXPECT_EQ(db().rsDXSpottLogg.Filter(), "");
}

TEST_F(SpottvyProv, AnEmptySearchDoesNothingAndTheWordIsTypedInCapitals) {
    StartaLogg(1);
    FyllLager();
    frDXSpottLogg& l = Sök("SM5ABC");
    l.cmdSök->click();
    EXPECT_EQ(l.txtSumma->text(), "1");
    l.Visa();
    ASSERT_TRUE(Aktivera(l));
    SkrivI(l.txtSökOrd, "oh2*");
    EXPECT_EQ(l.txtSökOrd->text(), "OH2*");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(l.txtSumma->text(), "1");
    EXPECT_EQ(db().rsDXSpottLogg.Field("Signal").text(), "OH2BH");
}

TEST_F(SpottvyProv, AWordWithAnApostropheFailsAsAFilter) {
    StartaLogg(1);
    FyllLager();
    frDXSpottLogg& l = Sök("73'");
    EXPECT_EQ(Tag().text, T("Sökningen kan inte göras. Kontrollera texten."));
    EXPECT_EQ(l.txtSökOrd->text(), "73'");
    EXPECT_EQ(db().rsDXSpottLogg.RecordCount(), 5);
}

TEST_F(SpottvyProv, ADoubleClickInTheLogCarriesItsSpotToTheEntryForm) {
    frTest& f = StartaLogg(9);
    f.cmbTrafik->Clear();
    for (const char* text : {"SSB", "CW"}) f.cmbTrafik->addItem(text);
    Ta(Rad("SM5ABC", "7005.0"));
    Ta(Rad("OH2BH", "14200.0"));
    f.Meny("mnuDXSpot_logg")->trigger();
    frDXSpottLogg& l = Loggfönster();
    ASSERT_TRUE(Aktivera(l));
    l.dgDXspottLogg->Refresh();
    Dubbelklicka(*l.dgDXspottLogg, 0);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.txtFrekvens->text(), "7,005,00");
    EXPECT_EQ(f.cmbTrafik->Text(), "CW");
    EXPECT_EQ(f.cmbBand->Text(), "40 M");
    EXPECT_TRUE(HarFokus(f.txtSignal));
}

TEST_F(SpottvyProv, EmptyingReplacesTheFileAndAsksNothing) {
    frTest& f = StartaLogg(1);
    FyllLager();
    f.Meny("mnuDXSpot_logg")->trigger();
    Loggfönster().cmdTömLogg->click();
    EXPECT_EQ(Loggfönster().txtSumma->text(), "0");
    EXPECT_TRUE(Loggfönster().dgDXspottLogg->Bound());
    EXPECT_EQ(AntalLagrade(), 0);
    EXPECT_EQ(db().rsDXSpottLogg.Sort(), "Datum");
    EXPECT_TRUE(kluster.ClusterLäser);
    Ta(Rad("SM5ABC"));
    EXPECT_EQ(AntalLagrade(), 1);
    StartaOm();
    EXPECT_EQ(db().rsDXSpottLogg.RecordCount(), 1);
}

TEST_F(SpottvyProv, TheEmptyFileItselfTakesThePlaceOfTheStore) {
    StartaLogg(1);
    FyllLager();
    Ändra(Fil("DXS"), "INSERT INTO DXSpottLogg (Signal) VALUES ('MALL')");
    Loggfönster().TömDXSpottLogg();
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), "SELECT Signal FROM DXSpottLogg"), "MALL");
    EXPECT_EQ(db().rsDXSpottLogg.RecordCount(), 1);
}

TEST_F(SpottvyProv, AnEmptyFileThatIsNoStoreDoesNotTakeItsPlace) {
    StartaLogg(1);
    FyllLager();
    platform::SaveTextFile(Fil("DXS"), "ingen databas");
    Loggfönster().TömDXSpottLogg();
    EXPECT_EQ(Tag().titel, T("mnuDXSpott_DXLogg_TömLogg"));
    EXPECT_EQ(AntalLagrade(), 5);
    EXPECT_EQ(db().rsDXSpottLogg.RecordCount(), 5);
}

TEST_F(SpottvyProv, TheMenuEmptiesTooWithoutTheWindow) {
    frTest& f = StartaLogg(1);
    FyllLager();
    f.Meny("mnuDXSpott_DXLogg_TömLogg")->trigger();
    EXPECT_EQ(AntalLagrade(), 0);
    EXPECT_FALSE(Loggfönster().isVisible());
    EXPECT_FALSE(Loggfönster().dgDXspottLogg->Bound());
}

TEST_F(SpottvyProv, AnEmptyStoreIsLeftAlone) {
    StartaLogg(1);
    ASSERT_TRUE(QFile::remove(Fil("DXS")));
    Loggfönster().TömDXSpottLogg();
    EXPECT_FALSE(kluster.ClusterLäser);
    FyllLager();
    db().rsDXSpottLogg.Filter("Signal = 'QQ'");
    Loggfönster().TömDXSpottLogg();
    EXPECT_EQ(AntalLagrade(), 5) << "nor is one whose search has found nothing";
}

TEST_F(SpottvyProv, AnEmptyingThatFailsKeepsTheStoreAndGivesItsMessage) {
    frTest& f = StartaLogg(1);
    FyllLager();
    f.Meny("mnuDXSpot_logg")->trigger();
    ASSERT_TRUE(QFile::remove(Fil("DXS")));
    Loggfönster().TömDXSpottLogg();
    EXPECT_EQ(Tag(), (Meddelande{T("Ett fel har inträffat vid tömning av DXSpottLogg."),
                                 T("mnuDXSpott_DXLogg_TömLogg")}));
    EXPECT_EQ(AntalLagrade(), 5);
    EXPECT_EQ(Loggfönster().txtSumma->text(), "5");
    Ta(Rad("SK0AA"));
    EXPECT_EQ(AntalLagrade(), 6) << "and spots go on being stored";
}

TEST_F(SpottvyProv, WithTheDatabasesClosedTheWindowsSayNothingWrong) {
    frTest& f = StartaLogg(1);
    FyllLager();
    StängDatabasar();
    f.Meny("mnuDXSpot_logg")->trigger();
    EXPECT_EQ(Loggfönster().txtSumma->text(), "");
    Loggfönster().cmdAvbryt->click();
    Loggfönster().dgDXspottLogg_DblClick();
    Sök("SM5ABC");
    EXPECT_EQ(Tag().text, T("Sökningen kan inte göras. Kontrollera texten."));
    Loggfönster().TömDXSpottLogg();
    EXPECT_EQ(Tag().titel, T("mnuDXSpott_DXLogg_TömLogg"));
    EXPECT_EQ(AntalLagrade(), 5);
}

// ---- the presets --------------------------------------------------------------------------------------

TEST_F(SpottvyProv, ThePresetsAreReadAtTheStartAndWrittenAtTheExit) {
    cluster::Spottförval förval;
    förval.SpotBandVal[4] = false;
    förval.SpotTrafikVal[7] = false;
    förval.SpotLjudPå = true;
    förval.SpotLjudFil = "4.wav";
    platform::SaveTextFile(Fil(T("INI/DXSpottFörval.ini")), cluster::FörvalTillText(förval));
    frTest& f = StartaLogg(1);
    EXPECT_EQ(SpotFörval, förval);
    frDXSpottFörval& v = frDXSpottFörval::instans();
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(v.chkBand[4]->isChecked());
    EXPECT_FALSE(v.chkTrafiksätt[7]->isChecked());
    EXPECT_EQ(v.cmbljud->currentText(), "Ljud 4");
    SpotFörval.SpotBandVal[9] = förval.SpotBandVal[9] = false;
    jaNej = {true};
    EXPECT_THROW(f.close(), ProcessSlut);
    EXPECT_EQ(platform::LoadTextFile(Fil(T("INI/DXSpottFörval.ini"))), cluster::FörvalTillText(förval));
}

TEST_F(SpottvyProv, AMissingFileOfPresetsMeansEverything) {
    QFile::remove(Fil(T("INI/DXSpottFörval.ini")));
    StartaLogg(1);
    EXPECT_EQ(SpotFörval, cluster::Spottförval{});
}

TEST_F(SpottvyProv, AFileOfPresetsThatCannotBeReadGivesItsMessageAndMeansEverything) {
    platform::SaveTextFile(Fil(T("INI/DXSpottFörval.ini")), "#FALSE#\r\nnej\r\n");
    StartaLogg(1);
    EXPECT_EQ(
        Tag(),
        (Meddelande{T("Ett fel har inträffat vid inläsning av ini-filen för DXSpott förval. Värden sätts "
                      "till standard."),
                    T("LäsDXSpottFörvalIni")}));
    EXPECT_EQ(SpotFörval, cluster::Spottförval{});
}

TEST_F(SpottvyProv, ThePresetsThatCannotBeWrittenGiveTheirMessage) {
    StartaLogg(1);
    ASSERT_TRUE(QDir(Fil("INI")).removeRecursively());
    frDXSpottFörval::instans().SparaDXSpottFörvalIni();
    EXPECT_EQ(Tag(), (Meddelande{T("Ett fel har inträffat vid sparning av ini-filen för DXSpott förval."),
                                 T("SparaDXSpottFörvalIni")}));
}

TEST_F(SpottvyProv, ASaveThatFailsGivesItsMessageAndClosesTheWindow) {
    StartaLogg(1);
    frDXSpottFörval& v = frDXSpottFörval::instans();
    v.Visa();
    ASSERT_TRUE(QDir(Fil("INI")).removeRecursively());
    v.cmdSpara->click();
    EXPECT_EQ(Tag().titel, T("SparaDXSpottFörvalIni"));
    EXPECT_FALSE(v.isVisible());
}

TEST_F(SpottvyProv, TheWindowReadsTheFileEachTimeItComesUp) {
    StartaLogg(1);
    cluster::Spottförval förval;
    förval.SpotBandVal[1] = false;
    platform::SaveTextFile(Fil(T("INI/DXSpottFörval.ini")), cluster::FörvalTillText(förval));
    frDXSpottFörval::instans().Visa();
    EXPECT_FALSE(frDXSpottFörval::instans().chkBand[1]->isChecked());
}

TEST_F(SpottvyProv, ASoundFileOutsideTheListIsKept) {
    for (const char* fil : {"11.wav", "egen.wav", "", "1e999999.wav"}) {
        platform::SaveTextFile(Fil(T("INI/DXSpottFörval.ini")),
                               cluster::FörvalTillText({}).replace("1.wav", QString::fromUtf8(fil)));
        StartaLogg(1);
        frDXSpottFörval& v = frDXSpottFörval::instans();
        EXPECT_EQ(v.cmbljud->currentIndex(), -1) << fil;
        v.cmdSpara->click();
        EXPECT_EQ(SpotFörval.SpotLjudFil, fil);
        platform::DestroyAllWindows();
        NollställDatabaser();
    }
}

TEST_F(SpottvyProv, TheWindowHasABoxForEachBandAndMode) {
    frTest& f = StartaLogg(1);
    f.Meny("mnuDXSpot_Förval")->trigger();
    frDXSpottFörval& v = frDXSpottFörval::instans();
    EXPECT_TRUE(v.isVisible());
    EXPECT_EQ(v.windowTitle(), T("Förval  DX Spot"));
    QStringList band, trafiksätt, ljud;
    for (size_t i = 1; i < v.chkBand.size(); ++i) {
        band << v.chkBand[i]->text();
        EXPECT_EQ(v.chkBand[i]->objectName(), QStringLiteral("chkBand(%1)").arg(i));
    }
    for (size_t i = 1; i < v.chkTrafiksätt.size(); ++i) {
        trafiksätt << v.chkTrafiksätt[i]->text();
        EXPECT_EQ(v.chkTrafiksätt[i]->objectName(), QStringLiteral("chkTrafiksätt(%1)").arg(i));
    }
    for (int i = 0; i < v.cmbljud->count(); ++i) ljud << v.cmbljud->itemText(i);
    EXPECT_EQ(v.cmdBandAlla->text() + v.cmdTrafiksättAlla->text() + v.cmdSpara->text() + v.cmdAvbryt->text(),
              T("AllaAllaSparaStäng"));
    EXPECT_EQ(band.join('|'), "160 M|80 M|40 M|20 M|15 M|10 M|6 M|2 M|70 CM");
    EXPECT_EQ(trafiksätt.join('|'), "CW|SSB|RTTY|PSK31/63|SSTV|AM|FM");
    EXPECT_EQ(ljud.join('|'), "Ljud 1|Ljud 2|Ljud 3|Ljud 4|Ljud 5|Ljud 6|Ljud 7|Ljud 8|Ljud 9|Ljud 10");
}

TEST_F(SpottvyProv, AllaAndIngenSetTheirGroup) {
    StartaLogg(1);
    frDXSpottFörval& v = frDXSpottFörval::instans();
    const auto på = [](auto& rutor) {
        return std::count_if(rutor.begin() + 1, rutor.end(),
                             [](const QCheckBox* ruta) { return ruta->isChecked(); });
    };
    v.cmdBandIngen->click();
    EXPECT_EQ(på(v.chkBand), 0);
    EXPECT_EQ(på(v.chkTrafiksätt), 7);
    v.cmdTrafiksättIngen->click();
    EXPECT_EQ(på(v.chkTrafiksätt), 0);
    v.cmdBandAlla->click();
    EXPECT_EQ(på(v.chkBand), 9);
    EXPECT_EQ(på(v.chkTrafiksätt), 0);
    v.cmdTrafiksättAlla->click();
    EXPECT_EQ(på(v.chkTrafiksätt), 7);
}

TEST_F(SpottvyProv, SparaTakesTheBoxesAndWritesTheSoundInLineEleven) {
    StartaLogg(1);
    frDXSpottFörval& v = frDXSpottFörval::instans();
    v.Visa();
    v.cmdBandIngen->click();
    v.chkBand[8]->setChecked(true);
    v.chkTrafiksätt[1]->setChecked(false);
    v.cmbljud->setCurrentText("Ljud 3");
    EXPECT_TRUE(SpotFörval.SpotBandVal[1]) << "nothing is chosen before it is saved";
    v.cmdSpara->click();
    EXPECT_FALSE(v.isVisible());
    EXPECT_EQ(platform::LoadTextFile(Fil(T("INI/DXSpottFörval.ini"))),
              QStringLiteral("#FALSE#\r\n").repeated(7) +
                  "#TRUE#\r\n#FALSE#\r\n#FALSE#\r\n3.wav\r\n#FALSE#\r\n" +
                  QStringLiteral("#TRUE#\r\n").repeated(6));
    EXPECT_TRUE(SpotFörval.SpotBandVal[8]);
    EXPECT_FALSE(SpotFörval.SpotTrafikVal[1]);
}

TEST_F(SpottvyProv, StängLeavesTheChoiceAndTheBoxesFollowItTheNextTime) {
    StartaLogg(1);
    frDXSpottFörval& v = frDXSpottFörval::instans();
    v.Visa();
    v.cmdBandIngen->click();
    v.cmdAvbryt->click();
    EXPECT_EQ(SpotFörval, cluster::Spottförval{});
    v.Visa();
    EXPECT_TRUE(v.chkBand[1]->isChecked());
}

// ---- sounds -------------------------------------------------------------------------------------------

TEST_F(SpottvyProv, EachOfTheTenSoundsCanBeTriedWithoutBeingChosen) {
    StartaLogg(1);
    QStringList spelade;
    platform::Sounds().play = [&](const QString& fil) { spelade << fil; };
    frDXSpottFörval& v = frDXSpottFörval::instans();
    for (int i = 1; i <= 10; ++i) {
        v.cmbljud->setCurrentIndex(i - 1);
        v.Command1->click();
        EXPECT_EQ(spelade.value(i - 1), Fil(QStringLiteral("Ljud/Test/%1.wav").arg(i)));
    }
    EXPECT_EQ(v.Command1->text(), "Prova ljud");
    EXPECT_EQ(SpotFörval.SpotLjudFil, "1.wav");
}

TEST_F(SpottvyProv, AMissingSoundSaysNothingAndABrokenOneGivesItsMessage) {
    StartaLogg(1);
    QStringList spelade;
    platform::Sounds().play = [&](const QString& fil) { spelade << fil; };
    SpotFörval.SpotLjudFil = "11.wav";
    SpelaLjud();
    EXPECT_TRUE(spelade.isEmpty());
    platform::SaveTextFile(Fil("Ljud/Test/11.wav"), "inget ljud");
    SpelaLjud();
    EXPECT_EQ(Tag(), (Meddelande{T("Kan inte spela upp ljud! Kontrollera att valda ljudfiler existerar."),
                                 T("SpelaLjud")}));
}

TEST_F(SpottvyProv, TheVolumeControlIsAProgramOfItsOwn) {
    frTest& f = StartaLogg(1);
    QStringList startade;
    bool finns = true;
    platform::Launches().program = [&](const QString& program, const QStringList&) {
        startade << program;
        return finns;
    };
    f.Meny("mnuInställning_Volymkontroll")->trigger();
    EXPECT_EQ(startade, QStringList("pavucontrol"));
    finns = false;
    f.Meny("mnuInställning_Volymkontroll")->trigger();
    EXPECT_EQ(Tag().text, "Volymkontrollen (pavucontrol) kan inte startas.");
}

TEST_F(SpottvyProv, TheSoundEntriesWithoutAnActionDoNothing) {
    frTest& f = StartaLogg(1);
    bool något = false;
    platform::Sounds().play = [&](const QString&) { något = true; };
    platform::Launches().program = [&](const QString&, const QStringList&) { return något = true; };
    const auto synliga = [] {
        const QWidgetList alla = QApplication::topLevelWidgets();
        return std::count_if(alla.begin(), alla.end(),
                             [](const QWidget* fönster) { return fönster->isVisible(); });
    };
    const auto före = synliga();
    for (const char* namn : {"mnuFönster_Spelaljudfiler", "mnuCW_CWTest", "mnuCW_CWTestInst"})
        f.Meny(namn)->trigger();
    EXPECT_EQ(synliga(), före);
    EXPECT_FALSE(något);
}
