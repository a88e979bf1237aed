// The grids beside the entry form: worked bands and modes, the bands of a country and its zones, the log.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "platform/windows.h"

void PrintTo(const QStringList& texter, std::ostream* ut) { *ut << texter.join('|').toStdString(); }

namespace {

const QStringList rubriker{"", "160", "80", "40", "20", "15", "10", "6", "2", "70"};
const QStringList band{"160 M", "80 M", "40 M", "20 M", "15 M", "10 M", "6 M", "2 M", "70 CM"};
const QColor röd(255, 0, 0);

QStringList Rad(const platform::FlexGrid* rutnät, int rad) {
    QStringList celler;
    for (int i = 0; i < rutnät->columnCount(); ++i) celler << rutnät->Cell(rad, i);
    return celler;
}

/// The cells with a cross, row and heading: "CW 80". Every cross must be red.
QStringList Kryss(const platform::FlexGrid* rutnät) {
    QStringList kryss;
    for (int rad = 1; rad < rutnät->rowCount(); ++rad)
        for (int i = 1; i < rutnät->columnCount(); ++i) {
            if (rutnät->Cell(rad, i).isEmpty()) continue;
            EXPECT_EQ(rutnät->Cell(rad, i), "X");
            EXPECT_EQ(rutnät->item(rad, i)->foreground().color(), röd);
            kryss << rutnät->Cell(rad, 0) + ' ' + rutnät->Cell(0, i);
        }
    return kryss;
}

/// A bound grid's captions, or the texts of one of its rows.
QStringList Rubriker(const platform::DataGrid* rutnät) {
    QStringList texter;
    for (int i = 0; i < rutnät->model()->columnCount(); ++i) texter << rutnät->Caption(i);
    return texter;
}
QStringList Rad(platform::DataGrid* rutnät, int rad) {
    rutnät->Refresh();
    QStringList texter;
    for (int i = 0; i < rutnät->model()->columnCount(); ++i)
        texter << rutnät->model()->index(rad, i).data().toString();
    return texter;
}

class RutnätProv : public Programprov {
protected:
    /// A contact of another country, by its number and zones.
    void Körd(const QString& bandet, const QString& dxccNr, const QString& itu, const QString& zon) {
        Loggad("QQ", bandet);
        Ändra(Logg(),
              QString("UPDATE TESTQSO SET Signal='X', \"DXCC Nr\"='%1', ITU='%2', Zon='%3' WHERE Signal='QQ'")
                  .arg(dxccNr, itu, zon));
        frTest::instans().UppdateraTest();
    }
};

} // namespace

// ---- worked bands and modes ---------------------------------------------------------------------------

TEST_F(RutnätProv, ANewLogShowsTheHeadingsAlone) {
    const frTest& f = StartaLogg(1);
    ASSERT_EQ(f.fgTestData1->rowCount(), 6);
    ASSERT_EQ(f.fgTestData1->columnCount(), 10);
    EXPECT_EQ(Rad(f.fgTestData1, 0), rubriker);
    const char* const rader[] = {"", "CW", "SSB", "AM", "FM", "DIGI"};
    for (int rad = 1; rad < 6; ++rad) EXPECT_EQ(f.fgTestData1->Cell(rad, 0), rader[rad]);
    EXPECT_EQ(Kryss(f.fgTestData1), QStringList());
    EXPECT_GE(f.fgTestData1->columnWidth(0), platform::Twips(580));
    for (int i = 1; i < 10; ++i) EXPECT_GE(f.fgTestData1->columnWidth(i), platform::Twips(400));
    for (int i = 0; i < 10; ++i) EXPECT_EQ(f.fgTestData2->columnWidth(i), f.fgTestData1->columnWidth(i));
}

TEST_F(RutnätProv, EachPairOfModeAndBandHasItsCell) {
    struct Fall {
        const char *trafiksätt, *rad;
    };
    frTest& f = StartaLogg(1);
    for (const Fall& fall :
         {Fall{"CW", "CW"}, Fall{"SSB", "SSB"}, Fall{"AM", "AM"}, Fall{"FM", "FM"}, Fall{"RTTY", "DIGI"}})
        for (int i = 0; i < band.size(); ++i) {
            Ändra(Logg(), "DELETE FROM TESTQSO");
            Loggad("SM5ABC", band[i], fall.trafiksätt);
            f.UppdateraBand();
            EXPECT_EQ(Kryss(f.fgTestData1), QStringList{QString(fall.rad) + ' ' + rubriker[i + 1]});
        }
}

