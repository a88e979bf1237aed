// What the savers put into the log, column by column, and what they do with the serial.
#include "Sparprov.h"

namespace {

/// Every column of the log, in the order of the template.
const QString allaKolumner = QStringLiteral("Datum, Tid, Signal, Frekvens, Trafiksätt, [Band ], Sänt, "
                                            "Mottaget, Multiplar, LöpNr, Namn, QTH, ITU, Zon, "
                                            "Diplom, DXCC, Land, Notering, Prefix, [DXCC Nr], Poäng, "
                                            "Distrikt, NDXCC, NRUTA, Dubblett, Rutor, LöpNrSR");

/// The form of a contact whose every field can be told from the others.
void FyllTysk() {
    frTest& f = frTest::instans();
    f.txtSignal->setText("DL1ABC"); // the look-up fills what is set anew below
    f.txtDatum->setText("2026-12-24");
    f.txtUTCTid->setText("18:04:11");
    f.txtFrekvens->setText("3,512,50");
    f.txtRSTM->setText("579");
    f.txtRSTS->setText("589");
    f.txtLöpnrM->setText("017");
    f.txtLöpnrS->setText("042");
    f.txtNamn->setText("Karl");
    f.txtNotering->setText("not this one");
    f.txtITUM->setText("28");
    f.txtZONM->setText("14");
    f.txtDiplom->setText("JO62QM");
    f.lblLand->setText("Tyskland");
    f.txtPrefix->setText("DL1");
    f.txtDXCCNR->setText("230");
    f.lblQSOPoäng->setText("812");
    f.txtNDXCC->setText("N1");
    f.txtNRUTA->setText("N2");
    f.txtDubblett->setText("D");
    frEditorTest::instans().txtNotering->setText("anm");
}

/// Another contact, as it stands on the form when the row is edited.
void FyllFransk() {
    frTest& f = frTest::instans();
    f.txtSignal->setText("F5XYZ");
    f.txtDatum->setText("2026-12-25");
    f.txtUTCTid->setText("19:05:12");
    f.txtFrekvens->setText("7,010,00");
    f.cmbTrafik->Text("AM");
    f.cmbBand->Text("6 M");
    f.txtRSTM->setText("559 123");
    f.txtRSTS->setText("569 456");
    f.txtLöpnrM->setText("888");
    f.txtLöpnrS->setText("999");
    f.txtNamn->setText("Luc");
    f.txtITUM->setText("27");
    f.txtZONM->setText("15");
    f.txtDiplom->setText("JN18");
    f.lblDXCC->setText("F");
    f.lblKont->setText("EU");
    f.lblLand->setText("Frankrike");
    f.txtPrefix->setText("F5");
    f.txtDXCCNR->setText("227");
    f.lblQSOPoäng->setText("77");
    f.txtNDXCC->setText("n1");
    f.txtNRUTA->setText("n2");
    f.txtDubblett->setText("d");
    frEditorTest::instans().txtNotering->setText("ny");
}

void TömFälten() {
    const frTest& f = frTest::instans();
    for (frTest::Fält* fält :
         {f.txtDatum, f.txtUTCTid, f.txtSignal, f.txtFrekvens, f.txtRSTM, f.txtRSTS, f.txtLöpnrM, f.txtNamn,
          f.txtITUM, f.txtZONM, f.txtDiplom, f.txtPrefix, f.txtDXCCNR, f.txtNDXCC, f.txtNRUTA, f.txtDubblett})
        fält->clear();
    f.lblLand->clear();
    f.lblDXCC->clear();
    f.lblKont->clear();
    f.lblQSOPoäng->setText("0");
    frEditorTest::instans().txtNotering->clear();
}

} // namespace

class Spararprov : public Sparprov {
protected:
    /// Stores what stands on the form over the only row of the log.
    static void SparaÖver(int test) {
        db().rsTESTQSO.Filter(QString()); // the band grid's, which the chain would lift
        delat.RedigeraQSO = true;
        delat.RedigeradBookmark = db().rsTESTQSO.GetBookmark();
        SparaTestQSO(test);
        delat.RedigeraQSO = false;
    }
};

// ---- whole rows ---------------------------------------------------------------------------------------

