// From the call on the form, or of a spot, to a country: what is shown, announced and marked as worked.
#include "store/Landsökning.h"

#include "support/Programprov.h"
#include "support/ToPrint.h"

namespace {

class LandProv : public Programprov {
protected:
    /// The next start finds a country table with these keys alone, country and number named after the key.
    void Nycklar(const QStringList& nycklar) {
        const QString fil = Fil("Data.Dat");
        Ändra(fil, "DROP INDEX IF EXISTS PrefixNyckel");
        Ändra(fil, "DELETE FROM Prefix");
        for (const QString& nyckel : nycklar)
            Ändra(
                fil,
                QString(
                    "INSERT INTO Prefix (Prefix, Land, DXCC, Kontinent, Tid, ITU, Zon, Kod, Lokator) VALUES "
                    "('%1', 'Land %1', '%1', 'EU', '1', '18', '14', '9', 'JO89WJ')")
                    .arg(nyckel));
    }
    /// What the form holds of the country, field by field.
    static QStringList Land(const frTest& f) {
        return {f.txtPrefix->text(), f.lblLand->text(), f.lblDXCC->text(),  f.lblKont->text(),
                f.txtITUM->text(),   f.txtZONM->text(), f.txtDXCCNR->text()};
    }
    /// Loads the logged contact with that call into the form, as the editor does.
    static void Redigera(frTest& f, const QString& loggad, const QString& signal) {
        db().rsTESTQSO.Find("Signal = '" + loggad + "'");
        delat.RedigeradBookmark = db().rsTESTQSO.GetBookmark();
        delat.RedigeraQSO = true;
        f.txtSignal->setText(signal);
    }
    QString Status(const QString& dxcc, const QString& kolumn) const {
        return LäsEtt(Logg(), "SELECT \"" + kolumn + "\" FROM TESTDXCC WHERE DXCC='" + dxcc + "'");
    }
    QString AntalMärken() const {
        return LäsEtt(
            Logg(), "SELECT count(*) FROM TESTDXCC WHERE 'W' IN (\"160 M\", \"80 M\", \"40 M\", \"30 M\", "
                    "\"20 M\", \"17 M\", \"15 M\", \"12 M\", \"10 M\", \"6 M\", \"2 M\", \"70 CM\", CW, SSB, "
                    "AM, FM, RTTY, PSK31, PSK, SSTV)");
    }
};

const QStringList sverige{"SM5", "Sverige", "SM", "EU", "18", "14", "284"};
const QStringList tomt{"", "", "", "", "", "", ""};

void LäggTill(QString dxcc, QString trafiksätt, QString band) { LäggTillKördaDXCC(dxcc, trafiksätt, band); }

} // namespace

// ---- the form -----------------------------------------------------------------------------------------

TEST_F(LandProv, ACallShowsItsCountryInBlueWithZonesAndNumber) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "sm5abc");
    EXPECT_EQ(Land(f), sverige);
    for (const QLabel* etikett : {f.lblLand, f.lblDXCC, f.lblKont, f.lblTid})
        EXPECT_EQ(etikett->palette().color(QPalette::WindowText), QColor(0, 0, 255));
    EXPECT_EQ(f.lblTid->text(), "Tid") << "its colour alone changes";
}

TEST_F(LandProv, BearingAndDistanceFirstShowTheCountrysOwnPoint) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "oh1aa");
    const QString tillLandet = f.lblAvstånd->text();
    EXPECT_NE(tillLandet, "");
    EXPECT_NE(f.lblRiktning->text(), "");
    f.txtDiplom->setFocus();
    Skriv("kp21jj"); // the point itself
    f.txtNamn->setFocus();
    EXPECT_EQ(f.lblAvstånd->text(), tillLandet);
}

TEST_F(LandProv, AnUnknownCallLeavesTheFieldsOfTheLastOne) {
    frTest& f = StartaLogg(1);
    f.txtSignal->setText("SM5ABC");
    f.txtSignal->setText("QQ1AA");
    EXPECT_EQ(Land(f), sverige);
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för QQ1AA (0)") << "while the earlier contacts follow";
}

