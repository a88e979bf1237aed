// The rules behind the reports, on values alone.
#include "reports/Adif.h"
#include "reports/Cabrillo.h"
#include "reports/Edi.h"
#include "reports/FastText.h"
#include "reports/Summa.h"
#include "reports/Titlar.h"

#include "platform/failure.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace reports;

TEST(FastText, TakesTheFirstCharactersAndIsFilledWithBlanks) {
    FastText fält(4);
    EXPECT_EQ(fält.Text(), QString(4, QChar(0))) << "before it is given anything";
    fält.Vänster("ab");
    EXPECT_EQ(fält.Text(), "ab  ");
    fält.Höger("ab");
    EXPECT_EQ(fält.Text(), "  ab");
    for (const auto sätt : {&FastText::Vänster, &FastText::Höger}) {
        (fält.*sätt)("abcdef");
        EXPECT_EQ(fält.Text(), "abcd");
    }
    fält.Höger("");
    EXPECT_EQ(fält.Text(), "    ");
}

TEST(Rapportregler, DatesTimesAndReportsAreCutAsEveryReportCutsThem) {
    EXPECT_EQ(KortDatum("2026-12-01"), "261201");
    EXPECT_EQ(KortDatum("26-12-01"), "261201");
    EXPECT_EQ(KortDatum(""), "");
    EXPECT_EQ(KortTid("18:30:59"), "1830");
    EXPECT_EQ(KortTid("18:3"), "183");
    EXPECT_EQ(KortTid(""), "");
    EXPECT_EQ(BaraRST("599 001"), "599");
    EXPECT_EQ(BaraRST("599"), "599");
    EXPECT_EQ(BaraRST("59  1"), "59");
    EXPECT_EQ(BaraRST(" 59"), "");
}

TEST(Rapportregler, TheTitlesFollowTheNumber) {
    const char* const titlar[] = {
        "NAC 432 MHz", "NAC 144 MHz", "NAC 50 MHz",  "NAC 28 MHz CW", "NAC 28 MHz SSB", "NAC 28 MHz FM",
        "KVARTAL",     "MT CW",       "MT SSB",      "CQWW CW",       "CQWW SSB",       "SAC CW",
        "SAC SSB",     "WPX CW",      "WPX SSB",     "CQWW SSB",      "SAC CW",         "SAC SSB",
        "WPX CW",      "IOTA",        "CQWW RTTY",   "DLDX RTTY",     "CQRJ RTTY",      "ARRL TEN",
        "ES OPEN",     "IARU HF",     "ASIAN CW",    "ASIAN SSB",     "JAPAN CW",       "JAPAN SSB",
        "JARTS",       "UKRINIA",     "UKRINIA RTTY"};
    for (int i = 0; i < 33; ++i) EXPECT_EQ(SummaTitel(i), titlar[i]) << i;
    EXPECT_EQ(SummaTitel(33), "");
    EXPECT_EQ(SummaTitel(-1), "");
    EXPECT_EQ(EdiTitel(5), "NAC 28 MHz FM");
    EXPECT_EQ(EdiTitel(6), "");
    EXPECT_EQ(KortTitel(6), "NAC 28 MHz Digi");
    EXPECT_EQ(KortTitel(11), "");
}

TEST(Rapportregler, TheLongestContactIsReducedToItsParts) {
    EXPECT_EQ(LängstaQSOFält("Längsta QSO : SM5ABC  JO89WJ  500 Km"), "SM5ABC;JO89WJ;500");
    EXPECT_EQ(LängstaQSOFält(""), "");
    EXPECT_EQ(LängstaQSOFält("SM5ABC  JO89"), "SM5ABC;JO89");
    EXPECT_EQ(LängstaQSOFält("X :"), "");
}

