// What follows a report: the organiser's page, the mail program, the editor.
#include "Rapportprov.h"

#include "platform/launch.h"
#include "reports/Mottagare.h"
#include "reports/frTestRapport_cbr.h"
#include "reports/frTestRapport_edi.h"
#include "reports/frTestRapport_sum.h"

class Inlämning : public Rapportprov {
protected:
    Inlämning() {
        platform::Launches() = {.address =
                                    [this](const QString& adress) {
                                        adresser << adress;
                                        return går;
                                    },
                                .program =
                                    [this](const QString& program, const QStringList& argument) {
                                        program_ << (QStringList{program} + argument).join('|');
                                        return går;
                                    }};
    }
    ~Inlämning() override { platform::Launches() = {}; }

    QStringList adresser, program_;
    bool går = true;
    const Meddelande filfel{"Kan inte hitta Programfilen!", "Filfel"};
};

TEST_F(Inlämning, EachWindowOpensThePageOfTheContestsOrganiser) {
    StartaLogg(1);
    for (int test = 0; test < 15; ++test) {
        delat.AktuelltTest = test;
        adresser.clear();
        frTestRapport_cbr::instans().cmdSkicka->click();
        const QString mt = "https://www.ssa.se/ssa-mt/robot/";
        const QString sac = "https://www.sactest.net/robot/";
        const QString cbr = test == 7 || test == 8 ? mt : test == 9 || test == 10 ? sac : QString();
        EXPECT_EQ(adresser.join(' '), cbr) << test;
        adresser.clear();
        frTestRapport_edi::instans().cmdSkicka->click();
        EXPECT_EQ(adresser.join(' '), test <= 6 ? "https://contest.ssa.se/?upload=true" : cbr) << test;
    }
    EXPECT_EQ(program_, QStringList());
}

TEST_F(Inlämning, TheAddressesAreTheOperatorsToChange) {
    StartaLogg(7);
    using reports::Mottagare;
    for (const Mottagare mottagare : {Mottagare::EDI, Mottagare::MT, Mottagare::SAC})
        EXPECT_EQ(reports::Adress(mottagare, QString()),
                  reports::Adress(mottagare, QString::fromLatin1(Bytes(Fil("INI/Rapport.ini")))))
            << "what is shipped says what the program knows";
    EXPECT_TRUE(QFile::exists(Fil("INI/Rapport.ini"))) << "something to edit";
    QFile ini(Fil("INI/Rapport.ini"));
    ASSERT_TRUE(ini.open(QFile::WriteOnly));
    ini.write("en rad\r\n mt = http://localhost/a?b=c&d=e\r\nSAC=\r\n");
    ini.close();
    frTestRapport_cbr::instans().cmdSkicka->click();
    EXPECT_EQ(adresser, QStringList{"http://localhost/a?b=c&d=e"});
    delat.AktuelltTest = 9;
    frTestRapport_cbr::instans().cmdSkicka->click();
    EXPECT_EQ(adresser.last(), "https://www.sactest.net/robot/") << "an empty address is none";
    ASSERT_TRUE(ini.remove());
    delat.AktuelltTest = 1;
    frTestRapport_edi::instans().cmdSkicka->click();
    EXPECT_EQ(adresser.last(), "https://contest.ssa.se/?upload=true");
}

TEST_F(Inlämning, ABrowserOrMailProgramThatCannotBeStartedIsTold) {
    StartaLogg(7);
    går = false;
    frTestRapport_cbr::instans().cmdSkicka->click();
    EXPECT_EQ(Tag(), filfel);
    meddelanden.clear();
    frTestRapport_edi::instans().cmdSkicka->click();
    EXPECT_EQ(Tag(), filfel);
    meddelanden.clear();
    delat.OpEpost = "/usr/bin/finnsinte";
    frTestRapport_sum::instans().cmdSkicka->click();
    EXPECT_EQ(Tag(), filfel);
    meddelanden.clear();
    går = true;
    delat.OpEpost.clear();
    frTestRapport_sum::instans().cmdSkicka->click();
    EXPECT_EQ(Tag(), filfel) << "none has been chosen";
}