TEST_F(LandProv, AnUnknownCallOnAClearedFormCanNotBeSaved) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "qq1aa");
    EXPECT_EQ(Land(f), tomt);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag(), (Meddelande{"Saknar viktig data för att spara QSO! Var god kontrollera dina uppgifter.",
                                 "SparaQSO"}));
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "0");
}

TEST_F(LandProv, AKeyThatTheTableHoldsTwiceResolvesNothing) {
    Nycklar({"S", "SM5", "SM5"});
    frTest& f = StartaLogg(1);
    f.txtSignal->setText("S1AA");
    EXPECT_EQ(f.txtPrefix->text(), "S");
    f.txtSignal->setText("SM5ABC");
    EXPECT_EQ(f.txtPrefix->text(), "S");
    SpotSignal = "SM5ABC";
    KollaSpotPrefix();
    EXPECT_EQ(SpotPrefix, "?");
}

struct Sökfall {
    const char* vad;
    QStringList nycklar;
    const char *signal, *prefix; ///< no prefix: the call does not resolve
};

class SökProv : public LandProv, public testing::WithParamInterface<Sökfall> {};

TEST_P(SökProv, FormAndSpotFindTheSameKey) {
    const Sökfall& fall = GetParam();
    SCOPED_TRACE(fall.vad);
    Nycklar(fall.nycklar);
    const frTest& f = StartaLogg(1);
    f.txtSignal->setText(fall.signal);
    EXPECT_EQ(f.txtPrefix->text(), fall.prefix);
    EXPECT_EQ(f.lblDXCC->text(), fall.prefix);
    SpotSignal = fall.signal;
    SpotPrefix = "-";
    KollaSpotPrefix();
    EXPECT_EQ(SpotPrefix, *fall.prefix ? fall.prefix : "?");
}

INSTANTIATE_TEST_SUITE_P(
    Anrop, SökProv,
    testing::Values(Sökfall{"a gap does not end the search", {"S", "SM5"}, "SM5ABC", "SM5"},
                    Sökfall{"a portable call is taken from its left end", {"SM", "OH"}, "SM5ABC/OH", "SM"},
                    Sökfall{"the United Nations' block", {"4U", "SM"}, "4U1UN", "4U"},
                    Sökfall{"without a key of its own it is not found", {"SM"}, "4U1UN", ""},
                    Sökfall{"the French overseas block", {"F", "FT"}, "FT5XO", "FT"},
                    Sökfall{"without a key of its own it is not France", {"F"}, "FT5XO", ""},
                    Sökfall{"a composed key", {"VP", "VP/F", "VP/FA"}, "VP8FA", "VP/FA"},
                    Sökfall{"its second character alone is not enough", {"VP", "VP/FA"}, "VP8FA", "VP"},
                    Sökfall{"a call that ends with its prefix", {"VP", "VP/F"}, "VP", "VP"},
                    Sökfall{"a digit with nothing behind it", {"VP", "VP/F"}, "VP8", "VP"},
                    Sökfall{"a letter in the digit's place", {"VP", "VP/F"}, "VPXFA", "VP"},
                    Sökfall{"nothing at all", {}, "SM5ABC", ""}));

TEST_F(LandProv, AContactBeingEditedKeepsItsCountry) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    Redigera(f, "SM5ABC", "LA1AA");
    EXPECT_EQ(Land(f), sverige);
}

TEST_F(LandProv, AContactBeingEditedWithoutAStoredKeyIsLookedUp) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    Ändra(Logg(), "UPDATE TESTQSO SET Prefix=''");
    db().rsTESTQSO.Requery();
    Redigera(f, "SM5ABC", "LA1AA");
    EXPECT_EQ(f.lblDXCC->text(), "LA");
}

TEST_F(LandProv, AStoredKeyThatTheTableLacksShowsNothing) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    Ändra(Logg(), "UPDATE TESTQSO SET Prefix='QQ'");
    db().rsTESTQSO.Requery();
    Redigera(f, "SM5ABC", "LA1AA");
    EXPECT_EQ(Land(f), tomt);
}