TEST(Rapportregler, WhatAnEDIReportCountsFollowsTheContest) {
    const Loggbild logg{
        .kontakter = {
            {.sänt = "599 001", .mottaget = "579 002", .löpNr = "002", .löpNrSR = "001", .ndxcc = "N"}}};
    for (int test = 0; test < 15; ++test) {
        SCOPED_TRACE(test);
        const QStringList rader = EdiRapport({.test = test,
                                              .antalQSO = "1",
                                              .multiplar = "MULT",
                                              .diplom = "DIPL",
                                              .rutPoäng = "500",
                                              .kmPoäng = "1"},
                                             logg)
                                      .rader;
        const bool tioMeter = test >= 3 && test <= 5;
        const QString rutor = tioMeter ? "CWWLs=MULT;500;1" : "CWWLs=DIPL;500;1";
        EXPECT_EQ(rader.filter("CWWLs="), test <= 5 ? QStringList{rutor} : QStringList());
        EXPECT_TRUE(rader.contains(tioMeter ? "CDXCs=DIPL;;" : "CDXCs=1;;"));
        EXPECT_TRUE(rader.contains(tioMeter ? "CDXCB=DIPL" : "CDXCB=0"));
        const bool nummer = tioMeter || test == 7 || test == 8;
        EXPECT_EQ(rader[rader.size() - 2].section(';', 4, 7),
                  nummer ? "599;001;579;002" : "599 001;;579 002;002");
    }
}

TEST(Rapportregler, NamesOfFiles) {
    CabrilloUppgifter c{.test = 8,
                        .station = {.signal = "SK7MW"},
                        .datum = "2026-02-17",
                        .trafik = "PH",
                        .formulärdatum = "2026-12-01"};
    EXPECT_EQ(CabrilloFilnamn(cabrilloMT, c), "SK7MW_MT2602_PH");
    for (const char* datum :
         {"2026/02/17", "2026.02.17", "26-02-17", " 2026-02-17 ", "2026-2-7", "26-2-7", "2026-02-17 14:00"}) {
        c.datum = datum;
        EXPECT_EQ(CabrilloFilnamn(cabrilloMT, c), "SK7MW_MT2602_PH") << datum;
    }
    c.datum = "00-02-29";
    EXPECT_EQ(CabrilloFilnamn(cabrilloMT, c), "SK7MW_MT0002_PH") << "a leap year of this century";
    c.trafik = "CW";
    EXPECT_EQ(CabrilloFilnamn(cabrilloMT, c), "SK7MW_MT0002_CW");
    for (const char* datum : {"", "2026-02-30", "i dag"}) {
        c.datum = datum;
        EXPECT_THROW(CabrilloFilnamn(cabrilloMT, c), platform::Failure) << datum;
    }
    for (const int test : {9, 10}) {
        c.test = test;
        EXPECT_EQ(CabrilloFilnamn(cabrilloSAC, c), "SK7MW261201_");
    }
    c.test = 11; // the numbers that the names hang on
    EXPECT_EQ(CabrilloFilnamn(cabrilloSAC, c), "SK7MW261201_SAC-CW");
    c.test = 42;
    EXPECT_EQ(CabrilloFilnamn(cabrilloARRLDX, c), "SK7MW261201_ARRL-SSB");
    c.test = 12;
    EXPECT_EQ(CabrilloFilnamn(cabrilloSAC, c), "SK7MW261201_SAC-SSB");
    c.test = 41;
    EXPECT_EQ(CabrilloFilnamn(cabrilloARRLDX, c), "SK7MW261201_ARRL-CW");
    EXPECT_EQ(EdiFilnamn({.test = 1, .formulärdatum = "2026-12-01"}), "SVK261201__ 144 MHz");
    EXPECT_EQ(EdiFilnamn({.test = 14, .formulärdatum = "2026-12-01"}), "SVK261201_");
    const SummaUppgifter s{.test = 7, .station = {.signal = "SK7MW"}, .formulärdatum = "2026-12-01"};
    EXPECT_EQ(SummaFilnamn(s), "SVK261201_MT CW");
    EXPECT_EQ(ListaFilnamn(s), "SK7MW261201_MT CW");
}

TEST(Rapportregler, EachCabrilloReportHasItsBandsAndModes) {
    const std::pair<const char*, const char*> band[] = {{"160 M", " 1800"}, {"80 M", " 3500"},
                                                        {"40 M", " 7000"},  {"20 M", "14000"},
                                                        {"15 M", "21000"},  {"10 M", "28000"}};
    const std::pair<const char*, const char*> trafik[] = {{"CW", "CW"}, {"SSB", "PH"}, {"RTTY", "RY"}};
    const auto rad = [](const Cabrilloform& form, const char* iband, const char* itrafik) {
        const Loggbild logg{.kontakter = {{.trafiksätt = itrafik, .band = iband}}};
        const QStringList rader = CabrilloRapport(form, {}, logg).rader;
        return rader[rader.size() - 2];
    };
    struct Fall {
        const Cabrilloform& form;
        int första, sista; ///< bands
        int trafik;        ///< number of modes
    };
    for (const Fall& fall :
         {Fall{cabrilloMT, 1, 2, 2}, Fall{cabrilloSAC, 1, 5, 3}, Fall{cabrilloARRLDX, 0, 5, 2}}) {
        for (int i = 0; i < 6; ++i) {
            const bool med = i >= fall.första && i <= fall.sista;
            EXPECT_EQ(rad(fall.form, band[i].first, "CW").mid(5, 5),
                      med ? QString(band[i].second) : QString(5, QChar(0)))
                << band[i].first;
        }
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(rad(fall.form, "80 M", trafik[i].first).mid(11, 2),
                      i < fall.trafik ? QString(trafik[i].second) : QString(2, QChar(0)))
                << trafik[i].first;
    }
}

