// Macros: their placeholders and their file.
#include "platform/failure.h"
#include "platform/textfile.h"
#include "radio/Makro.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace radio;

namespace {

const Makrovärden värden{.minSignal = "XX9AA",
                         .motSignal = "XX1BB",
                         .sändRapport = "599",
                         .mottagenRapport = "579",
                         .mittNamn = "NILS",
                         .mottagetNamn = "KARL",
                         .mittQTH = "LUND",
                         .minLokator = "JO65MR",
                         .datum = "2026-12-01"};

QString Text(const QString& makro) { return ExpanderaMakro(makro, värden).text; }

/// A table with a caption and a text of its own in every row.
MakroTabell Fylld(const QString& märke = "") {
    MakroTabell tabell;
    for (size_t i = 0; i < tabell.size(); ++i)
        tabell[i] = {märke + QString("K%1").arg(i + 1), märke + QString("TEXT %1, A").arg(i + 1)};
    return tabell;
}

} // namespace

// ---- placeholders -------------------------------------------------------------------------------------

TEST(Makro, TheOwnCallStandsInEveryPlace) { EXPECT_EQ(Text("CQ TEST %SS %SS K"), "CQ TEST XX9AA XX9AA K"); }

TEST(Makro, EachPlaceholderStandsForItsValue) {
    EXPECT_EQ(Text("%SS %SM %RS %RM %NS %NM %QS %LS %DS"),
              "XX9AA XX1BB 599 579 NILS KARL LUND JO65MR 2026-12-01");
    EXPECT_EQ(Text("%SS%SM"), "XX9AAXX1BB") << "with nothing between them";
}

TEST(Makro, LetterCaseMakesNoDifference) {
    EXPECT_EQ(Text("%ss %Sm %rS"), "XX9AA XX1BB 599");
    EXPECT_EQ(ExpanderaMakro("%tx cq %rx", värden), (Makrosändning{.text = " cq ", .tx = true, .rx = true}));
}

TEST(Makro, TransmitAndReceiveAreTakenOutWhereverTheyStand) {
    EXPECT_EQ(ExpanderaMakro("%TXCQ%TX", värden), (Makrosändning{.text = "CQ", .tx = true, .rx = false}));
    EXPECT_EQ(ExpanderaMakro("C%RXQ", värden), (Makrosändning{.text = "CQ", .tx = false, .rx = true}));
    EXPECT_EQ(ExpanderaMakro("CQ", värden), (Makrosändning{.text = "CQ", .tx = false, .rx = false}));
    EXPECT_EQ(ExpanderaMakro("%T%TXX", värden).text, "%TX") << "what is left over is text";
}

TEST(Makro, AnEmptyValueLeavesNothingInItsPlace) { EXPECT_EQ(ExpanderaMakro("A%SM B", {}).text, "A B"); }

TEST(Makro, SerialNumberTimeAndUnknownPlaceholdersGoOutAsTheyAreWritten) {
    EXPECT_EQ(Text("%LN %TS %XY % 100%"), "%LN %TS %XY % 100%");
}

TEST(Makro, APlaceholderInAValueCountsIfItsTurnComesLater) {
    Makrovärden v = värden;
    v.motSignal = "%NM";
    v.mottagetNamn = "%SM %TX";
    EXPECT_EQ(ExpanderaMakro("%SM", v), (Makrosändning{.text = "%SM %TX", .tx = false, .rx = false}));
}

TEST(Makro, TheOperatorIsToldOfThirteenPlaceholders) {
    QStringList rader;
    for (const auto& [kommando, hjälp] : makrokommandon) rader << T(kommando) + "=" + T(hjälp);
    EXPECT_EQ(rader,
              (QStringList{"%TX=För TX läge", "%RX=För RX läge", "%SS=Min Signal", "%SM=Mot stations Signal",
                           "%RS=Sänd Rapport", "%LN=Sänd Löpnummer", "%RM=Mottagen Rapport", "%NS=Mitt Namn",
                           "%NM=Mottaget Namn", "%QS=Mitt QTH", "%LS=Min Lokator", "%DS=Datum", "%TS=Tid"}));
}

// ---- the file -----------------------------------------------------------------------------------------