struct Radfall {
    int test;
    const char* ny;
    const char* redigerad;
    const char* tömd; ///< the same row once every field was emptied
};
void PrintTo(const Radfall& fall, std::ostream* ut) { *ut << fall.test; }

class Sparares : public Spararprov, public ::testing::WithParamInterface<Radfall> {};

TEST_P(Sparares, ColumnsOfANewRowOfAnEditedAndOfAnEmptiedOne) {
    const Radfall& fall = GetParam();
    StartaKlar(fall.test);
    FyllTysk();
    SparaTestQSO(fall.test);
    EXPECT_EQ(Rader(allaKolumner), QStringList{fall.ny});
    FyllFransk();
    SparaÖver(fall.test);
    EXPECT_EQ(Rader(allaKolumner), QStringList{fall.redigerad});
    TömFälten();
    SparaÖver(fall.test);
    EXPECT_EQ(Rader(allaKolumner), QStringList{fall.tömd});
}

// clang-format off
// The serial sent has the width of the last contest that set one, four digits before any has.
#define VHF(test, trafik, band) \
    Radfall{test, \
        "2026-12-24|18:04:11|DL1ABC|3,512,50|" trafik "|" band "|589|579|JO62QM|017|Karl||28|14|JO62|DL|Tyskland|anm|DL1|230|812||N1|N2|D|JO62|0042", \
        "2026-12-25|19:05:12|F5XYZ|7,010,00|AM|6 M|569 456|559 123|JN18|017|Luc||27|15|JN18|F|Frankrike|ny|F5|227|77||n1|n2|d|JN18|", \
        "|||7,010,00|AM|6 M||||017||||" "|JN18||||||0|||||JN18|"}
#define MT(test, trafik) \
    Radfall{test, \
        "2026-12-24|18:04:11|DL1ABC|3,512,50|" trafik "|80 M|589 42|579 017|JO62QM|017|Karl||28|14|JO62 80 M|DL|Tyskland|anm|DL1|230|812||N1|N2|D|JO62 80 M|42", \
        "2026-12-25|19:05:12|F5XYZ|7,010,00|AM|6 M|569 456|559 123|JN18|23|Luc||27|15|JN18 6 M|F|Frankrike|ny|F5|227|77||n1|n2|d|JN18 6 M|56", \
        "|||7,010,00|AM|6 M||||||||" "|JN18 6 M||||||0|||||JN18 6 M|"}
#define SAC(test, trafik) \
    Radfall{test, \
        "2026-12-24|18:04:11|DL1ABC|3,512,50|" trafik "|80 M|589 042|579 017|DL1|017|Karl||28|14|DL1 (80 M)|DL|Tyskland|anm|DL1|230|812||N1|N2|D||042", \
        "2026-12-25|19:05:12|F5XYZ|7,010,00|AM|6 M|569 456|559 123|F5|123|Luc||27|15|F5 (6 M)|F|Frankrike|ny|F5|227|77||n1|n2|d||456", \
        "|||7,010,00|AM|6 M||||||||" "| (6 M)||||||0||||||"}
INSTANTIATE_TEST_SUITE_P(AllaTester, Sparares, ::testing::Values(
    VHF(0, "CW", "70 CM"), VHF(1, "CW", "2 M"), VHF(2, "CW", "6 M"),
    VHF(3, "CW", "10 M"), VHF(4, "SSB", "10 M"), VHF(5, "FM", "10 M"), VHF(6, "RTTY", "10 M"),
    MT(7, "CW"), MT(8, "SSB"), SAC(9, "CW"), SAC(10, "SSB"),
    Radfall{14,
        "2026-12-24|18:04:11|DL1ABC|3,512,50|CW|2 M|589|579|JO62QM|017|Karl||28|14|JO62|DL|Tyskland|anm|DL1|230|812||N1|N2|D|JO62|042",
        "2026-12-25|19:05:12|F5XYZ|7,010,00|AM|6 M|569 456|559 123|JN18|017|Luc||27|15|JN18|F|Frankrike|ny|F5|227|77||n1|n2|d|JN18|",
        "|||7,010,00|AM|6 M||||017|||||JN18||||||0|||||JN18|"}));