TEST_F(LandProv, TheRowInTheLogDoesNotMatterForANewContact) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    f.txtSignal->setText("LA1AA");
    EXPECT_EQ(f.lblDXCC->text(), "LA");
}

TEST_F(LandProv, AVeryLongCallIsSearchedByItsFirst255Characters) {
    Nycklar({"S", QString(256, 'S')});
    frTest& f = StartaLogg(1);
    f.txtSignal->setText(QString(300, 'S'));
    EXPECT_EQ(f.txtPrefix->text(), "S");
}

// ---- a new country ------------------------------------------------------------------------------------

TEST_F(LandProv, ANewCountryIsAnnouncedInContests0To5And7And8) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        f.txtSignal->setText("LA1AA");
        const bool ny = test <= 5 || test == 7 || test == 8;
        EXPECT_EQ(f.lblNyttLand->isVisible(), ny);
        EXPECT_EQ(f.txtNDXCC->text(), ny ? "N" : "");
    }
}

TEST_F(LandProv, ACountryWorkedOnAnyBandIsNotNew) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "40 M", "SSB");
    f.txtSignal->setText("SM1ZZ");
    EXPECT_FALSE(f.lblNyttLand->isVisible());
    EXPECT_EQ(f.txtNDXCC->text(), "");
    EXPECT_EQ(db().rsDXCCBand.Filter(), "");
}

TEST_F(LandProv, WithoutACountryNumberNoCountryIsNew) {
    frTest& f = StartaLogg(7);
    f.txtSignal->setText("QQ1AA");
    EXPECT_FALSE(f.lblNyttLand->isVisible());
    KollaDXCC();
    EXPECT_FALSE(f.lblNyttLand->isVisible());
    EXPECT_EQ(f.txtNDXCC->text(), "");
}

TEST_F(LandProv, TheFirstContactWithACountryCarriesTheMarkIntoTheLog) {
    StartaLogg(1);
    Kör("la1aa", "jo59aa");
    Kör("la2bb", "jo59aa");
    const std::vector<std::vector<QString>> väntat = {{"LA1AA", "N"}, {"LA2BB", ""}};
    EXPECT_EQ(Läs(Logg(), "SELECT Signal, NDXCC FROM TESTQSO ORDER BY rowid"), väntat);
}

// ---- a new district -----------------------------------------------------------------------------------

TEST_F(LandProv, ANewDistrictIsAnnouncedInContests3To5WhenTheLocatorIsComplete) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        f.txtSignal->setText("SM5ABC");
        f.lblTyp->setText("Lokator");
        f.txtDiplom->setText("JO89");
        EXPECT_EQ(f.lblDistrikt->isVisible(), test >= 3 && test <= 5);
    }
}

TEST_F(LandProv, OnlyFourAndSixCharactersAskForTheDistrict) {
    frTest& f = StartaLogg(3);
    f.txtSignal->setText("SM5ABC");
    f.txtDiplom->setFocus();
    const QString lokator = "JO89WJ1";
    for (int längd = 1; längd <= 7; ++längd) {
        Skriv(lokator.mid(längd - 1, 1));
        EXPECT_EQ(f.lblDistrikt->isVisible(), längd == 4 || längd == 6) << längd;
        f.lblDistrikt->hide();
    }
}

TEST_F(LandProv, ACountyOfTwoCharactersAsksWhenItsFieldIsEntered) {
    frTest& f = StartaLogg(3);
    f.txtSignal->setText("SM5ABC");
    f.lblTyp->setText("Län");
    for (const char* län : {"", "E", "EEE", "EE"}) {
        f.txtDiplom->setText(län);
        EXPECT_FALSE(f.lblDistrikt->isVisible()) << "a change alone does not ask";
        f.txtDiplom->setFocus();
        EXPECT_EQ(f.lblDistrikt->isVisible(), QString(län).size() == 2) << län;
        f.txtDiplom->clear(); // or leaving it would look for the way to a county
        f.txtNamn->setFocus();
    }
}

