// What becomes of the text of a cluster: rows of the grid, records of the store, nothing.
#include "cluster/Klusterprov.h"

#include "platform/sound.h"
#include "store/Landsökning.h"

namespace {
class TolkProv : public Klusterprov {};
using Poster = std::vector<std::vector<QString>>;
} // namespace

// ---- a spot -------------------------------------------------------------------------------------------

TEST_F(TolkProv, ASpotComesIntoTheGridAndIntoTheStore) {
    StartaLogg(1);
    nu = QDateTime(QDate(2026, 12, 1), QTime(19, 0, 31));
    Ta(Rad("XX9BB"));
    EXPECT_EQ(Spottrad(1), (QStringList{"XX9AA", "XX9BB", "14,025,50", "CW", "", "20"}));
    EXPECT_EQ(Läs(Fil("DXSpott.Dat"),
                  "SELECT Datum, Tid, Signal, Frekvens, DXBand, Trafiksätt, Notering, Prefix, "
                  "[Spott Tid] FROM DXSpottLogg"),
              (Poster{{"2026-12-01", "19:00:31", "XX9BB", "14,025,50", "20", "CW", "big signal", "XX9",
                       "  1234Z"}}));
    EXPECT_EQ(SpotRad, 2);
    EXPECT_TRUE(kluster.ClusterBuffert.isEmpty());
}

TEST_F(TolkProv, ACallWithoutACountryGetsAQuestionMark) {
    StartaLogg(1);
    Ta(Rad("1A1"));
    Ta(Rad("QQQQ"));
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), "SELECT Prefix FROM DXSpottLogg WHERE Signal = 'QQQQ'"), "?");
}

TEST_F(TolkProv, WorksWithNoLogOpen) {
    Starta();
    Ta(Rad("SM5ABC"));
    EXPECT_EQ(Spottrad(1)[1], "SM5ABC");
    EXPECT_EQ(AntalLagrade(), 1);
}

TEST_F(TolkProv, ShowsSpotsEvenWhileTheCloseMenuHasClosedTheStore) {
    StartaLogg(1);
    StängDatabasar();
    Ta(Rad("SM5ABC") + Rad("SM5ABC"));
    EXPECT_EQ(Spottrad(1)[1], "SM5ABC");
    EXPECT_EQ(Spottrad(2)[1], "SM5ABC") << "without a store nothing can be known as a repeat";
}

TEST_F(TolkProv, ReadsNothingForAnotherKindOfConnection) {
    StartaLogg(1);
    kluster.ClusterTyp = 2;
    kluster.ClusterBuffert = Rad("XX9BB");
    TolkaDXClusterData();
    EXPECT_EQ(Spottrad(1)[1], "");
    EXPECT_TRUE(kluster.ClusterBuffert.isEmpty());
}

TEST_F(TolkProv, LetsWaitingEventsRunFirst) {
    StartaLogg(1);
    QTimer::singleShot(0, [] { kluster.ClusterBuffert = Rad("XX9CC"); });
    Ta(Rad("XX9BB"));
    EXPECT_EQ(Spottrad(1)[1], "XX9CC") << "the text is read after them";
}

TEST_F(TolkProv, PutsTheCaretOfTheRateTextAtItsEnd) {
    frTest& f = StartaLogg(1);
    f.txtInfo->setPlainText("10 min: 3 QSO\n1 tim: 20 QSO");
    f.txtInfo->moveCursor(QTextCursor::Start);
    Ta(Rad("XX9BB"));
    EXPECT_TRUE(f.txtInfo->textCursor().atEnd());
}

// ---- repeats ------------------------------------------------------------------------------------------

TEST_F(TolkProv, TheSameCallOnTheSameFrequencyWithinAMinuteIsStoredOnce) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    Ta("DX de XX9CC: 14025.5 XX9BB another spotter and note 1235Z\r\n");
    nu = nu.addSecs(59);
    Ta(Rad("XX9BB"));
    EXPECT_EQ(AntalLagrade(), 1);
    EXPECT_EQ(SpotRad, 2);
    nu = nu.addSecs(1);
    Ta(Rad("XX9BB"));
    EXPECT_EQ(AntalLagrade(), 2);
}