#undef VHF
#undef MT
#undef SAC
// clang-format on

TEST_F(Spararprov, AContactWithNothingButTheMandatoryFieldsLeavesNoNull) {
    StartaKlar(1).txtSignal->setText("SM5ABC");
    SparaTestQSO(1);
    EXPECT_EQ(Rader(allaKolumner).join(','), "2026-12-01|18:00:00|SM5ABC|0,000,00|CW|2 M|599|599||||"
                                             "|18|14||SM|Sverige||SM5|284|0||N||||0001");
}

TEST_F(Spararprov, TheNoteIsTheEditorsFieldWhichNeedNotBeOnTheScreen) {
    StartaKlar(1);
    FyllTysk();
    EXPECT_FALSE(frEditorTest::instans().isVisible());
    SparaTestQSO(1);
    EXPECT_EQ(Rader("Notering"), QStringList{"anm"});
    EXPECT_EQ(frEditorTest::instans().txtNotering->text(), "anm") << "a save does not clear it";
}

TEST_F(Spararprov, ColumnsThatNoSaverNamesKeepWhatAnotherWindowHasPutThere) {
    StartaKlar(9);
    FyllTysk();
    SparaTestQSO(9);
    platform::Recordset& logg = db().rsTESTQSO;
    logg.Filter(QString());
    for (const char* kolumn : {"QTH", "Distrikt", "Rutor"})
        logg.Field(QString::fromUtf8(kolumn), QString("x"));
    logg.Update();
    SparaÖver(9);
    EXPECT_EQ(Rader("QTH, Distrikt, Rutor"), QStringList{"x|x|x"});
}

// ---- the exchange -------------------------------------------------------------------------------------

struct Utbytesfall {
    int test;
    const char* typ;
    const char* diplom;
    const char* rad; ///< Multiplar|Diplom|Rutor
};
void PrintTo(const Utbytesfall& fall, std::ostream* ut) { *ut << fall.test << " \"" << fall.diplom << '"'; }
class Utbytet : public Spararprov, public ::testing::WithParamInterface<Utbytesfall> {};

TEST_P(Utbytet, GoesIntoThreeColumns) {
    const Utbytesfall& fall = GetParam();
    frTest& f = StartaKlar(fall.test);
    FyllTysk();
    if (fall.typ) f.lblTyp->setText(fall.typ);
    f.txtDiplom->setText(fall.diplom);
    SparaTestQSO(fall.test);
    EXPECT_EQ(Rader("Multiplar, Diplom, Rutor"), QStringList{fall.rad});
}
INSTANTIATE_TEST_SUITE_P(VHF, Utbytet,
                         ::testing::Values(Utbytesfall{1, nullptr, "JO62QM", "JO62QM|JO62|JO62"},
                                           Utbytesfall{1, nullptr, "", "||"},
                                           Utbytesfall{1, nullptr, "J", "J|J|"},
                                           Utbytesfall{1, nullptr, "JO6", "JO6|JO6|"},
                                           Utbytesfall{1, nullptr, "JO62", "JO62|JO62|JO62"},
                                           Utbytesfall{1, nullptr, "JO62Q", "JO62Q|JO62|JO62"},
                                           Utbytesfall{1, nullptr, "JO65MR", "JO65MR|JO65|JO65"},
                                           Utbytesfall{1, "Diplom", "JO62QM", "|JO62|JO62"},
                                           Utbytesfall{4, nullptr, "JO62QM", "JO62QM|JO62|JO62"},
                                           Utbytesfall{4, nullptr, "JO6", "JO6|JO6|"},
                                           Utbytesfall{4, "Diplom", "JO62QM", "|JO62|JO62"},
                                           Utbytesfall{14, nullptr, "JO62QM", "JO62QM|JO62|JO62"},
                                           Utbytesfall{14, nullptr, "JO6", "JO6|JO6|"},
                                           Utbytesfall{14, "Diplom", "JO62QM", "|JO62|JO62"}));