TEST(Rapportregler, WhatAContactLacksIsThatOfTheOneBeforeAndLongTextsAreCut) {
    const Loggbild logg{
        .kontakter = {
            {.datum = "2026-12-01", .tid = "18:00:00", .signal = "A", .trafiksätt = "CW", .band = "80 M"},
            {.signal = "B"}}};
    const CabrilloUppgifter u{
        .station = {.signal = "SM5ABCDEFGHIJKL", .lokator = "JO65MRAA", .effekt = "12345"}};
    const QStringList mt = CabrilloRapport(cabrilloMT, u, logg).rader;
    EXPECT_EQ(mt[mt.size() - 2],
              "QSO:  3500 CW 2026-12-01 1800 SM5ABCDEFGHIJ          JO65MR B                            ");
    const QStringList arrl = CabrilloRapport(cabrilloARRLDX, u, logg).rader;
    EXPECT_EQ(arrl[arrl.size() - 2],
              "QSO:  3500 CW 2026-12-01 1800 SM5ABCDEFGHIJ     1234 B                     ");
}

TEST(Rapportregler, TheCallHasThirteenPlacesOnEveryLine) {
    Loggbild logg;
    for (const char* signal : {"A", "SM5ABCDEFGHIJ", "SM5ABCDEFGHIJKLM"})
        logg.kontakter.push_back({.datum = "2026-12-01",
                                  .tid = "18:00:00",
                                  .signal = signal,
                                  .trafiksätt = "CW",
                                  .band = "80 M",
                                  .sänt = "599 1",
                                  .mottaget = "599 2"});
    const Rapport rapport = CabrilloRapport(cabrilloSAC, {.test = 9, .station = {.signal = "SK7MW"}}, logg);
    ASSERT_TRUE(rapport.hel);
    const qsizetype första = rapport.rader.size() - 4;
    EXPECT_EQ(rapport.rader.mid(första, 3),
              (QStringList{"QSO:  3500 CW 2026-12-01 1800 SK7MW         599      A             599     ",
                           "QSO:  3500 CW 2026-12-01 1800 SK7MW         599      SM5ABCDEFGHIJ 599     ",
                           "QSO:  3500 CW 2026-12-01 1800 SK7MW         599      SM5ABCDEFGHIJ 599     "}));
    EXPECT_EQ(rapport.rader.last(), "END-OF-LOG:");
}

TEST(Rapportregler, ALogThatCannotBeReadEndsEachReportBehindItsHeader) {
    const Loggbild logg{.kontakter = {}, .läsbar = false};
    const Rapport cabrillo = CabrilloRapport(cabrilloMT, {.test = 7}, logg);
    EXPECT_FALSE(cabrillo.hel);
    EXPECT_EQ(cabrillo.rader.last(), "SOAPBOX: ");
    const Rapport edi = EdiRapport({.antalQSO = "3"}, logg);
    EXPECT_FALSE(edi.hel);
    EXPECT_EQ(edi.rader.last(), "[QSORecords;3]");
    const Rapport adif = AdifRapport(logg, {});
    EXPECT_FALSE(adif.hel);
    EXPECT_EQ(adif.rader.last(), "<EOH>");
    EXPECT_FALSE(ListaRapport({}, logg).hel);
    EXPECT_THROW(SummaRapport({}, logg), platform::Failure);
}

TEST(Rapportregler, ATotalPutsDigitsBehindDigits) {
    EXPECT_EQ(LäggTillBand(0, "3       "), 3);
    EXPECT_EQ(LäggTillBand(3, "0       "), 30);
    EXPECT_EQ(LäggTillBand(30, "12      "), 3012);
    EXPECT_EQ(LäggTillBand(0, "0"), 0);
    EXPECT_EQ(LäggTillBand(214748364, "7"), 2147483647);
    EXPECT_THROW(LäggTillBand(214748364, "8"), platform::Failure);
}