TEST_F(TolkProv, ARepeatInTheSameTextIsOneToo) {
    StartaLogg(1);
    Ta(Rad("XX9BB") + Rad("XX9CC") + Rad("XX9BB"));
    EXPECT_EQ(AntalLagrade(), 2);
}

TEST_F(TolkProv, OnAFrequencyThatDiffersByATenthItIsStoredTwice) {
    StartaLogg(1);
    Ta(Rad("XX9BB") + Rad("XX9BB", "14025.6"));
    EXPECT_EQ(Lagrade(), (Poster{{"XX9BB", "14,025,50", "CW", "20"}, {"XX9BB", "14,025,60", "CW", "20"}}));
}

TEST_F(TolkProv, AnotherCallInTheSameMinuteIsNoRepeat) {
    StartaLogg(1);
    Ta(Rad("XX9BB") + Rad("XX9BC"));
    EXPECT_EQ(AntalLagrade(), 2);
}

TEST_F(TolkProv, TheSameMinuteOfTheNextDayIsNoRepeat) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    nu = nu.addDays(1);
    Ta(Rad("XX9BB"));
    EXPECT_EQ(AntalLagrade(), 2);
}

TEST_F(TolkProv, ARepeatHasItsCommentLookedThroughAndTheNextLineIsTaken) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    Ta(Rad("XX9BB", "14025.5", "DX de XX9CC: 7005.0 XX9DD inner 1234Z") + Rad("XX9EE"));
    EXPECT_EQ(Lagrade(), (Poster{{"XX9BB", "14,025,50", "CW", "20"},
                                 {"XX9DD", "7,005,00", "CW", "40"},
                                 {"XX9EE", "14,025,50", "CW", "20"}}));
}

TEST_F(TolkProv, ASpotLiftsWhateverFilterTheStoreHad) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    db().rsDXSpottLogg.Filter("Signal = 'SM*'");
    Ta(Rad("XX9BB"));
    EXPECT_EQ(db().rsDXSpottLogg.Filter(), "");
    EXPECT_EQ(AntalLagrade(), 1);
}

TEST_F(TolkProv, TheStoreIsInOrderOfTimeAndOnItsLastSpotAfterwards) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    nu = nu.addSecs(-3600); // the computer's clock was put back
    Ta(Rad("XX9CC"));
    EXPECT_EQ(db().rsDXSpottLogg.Sort(), "Datum, Tid");
    EXPECT_EQ(db().rsDXSpottLogg.Field("Signal").text(), "XX9BB");
}

// ---- the filter ---------------------------------------------------------------------------------------

TEST_F(TolkProv, ASpotThatTheFilterRefusesLeavesNoRowAndNoRecord) {
    StartaLogg(1);
    SpotFörval.SpotTrafikVal[2] = false; // SSB
    Ta(Rad("XX9BB", "14200.0"));
    EXPECT_EQ(Spottrad(1)[1], "");
    EXPECT_EQ(AntalLagrade(), 0);
    EXPECT_EQ(SpotRad, 1);
    Ta(Rad("XX9BB", "14200.0") + Rad("XX9CC"));
    EXPECT_EQ(Lagrade(), (Poster{{"XX9CC", "14,025,50", "CW", "20"}}));
}

TEST_F(TolkProv, AFrequencyOutsideTheTableIsRefusedWithoutAMode) {
    StartaLogg(1);
    Ta(Rad("XX9BB", "13000.0"));
    EXPECT_EQ(SpotTrafiksätt, "");
    EXPECT_TRUE(SpotAvvisad);
    EXPECT_EQ(AntalLagrade(), 0);
}

TEST_F(TolkProv, AMicrowaveSpotIsKeptAsBareDigitsAndRefused) {
    StartaLogg(1);
    Ta(Rad("XX9BB", "1296100.0"));
    EXPECT_EQ(SpotFrekvens, "12961000");
    EXPECT_TRUE(SpotAvvisad);
    EXPECT_EQ(AntalLagrade(), 0);
}

TEST_F(TolkProv, WithAllBandsOffOnlyThoseWithoutAChoiceGetThrough) {
    StartaLogg(1);
    for (bool& val : SpotFörval.SpotBandVal) val = false;
    for (const char* kHz : {"1815.0", "3505.0", "7005.0", "10105.0", "14025.0", "18070.0", "21005.0",
                            "24895.0", "28005.0", "50005.0", "144050.0", "432050.0"})
        Ta(Rad("XX9BB", kHz));
    EXPECT_EQ(Lagrade(), (Poster{{"XX9BB", "10,105,00", "CW", "30"},
                                 {"XX9BB", "18,070,00", "CW", "17"},
                                 {"XX9BB", "24,895,00", "CW", "12"}}));
}

