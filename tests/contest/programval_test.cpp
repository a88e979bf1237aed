// The mail program and the editor of the operator's choice.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "contest/frTestInst.h"

namespace {

struct Programfall {
    const char* meny;
    const char* kolumn;
    QString DeladeVärden::*värde;
};
const Programfall program[] = {{"mnuInställning_Epost", "OpEpost", &DeladeVärden::OpEpost},
                               {"mnuRapport_Editor", "OpEdit", &DeladeVärden::OpEdit}};

class ProgramvalProv : public Programprov {
protected:
    QString SVDINI(const char* kolumn) const {
        return LäsEtt(Fil("SVD.Dat"), QStringLiteral("SELECT \"%1\" FROM SVDINI").arg(T(kolumn)));
    }
};

} // namespace

TEST_F(ProgramvalProv, TheChosenProgramIsStoredAtOnce) {
    Starta();
    for (const Programfall& fall : program) {
        SCOPED_TRACE(fall.meny);
        filval.push_back(T("/opt/mitt program"));
        frTest::instans().Meny(fall.meny)->trigger();
        EXPECT_TRUE(filfrågor.back().filter.startsWith("Program|*.exe"));
        EXPECT_FALSE(filfrågor.back().save);
        EXPECT_EQ(delat.*fall.värde, "/opt/mitt program");
        EXPECT_EQ(SVDINI(fall.kolumn), "/opt/mitt program");
    }
}

TEST_F(ProgramvalProv, ACancelledChoiceOfAProgramChangesNothing) {
    Ändra(Fil("SVD.Dat"), "UPDATE SVDINI SET OpEpost='mutt', OpEdit='vi'");
    Starta();
    for (const Programfall& fall : program) {
        filval.push_back(std::nullopt);
        frTest::instans().Meny(fall.meny)->trigger();
    }
    EXPECT_EQ(delat.OpEpost, "mutt");
    EXPECT_EQ(delat.OpEdit, "vi");
    EXPECT_EQ(SVDINI("OpEpost"), "mutt");
    EXPECT_EQ(SVDINI("OpEdit"), "vi");
}

TEST_F(ProgramvalProv, AnEditorThatCannotBeStoredIsToldAndAMailProgramIsNot) {
    Ändra(Fil("SVD.Dat"), "UPDATE SVDINI SET OpEpost='mutt', OpEdit='vi'");
    Starta();
    Ändra(Fil("SVD.Dat"),
          "CREATE TRIGGER spärr BEFORE UPDATE ON SVDINI BEGIN SELECT RAISE(ABORT, 'nej'); END");
    for (const Programfall& fall : program) {
        filval.push_back(T("/opt/annat"));
        frTest::instans().Meny(fall.meny)->trigger();
    }
    EXPECT_EQ(Tag(), (Meddelande{T("Kan inte hitta någon programfil"), T("Fil")}));
    EXPECT_EQ(delat.OpEpost, "mutt");
    EXPECT_EQ(delat.OpEdit, "vi");
    EXPECT_EQ(SVDINI("OpEdit"), "vi");
    Ändra(Fil("SVD.Dat"), "DROP TRIGGER spärr");
    for (frTest::Fält* krävt : {frTestInst::instans().txtSignal, frTestInst::instans().txtTestDatum,
                                frTestInst::instans().txtTestLokator})
        krävt->setText("X");
    frTestInst::instans().SparaSVDIni();
    EXPECT_EQ(SVDINI("OpSignal"), "X");
    EXPECT_EQ(SVDINI("OpEdit"), "vi") << "the refused path must not slip in with the next save";
}

TEST_F(ProgramvalProv, AProgramCanBeChosenAfterTheCloseMenu) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    filval.push_back(T("/usr/bin/vi"));
    f.Meny("mnuRapport_Editor")->trigger();
    EXPECT_EQ(SVDINI("OpEdit"), "/usr/bin/vi");
}
