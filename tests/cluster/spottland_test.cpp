// The country of a spot in an open log.
#include "support/Programprov.h"

#include "cluster/DXClusterModul.h"
#include "store/Landsökning.h"

class SpottlandProv : public Programprov {};

TEST_F(SpottlandProv, AKnownCountrySortsTheSpotByItsFrequency) {
    StartaLogg(1);
    SpotSignal = "SM5ABC";
    SpotFrekvens = "14,025,50";
    KollaSpotPrefix();
    KollaSpotLand();
    EXPECT_EQ(SpotPrefix, "SM5");
    EXPECT_EQ(SpotBand, 20);
    EXPECT_EQ(SpotTrafiksätt, "CW");
    EXPECT_FALSE(SpotAvvisad);
    EXPECT_EQ(db().rsTESTDXCC.Field("DXCC").text(), "SM");
}

TEST_F(SpottlandProv, ASpotWithoutACountryIsLeftAlone) {
    StartaLogg(1);
    SpotFrekvens = "14,025,50";
    for (const char* prefix : {"", "?"}) {
        SpotPrefix = prefix;
        KollaSpotLand();
        EXPECT_EQ(SpotBand, 0);
    }
}

TEST_F(SpottlandProv, AnUnwantedBandRefusesTheSpotForGood) {
    StartaLogg(1);
    SpotFörval.SpotBandVal[4] = false;
    SpotPrefix = "OZ";
    SpotFrekvens = "14,025,50";
    KollaSpotLand();
    EXPECT_TRUE(SpotAvvisad);
    SpotFrekvens = "7,005,00";
    KollaSpotLand();
    EXPECT_TRUE(SpotAvvisad) << "once refused, a spot stays refused";
}

TEST_F(SpottlandProv, AFrequencyThatIsNoNumberFails) {
    StartaLogg(1);
    SpotPrefix = "OZ";
    SpotFrekvens = "sjutton";
    EXPECT_THROW(KollaSpotLand(), platform::Failure);
}

TEST_F(SpottlandProv, NothingInTheLogChanges) {
    StartaLogg(1);
    SpotPrefix = "OZ";
    SpotFrekvens = "432,025,00";
    KollaSpotLand();
    EXPECT_EQ(SpotBand, 70);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTDXCC WHERE [70 CM] <> '' OR CW <> ''"), "0");
}

TEST_F(SpottlandProv, ACountryThatTheLogDoesNotListEndsTheSearch) {
    StartaLogg(1);
    Ändra(Logg(), "DELETE FROM TESTDXCC WHERE DXCC='OZ'");
    db().rsTESTDXCC.Requery();
    SpotPrefix = "OZ";
    SpotFrekvens = "14,025,50";
    KollaSpotLand();
    EXPECT_EQ(SpotBand, 0);
}

TEST_F(SpottlandProv, TheWholeTableIsSearchedEachTimeWhateverWasFoundOrFilteredBefore) {
    StartaLogg(1);
    SpotFrekvens = "14,025,50";
    db().rsTESTDXCC.Filter("DXCC = 'LA'"); // as the marking of a worked country leaves it
    for (const char* prefix : {"SM5", "DL", "OZ", "DL"}) {
        SpotBand = 0;
        SpotPrefix = prefix;
        KollaSpotLand();
        EXPECT_EQ(SpotBand, 20) << prefix;
    }
}

TEST_F(SpottlandProv, AnApostropheInTheCallReachesTheCaller) {
    StartaLogg(1);
    SpotSignal = "SM'5";
    EXPECT_THROW(KollaSpotPrefix(), platform::Failure);
    SpotSignal = "SM5ABC";
    KollaSpotPrefix();
    EXPECT_EQ(SpotPrefix, "SM5");
}