TEST_F(TolkProv, WithAllModesOffNoSpotGetsThrough) {
    StartaLogg(1);
    for (bool& val : SpotFörval.SpotTrafikVal) val = false;
    for (const char* kHz : {"1815.0", "10105.0", "14200.0", "145500.0", "18095.0"}) Ta(Rad("XX9BB", kHz));
    EXPECT_EQ(AntalLagrade(), 0);
}

TEST_F(TolkProv, AChangedChoiceLeavesTheGridAsItIs) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    for (bool& val : SpotFörval.SpotTrafikVal) val = false;
    Ta(Rad("XX9CC"));
    EXPECT_EQ(Spottrad(1)[1], "XX9BB");
    EXPECT_EQ(Spottrad(2)[1], "");
}

TEST_F(TolkProv, EachFrequencyIsSortedByThePlan) {
    StartaLogg(1);
    struct Fall {
        const char *kHz, *trafiksätt, *band;
    };
    for (const Fall& fall :
         {Fall{"1815.0", "CW", "160"}, Fall{"1836.5", "PSK31", "160"}, Fall{"1838.0", "RTTY", "160"},
          Fall{"1841.0", "SSTV", "160"}, Fall{"24900.0", "CW", "12"}, Fall{"145500.0", "FM", "2"},
          Fall{"50300.0", "SSB", "6"}, Fall{"432050.0", "CW", "70"}}) {
        Ta(Rad("XX9BB", fall.kHz));
        EXPECT_EQ(Spottrad(SpotRad - 1)[3], fall.trafiksätt) << fall.kHz;
        EXPECT_EQ(Spottrad(SpotRad - 1)[5], fall.band) << fall.kHz;
    }
}

TEST_F(TolkProv, ThereIsNoSoundAndNoColour) {
    StartaLogg(1);
    SpotFörval.SpotLjudPå = true;
    bool ljud = false;
    platform::Sounds().play = [&](const QString&) { ljud = true; };
    Ta(Rad("SM5ABC"));
    platform::Sounds() = {};
    EXPECT_FALSE(ljud);
    EXPECT_EQ(Rutnät().item(1, 1)->foreground(), QBrush());
}

// ---- what goes wrong ----------------------------------------------------------------------------------

TEST_F(TolkProv, AFrequencyThatIsNoNumberIsShownWithTheBandOfTheSpotBefore) {
    StartaLogg(1);
    Ta(Rad("XX9BB") + Rad("XX9CC", "FREKVENS"));
    EXPECT_EQ(Spottrad(2), (QStringList{"XX9AA", "XX9CC", "FREKVENS", "", "", "20"}));
    EXPECT_EQ(Lagrade()[1], (std::vector<QString>{"XX9CC", "FREKVENS", "", "20"}));
}

TEST_F(TolkProv, AFrequencyThatIsTooLongForANumberIsShownInTheSameWay) {
    StartaLogg(1);
    Ta(Rad("XX9CC", "123456789012"));
    EXPECT_EQ(Spottrad(1), (QStringList{"XX9AA", "XX9CC", "123456789012", "", "", "0"}));
}

TEST_F(TolkProv, AnEmptyFrequencyIsShownInTheSameWay) {
    StartaLogg(1);
    Ta(Rad("XX9CC", "."));
    EXPECT_EQ(Spottrad(1), (QStringList{"XX9AA", "XX9CC", "", "", "", "0"}));
}

TEST_F(TolkProv, ALineWithoutAColonHasNoSpotter) {
    StartaLogg(1);
    Ta("DX de 9K2/XX2SES  14205.0  XX9BB  x                 1234Z\r\n");
    EXPECT_EQ(Spottrad(1), (QStringList{"", "de", "DX", "", "", "0"}));
    EXPECT_EQ(AntalLagrade(), 1);
}

