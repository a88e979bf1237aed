// The memories of locators and names: updating from a file, and emptying.
#include "support/Programprov.h"

#include "shared/Minnen.h"

struct Minnesfall {
    const char *namn, *kolumn, *menyUppdatera, *menyTöm;
};
void PrintTo(const Minnesfall& fall, std::ostream* ut) { *ut << fall.namn; }

class MinnesProv : public Programprov, public ::testing::WithParamInterface<Minnesfall> {
protected:
    QString Namn(const char* text) const { return QString::fromUtf8(text).arg(GetParam().namn); }
    QString Databas() const { return Fil(Namn("%1.dat")); }
    std::vector<std::vector<QString>> Rader() const {
        return Läs(Databas(), Namn("SELECT Signal, %2 FROM %1 ORDER BY rowid").arg(GetParam().kolumn));
    }
    QString Inifil(const QByteArray& text) {
        const QString fil = Fil("INI/uppdatering.ini");
        QFile ini(fil);
        EXPECT_TRUE(ini.open(QFile::WriteOnly));
        ini.write(text);
        return fil;
    }
    /// Updates from a text by way of the menu.
    void Uppdatera(const QByteArray& text) {
        filval.push_back(Inifil(text));
        frTest::instans().Meny(GetParam().menyUppdatera)->trigger();
    }
    Meddelande Obs() const {
        return {
            "OBS! Detta kan ta några minuter, en meddelanderuta bekräftar när uppdateringen är slutförd. Var "
            "vänlig vänta...",
            Namn("Uppdatera %1 Databas")};
    }
    Meddelande Klar() const {
        return {Namn("Uppdatering av %1 databas är slutförd."), Namn("Uppdatera %1 Databas")};
    }
    Meddelande Fel() const {
        return {Namn("Ett fel har inträffat vid uppdatering av filen %1.ini."), Namn("Uppdatera%1")};
    }
    /// The messages since the last time.
    std::vector<Meddelande> TagAlla() { return std::exchange(meddelanden, {}); }
    using Två = std::vector<Meddelande>;
};
INSTANTIATE_TEST_SUITE_P(Minnen, MinnesProv,
                         ::testing::Values(Minnesfall{"Lokator", "Lokator", "mnuRedigera_Uppdatera_Lokator",
                                                      "mnuRedigera_TömLokator"},
                                           Minnesfall{"Friend", "Namn", "mnuRedigera_Uppdatera_Friend",
                                                      "mnuRedigera_TömFriend"}),
                         [](const auto& fall) { return std::string(fall.param.namn); });

TEST_P(MinnesProv, AnUpdateAddsCallsAndKeepsWhatIsKnown) {
    StartaLogg(1);
    Uppdatera("[Lokator]\r\nSM5ABC=JO89WJ\r\nSM6ABC=\r\n");
    EXPECT_EQ(TagAlla(), (Två{Obs(), Klar()}));
    Uppdatera("SM5ABC=JO99AA\r\nsm5abc=JO99BB\r\nSM7ABC=JO65=MR\r\n");
    EXPECT_EQ(TagAlla(), (Två{Obs(), Klar()}));
    EXPECT_EQ(Rader(), (std::vector<std::vector<QString>>{
                           {"SM5ABC", "JO89WJ"}, {"SM6ABC", ""}, {"SM7ABC", "JO65=MR"}}));
}

TEST_P(MinnesProv, TheDialogAsksForAFileOfTheMemory) {
    StartaLogg(1);
    filfrågor.clear();
    filval.push_back(std::nullopt);
    frTest::instans().Meny(GetParam().menyUppdatera)->trigger();
    ASSERT_EQ(filfrågor.size(), 1U);
    EXPECT_EQ(filfrågor[0].title, Namn("Öppna %1 fil för Uppdatering"));
    EXPECT_EQ(filfrågor[0].filter, Namn("%1 filer (*.ini)|*.ini"));
    EXPECT_EQ(QDir(filfrågor[0].folder), QDir(Fil("")));
    EXPECT_FALSE(filfrågor[0].save);
    EXPECT_TRUE(meddelanden.empty()) << "cancelled: without a word";
}

TEST_P(MinnesProv, WhatStoodBeforeTheFaultIsKeptAndTheFaultIsTold) {
    StartaLogg(1);
    Uppdatera("SM5ABC=JO89WJ\r\nSM5O'BRIEN=JO89\r\nSM6ABC=JO67BQ\r\n");
    EXPECT_EQ(TagAlla(), (Två{Obs(), Fel()}));
    EXPECT_EQ(Rader(), (std::vector<std::vector<QString>>{{"SM5ABC", "JO89WJ"}}));
    for (const platform::Recordset* markör : {&db().rsLokator, &db().rsFriend})
        EXPECT_EQ(markör->Filter(), "");
    Uppdatera("SM6ABC=JO67BQ\r\n");
    EXPECT_EQ(TagAlla(), (Två{Obs(), Klar()}));
    EXPECT_EQ(Rader().size(), 2U);
}