INSTANTIATE_TEST_SUITE_P(Månadstest, Utbytet,
                         ::testing::Values(Utbytesfall{7, nullptr, "JO62QM", "JO62QM|JO62 80 M|JO62 80 M"},
                                           Utbytesfall{7, nullptr, "JO62", "JO62|JO62 80 M|JO62 80 M"},
                                           Utbytesfall{7, nullptr, "JO6", "||"},
                                           Utbytesfall{7, nullptr, "", "||"},
                                           Utbytesfall{7, nullptr, "JO62Q", "JO62Q|JO62 80 M|JO62 80 M"},
                                           // The own square is no multiplier.
                                           Utbytesfall{7, nullptr, "JO65MR", "JO65MR||JO65 80 M"},
                                           Utbytesfall{7, nullptr, "JO65AA", "JO65AA||JO65 80 M"},
                                           Utbytesfall{7, nullptr, "JO65", "JO65||JO65 80 M"},
                                           Utbytesfall{7, "Diplom", "JO62QM", "JO62QM|JO62 80 M|JO62 80 M"},
                                           Utbytesfall{8, nullptr, "JO65MR", "JO65MR||JO65 80 M"}));
INSTANTIATE_TEST_SUITE_P(SAC, Utbytet,
                         ::testing::Values(Utbytesfall{9, nullptr, "", "DL1|DL1 (80 M)|"},
                                           Utbytesfall{9, nullptr, "JO62QM", "DL1|DL1 (80 M)|"},
                                           Utbytesfall{9, "Diplom", "JO62QM", "DL1|DL1 (80 M)|"},
                                           Utbytesfall{10, nullptr, "", "DL1|DL1 (80 M)|"}));

TEST_F(Spararprov, TheOwnSquareInAnEditedMånadstestRowLeavesTheMultiplierThatStoodThere) {
    frTest& f = StartaKlar(7);
    FyllTysk();
    SparaTestQSO(7);
    f.txtDiplom->setText("JO65MR");
    SparaÖver(7);
    EXPECT_EQ(Rader("Multiplar, Diplom, Rutor"), QStringList{"JO65MR|JO62 80 M|JO65 80 M"});
}

// ---- SAC and the Nordic stations ----------------------------------------------------------------------

struct Nordfall {
    const char* dxcc;
    const char* kontinent;
    bool nordisk;
};
void PrintTo(const Nordfall& fall, std::ostream* ut) { *ut << fall.dxcc << ' ' << fall.kontinent; }
class Norden : public Spararprov, public ::testing::WithParamInterface<Nordfall> {};

TEST_P(Norden, EndsTheRowBeforeCountryAndPoints) {
    const Nordfall& fall = GetParam();
    frTest& f = StartaKlar(9);
    FyllTysk();
    f.lblDXCC->setText(fall.dxcc);
    f.lblKont->setText(fall.kontinent);
    SparaTestQSO(9);
    const QString kolumner =
        "ITU, Zon, Multiplar, Diplom, Rutor, DXCC, Land, Notering, Prefix, [DXCC Nr], Poäng, "
        "Distrikt, NDXCC, NRUTA, Dubblett";
    if (fall.nordisk)
        EXPECT_EQ(Rader(kolumner), QStringList{"28|14|JO62QM||||||||0||||"});
    else
        EXPECT_EQ(
            Rader(kolumner),
            QStringList{
                QStringLiteral("28|14|DL1|DL1 (80 M)||%1|Tyskland|anm|DL1|230|812||N1|N2|D").arg(fall.dxcc)});
}
INSTANTIATE_TEST_SUITE_P(Länder, Norden,
                         ::testing::Values(Nordfall{"OX", "NA", true}, Nordfall{"OJ0", "EU", true},
                                           Nordfall{"JX", "EU", true}, Nordfall{"JW", "EU", true},
                                           Nordfall{"OH", "EU", true}, Nordfall{"TF", "EU", true},
                                           Nordfall{"OZ", "EU", true}, Nordfall{"LA", "EU", true},
                                           Nordfall{"SM", "EU", true}, Nordfall{"OY", "EU", true},
                                           Nordfall{"OY", "NA", false}, Nordfall{"OH0", "EU", false},
                                           Nordfall{"DL", "EU", false}));