TEST_F(TolkProv, ACallWithAnApostropheIsStoredInAnEmptyStoreAlone) {
    StartaLogg(1);
    Ta(Rad("XX9'B"));
    EXPECT_EQ(Lagrade(), (Poster{{"XX9'B", "14,025,50", "CW", "20"}}));
    EXPECT_EQ(SpotPrefix, "") << "its country cannot be looked up";
    Ta(Rad("YY9'B", "14026.0") + Rad("XX9CC"));
    EXPECT_EQ(Lagrade(), (Poster{{"XX9'B", "14,025,50", "CW", "20"}, {"XX9CC", "14,025,50", "CW", "20"}}))
        << "a filter that cannot be set leaves all spots in sight, and one is enough for a repeat";
}

TEST_F(TolkProv, ACommentWithAnApostropheIsStored) {
    StartaLogg(1);
    Ta(Rad("XX9BB", "14025.5", "tks  qso 73' f/h              1650z"));
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), "SELECT Notering FROM DXSpottLogg"), "tks  qso 73' f/h");
}

TEST_F(TolkProv, ASpotThatCannotBeStoredIsShownAndDoesNotGoWithTheNext) {
    StartaLogg(1);
    Ändra(Fil("DXSpott.Dat"), "CREATE TRIGGER nej BEFORE INSERT ON DXSpottLogg WHEN NEW.Signal = 'XX9BB' "
                              "BEGIN SELECT RAISE(FAIL, 'nej'); END");
    Ta(Rad("XX9BB") + Rad("XX9CC"));
    EXPECT_EQ(Spottrad(1)[1], "XX9BB");
    EXPECT_EQ(Spottrad(2)[1], "XX9CC");
    EXPECT_EQ(Lagrade(), (Poster{{"XX9CC", "14,025,50", "CW", "20"}}));
    EXPECT_FALSE(db().rsDXSpottLogg.EditPending());
}

TEST_F(TolkProv, ALineCutInTwoIsTakenWithoutItsCommentAndItsRestIsLost) {
    StartaLogg(1);
    Ta("DX de XX9AA:   14025.5  XX9BB   big si");
    EXPECT_EQ(Läs(Fil("DXSpott.Dat"), "SELECT Signal, Notering, [Spott Tid] FROM DXSpottLogg"),
              (Poster{{"XX9BB", "", ""}}));
    Ta("gnal                  1234Z\r\n" + Rad("XX9CC"));
    EXPECT_EQ(AntalLagrade(), 2);
}

TEST_F(TolkProv, ASpotThatIsShownWithoutALineEndIsTheLastOfItsText) {
    StartaLogg(1);
    Ta("DX de XX9AA: 14025.5 XX9BB x dx de XX9AA: 14026.5 XX9CC y");
    EXPECT_EQ(Lagrade(), (Poster{{"XX9BB", "14,025,50", "CW", "20"}}));
}

TEST_F(TolkProv, OneThatIsRefusedWithoutALineEndIsNot) {
    StartaLogg(1);
    Ta("DX de XX9AA: 13000.0 XX9BB x dx de XX9AA: 14026.5 XX9CC y");
    EXPECT_EQ(Lagrade(), (Poster{{"XX9CC", "14,026,50", "CW", "20"}}));
}

TEST_F(TolkProv, HostileTextNeitherEndsNorHangsTheProgram) {
    StartaLogg(1);
    QString allt;
    for (int i = 0; i < 256; ++i) allt += QChar(i);
    for (const QString& text :
         {allt, "DX de " + allt + ":" + allt + " " + allt + " " + allt + "\r\n",
          QStringLiteral("dx de ").repeated(300), QStringLiteral("dx de:").repeated(300),
          QStringLiteral("dx de: 7005.0 ' ").repeated(100),
          QStringLiteral("DX de ") + QString(1000000, u'x') + ": 7005.0 XX9BB " + QString(100000, u'y') +
              "\r\n",
          QString(1000000, u' '), QStringLiteral("DX de XX9AA: 7005.0 ") + QString(300, u'A') + " x\r\n",
          QStringLiteral("DX de XX9AA: 7005.0 ") + QChar(u'\0') + " x\r\n"})
        Ta(text);
    Ta(Rad("SM5XYZ"));
    EXPECT_EQ(Spottrad(SpotRad - 1)[1], "SM5XYZ");
}

