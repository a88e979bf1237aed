// What an outside reader finds in the files that the program writes, and what its cursors show of them.
#include "support/Programprov.h"
#include "support/ToPrint.h"

namespace {

struct Tabell {
    const char* fil; ///< below Data/; empty: the log
    const char* namn;
    QStringList kolumner;
    QStringList tal; ///< the columns that hold numbers
};

const QStringList band{"160 M", "80 M", "40 M", "30 M", "20 M", "17 M",
                       "15 M",  "12 M", "10 M", "6 M",  "2 M",  "70 CM"};

// clang-format off
const Tabell tabeller[] = {
    {"", "TESTQSO",
     {"Datum", "Tid", "Signal", "Frekvens", "Trafiksätt", "Band ", "Sänt", "Mottaget", "Multiplar", "LöpNr", "Namn",
      "QTH", "ITU", "Zon", "Diplom", "DXCC", "Land", "Notering", "Prefix", "DXCC Nr", "Poäng", "Distrikt", "NDXCC",
      "NRUTA", "Dubblett", "Rutor", "LöpNrSR"}, {"Poäng"}},
    {"", "TESTDXCC",
     QStringList{"DXCC", "Kod"} + band + QStringList{"CW", "SSB", "AM", "FM", "RTTY", "PSK31", "PSK", "SSTV"}, {}},
    {"", "INFO", {"Aktuellt_Test", "LöpNr", "AktivTid", "ViloTid", "LängstaQSOSträng", "QSOLängd"},
     {"Aktuellt_Test", "LöpNr", "QSOLängd"}},
    {"Data.Dat", "Prefix", {"Prefix", "Land", "DXCC", "Kontinent", "Tid", "ITU", "Zon", "Kod", "Lokator"}, {}},
    {"Lokator.dat", "Lokator", {"Signal", "Lokator"}, {}},
    {"Lokator.hdb", "Lokator", {"Signal", "Lokator"}, {}},
    {"Friend.dat", "Friend", {"Signal", "Namn"}, {}},
    {"Friend.hdb", "Friend", {"Signal", "Namn"}, {}},
    {"DXSpott.Dat", "DXSpottLogg",
     {"Datum", "Tid", "Signal", "Frekvens", "DXBand", "Trafiksätt", "Notering", "Prefix", "Spott Tid"}, {}},
    {"SVD.Dat", "SVDINI",
     {"EgenSignal", "OpSignal", "OpNamn", "OpAdress", "OpPostnr", "OpPostadr", "OpEmail", "OpLand", "OpITU", "OpZon",
      "OpPrefix", "OpTestLokator", "OpUTCTid", "OpRig", "OpAntenn", "OpHöjdHav", "OpHöjdLand", "OpKlubbSignal",
      "OpTestDatum", "OpEffekt", "OpEpost", "OpEdit"}, {}},
};
// clang-format on

class SchemaProv : public Programprov {
protected:
    QString Antal(const QString& villkor) const {
        return LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO WHERE " + villkor);
    }
    void Rad(const QString& kolumner, const QString& värden) {
        Ändra(Logg(), "INSERT INTO TESTQSO (" + kolumner + ") VALUES (" + värden + ")");
    }
    /// Opens the log again, as another program has left it.
    void ÖppnaIgen() {
        filval.push_back(Logg());
        frTest::instans().mnuArkiv_ÖppnaTestlogg_Click();
    }
};

QStringList Värden(const platform::Recordset& markör) {
    QStringList värden;
    for (qsizetype i = 0; i < markör.RecordCount(); ++i) värden += markör.At(i, 0).text();
    return värden;
}

} // namespace

// ---- the files ----------------------------------------------------------------------------------------

TEST_F(SchemaProv, EveryTableHasItsColumnsTextAllButTheNumbers) {
    StartaLogg(1);
    for (const Tabell& tabell : tabeller) {
        SCOPED_TRACE(testing::Message() << tabell.fil << ' ' << tabell.namn);
        const QString fil = *tabell.fil ? Fil(T(tabell.fil)) : Logg();
        QStringList kolumner;
        for (const auto& rad :
             Läs(fil, QStringLiteral("SELECT name, type FROM pragma_table_info('%1')").arg(T(tabell.namn)))) {
            kolumner += rad[0];
            EXPECT_EQ(rad[1] != "TEXT", tabell.tal.contains(rad[0])) << rad[0].toStdString();
        }
        EXPECT_EQ(kolumner, tabell.kolumner);
    }
}