TEST_F(Spararprov, ANordicStationInAnEditedSACRowKeepsCountryAndPointsAsTheyWere) {
    frTest& f = StartaKlar(9);
    FyllTysk();
    SparaTestQSO(9);
    FyllFransk();
    f.lblDXCC->setText("OZ");
    SparaÖver(9);
    EXPECT_EQ(
        Rader(allaKolumner),
        QStringList{
            "2026-12-25|19:05:12|F5XYZ|7,010,00|AM|6 M|569 456|559 123|JN18|123|Luc||27|15|DL1 (80 M)|DL|"
            "Tyskland|anm|DL1|230|812||N1|N2|D||456"});
}

// ---- serials ------------------------------------------------------------------------------------------

struct Löpnrfall {
    int test;
    const char* iFilen; ///< INFO.LöpNr after one new contact
    const char* iFältet;
};
void PrintTo(const Löpnrfall& fall, std::ostream* ut) { *ut << fall.test; }
class Löpnumret : public Spararprov, public ::testing::WithParamInterface<Löpnrfall> {};

TEST_P(Löpnumret, MovesOnWithANewContactAndNotWithAnEditedOne) {
    const Löpnrfall& fall = GetParam();
    frTest& f = StartaKlar(fall.test);
    FyllTysk();
    SparaTestQSO(fall.test);
    EXPECT_EQ(INFO("LöpNr"), fall.iFilen);
    f.RensaTest();
    EXPECT_EQ(f.txtLöpnrS->text(), fall.iFältet);
    FyllFransk();
    SparaÖver(fall.test);
    EXPECT_EQ(INFO("LöpNr"), fall.iFilen);
}
INSTANTIATE_TEST_SUITE_P(AllaTester, Löpnumret,
                         ::testing::Values(Löpnrfall{0, "1", "0001"}, Löpnrfall{1, "1", "0001"},
                                           Löpnrfall{2, "1", "0001"}, Löpnrfall{3, "1", "0001"},
                                           Löpnrfall{4, "1", "0001"}, Löpnrfall{5, "1", "0001"},
                                           Löpnrfall{6, "1", "0001"}, Löpnrfall{7, "2", "02"},
                                           Löpnrfall{8, "2", "02"}, Löpnrfall{9, "2", "002"},
                                           Löpnrfall{10, "2", "002"}, Löpnrfall{14, "2", "002"}));

TEST_F(Spararprov, TheSaverItselfShowsTheNextSerial) {
    frTest& f = StartaKlar(9);
    FyllTysk();
    SparaTestQSO(9);
    EXPECT_EQ(f.txtLöpnrS->text(), "002");
}

TEST_F(Spararprov, SerialsTypedAndCountedStandInTheRowsOfAMånadstest) {
    frTest& f = StartaKlar(7);
    for (const auto& [signal, mottaget] :
         {std::pair("sm5abc", "1"), std::pair("sm6xyz", "12"), std::pair("dl1abc", "")}) {
        SkrivI(f.txtSignal, signal);
        SkrivI(f.txtLöpnrM, mottaget);
        SkrivI(f.txtDiplom, "jo62qm");
        Tryck(Qt::Key_Return);
    }
    EXPECT_EQ(
        Rader("Signal, Sänt, Mottaget, LöpNrSR, LöpNr"),
        (QStringList{"SM5ABC|599 01|599 01|01|01", "SM6XYZ|599 02|599 12|02|12", "DL1ABC|599 03|599 |03|"}));
    EXPECT_EQ(INFO("LöpNr"), "4");
    EXPECT_EQ(f.txtLöpnrS->text(), "04");
}

TEST_F(Spararprov, TheCounterGoesOnFromWhatAnotherStationHasLeftInTheFile) {
    frTest& f = StartaKlar(14);
    Ändra(Logg(), "UPDATE INFO SET LöpNr=10");
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Rader("LöpNrSR"), QStringList{"001"}) << "the number that was on the form and was sent";
    EXPECT_EQ(INFO("LöpNr"), "11");
    EXPECT_EQ(f.txtLöpnrS->text(), "011");
}

TEST_F(Spararprov, TheCounterLeavesTheOtherColumnsOfAnotherStationAlone) {
    StartaKlar(7);
    Ändra(Logg(), "UPDATE INFO SET AktivTid='01:00:00', ViloTid='00:10:00'");
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(INFO("AktivTid || ' ' || ViloTid"), "01:00:00 00:10:00");
}