TEST_F(RutnätProv, ModesAndBandsWithoutACellLeaveNoMark) {
    frTest& f = StartaLogg(1);
    for (const char* bandet : {"30 M", "17 M", "12 M", "24 CM"}) Loggad("SM5ABC", bandet);
    for (const char* trafiksätt : {"PSK31", "FT8", "SSTV", ""}) Loggad("SM5ABC", "2 M", trafiksätt);
    f.UppdateraBand();
    EXPECT_EQ(Kryss(f.fgTestData1), QStringList());
}

TEST_F(RutnätProv, ASaveSetsItsMarkAndTheLogRemembersIt) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Kryss(f.fgTestData1), QStringList{"CW 2"});
    f.cmbTrafik->setCurrentIndex(1);
    Kör("sm5xyz", "jo88aa");
    EXPECT_EQ(Kryss(f.fgTestData1), (QStringList{"CW 2", "SSB 2"}));
    NyLogg(1, "ny.svk");
    EXPECT_EQ(Kryss(f.fgTestData1), QStringList());
    filval.push_back(Logg());
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(Kryss(f.fgTestData1), (QStringList{"CW 2", "SSB 2"}));
    EXPECT_EQ(db().rsTESTQSO.RecordCount(), 2) << "the filters of the marks are gone";
}

// ---- the bands of a country and its zones -------------------------------------------------------------

TEST_F(RutnätProv, ACallNamesItsCountryAndZonesInRed) {
    frTest& f = StartaLogg(1);
    ASSERT_EQ(f.fgTestData2->rowCount(), 4);
    ASSERT_EQ(f.fgTestData2->columnCount(), 10);
    EXPECT_EQ(Rad(f.fgTestData2, 0), rubriker);
    f.txtSignal->setText("LA1AA");
    EXPECT_EQ(Rad(f.fgTestData2, 0), rubriker);
    const char* const rader[] = {"", "LA", "18", "14"};
    for (int rad = 1; rad < 4; ++rad) {
        EXPECT_EQ(f.fgTestData2->Cell(rad, 0), rader[rad]);
        EXPECT_EQ(f.fgTestData2->item(rad, 0)->foreground().color(), röd);
    }
    EXPECT_EQ(Kryss(f.fgTestData2), QStringList());
}

TEST_F(RutnätProv, CountryAndZonesAreMarkedEachOnItsOwnBands) {
    frTest& f = StartaLogg(1);
    Körd("2 M", "266", "99", "98");                                                      // the country alone
    Körd("20 M", "1", "18", "98");                                                       // the ITU zone alone
    Körd("70 CM", "1", "99", "14");                                                      // the CQ zone alone
    Körd("160 M", "266", "18", "14");                                                    // all three
    for (const char* bandet : {"30 M", "17 M", "12 M"}) Körd(bandet, "266", "18", "14"); // no column
    Körd("40 M", "2660", "180", "40"); // numbers that only begin alike
    f.txtSignal->setText("LA1AA");
    EXPECT_EQ(Kryss(f.fgTestData2), (QStringList{"LA 160", "LA 2", "18 160", "18 20", "14 160", "14 70"}));
}

TEST_F(RutnätProv, EveryBandHasItsColumn) {
    frTest& f = StartaLogg(1);
    for (const QString& bandet : band) Körd(bandet, "266", "18", "14");
    f.txtSignal->setText("LA1AA");
    for (int rad = 1; rad < 4; ++rad) EXPECT_EQ(Rad(f.fgTestData2, rad).count("X"), 9) << rad;
}

TEST_F(RutnätProv, TheBandsFollowTheTypingOfTheCall) {
    frTest& f = StartaLogg(1);
    Körd("2 M", "224", "18", "15");
    Körd("6 M", "5", "18", "15");
    f.txtSignal->setFocus();
    Skriv("oh");
    EXPECT_EQ(Rad(f.fgTestData2, 1), (QStringList{"OH", "", "", "", "", "", "", "", "X", ""}));
    Skriv("0");
    EXPECT_EQ(Rad(f.fgTestData2, 1), (QStringList{"OH0", "", "", "", "", "", "", "X", "", ""}));
}

TEST_F(RutnätProv, ACallWithoutACountryHasNoMarks) {
    frTest& f = StartaLogg(1);
    Körd("2 M", "", "", "");
    f.txtSignal->setText("QQ1AA");
    for (const QLabel* etikett : {f.lblLand, f.lblKont, f.lblDXCC, f.lblRiktning, f.lblAvstånd})
        EXPECT_EQ(etikett->text(), "") << etikett->objectName().toStdString();
    for (int rad = 1; rad < 4; ++rad) EXPECT_EQ(Rad(f.fgTestData2, rad).join(""), "");
    f.Initiera_fgTestData2();
    EXPECT_EQ(Kryss(f.fgTestData2), QStringList()) << "no number, no question";
}