TEST_F(LandProv, ALocatorDoesNotAskWhenItsFieldIsEntered) {
    frTest& f = StartaLogg(3);
    f.txtSignal->setText("SM5ABC");
    f.txtDiplom->setText("JO");
    f.txtDiplom->setFocus();
    EXPECT_FALSE(f.lblDistrikt->isVisible());
}

TEST_F(LandProv, AWorkedDistrictIsNotNew) {
    frTest& f = StartaLogg(3);
    Loggad("SM5XYZ", "10 M");
    Ändra(Logg(), "UPDATE TESTQSO SET Distrikt='5'");
    f.UppdateraTest();
    for (const char* signal : {"SM5ABC", "SM6ABC"}) {
        f.txtSignal->setText(signal);
        f.txtDiplom->clear();
        f.txtDiplom->setText("JO89");
        EXPECT_EQ(f.lblDistrikt->isVisible(), f.txtPrefix->text() == "SM6") << signal;
        EXPECT_EQ(db().rsDistrikt.Filter(), "");
    }
}

TEST_F(LandProv, OtherCountriesAndShortPrefixesHaveNoDistrict) {
    Nycklar({"SM", "OH5"});
    frTest& f = StartaLogg(3);
    for (const char* signal : {"SM5ABC", "OH5AA"}) {
        f.txtSignal->setText(signal);
        f.txtDiplom->clear();
        f.txtDiplom->setText("JO89");
        EXPECT_FALSE(f.lblDistrikt->isVisible()) << signal;
    }
}

// ---- spots --------------------------------------------------------------------------------------------

TEST_F(LandProv, ASpotWithoutACallKeepsTheLastKey) {
    Starta();
    SpotPrefix = "SM";
    SpotSignal.clear();
    KollaSpotPrefix();
    EXPECT_EQ(SpotPrefix, "SM");
}

TEST_F(LandProv, ASpotLeavesTheFormAlone) {
    frTest& f = StartaLogg(1);
    f.txtSignal->setText("SM5ABC");
    SpotSignal = "LA1AA";
    KollaSpotPrefix();
    EXPECT_EQ(SpotPrefix, "LA");
    EXPECT_EQ(Land(f), sverige);
}

TEST_F(LandProv, TheQuestionForANewCountryOfASpotHasNoAnswerThatAnybodySees) {
    frTest& f = StartaLogg(7);
    QString dxcc = "LA";
    QString band = "  20 M ";
    QString trafiksätt = "PSK63";
    KontrolleraNyttLand(dxcc, band, trafiksätt);
    EXPECT_EQ(dxcc, "LA");
    EXPECT_EQ(band, "20 M ") << "trimmed on the left alone";
    EXPECT_EQ(trafiksätt, "PSK31");
    EXPECT_FALSE(f.lblNyttLand->isVisible());
    EXPECT_FALSE(f.lblNyttBand->isVisible());
    EXPECT_EQ(AntalMärken(), "0");
}

TEST_F(LandProv, TheQuestionOfASpotIsNotPutWhileAContactIsEdited) {
    StartaLogg(7);
    QString dxcc = "LA";
    QString band = " 20 M";
    QString trafiksätt = "PSK63";
    delat.RedigeraQSO = true;
    KontrolleraNyttLand(dxcc, band, trafiksätt);
    EXPECT_EQ(band, " 20 M");
    EXPECT_EQ(trafiksätt, "PSK63");
}

TEST_F(LandProv, TheQuestionOfASpotTakesACountryThatTheTableLacks) {
    StartaLogg(7);
    QString dxcc = "QQ";
    QString band = "20 M";
    QString trafiksätt = "DXCluster";
    KontrolleraNyttLand(dxcc, band, trafiksätt);
    EXPECT_EQ(trafiksätt, "DXCluster");
    EXPECT_EQ(AntalMärken(), "0");
}

// ---- worked countries ---------------------------------------------------------------------------------