TEST_F(Spararprov, SerialsGrowBeyondTheirWidth) {
    frTest& f = StartaKlar(7);
    Ändra(Logg(), "UPDATE INFO SET LöpNr=99");
    f.RensaTest();
    Kör("sm5abc", "jo89wj");
    Kör("sm6abc", "jo89wj");
    EXPECT_EQ(f.txtLöpnrS->text(), "101");
    EXPECT_EQ(INFO("LöpNr"), "101");
}

TEST_F(Spararprov, OnlyMånadstestWouldLeaveTheCountingToAServer) {
    for (const auto& [test, löpnr] : {std::pair(7, "1"), std::pair(9, "2"), std::pair(14, "2")}) {
        if (test == 7)
            StartaKlar(test);
        else
            NyLogg(test, "prov.svk");
        delat.NätverkAnsluten = true;
        delat.NätverkMapp = "9";
        FyllTysk();
        SparaTestQSO(test);
        delat.NätverkAnsluten = false;
        EXPECT_EQ(Antal(), 1);
        EXPECT_EQ(INFO("LöpNr"), löpnr) << test;
        if (test != 7) continue;
        EXPECT_EQ(frTest::instans().txtLöpnrS->text(), "91") << "folder and counter in one text";
    }
}

// ---- after the row is written -------------------------------------------------------------------------

TEST_F(Spararprov, TheLogIsShownInTheOrderOfDateAndTime) {
    frTest& f = StartaKlar(1);
    for (const auto& [signal, minuter] :
         {std::pair("sm5abc", 0), std::pair("sm6xyz", -10), std::pair("dl1abc", 5)}) {
        nu = QDateTime(QDate(2026, 12, 1), QTime(19, 0)).addSecs(60 * minuter);
        f.TestTimer_Tick();
        Kör(signal, "jo62qm");
    }
    EXPECT_EQ(Rader("Tid, Signal"), (QStringList{"18:00:00|SM5ABC", "17:50:00|SM6XYZ", "18:05:00|DL1ABC"}));
    ASSERT_TRUE(QTest::qWaitFor([&f] { return f.dgLogg->model()->rowCount() == 3; }));
    QStringList visade;
    for (int rad = 0; rad < 3; ++rad) visade += f.dgLogg->model()->index(rad, 2).data().toString();
    EXPECT_EQ(visade, (QStringList{"SM6XYZ", "SM5ABC", "DL1ABC"}));
    EXPECT_EQ(db().rsTESTQSO.Field("Signal").text(), "DL1ABC") << "the newest is in sight";
}

// ---- failures -----------------------------------------------------------------------------------------

struct Felfall {
    int test;
    const char* text;
};
void PrintTo(const Felfall& fall, std::ostream* ut) { *ut << fall.test; }
class Sparfel : public Spararprov, public ::testing::WithParamInterface<Felfall> {
protected:
    /// Another program makes the log refuse every write of that kind.
    void Vägra(const char* vad) {
        Ändra(Logg(),
              QStringLiteral("CREATE TRIGGER vägra BEFORE %1 BEGIN SELECT RAISE(ABORT, 'no'); END").arg(vad));
    }
    void SläppIgenom() { Ändra(Logg(), "DROP TRIGGER vägra"); }
    static Meddelande Felet() { return {GetParam().text, "SparaQSO"}; }
};
const char* const medVersaler = "Ett fel har inträffat vid Sparande/Uppdatering av QSO.";
const char* const medGemener = "Ett fel har inträffat vid sparande/uppdatering av QSO.";
INSTANTIATE_TEST_SUITE_P(AllaTester, Sparfel,
                         ::testing::Values(Felfall{0, medVersaler}, Felfall{1, medVersaler},
                                           Felfall{2, medVersaler}, Felfall{3, medGemener},
                                           Felfall{4, medGemener}, Felfall{5, medGemener},
                                           Felfall{6, medGemener}, Felfall{7, medGemener},
                                           Felfall{8, medGemener}, Felfall{9, medGemener},
                                           Felfall{10, medGemener}, Felfall{14, medVersaler}));