TEST_F(SchemaProv, ALogHoldsItsThreeTablesAndOneRowOfInfo) {
    StartaLogg(1);
    EXPECT_EQ(LäsEtt(Logg(),
                     "SELECT group_concat(name) FROM (SELECT name FROM sqlite_master WHERE type='table' "
                     "ORDER BY name)"),
              "INFO,TESTDXCC,TESTQSO");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM INFO"), "1");
}

TEST_F(SchemaProv, EveryCountryHasItsRowAndNoneIsWorkedYet) {
    StartaLogg(1);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTDXCC WHERE DXCC='SM'"), "1");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) - count(DISTINCT DXCC) FROM TESTDXCC"), "0");
    EXPECT_EQ(LäsEtt(Logg(),
                     "SELECT count(*) FROM TESTDXCC WHERE coalesce(\"80 M\",'')<>'' OR coalesce(CW,'')<>''"),
              "0");
}

TEST_F(SchemaProv, TheNumbersOfInfoAreNumbers) {
    StartaLogg(9);
    Kör("dl1abc", "001");
    for (const char* kolumn : {"Aktuellt_Test", "LöpNr", "QSOLängd"})
        EXPECT_EQ(LäsEtt(Logg(), QStringLiteral("SELECT typeof(%1) FROM INFO").arg(T(kolumn))), "integer")
            << kolumn;
}

TEST_F(SchemaProv, ASavedContactHasNoNullInAnyContestAndItsPointsAreANumber) {
    Starta();
    Ändra(Fil("SVD.Dat"),
          "UPDATE SVDINI SET OpSignal='SK7MW', OpTestLokator='JO65MR', OpTestDatum='2026-12-01'");
    frTest& f = StartaOm();
    for (int test : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14}) {
        SCOPED_TRACE(test);
        const QString namn = QStringLiteral("%1.svk").arg(test);
        NyLogg(test, namn);
        f.TestTimer_Tick();
        SkrivI(f.txtSignal, test == 9 || test == 10 ? "dl1abc" : "sm5abc");
        f.txtLöpnrM->setText("001");
        f.txtDiplom->setFocus();
        f.txtDiplom->clear(); // it is remembered from the contest before
        Skriv("jo89wj");
        Tryck(Qt::Key_Return);
        ASSERT_EQ(LäsEtt(Logg(namn), "SELECT count(*) FROM TESTQSO"), "1");
        for (const QString& kolumn : tabeller[0].kolumner)
            EXPECT_EQ(LäsEtt(Logg(namn), QStringLiteral("SELECT typeof(\"%1\") FROM TESTQSO").arg(kolumn)),
                      kolumn == "Poäng" ? "integer" : "text")
                << kolumn.toStdString();
    }
}

TEST_F(SchemaProv, AnotherProgramCanReadTheLogWhileItIsOpenAndFindsNoWriteAheadLog) {
    StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Antal("Signal='SM5ABC'"), "1");
    EXPECT_EQ(LäsEtt(Logg(), "PRAGMA journal_mode"), "delete");
    EXPECT_EQ(LäsEtt(Logg(), "PRAGMA integrity_check"), "ok");
}

// ---- the cursors of the log ---------------------------------------------------------------------------

TEST_F(SchemaProv, EveryCursorShowsTheColumnsOfItsSource) {
    StartaLogg(1);
    Databaser& d = db();
    const std::pair<const platform::Recordset*, QStringList> väntat[] = {
        {&d.rsTESTQSO, tabeller[0].kolumner},
        {&d.rsTESTDXCC, tabeller[1].kolumner},
        {&d.rsINFO, tabeller[2].kolumner},
        {&d.rsDXCCBand, {"DXCC Nr", "Band ", "ITU", "Zon"}},
        {&d.rsITU, {"ITU"}},
        {&d.rsZon, {"Zon"}},
        {&d.rsTidigare, {"Datum", "Tid", "Signal", "Frekvens", "Trafiksätt", "Band ", "Sänt", "Mottaget"}},
        {&d.rsPoäng, {"Poäng"}},
        {&d.rsSignal, {"Signal"}},
        {&d.rsDXCC, {"DXCC"}},
        {&d.rsDiplom, {"Diplom"}},
        {&d.rsDistrikt, {"Distrikt"}},
        {&d.rsRutor, {"Rutor"}},
        {&d.rsMultiplar, {"Multiplar"}}};
    for (const auto& [markör, kolumner] : väntat) EXPECT_EQ(markör->FieldNames(), kolumner);
}