TEST(Rapportregler, OneBandAloneGetsAZeroForEachLaterOne) {
    Loggbild logg;
    for (int i = 0; i < 12; ++i)
        logg.kontakter.push_back({.trafiksätt = i ? "SSB" : "CW", .band = "20 m", .poäng = "3"});
    const QStringList rader = SummaRapport({}, logg).rader;
    EXPECT_EQ(rader[27], " 20 M   CW      12      36       0       ") << "the mode of the first contact";
    EXPECT_EQ(rader[31], "   Total        1200    3600     0       ");
}

TEST(Rapportregler, ThePagesOfTheListBreakAfter43ContactsAndThenAfter48) {
    Loggbild logg;
    for (int i = 0; i < 140; ++i) logg.kontakter.push_back({.signal = QString("A%1").arg(i)});
    const QStringList rader = ListaRapport({}, logg).rader;
    QList<int> brott;
    int kontakter = 0;
    for (qsizetype i = 5; i < rader.size(); ++i) {
        kontakter += !rader[i].isEmpty();
        if (rader[i].isEmpty()) brott << kontakter;
    }
    EXPECT_EQ(brott, (QList<int>{43, 43, 43, 43, 91, 91, 91, 91, 139, 139, 139, 139}));
    EXPECT_EQ(rader.size(), 5 + 140 + 12);
}

TEST(Rapportregler, FourEmptyLinesStandBehindAFullPageAlsoAtTheEnd) {
    Loggbild logg;
    logg.kontakter.resize(42);
    EXPECT_EQ(ListaRapport({}, logg).rader.size(), 5 + 42);
    logg.kontakter.resize(43);
    EXPECT_EQ(ListaRapport({}, logg).rader.size(), 5 + 43 + 4);
}

TEST(Rapportregler, EveryColumnOfTheListIsCutToItsWidth) {
    const QString x(20, 'x');
    const Loggbild logg{.kontakter = {{.datum = x,
                                       .tid = "12345678901",
                                       .signal = x,
                                       .trafiksätt = x,
                                       .band = x,
                                       .sänt = x,
                                       .mottaget = x,
                                       .multiplar = x,
                                       .poäng = x},
                                      {}}};
    const QStringList rader = ListaRapport({}, logg).rader;
    EXPECT_EQ(rader[5],
              "xxxxxxxxxx  12345     xxxxxxxxxxxx  xxxxxx  xxxxx   xxxxxxxxx  xxxxxxxxx  xxxxxx     xxxxxx");
    EXPECT_EQ(rader[6], QString(92, ' ').left(rader[5].size())) << "nothing stays from the contact before";
}

TEST(Rapportregler, AContactIsOneLineOfADIFWithTheLengthsOfItsValues) {
    EXPECT_EQ(AdifPost({}),
              "<CALL:0><QSO_DATE:0><TIME_ON:0><BAND:0><MODE:0><FREQ:0><RST_RCVD:0><RST_SENT:0><QTH:0><NAME:0>"
              "<ITUZ:0><CQZ:0><DXCC:0><ADI:0><Award:0><Points:0><LAND:0><Multipels:0><COMMENS:0><EOR>");
    const QString post = AdifPost({.datum = "2026-12-01", .signal = "SM5ABC/P/QRP"});
    EXPECT_TRUE(post.startsWith("<CALL:12>SM5ABC/P/QRP<QSO_DATE:8>20261201<TIME_ON:0>"));
    EXPECT_TRUE(post.endsWith("<COMMENS:0><EOR>"));
    const Rapport rapport = AdifRapport({.kontakter = {{}}}, {QDate(2026, 12, 1), QTime(9, 5, 7)});
    EXPECT_EQ(rapport.rader.size(), 7) << "six lines of header";
    EXPECT_EQ(rapport.rader[2], "2026-12-01  09:05:07");
}

TEST(Rapportregler, OnlySeventyIsCentimetresInADIF) {
    for (const auto& [band, väntat] : {std::pair{"160 M", "160M"},
                                       {"2 M", "2M"},
                                       {"70 CM", "70CM"},
                                       {"24 CM", "24M"},
                                       {"", ""},
                                       {"M", "0M"},
                                       {"70", "70CM"}})
        EXPECT_EQ(AdifBand(band), väntat) << band;
}