TEST_F(TolkProv, ADecimalCommaIsReadAsIfItWereNotThere) {
    StartaLogg(1);
    Ta(Rad("XX9BB", "14025,5"));
    EXPECT_EQ(Spottrad(1), (QStringList{"XX9AA", "XX9BB", "140,25,,50", "CW", "", "20"}));
}

TEST_F(TolkProv, AnApostropheInTheFrequencyMakesTheRepeatTestFailAsWell) {
    StartaLogg(1);
    Ta(Rad("XX9BB", "70'5.0"));
    EXPECT_EQ(Spottrad(1)[2], "7,0'5,00");
    Ta(Rad("XX9CC", "70'6.0"));
    EXPECT_EQ(AntalLagrade(), 1);
}

TEST_F(TolkProv, AnApostropheIsHeldAgainstWhatASearchShows) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    db().rsDXSpottLogg.Filter("Signal = 'QQ'");
    Ta(Rad("XX9'B"));
    EXPECT_EQ(AntalLagrade(), 2) << "the search shows no spot";
    EXPECT_EQ(db().rsDXSpottLogg.Filter(), "");
}

TEST_F(TolkProv, ACallInSmallLettersHasItsCountryAndRepeatsTheOneInCapitals) {
    StartaLogg(1);
    Ta("dx de xx3cc-#:    7003.0  sm5abc       cw 8 db 28 wpm cq              1801z\r\n");
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), "SELECT Prefix FROM DXSpottLogg"), "SM5");
    EXPECT_EQ(Spottrad(1)[1], "sm5abc");
    Ta(Rad("SM5ABC", "7003.0"));
    EXPECT_EQ(AntalLagrade(), 1);
}

TEST_F(TolkProv, EachSpotBeginsWithEmptyFields) {
    StartaLogg(1);
    Ta(Rad("SM5ABC"));
    Ta("DX de XX9AA:   14026.5  XX9BB   big si");
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), "SELECT [Spott Tid] FROM DXSpottLogg WHERE Signal = 'XX9BB'"), "");
    Ta(Rad("SM5ABC", "14027.5"));
    Ändra(Fil("DXSpott.Dat"), "DELETE FROM DXSpottLogg");
    db().rsDXSpottLogg.Requery();
    Ta(Rad("XX9'B"));
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), "SELECT Prefix FROM DXSpottLogg"), "") << "not the country before";
}

TEST_F(TolkProv, ACallOfManyCharactersIsSearchedByItsBeginning) {
    StartaLogg(1);
    Ta(Rad("SM5" + QString(300, u'A')));
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), "SELECT Prefix FROM DXSpottLogg"), "SM5");
}

TEST_F(TolkProv, TheCountryOfTheCallOnTheFormIsNotLostToThatOfASpot) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "sm5abc");
    f.txtDiplom->setFocus();
    Skriv("jo");
    const QString riktning = f.lblRiktning->text();
    const QString avstånd = f.lblAvstånd->text();
    Ta(Rad("VK9NT") + Rad("QQQQ", "14026.5") + Rad("JA1ABC", "14027.5"));
    EXPECT_EQ(db().rsPrefix.Field("Prefix").text(), "SM5");
    f.txtNotering->setFocus(); // leaving the locator takes the country's own from that row
    EXPECT_EQ(f.lblRiktning->text(), riktning);
    EXPECT_EQ(f.lblAvstånd->text(), avstånd);
}

// ---- the grid -----------------------------------------------------------------------------------------

TEST_F(TolkProv, TheGridHasItsHeadingsInRowZero) {
    StartaLogg(1);
    EXPECT_EQ(Rutnät().rowCount(), 17);
    EXPECT_EQ(Rutnät().columnCount(), 6);
    EXPECT_EQ(Spottrad(0), (QStringList{"DX de", "DX Spot", "Frekvens", T("Trafiksätt"), "", ""}));
    EXPECT_TRUE(Rutnät().isColumnHidden(4));
    EXPECT_TRUE(Rutnät().isColumnHidden(5));
}