TEST_F(SchemaProv, ANewLogHasNoRowsAndEveryCountIsNought) {
    frTest& f = StartaLogg(1);
    const Databaser& d = db();
    for (const platform::Recordset* markör :
         {&d.rsTESTQSO, &d.rsDXCCBand, &d.rsITU, &d.rsZon, &d.rsTidigare, &d.rsPoäng, &d.rsSignal, &d.rsDXCC,
          &d.rsDiplom, &d.rsDistrikt, &d.rsRutor, &d.rsMultiplar})
        EXPECT_EQ(markör->RecordCount(), 0);
    f.UppdateraTest();
    for (const QLabel* etikett : {f.lblQSO, f.lblDiplom, f.lblMultiplar, f.lblTotalPoäng, f.lblTotalQSOPoäng})
        EXPECT_EQ(etikett->text(), "0") << etikett->objectName().toStdString();
}

TEST_F(SchemaProv, TheDistinctCursorsCountEachValueOnceAndFourOfThemNoEmptyOne) {
    StartaLogg(12);
    const QString kolumner = "Signal, ITU, Zon, DXCC, Diplom, Distrikt, Rutor, Multiplar, Poäng";
    Rad(kolumner, "'SM5ABC','18','14','SM','JO89','5','JO89','JO89WJ',1");
    Rad(kolumner, "'SM5ABC','18','14','SM','JO89','5','JO89','JO89WJ',1");
    Rad(kolumner, "'OH6ZZ','18','15','OH','','','','',1");
    ÖppnaIgen();
    const Databaser& d = db();
    EXPECT_EQ(Värden(d.rsSignal), (QStringList{"OH6ZZ", "SM5ABC"}));
    EXPECT_EQ(Värden(d.rsITU), QStringList{"18"});
    EXPECT_EQ(Värden(d.rsZon), (QStringList{"14", "15"}));
    EXPECT_EQ(Värden(d.rsDXCC), (QStringList{"OH", "SM"}));
    EXPECT_EQ(Värden(d.rsDiplom), QStringList{"JO89"});
    EXPECT_EQ(Värden(d.rsDistrikt), QStringList{"5"});
    EXPECT_EQ(Värden(d.rsRutor), QStringList{"JO89"});
    EXPECT_EQ(Värden(d.rsMultiplar), QStringList{"JO89WJ"});
    EXPECT_EQ(d.rsPoäng.RecordCount(), 3);
    EXPECT_EQ(d.rsDXCCBand.RecordCount(), 3);
}

TEST_F(SchemaProv, TheQueryCursorsAreSnapshotsUntilTheyAreAskedAnew) {
    frTest& f = StartaLogg(12);
    platform::Recordset& logg = db().rsTESTQSO;
    logg.AddNew();
    f.TömTESTQSO();
    logg.Field("Signal", "SM5ABC");
    logg.Field("Diplom", "AB");
    logg.Field("Multiplar", "CD");
    logg.Field("Rutor", "JO89");
    logg.Update();
    const Databaser& d = db();
    for (const platform::Recordset* markör :
         {&d.rsTidigare, &d.rsSignal, &d.rsDiplom, &d.rsRutor, &d.rsPoäng})
        EXPECT_EQ(markör->RecordCount(), 0);
    f.UppdateraTest();
    db().rsTidigare.Filter("");
    for (const platform::Recordset* markör :
         {&d.rsDXCCBand, &d.rsSignal, &d.rsDXCC, &d.rsDiplom, &d.rsTidigare, &d.rsITU, &d.rsZon,
          &d.rsMultiplar, &d.rsPoäng, &d.rsRutor})
        EXPECT_EQ(markör->RecordCount(), 1);
    EXPECT_EQ(d.rsDistrikt.RecordCount(), 0);
    EXPECT_EQ(f.lblQSO->text(), "1");
    EXPECT_EQ(f.lblDiplom->text(), "1");
    EXPECT_EQ(f.lblMultiplar->text(), "1");
}