TEST_F(RutnätProv, ASavedContactMarksItsCountryForTheNextCall) {
    frTest& f = StartaLogg(1);
    Kör("la1aa", "jo59aa");
    EXPECT_EQ(Kryss(f.fgTestData2), QStringList());
    f.txtSignal->setText("LA2BB");
    EXPECT_EQ(Kryss(f.fgTestData2), (QStringList{"LA 2", "18 2", "14 2"}));
}

// ---- the bound grids ----------------------------------------------------------------------------------

TEST_F(RutnätProv, TheLogShowsTheColumnsOfItsContest) {
    const QStringList lokator{"Datum", "Tid",  "Signal",   "Frekvens", "Trafiksätt",
                              "Band",  "Sänt", "Mottaget", "Lokator",  "LöpNr",
                              "ITU",   "Zon",  "Poäng",    "Distrikt", "Rutor"};
    const QStringList prefix{"Datum", "Tid",           "Signal",   "Frekvens", "Trafiksätt",
                             "Band",  "Sänt",          "Mottaget", "LöpNr",    "ITU",
                             "Zon",   "Prefix / Band", "Poäng",    "Distrikt", "Rutor"};
    StartaLogg(0, "först.svk");
    const frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        QStringList väntat = test == 9 || test == 10 ? prefix : lokator;
        if (test >= 11) väntat[8] = "Multiplar"; // clearing gives no caption there
        EXPECT_EQ(Rubriker(f.dgLogg), väntat);
    }
}

TEST_F(RutnätProv, TheColumnsOfTheLogHaveTheirWidthsInBothLayouts) {
    const int twips[] = {1510, 1510, 1710, 1510, 1110, 1110, 1020, 1110,
                         1020, 1120, 1110, 1500, 1120, 1120, 1220};
    const frTest& f = StartaLogg(1);
    for (const int test : {1, 9}) {
        NyLogg(test, QString("test%1.svk").arg(test));
        for (int i = 0; i < 15; ++i)
            EXPECT_EQ(f.dgLogg->columnWidth(i), platform::Twips(twips[i])) << test << ' ' << i;
    }
}

TEST_F(RutnätProv, TheLogShowsASavedContactUnderItsCaptions) {
    frTest& f = StartaLogg(1);
    f.TestTimer_Tick();
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Rad(f.dgLogg, 0), (QStringList{"2026-12-01", "18:00:00", "SM5ABC", "0,000,00", "CW", "2 M",
                                             "599", "599", "JO89WJ", "", "18", "14", "500", "", "JO89"}));
}

TEST_F(RutnätProv, TheLogOfSACShowsPrefixAndBand) {
    frTest& f = StartaLogg(9);
    f.TestTimer_Tick();
    SkrivI(f.txtSignal, "dl1aa");
    SkrivI(f.txtLöpnrM, "017");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rad(f.dgLogg, 0),
              (QStringList{"2026-12-01", "18:00:00", "DL1AA", "0,000,00", "CW", "80 M", "599 001", "599 017",
                           "017", "28", "14", "DL (80 M)", "1", "", ""}));
}

TEST_F(RutnätProv, TheNewestContactStandsLastAndInView) {
    frTest& f = StartaLogg(1);
    for (int i = 0; i < 60; ++i) Loggad(QString("SM5A%1").arg(i, 2, 10, QLatin1Char('0')), "2 M");
    f.TestTimer_Tick();
    Kör("sm5xyz", "jo89wj");
    f.dgLogg->Refresh();
    const QAbstractItemModel* modell = f.dgLogg->model();
    EXPECT_EQ(modell->rowCount(), 61);
    EXPECT_EQ(modell->index(60, 2).data().toString(), "SM5XYZ");
    EXPECT_EQ(f.dgLogg->currentIndex().row(), 60);
    EXPECT_TRUE(f.dgLogg->viewport()->rect().intersects(f.dgLogg->visualRect(modell->index(60, 2))));
}

TEST_F(RutnätProv, TheMultipliersComeFromTheCursorOfTheContest) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        for (const char* signal : {"A", "B"}) Loggad(signal, "80 M");
        Ändra(Logg(QString("test%1.svk").arg(test)),
              "UPDATE TESTQSO SET Multiplar='M' || Signal, Diplom='D' || Signal");
        f.UppdateraTest();
        f.Initiera_dgMulti();
        const QString början = test == 9 || test == 10 ? "M" : "D";
        EXPECT_EQ(Rad(f.dgMulti, 0), QStringList{början + "A"});
        EXPECT_EQ(Rad(f.dgMulti, 1), QStringList{början + "B"});
        EXPECT_EQ(f.dgMulti->currentIndex().row(), 1) << "moved to its last row";
    }
}