TEST_P(Sparfel, ANewRowThatCannotBeWrittenIsHeldAndWrittenByTheNextSave) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo62qm");
    const QString löpnr = INFO("LöpNr");
    Vägra("INSERT ON TESTQSO");
    Kör("dl2abc", "jo63aa");
    EXPECT_EQ(Tag(), Felet());
    EXPECT_EQ(Rader("Signal"), QStringList{"DL1ABC"});
    EXPECT_EQ(INFO("LöpNr"), löpnr) << "no serial without its contact";
    EXPECT_EQ(f.txtSignal->text(), "") << "the form is cleared all the same";
    EXPECT_EQ(f.lblQSO->text(), "1");
    SläppIgenom();
    Kör("dl3abc", "jo64aa");
    EXPECT_EQ(Rader("Signal, Prefix, DXCC"), (QStringList{"DL1ABC|DL|DL", "DL2ABC|DL|DL", "DL3ABC|DL|DL"}));
    EXPECT_EQ(f.lblQSO->text(), "3");
}

TEST_P(Sparfel, AnEditedRowThatCannotBeWrittenIsHeldAndWrittenByTheNextSave) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo62qm");
    Redigera(0);
    SkrivI(f.txtNamn, "Karl");
    Vägra("UPDATE ON TESTQSO");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag(), Felet());
    EXPECT_EQ(Rader("Signal, Namn"), QStringList{"DL1ABC|"});
    EXPECT_FALSE(delat.RedigeraQSO);
    SläppIgenom();
    Kör("dl3abc", "jo64aa");
    EXPECT_EQ(Rader("Signal, Namn"), (QStringList{"DL1ABC|Karl", "DL3ABC|"}));
}

TEST_P(Sparfel, ARowThatAnotherStationHasChangedIsNotWrittenOver) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo62qm");
    Redigera(0);
    SkrivI(f.txtNamn, "Karl");
    Ändra(Logg(), "UPDATE TESTQSO SET Namn='Otto'");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag(), Felet());
    EXPECT_EQ(Rader("Signal, Namn"), QStringList{"DL1ABC|Otto"});
    EXPECT_EQ(f.txtSignal->text(), "");
    Kör("dl3abc", "jo64aa");
    EXPECT_EQ(Rader("Signal, Namn"), (QStringList{"DL1ABC|Otto", "DL3ABC|"}));
}

TEST_P(Sparfel, ARowThatAnotherStationHasDeletedIsToldAndNotMadeAnew) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo62qm");
    Redigera(0);
    SkrivI(f.txtNamn, "Karl");
    Ändra(Logg(), "DELETE FROM TESTQSO");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag(), Felet());
    EXPECT_EQ(Antal(), 0);
    EXPECT_EQ(f.txtSignal->text(), "");
    Kör("dl3abc", "jo64aa");
    EXPECT_EQ(Rader("Signal"), QStringList{"DL3ABC"});
}

class Serialfel : public Sparfel {};
INSTANTIATE_TEST_SUITE_P(TesterMedLöpnummer, Serialfel,
                         ::testing::Values(Felfall{7, medGemener}, Felfall{8, medGemener},
                                           Felfall{9, medGemener}, Felfall{10, medGemener},
                                           Felfall{14, medVersaler}));

TEST_P(Serialfel, ContactAndSerialAreWrittenTogetherOrNotAtAll) {
    const int test = GetParam().test;
    StartaKlar(test);
    Kör("dl1abc", "jo62qm");
    Vägra("UPDATE OF LöpNr ON INFO");
    Kör("dl2abc", "jo63aa");
    EXPECT_EQ(Tag(), Felet());
    EXPECT_EQ(Rader("Signal"), QStringList{"DL1ABC"});
    EXPECT_EQ(INFO("LöpNr"), "2");
    SläppIgenom();
    Kör("dl3abc", "jo64aa");
    // Both have the number that was on the form and was sent; the counter has moved once for the last.
    EXPECT_EQ(Rader("Signal, LöpNrSR").join(','),
              test <= 8 ? "DL1ABC|01,DL2ABC|02,DL3ABC|02" : "DL1ABC|001,DL2ABC|002,DL3ABC|002");
    EXPECT_EQ(INFO("LöpNr"), "3");
}