TEST_P(MinnesProv, ABrokenFileLeavesTheMemoryWhole) {
    StartaLogg(1);
    Uppdatera("SM5ABC=JO89WJ\r\n");
    TagAlla();
    QByteArray binär;
    for (int i = 0; i < 4096; ++i) binär += static_cast<char>(i * 7);
    for (const QByteArray& text : {QByteArray(), binär, QByteArray(1'000'000, 'x'), QByteArray("\"SM7ABC"),
                                   "SM7ABC=" + QByteArray(1'000'000, 'x')}) {
        Uppdatera(text);
        EXPECT_EQ(TagAlla().size(), 2U);
        EXPECT_EQ(LäsEtt(Databas(), "PRAGMA integrity_check"), "ok");
        EXPECT_EQ(Rader()[0], (std::vector<QString>{"SM5ABC", "JO89WJ"}));
    }
}

TEST_P(MinnesProv, AMissingFileIsTold) {
    StartaLogg(1);
    filval.push_back(Fil("INI/finns inte.ini"));
    frTest::instans().Meny(GetParam().menyUppdatera)->trigger();
    EXPECT_EQ(TagAlla(), (Två{Obs(), Fel()}));
}

TEST_P(MinnesProv, WithoutALogSinceTheStartUpdateAndEmptyingFail) {
    Starta();
    Uppdatera("SM5ABC=JO89WJ\r\n");
    EXPECT_EQ(TagAlla(), (Två{Obs(), Fel()}));
    frTest::instans().Meny(GetParam().menyTöm)->trigger();
    EXPECT_EQ(TagAlla(),
              (Två{{Namn("Ett fel har inträffat vid tömning av %1 Databas."), Namn("mnuTöm%1Databas")}}));
}

TEST_P(MinnesProv, AfterTheCloseMenuAnUpdateOpensTheMemoryAgain) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    Uppdatera("SM5ABC=JO89WJ\r\n");
    EXPECT_EQ(TagAlla(), (Två{Obs(), Klar()}));
    EXPECT_EQ(Rader().size(), 1U);
}

TEST_P(MinnesProv, EmptyingLeavesAnEmptyMemoryThatGoesOnRemembering) {
    frTest& f = StartaLogg(1);
    Uppdatera("SM5ABC=JO89WJ\r\nSM6ABC=JO67BQ\r\n");
    TagAlla();
    const bool lokator = QLatin1String("Lokator") == GetParam().namn;
    platform::Recordset& markör = lokator ? db().rsLokator : db().rsFriend;
    EXPECT_EQ(markör.Filter(), "");
    markör.Filter("Signal = 'X'"); // the list window may have left one
    f.Meny(GetParam().menyTöm)->trigger();
    EXPECT_TRUE(meddelanden.empty());
    EXPECT_TRUE(Rader().empty());
    Uppdatera("SM7ABC=JO65MR\r\n");
    TagAlla();
    EXPECT_EQ(Rader(), (std::vector<std::vector<QString>>{{"SM7ABC", "JO65MR"}}));
    EXPECT_EQ(LäsEtt(Databas(), "PRAGMA integrity_check"), "ok");
}

TEST_P(MinnesProv, EmptyingAnEmptyMemoryCopiesNothing) {
    frTest& f = StartaLogg(1);
    ASSERT_TRUE(QFile::remove(Fil(Namn("%1.hdb")))); // a copy would be told to be impossible
    f.Meny(GetParam().menyTöm)->trigger();
    EXPECT_TRUE(meddelanden.empty());
}

TEST_P(MinnesProv, EmptyingThatFailsLeavesTheMemoryAsItWas) {
    frTest& f = StartaLogg(1);
    Uppdatera("SM5ABC=JO89WJ\r\n");
    TagAlla();
    ASSERT_TRUE(QFile::remove(Fil(Namn("%1.hdb"))));
    f.Meny(GetParam().menyTöm)->trigger();
    EXPECT_EQ(TagAlla(),
              (Två{{Namn("Ett fel har inträffat vid tömning av %1 Databas."), Namn("mnuTöm%1Databas")}}));
    EXPECT_EQ(Rader().size(), 1U);
    Uppdatera("SM6ABC=JO67BQ\r\n");
    EXPECT_EQ(TagAlla(), (Två{Obs(), Klar()}));
}