TEST_F(RutnätProv, TheNewestMultiplierStaysInViewThroughTheEvening) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (const auto& [test, lokator] : {std::pair{1, true}, std::pair{9, false}}) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        EXPECT_EQ(f.dgMulti->Source(), test == 9 ? &db().rsMultiplar : &db().rsDiplom);
        EXPECT_TRUE(f.dgMulti->Bound());
        const auto kontakt = [&](const char* signal, const char* utväxling) {
            SkrivI(f.txtSignal, signal);
            SkrivI(lokator ? f.txtDiplom : f.txtLöpnrM, utväxling);
            Tryck(Qt::Key_Return);
        };
        kontakt("dl1aa", lokator ? "jo62qm" : "001");
        kontakt("f1aa", lokator ? "jn18aa" : "001");
        kontakt("on1aa", lokator ? "jo20aa" : "001");
        f.dgMulti->Refresh();
        EXPECT_EQ(f.dgMulti->model()->rowCount(), 3);
        EXPECT_EQ(f.dgMulti->currentIndex().row(), 2);
        SkrivI(f.txtSignal, "g1aa");
        f.txtDiplom->setFocus(); // the points of the call are looked up
        f.dgMulti->Refresh();
        EXPECT_EQ(f.dgMulti->currentIndex().row(), 2);
    }
}

TEST_F(RutnätProv, TheScoreHasItsCaptionsAndTheyAreReadAloud) {
    frTest& f = StartaLogg(1);
    QStringList texter;
    for (const QLabel* etikett : f.findChildren<QLabel*>()) texter << etikett->text();
    for (const char* rubrik : {"Antal QSO", "QSO Poäng", "Tot.QSO Poäng", "Total Poäng"})
        EXPECT_EQ(texter.count(rubrik), 1) << rubrik;
    for (const int test : {1, 7, 9}) {
        NyLogg(test, QString("test%1.svk").arg(test));
        EXPECT_EQ(f.lblMultiplar->accessibleName(), f.lblMultipelText->text());
        EXPECT_EQ(f.lblDiplom->accessibleName(), f.lblDiplomText->text());
    }
}

TEST_F(RutnätProv, ColumnsOfOtherContestsInTheFileStayOutOfTheLog) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    for (const char* kolumn : {"NDIST", "Province", "State"})
        Ändra(Logg(), QString("ALTER TABLE TESTQSO ADD COLUMN %1 TEXT").arg(kolumn));
    filval.push_back(Logg());
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(Rubriker(f.dgLogg).size(), 15);
    EXPECT_EQ(Rubriker(f.dgLogg).last(), "Rutor");
}

TEST_F(RutnätProv, WhatAnotherStationHasSavedComesWithTheNextSave) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Ändra(Logg(), "INSERT INTO TESTQSO (Datum, Tid, Signal, Trafiksätt, \"Band \", Multiplar, Diplom, Poäng) "
                  "VALUES ('2026-12-01', '18:30:00', 'LA1AA', 'SSB', '70 CM', 'JO59AA', 'JO59', 200)");
    EXPECT_EQ(f.lblQSO->text(), "1");
    Kör("sm6abc", "jo67bq");
    EXPECT_EQ(f.lblQSO->text(), "3");
    EXPECT_EQ(Kryss(f.fgTestData1), (QStringList{"CW 2", "SSB 70"}));
    f.dgLogg->Refresh();
    EXPECT_EQ(f.dgLogg->model()->rowCount(), 3);
}

TEST_F(RutnätProv, TheWorkedCountriesAreListedOnceEach) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Kör("la1aa", "jo59aa");
    Kör("sm6abc", "jo67bq");
    EXPECT_EQ(Rubriker(f.dgDXCC), QStringList{"DXCC"});
    EXPECT_EQ(Rad(f.dgDXCC, 0), QStringList{"LA"});
    EXPECT_EQ(Rad(f.dgDXCC, 1), QStringList{"SM"});
    EXPECT_EQ(f.dgDXCC->model()->rowCount(), 2);
}

TEST_F(RutnätProv, EarlierContactsCarryTheirCaptions) {
    const frTest& f = StartaLogg(1);
    EXPECT_EQ(Rubriker(f.dgTidigareQSO),
              (QStringList{"Datum", "Tid", "Frekvens", "Signal", "Trafik", "Band", "Sänt", "Motaget"}));
    EXPECT_EQ(f.dgTidigareQSO->model()->rowCount(), 0);
}