TEST_F(Inlämning, TheSummaryWindowStartsTheMailProgramInEveryContest) {
    StartaLogg(1);
    delat.OpEpost = "/opt/E post/brev";
    for (int test = 0; test < 15; ++test) {
        delat.AktuelltTest = test;
        frTestRapport_sum::instans().cmdSkicka->click();
        EXPECT_EQ(program_.last(), "/opt/E post/brev");
    }
    EXPECT_EQ(program_.size(), 15);
    EXPECT_EQ(adresser, QStringList());
}

TEST_F(Inlämning, AReportIsOpenedInTheEditorOfTheOperatorsChoice) {
    StartaLogg(1);
    delat.OpEdit = "/opt/min editor";
    struct Fall {
        QPushButton* knapp;
        const char *filter, *fil;
    };
    for (const Fall& fall :
         {Fall{frTestRapport_cbr::instans().cmdLäs, "TestLogg (*.log)|*.log|", "SK7MW_MT2611_PH.log"},
          Fall{frTestRapport_edi::instans().cmdLäsRapport, "TestLogg (*.edi)|*.edi",
               "SVK261201__ 144 MHz.edi"},
          Fall{frTestRapport_sum::instans().cmdLäsRapport, "TestLogg (*.sum *.all)|*.sum;*.all",
               "a b\"c.all"}}) {
        filfrågor.clear();
        filval.push_back(Rapport(fall.fil));
        fall.knapp->click();
        ASSERT_EQ(filfrågor.size(), 1U);
        EXPECT_EQ(filfrågor[0].title, "Öppna Rapport");
        EXPECT_EQ(filfrågor[0].filter, fall.filter);
        EXPECT_EQ(QDir(filfrågor[0].folder), QDir(Fil("Rapport")));
        EXPECT_FALSE(filfrågor[0].save);
        EXPECT_EQ(program_.last(), "/opt/min editor|" + Rapport(fall.fil));
        EXPECT_EQ(delat.RapportFil, Rapport(fall.fil));
        EXPECT_EQ(delat.RapportTitel, fall.fil);
    }
}

TEST_F(Inlämning, ReadingAReportEndsWithoutAWordWhateverIsWrong) {
    StartaLogg(1);
    filval.push_back(std::nullopt);
    frTestRapport_cbr::instans().cmdLäs->click();
    EXPECT_EQ(program_, QStringList());
    filval.push_back(Rapport("a.log")); // no editor has been chosen
    frTestRapport_cbr::instans().cmdLäs->click();
    EXPECT_EQ(program_, QStringList());
    delat.OpEdit = "/usr/bin/finnsinte";
    går = false;
    filval.push_back(Rapport("a.log"));
    frTestRapport_cbr::instans().cmdLäs->click();
    EXPECT_TRUE(meddelanden.empty());
}

TEST_F(Inlämning, ARealProgramGetsTheWholeNameOfTheFile) {
    StartaLogg(1);
    platform::Launches() = {};
    const QString skript = Fil("min editor.sh");
    QFile fil(skript);
    ASSERT_TRUE(fil.open(QFile::WriteOnly));
    fil.write("#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" > \"$(dirname \"$0\")/svar.del\"\n"
              "mv \"$(dirname \"$0\")/svar.del\" \"$(dirname \"$0\")/svar\"\n");
    fil.close();
    ASSERT_TRUE(fil.setPermissions(fil.permissions() | QFile::ExeOwner));
    delat.OpEdit = skript;
    const QString rapport = Rapport("SVK261201__ 144 \"MHz\" åäö.edi");
    filval.push_back(rapport);
    frTestRapport_edi::instans().cmdLäsRapport->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(Fil("svar")); }));
    EXPECT_EQ(QString::fromUtf8(Bytes(Fil("svar"))), "1|" + rapport);
    delat.OpEpost = Fil("finns inte");
    frTestRapport_sum::instans().cmdSkicka->click();
    EXPECT_EQ(Tag(), filfel);
}