TEST_F(SchemaProv, AskingAnewRefreshesDistrictsAsWell) {
    frTest& f = StartaLogg(9);
    Rad("Signal, Distrikt, Poäng", "'SM5ABC', '5', 1");
    f.UppdateraTest();
    EXPECT_EQ(Värden(db().rsDistrikt), QStringList{"5"});
}

TEST_F(SchemaProv, TheFilterTextsOfTheRulesFindTheirRows) {
    StartaLogg(12);
    const QString kolumner = "Signal, Trafiksätt, \"Band \", \"DXCC Nr\", Diplom, Multiplar, Poäng";
    Rad(kolumner, "'SM5ABC','CW','80 M','284','JO89 80 M','JO89WJ',2");
    Rad(kolumner, "'SM5ABC','SSB','40 M','284','JO89 40 M','JO89WJ',1");
    Rad(kolumner, "'OH6ZZ','CW','80 M','224','KP03 80 M','KP03SD',2");
    ÖppnaIgen();
    Databaser& d = db();
    const auto antal = [](platform::Recordset& markör, const char* filter) {
        markör.Filter(T(filter));
        const qsizetype rader = markör.RecordCount();
        markör.Filter("");
        return rader;
    };
    EXPECT_EQ(antal(d.rsPrefix, "Prefix = 'SM'"), 1);
    EXPECT_EQ(antal(d.rsDXCCBand, "[DXCC Nr] = '284'"), 2);
    EXPECT_EQ(antal(d.rsDXCCBand, "[DXCC Nr] = '284' AND [Band ] = '40 M'"), 1);
    EXPECT_EQ(antal(d.rsTidigare, "Signal = 'SM5ABC'"), 2);
    for (const char* trafiksätt : {"CW", "SSB", "AM", "FM", "RTTY"})
        EXPECT_EQ(
            antal(d.rsTESTQSO,
                  qPrintable(QStringLiteral("Signal = 'SM5ABC' AND Trafiksätt = '%1'").arg(T(trafiksätt)))),
            QString(trafiksätt) == "CW" || QString(trafiksätt) == "SSB" ? 1 : 0);
    EXPECT_EQ(antal(d.rsDiplom, "Diplom = 'JO89 80 M'"), 1);
    EXPECT_EQ(antal(d.rsMultiplar, "Multiplar LIKE 'JO89*'"), 1);
    EXPECT_EQ(antal(d.rsTESTQSO, "Multiplar LIKE 'JO89*' AND Poäng = 2"), 1);
    EXPECT_EQ(antal(d.rsTESTDXCC, "DXCC = 'SM'"), 1);
}

TEST_F(SchemaProv, ColumnNamesAreFoundInEitherSpelling) {
    StartaLogg(9);
    Databaser& d = db();
    EXPECT_EQ(d.rsTESTQSO.FieldIndex("Löpnr"), d.rsTESTQSO.FieldIndex("LöpNr"));
    EXPECT_EQ(d.rsPrefix.FieldIndex("KOD"), d.rsPrefix.FieldIndex("Kod"));
    EXPECT_EQ(d.rsINFO.Field("löpnr").text(), "1");
}

TEST_F(SchemaProv, ACallWithAnApostropheBreaksTheFilter) {
    StartaLogg(1);
    EXPECT_THROW(db().rsTidigare.Filter("Signal = 'O'NEIL'"), platform::Failure);
}

TEST_F(SchemaProv, AnApostropheTypedIntoTheCallEndsTheProcessAndCostsNoContact) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    f.txtSignal->setFocus();
    EXPECT_THROW(Skriv("o'"), ProcessSlut);
    EXPECT_EQ(slut, 1);
    EXPECT_EQ(LäsEtt(Logg(), "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(Antal("Signal='SM5ABC'"), "1");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT LöpNr FROM INFO"), "1");
}