TEST(Makro, TheFileHasCaptionAndTextByTurns) {
    MakroTabell tabell;
    tabell[0] = {"CQ", "CQ TEST %SS"};
    tabell[1] = {"73", "73, \"TU\" "};
    EXPECT_EQ(MakronTillText(tabell, 2), "\"CQ\"\r\n\"CQ TEST %SS\"\r\n\"73\"\r\n\"73, \"TU\" \"\r\n");
    EXPECT_EQ(MakronTillText(tabell, 12).count("\r\n"), 24);
    EXPECT_EQ(MakronTillText(tabell, 14).count("\r\n"), 28);
}

TEST(Makro, TwelvePairsFillTwelveRowsAndLeaveTheRest) {
    MakroTabell tabell = Fylld("gammal ");
    LäsMakron(MakronTillText(Fylld(), 12), tabell);
    for (size_t i = 0; i < 14; ++i) EXPECT_EQ(tabell[i], (i < 12 ? Fylld() : Fylld("gammal "))[i]) << i;
}

TEST(Makro, FourteenPairsFillTheTable) {
    MakroTabell tabell;
    LäsMakron(MakronTillText(Fylld(), 14), tabell);
    EXPECT_EQ(tabell, Fylld());
}

TEST(Makro, OfAShortFileTheLastPairIsWiped) {
    for (const size_t par : {1U, 5U, 11U}) {
        MakroTabell tabell = Fylld("gammal ");
        LäsMakron(MakronTillText(Fylld(), static_cast<int>(par)), tabell);
        for (size_t i = 0; i < 14; ++i) {
            const auto rad = i < par - 1 ? Fylld()[i] : i < 12 ? MakroTabell{}[i] : Fylld("gammal ")[i];
            EXPECT_EQ(tabell[i], rad) << par << " pairs, row " << i;
        }
    }
}

TEST(Makro, MoreThanFourteenPairsAreAFailureAndTheTableIsFull) {
    MakroTabell tabell;
    EXPECT_THROW(LäsMakron(MakronTillText(Fylld(), 14) + "\"K15\"\r\n\"T15\"\r\n", tabell),
                 platform::Failure);
    EXPECT_EQ(tabell, Fylld());
}

TEST(Makro, AFileWithoutAPairOrWithHalfAPairIsAFailure) {
    MakroTabell tabell;
    EXPECT_THROW(LäsMakron("", tabell), platform::Failure);
    EXPECT_THROW(LäsMakron("\"CQ\"\r\n", tabell), platform::Failure);
    EXPECT_THROW(LäsMakron(MakronTillText(Fylld(), 12) + "\"K13\"\r\n", tabell), platform::Failure);
    EXPECT_EQ(tabell[11], Fylld()[11]) << "what was read stands";
}

TEST(Makro, AValueGoesToItsNextQuote) {
    MakroTabell tabell;
    LäsMakron("\"A\"B\"\r\n\"CQ, %SS\"\r\nUTAN\r\n  BLANKT \r\n\"\"\r\n\"X\"\r\n", tabell);
    EXPECT_EQ(tabell[0], (std::array<QString, 2>{"A", "CQ, %SS"}));
    EXPECT_EQ(tabell[1], (std::array<QString, 2>{"UTAN", "BLANKT "}));
}

// ---- the files that come with the program -------------------------------------------------------------

TEST(Makro, TheShippedFilesFillEveryButtonWithATextThatGoesOutWhole) {
    for (const QString fil : {"CW/CW-test.ini", "Digital/RTTY-test.ini"}) {
        SCOPED_TRACE(fil.toStdString());
        const QString text = platform::LoadTextFile(QStringLiteral(SORVIK_MAKRON) + "/" + fil);
        MakroTabell tabell;
        LäsMakron(text, tabell);
        EXPECT_EQ(MakronTillText(tabell, 12), text) << "written as the program writes it";
        for (size_t i = 0; i < 12; ++i) {
            const auto& [rubrik, makro] = tabell[i];
            EXPECT_TRUE(!rubrik.isEmpty() && rubrik.size() <= 8) << rubrik.toStdString();
            EXPECT_EQ(rubrik + makro, (rubrik + makro).toUpper());
            const Makrosändning sändning = ExpanderaMakro(makro, värden);
            EXPECT_FALSE(sändning.text.contains('%')) << makro.toStdString();
            EXPECT_TRUE(sändning.text.endsWith(' ')) << "the next one goes on from there";
            EXPECT_EQ(sändning.tx && sändning.rx, fil.startsWith("Digital")) << makro.toStdString();
        }
    }
}