TEST_F(LandProv, EveryBandAndModeOfACountryCanBeMarked) {
    StartaLogg(7);
    const QStringList band{"160 M", "80 M", "40 M", "30 M", "20 M", "17 M",
                           "15 M",  "12 M", "10 M", "6 M",  "2 M",  "70 CM"};
    for (const QString& ett : band) LäggTill("LA", "CW", ett);
    for (const char* trafiksätt : {"SSB", "AM", "FM", "RTTY", "PSK31", "SSTV"})
        LäggTill("LA", trafiksätt, "80 M");
    for (const QString& ett : band) EXPECT_EQ(Status("LA", ett), "W") << ett.toStdString();
    for (const char* trafiksätt : {"CW", "SSB", "AM", "FM", "RTTY", "PSK31", "SSTV"})
        EXPECT_EQ(Status("LA", trafiksätt), "W") << trafiksätt;
    EXPECT_EQ(Status("LA", "PSK"), "");
    EXPECT_EQ(AntalMärken(), "1") << "no other country";
}

TEST_F(LandProv, MarkingABandLeavesTheOthersAsTheyWere) {
    StartaLogg(7);
    Ändra(Logg(), "UPDATE TESTDXCC SET \"40 M\"='C', \"80 M\"='C' WHERE DXCC='LA'");
    db().rsTESTDXCC.Requery();
    LäggTill("LA", "CW", "80 M");
    EXPECT_EQ(Status("LA", "80 M"), "W");
    EXPECT_EQ(Status("LA", "40 M"), "C");
    EXPECT_EQ(Status("LA", "SSB"), "");
}

TEST_F(LandProv, AModeThatBeginsWithPSK31IsStoredAsPSK31) {
    StartaLogg(7);
    QString dxcc = "LA";
    QString band = "20 M";
    QString trafiksätt = "PSK31-QPSK";
    LäggTillKördaDXCC(dxcc, trafiksätt, band);
    EXPECT_EQ(trafiksätt, "PSK31") << "the caller's text too";
    EXPECT_EQ(Status("LA", "PSK31"), "W");
}

TEST_F(LandProv, ACountryThatTheTableLacksOrHoldsTwiceIsNotMarked) {
    StartaLogg(7);
    Ändra(Logg(), "INSERT INTO TESTDXCC (DXCC, CW, \"20 M\") VALUES ('LA', '', '')");
    db().rsTESTDXCC.Requery();
    LäggTill("LA", "CW", "20 M");
    LäggTill("QQ", "CW", "20 M");
    LäggTill("", "CW", "20 M");
    EXPECT_EQ(AntalMärken(), "0");
}

TEST_F(LandProv, AModeOrBandWithoutAColumnGivesTheMessageAndMarksNothing) {
    StartaLogg(7);
    const Meddelande fel{"Ett fel har inträffat vid sparande av körda dxcc.", "LäggTillKördaDXCC"};
    LäggTill("LA", "FT8", "20 M");
    EXPECT_EQ(Tag(), fel);
    LäggTill("LA", "CW", "24 CM");
    EXPECT_EQ(Tag(), fel);
    LäggTill("L'A", "CW", "20 M");
    EXPECT_EQ(Tag(), fel);
    EXPECT_EQ(AntalMärken(), "0");
    LäggTill("LA", "CW", "20 M");
    EXPECT_EQ(Status("LA", "20 M"), "W") << "the next one is marked as if nothing had been";
}

TEST_F(LandProv, AMarkThatCannotBeWrittenIsToldAndNotWrittenWithTheNext) {
    StartaLogg(7);
    Ändra(Logg(), "CREATE TRIGGER nej BEFORE UPDATE ON TESTDXCC BEGIN SELECT RAISE(ABORT, 'nej'); END");
    LäggTill("LA", "CW", "20 M");
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid sparande av körda dxcc.", "LäggTillKördaDXCC"}));
    Ändra(Logg(), "DROP TRIGGER nej");
    LäggTill("OZ", "SSB", "40 M");
    EXPECT_EQ(Status("OZ", "40 M"), "W");
    EXPECT_EQ(Status("LA", "20 M"), "");
}

TEST_F(LandProv, WithoutALogAMarkIsToldToBeImpossible) {
    Starta();
    LäggTill("LA", "CW", "20 M");
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid sparande av körda dxcc.", "LäggTillKördaDXCC"}));
}