TEST_F(TolkProv, TheGridGrowsWithItsSpotsAndItsCurrentRowIsTheNewest) {
    StartaLogg(1);
    for (int i = 1; i <= 13; ++i) Ta(Rad(QStringLiteral("XX9A%1").arg(i)));
    EXPECT_EQ(Rutnät().rowCount(), 17);
    Ta(Rad("XX9B"));
    EXPECT_EQ(Rutnät().rowCount(), 15);
    EXPECT_EQ(Rutnät().Row(), 14);
    for (int i = 15; i <= 40; ++i) Ta(Rad(QStringLiteral("XX9C%1").arg(i)));
    EXPECT_EQ(Rutnät().rowCount(), 41);
    EXPECT_EQ(Spottrad(40)[1], "XX9C40");
    EXPECT_EQ(SpotRad, 41);
}

TEST_F(TolkProv, ARefusedSpotMakesRoomButLeavesItFree) {
    StartaLogg(1);
    for (int i = 1; i <= 20; ++i) Ta(Rad(QStringLiteral("XX9A%1").arg(i)));
    Ta(Rad("XX9BB", "13000.0"));
    EXPECT_EQ(Rutnät().rowCount(), 22);
    EXPECT_EQ(Rutnät().Row(), 21);
    EXPECT_EQ(Spottrad(21)[1], "");
    EXPECT_EQ(SpotRad, 21);
}

TEST_F(TolkProv, AFullGridLosesItsFirstElevenSpots) {
    StartaLogg(1);
    for (int i = 1; i <= 40; ++i) Ta(Rad(QStringLiteral("XX9A%1").arg(i)));
    Rutnät().item(15, 1)->setForeground(Qt::red);
    Ta(Rad("XX9A41"));
    EXPECT_EQ(Rutnät().rowCount(), 31);
    EXPECT_EQ(SpotRad, 31);
    for (int rad = 1; rad <= 29; ++rad)
        EXPECT_EQ(Spottrad(rad)[1], QStringLiteral("XX9A%1").arg(rad + 11)) << rad;
    EXPECT_EQ(Rutnät().item(4, 1)->foreground(), QBrush(Qt::red)) << "the colour moves along";
    EXPECT_EQ(Spottrad(1), (QStringList{"XX9AA", "XX9A12", "14,025,50", "CW", "", "20"}));
    EXPECT_EQ(Spottrad(29), (QStringList{"XX9AA", "XX9A40", "14,025,50", "CW", "", "20"}));
    EXPECT_EQ(Spottrad(30)[1], "XX9A30") << "the row behind them is not touched";
    EXPECT_EQ(Rutnät().item(5, 1)->foreground(), QBrush()) << "and what has no colour gets none";
    EXPECT_EQ(AntalLagrade(), 41);
    Ta(Rad("XX9A42"));
    EXPECT_EQ(Spottrad(31)[1], "XX9A42");
    EXPECT_EQ(Rutnät().rowCount(), 32);
}

TEST_F(TolkProv, ManySpotsInOneTextLeaveWhatTheyLeaveOneByOne) {
    StartaLogg(1);
    frDXSpott& f = frDXSpott::instans();
    f.Visa();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f));
    const auto spottar = [](int antal) {
        QStringList rader;
        for (int i = 1; i <= antal; ++i) rader << Rad(QStringLiteral("XX9A%1").arg(i));
        rader.insert(antal / 2, Rad("XX9A1"));           // a repeat
        rader.insert(antal / 3, Rad("XX9B", "13000.0")); // refused
        rader.insert(antal / 4, "To ALL de XX9ZZ <1334Z> : hello\r\n");
        return rader;
    };
    const auto läge = [&f] {
        QStringList allt;
        for (int rad = 0; rad < f.fgDXSpott->rowCount(); ++rad) allt << Spottrad(rad).join('|');
        QCoreApplication::processEvents();
        allt << QString::number(f.fgDXSpott->currentRow()) << QString::number(SpotRad) << SpotSignal
             << SpotFrekvens << SpotTrafiksätt << SpotNotering << SpotTidRapport << SpotPrefix
             << QString::number(SpotBand);
        return allt;
    };
    for (const int antal : {3, 13, 14, 40, 41, 42, 52, 60}) {
        QStringList ettOchEtt;
        for (const bool påEnGång : {false, true}) {
            f.fgDXSpott->Clear(17, 6);
            SpotRad = 1;
            Ändra(Fil("DXSpott.Dat"), "DELETE FROM DXSpottLogg");
            db().rsDXSpottLogg.Requery();
            const QStringList rader = spottar(antal);
            if (påEnGång) {
                Ta(rader.join(QString()));
                EXPECT_EQ(läge(), ettOchEtt) << antal;
            } else {
                for (const QString& rad : rader) Ta(rad);
                ettOchEtt = läge();
            }
        }
    }
}

TEST_F(TolkProv, TheMenuTakesTheLastRowAfterAFullGridWasMoved) {
    frTest& f = StartaLogg(1);
    QString allt;
    for (int i = 1; i <= 41; ++i) allt += Rad(QStringLiteral("XX9A%1").arg(i));
    Ta(allt);
    EXPECT_EQ(Rutnät().Row(), 30);
    f.Meny("mnuDXSpot_Visa")->trigger();
    EXPECT_EQ(f.txtSignal->text(), "XX9A30");
}

TEST_F(TolkProv, TheNewestSpotIsAlwaysInSight) {
    StartaLogg(1);
    frDXSpott& f = frDXSpott::instans();
    f.Visa();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f));
    for (int i = 1; i <= 100; ++i) {
        Ta(Rad(QStringLiteral("XX9A%1").arg(i)));
        const int rad = SpotRad - 1;
        if (Spottrad(rad)[1] != QStringLiteral("XX9A%1").arg(i)) continue; // the grid has just been moved
        const QRect plats = f.fgDXSpott->visualItemRect(f.fgDXSpott->item(rad, 1));
        EXPECT_TRUE(f.fgDXSpott->viewport()->rect().contains(plats.center())) << i;
    }
}

TEST_F(TolkProv, TheLastTwelveRowsAreInSightAlsoAfterALookFurtherUp) {
    StartaLogg(1);
    frDXSpott& f = frDXSpott::instans();
    f.Visa();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f));
    QString allt;
    for (int i = 1; i <= 30; ++i) allt += Rad(QStringLiteral("XX9A%1").arg(i));
    Ta(allt);
    f.fgDXSpott->scrollToTop();
    Ta(Rad("XX9B"));
    QCoreApplication::processEvents();
    for (const int rad : {SpotRad - 12, SpotRad - 1}) {
        const QRect plats = f.fgDXSpott->visualItemRect(f.fgDXSpott->item(rad, 1));
        EXPECT_TRUE(f.fgDXSpott->viewport()->rect().contains(plats.center())) << rad;
    }
}

TEST_F(TolkProv, AGridMadeAnewGoesOnWhereTheOldOneStood) {
    StartaLogg(1);
    for (int i = 1; i <= 19; ++i) Ta(Rad(QStringLiteral("XX9A%1").arg(i)));
    frDXSpott::instans().Visa();
    frDXSpott::instans().close();
    Ta(Rad("XX9B"));
    EXPECT_EQ(Spottrad(20)[1], "XX9B");
    EXPECT_EQ(Spottrad(19)[1], "");
    for (int i = 21; i <= 41; ++i) Ta(Rad(QStringLiteral("XX9C%1").arg(i)));
    EXPECT_EQ(Spottrad(9)[1], "XX9B");
    EXPECT_EQ(Rutnät().item(9, 1)->textAlignment(), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(TolkProv, TheColumnsAreWideEnough) {
    StartaLogg(1);
    const int twips[] = {1275, 1275, 1025, 900};
    for (int i = 0; i < 4; ++i) EXPECT_GE(Rutnät().columnWidth(i), twips[i] / 15) << i;
}

TEST_F(TolkProv, TheGridBeginsEmptyAndTheStoreLasts) {
    StartaLogg(1);
    Ta(Rad("XX9BB"));
    StartaOm();
    EXPECT_EQ(Spottrad(1)[1], "");
    EXPECT_EQ(SpotRad, 1);
    EXPECT_EQ(db().rsDXSpottLogg.RecordCount(), 1);
}

// ---- the window text ----------------------------------------------------------------------------------

TEST_F(TolkProv, ALongWindowTextIsCutToItsLastTenThousandCharacters) {
    StartaLogg(1);
    frDXCluster& f = frDXCluster::instans();
    f.VisaText(QString(5000, u'a') + QString(10000, u'b'));
    Ta(QString());
    EXPECT_EQ(f.txtMSCom->toPlainText().size(), 15000);
    f.VisaText("c");
    Ta(QString());
    EXPECT_EQ(f.txtMSCom->toPlainText(), QString(9999, u'b') + "c");
}
