// The data of station and operator: the window, the shared values and the stored row.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "contest/frTestInst.h"
#include "platform/application.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QInputMethodEvent>

namespace {

using Fält = platform::TextBox;

struct Uppgift {
    const char* kolumn;
    const char* fält;
    QString DeladeVärden::*värde;
    const char* efterRensa; ///< nullptr: stays as it is
};

// clang-format off
const Uppgift uppgifter[] = {
    {"EgenSignal", "txtEgenSignal", &DeladeVärden::EgenSignal, ""},
    {"OpNamn", "txtNamn", &DeladeVärden::OpNamn, ""},
    {"OpAdress", "txtAdress", &DeladeVärden::OpAdress, ""},
    {"OpPostnr", "txtPostnr", &DeladeVärden::OpPostnr, ""},
    {"OpPostadr", "txtPostAdress", &DeladeVärden::OpPostadr, ""},
    {"OpEmail", "txtEmail", &DeladeVärden::OpEmail, ""},
    {"OpLand", "txtLand", &DeladeVärden::OpLand, ""},
    {"OpRig", "txtRig", &DeladeVärden::OpRig, ""},
    {"OpAntenn", "txtAntenn", &DeladeVärden::OpAntenn, ""},
    {"OpHöjdHav", "txtHöjdHav", &DeladeVärden::OpHöjdHav, "0"},
    {"OpHöjdLand", "txtHöjdLand", &DeladeVärden::OpHöjdLand, "0"},
    {"OpKlubbSignal", "txtKlubbSignal", &DeladeVärden::OpKlubbSignal, ""},
    {"OpTestDatum", "txtTestDatum", &DeladeVärden::OpTestDatum, ""},
    {"OpSignal", "txtSignal", &DeladeVärden::OpSignal, ""},
    {"OpTestLokator", "txtTestLokator", &DeladeVärden::OpTestLokator, ""},
    {"OpUTCTid", "cmbUTC", &DeladeVärden::OpUTCTid, nullptr},
    {"OpITU", "txtITU", &DeladeVärden::OpITU, "18"},
    {"OpZon", "txtZON", &DeladeVärden::OpZon, "14"},
    {"OpPrefix", "txtPrefix", &DeladeVärden::OpPrefix, ""},
    {"OpEffekt", "txtEffekt", &DeladeVärden::OpEffekt, ""},
};
// clang-format on

QString Text(const char* namn) {
    const QWidget* fält = frTestInst::instans().findChild<QWidget*>(T(namn));
    if (const auto* lista = qobject_cast<const QComboBox*>(fält)) return lista->currentText();
    return qobject_cast<const QLineEdit*>(fält)->text();
}

void SättText(const char* namn, const QString& text) {
    QWidget* fält = frTestInst::instans().findChild<QWidget*>(T(namn));
    if (auto* lista = qobject_cast<QComboBox*>(fält))
        lista->setEditText(text);
    else
        qobject_cast<QLineEdit*>(fält)->setText(text);
}

/// A text for a column that no other has.
QString Eget(const Uppgift& uppgift) { return T(uppgift.kolumn) + QStringLiteral(" å'\"1"); }

class InstProv : public Programprov {
protected:
    const Meddelande saknas{T("Saknar viktiga uppgifter! Var god kontrollera dessa."), T("Saknar uppgifter")};
    const Meddelande felDatum{T("Angivet Test Datum stämmer inte med Aktuell Test!"), T("Fel Datum!")};

    QString SVDINI(const char* kolumn) const {
        return LäsEtt(Fil("SVD.Dat"), QStringLiteral("SELECT \"%1\" FROM SVDINI").arg(T(kolumn)));
    }
    frTestInst& StartaMedStation() {
        Ändra(Fil("SVD.Dat"),
              "UPDATE SVDINI SET OpSignal='SK7MW', OpTestLokator='JO65MR', OpTestDatum='2026-12-01'");
        Starta();
        return frTestInst::instans();
    }
    /// The window on screen and active, without its own event loop.
    frTestInst& Visa() {
        frTestInst& inst = frTestInst::instans();
        inst.show();
        inst.activateWindow();
        inst.txtSignal->setFocus();
        EXPECT_TRUE(HarFokus(inst.txtSignal));
        return inst;
    }
    static void Klicka(QPushButton* knapp) { QTest::mouseClick(knapp, Qt::LeftButton); }
};

} // namespace

// ---- the window ---------------------------------------------------------------------------------------

TEST_F(InstProv, TheWindowAndItsButtonsCarryTheirCaptions) {
    frTestInst& inst = StartaMedStation();
    EXPECT_EQ(inst.windowTitle(), "Station / Test Inst.");
    EXPECT_EQ(inst.cmdSpara->text(), "Spara");
    EXPECT_EQ(inst.cmdRensa->text(), "Rensa");
    EXPECT_EQ(inst.cmdAvbryt->text(), "Stäng");
}

TEST_F(InstProv, TheLabelsTellWhichFieldsMustBeFilled) {
    frTestInst& inst = StartaMedStation();
    QStringList texter;
    const auto etiketter = inst.findChildren<QLabel*>();
    for (const QLabel* etikett : etiketter) texter += etikett->text();
    for (const char* text : {"* Test Signal", "* Test Lokator", "*Test Datum", "OBS ! * Måste vara ifyllda !",
                             "Egen Signal", "Rig. TX / RX", "Test Prefix"})
        EXPECT_TRUE(texter.contains(T(text))) << text;
}

TEST_F(InstProv, EveryFieldOfTheStoreHasItsFieldInTheWindowButTheTwoPrograms) {
    for (const Uppgift& u : uppgifter)
        Ändra(Fil("SVD.Dat"), QStringLiteral("UPDATE SVDINI SET \"%1\"='%2'")
                                  .arg(T(u.kolumn), Eget(u).replace(u'\'', QLatin1String("''"))));
    Ändra(Fil("SVD.Dat"), "UPDATE SVDINI SET OpEpost='/usr/bin/mutt', OpEdit='/usr/bin/vi'");
    Starta();
    for (const Uppgift& u : uppgifter) {
        EXPECT_EQ(delat.*u.värde, Eget(u)) << u.kolumn;
        EXPECT_EQ(Text(u.fält), Eget(u)) << u.kolumn;
    }
    EXPECT_EQ(delat.OpEpost, "/usr/bin/mutt");
    EXPECT_EQ(delat.OpEdit, "/usr/bin/vi");
    const auto fält = frTestInst::instans().findChildren<QLineEdit*>();
    for (const QLineEdit* ett : fält) {
        EXPECT_NE(ett->text(), "/usr/bin/mutt");
        EXPECT_NE(ett->text(), "/usr/bin/vi");
    }
}

TEST_F(InstProv, TheUTCBoxOffersFourOffsetsAndKeepsTheStoredOne) {
    Ändra(Fil("SVD.Dat"), "UPDATE SVDINI SET OpUTCTid='-2'");
    Starta();
    const platform::ComboBox& lista = *frTestInst::instans().cmbUTC;
    ASSERT_EQ(lista.count(), 4);
    const QStringList väntat{"0", "-1", "-2", "-3"};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(lista.itemText(i), väntat[i]);
    EXPECT_EQ(lista.Text(), "-2");
}

TEST_F(InstProv, ANewProgramStartsWithZonesAndOffsetOfASwedishStation) {
    Starta();
    EXPECT_EQ(delat.OpITU, "18");
    EXPECT_EQ(delat.OpZon, "14");
    EXPECT_TRUE((QStringList{"0", "-1", "-2", "-3"}).contains(delat.OpUTCTid));
    EXPECT_EQ(LäsEtt(Fil("SVD.Dat"), "SELECT count(*) FROM SVDINI"), "1");
}

// ---- saving -------------------------------------------------------------------------------------------

TEST_F(InstProv, SparaTakesEveryFieldIntoItsSharedValueAndItsColumn) {
    StartaMedStation();
    delat.AktuelltTest = 7;
    for (const Uppgift& u : uppgifter) SättText(u.fält, Eget(u));
    Klicka(Visa().cmdSpara);
    for (const Uppgift& u : uppgifter) {
        EXPECT_EQ(delat.*u.värde, Eget(u)) << u.kolumn;
        EXPECT_EQ(SVDINI(u.kolumn), Eget(u)) << u.kolumn;
    }
    EXPECT_EQ(LäsEtt(Fil("SVD.Dat"), "SELECT count(*) FROM SVDINI"), "1");
}

TEST_F(InstProv, SparaLeavesTheTwoProgramsAlone) {
    Ändra(Fil("SVD.Dat"), "UPDATE SVDINI SET OpEpost='/usr/bin/mutt', OpEdit='/usr/bin/vi'");
    StartaMedStation();
    delat.OpEpost = "annat";
    delat.OpEdit = "annat";
    frTestInst::instans().SparaSVDIni();
    EXPECT_EQ(SVDINI("OpEpost"), "/usr/bin/mutt");
    EXPECT_EQ(SVDINI("OpEdit"), "/usr/bin/vi");
}

TEST_F(InstProv, WithoutOneOfTheThreeRequiredNothingIsTakenOver) {
    StartaMedStation();
    delat.AktuelltTest = 7;
    const auto före = Läs(Fil("SVD.Dat"), "SELECT * FROM SVDINI");
    for (const char* krävt : {"txtSignal", "txtTestDatum", "txtTestLokator"}) {
        SCOPED_TRACE(krävt);
        frTestInst& inst = Visa();
        for (const char* fält : {"txtSignal", "txtTestDatum", "txtTestLokator"}) SättText(fält, "X");
        SättText("txtNamn", "Lars");
        SättText(krävt, "");
        Klicka(inst.cmdSpara);
        EXPECT_EQ(Tag(), saknas);
        EXPECT_TRUE(inst.isVisible());
        EXPECT_EQ(inst.txtNamn->text(), "Lars");
        EXPECT_EQ(Text(krävt), "");
        EXPECT_EQ(delat.OpNamn, "");
        EXPECT_EQ(delat.OpSignal, "SK7MW");
        EXPECT_EQ(Läs(Fil("SVD.Dat"), "SELECT * FROM SVDINI"), före);
    }
}

TEST_F(InstProv, TheThreeRequiredAreEnough) {
    Starta();
    delat.AktuelltTest = 7;
    Klicka(Visa().cmdSpara);
    EXPECT_EQ(Tag(), saknas);
    for (const char* fält : {"txtSignal", "txtTestDatum", "txtTestLokator"}) SättText(fält, "X");
    Klicka(frTestInst::instans().cmdSpara);
    EXPECT_EQ(SVDINI("OpSignal"), "X");
}

TEST_F(InstProv, SparaKeepsTheWindowOpenAndEnterPressesIt) {
    StartaMedStation();
    delat.AktuelltTest = 7;
    frTestInst& inst = Visa();
    inst.txtNamn->setFocus();
    Skriv("lars");
    Tryck(Qt::Key_Return);
    EXPECT_TRUE(inst.isVisible());
    EXPECT_EQ(SVDINI("OpNamn"), "Lars");
}

TEST_F(InstProv, WhatWasSavedIsThereAtTheNextStart) {
    StartaMedStation();
    delat.AktuelltTest = 7;
    SättText("txtNamn", "Åsa");
    SättText("cmbUTC", "-2");
    frTestInst::instans().SparaSVDIni();
    frTest& f = StartaOm();
    EXPECT_EQ(delat.OpNamn, "Åsa");
    EXPECT_EQ(Text("txtNamn"), "Åsa");
    EXPECT_EQ(Text("cmbUTC"), "-2");
    EXPECT_EQ(f.windowTitle(), "Sorvik 3.0.0  TestSignal: SK7MW");
}

TEST_F(InstProv, StängAndEscLeaveWithoutSavingAndForgetWhatWasTyped) {
    StartaMedStation();
    for (bool knapp : {true, false}) {
        frTestInst& inst = Visa();
        SättText("txtSignal", "SM0XXX");
        SättText("cmbUTC", "-3");
        if (knapp)
            Klicka(inst.cmdAvbryt);
        else
            QTest::keyClick(&inst, Qt::Key_Escape);
        EXPECT_FALSE(inst.isVisible());
        EXPECT_EQ(delat.OpSignal, "SK7MW");
        EXPECT_EQ(SVDINI("OpSignal"), "SK7MW");
        EXPECT_EQ(Text("txtSignal"), "SK7MW");
        EXPECT_EQ(Text("cmbUTC"), "-1");
    }
}

TEST_F(InstProv, RensaFillsTheWindowWithStartValuesAndStoresNothing) {
    StartaMedStation();
    frTestInst& inst = Visa();
    const auto före = Läs(Fil("SVD.Dat"), "SELECT * FROM SVDINI");
    for (const Uppgift& u : uppgifter) SättText(u.fält, Eget(u));
    Klicka(inst.cmdRensa);
    for (const Uppgift& u : uppgifter)
        EXPECT_EQ(Text(u.fält), u.efterRensa ? T(u.efterRensa) : Eget(u)) << u.fält;
    EXPECT_EQ(delat.OpSignal, "SK7MW");
    EXPECT_EQ(Läs(Fil("SVD.Dat"), "SELECT * FROM SVDINI"), före);
    EXPECT_TRUE(inst.isVisible());
}

TEST_F(InstProv, AStoreThatFailsEndsTheProcess) {
    frTestInst& inst = StartaMedStation();
    delat.AktuelltTest = 7;
    Ändra(Fil("SVD.Dat"),
          "CREATE TRIGGER spärr BEFORE UPDATE ON SVDINI BEGIN SELECT RAISE(ABORT, 'nej'); END");
    inst.txtNamn->setText("Lars");
    EXPECT_THROW(Klicka(inst.cmdSpara), ProcessSlut);
    EXPECT_EQ(slut, 1);
}

TEST_F(InstProv, AStationThatWasSavedBesideAnOpenLogIsTheOneItsContactsAreMeasuredFrom) {
    frTest& f = StartaLogg(1);
    NärFönster("frTestInst", [this](QWidget* fönster) {
        auto* inst = static_cast<frTestInst*>(fönster);
        inst->txtTestLokator->setText("JO89WJ");
        Klicka(inst->cmdSpara);
        inst->close();
    });
    f.Meny("mnuInställning_Station_Test")->trigger();
    f.activateWindow();
    ASSERT_TRUE(HarFokus(f.txtSignal));
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT Poäng FROM TESTQSO"), "0");
}

// ---- the date of the contest --------------------------------------------------------------------------

namespace {

struct Datumfall {
    int test;
    QDate idag;
    bool meddelande;
};

// December 2026 begins on a Tuesday.
const Datumfall datumfall[] = {
    {0, {2026, 12, 8}, false}, {0, {2026, 12, 1}, true},  {0, {2026, 12, 9}, true},
    {0, {2026, 12, 15}, true}, {1, {2026, 12, 1}, false}, {1, {2026, 12, 2}, true},
    {1, {2026, 12, 8}, true},  {1, {2026, 11, 30}, true}, {2, {2026, 12, 22}, false},
    {2, {2026, 12, 29}, true}, {2, {2026, 12, 23}, true}, {3, {2026, 12, 3}, false},
    {3, {2026, 12, 10}, true}, {4, {2026, 12, 3}, false}, {4, {2026, 12, 4}, true},
    {5, {2026, 12, 3}, false}, {5, {2026, 12, 1}, true},  {6, {2026, 12, 3}, true},
    {6, {2026, 12, 1}, true},  {6, {2026, 12, 31}, true},
};

} // namespace

TEST_F(InstProv, SparaTellsWhenTodayIsNotTheDayOfTheContest) {
    frTestInst& inst = StartaMedStation();
    for (const Datumfall& fall : datumfall) {
        SCOPED_TRACE(testing::Message() << fall.test << ' ' << fall.idag.toString(Qt::ISODate).toStdString());
        delat.AktuelltTest = fall.test;
        nu = QDateTime(fall.idag, QTime(19, 0));
        Klicka(inst.cmdSpara);
        if (fall.meddelande) {
            EXPECT_EQ(Tag(), felDatum);
        }
        EXPECT_TRUE(meddelanden.empty());
    }
}

TEST_F(InstProv, TheOtherContestsSaveWithoutAWordOnAnyDay) {
    frTestInst& inst = StartaMedStation();
    for (int test = 7; test <= 14; ++test)
        for (int dag = 1; dag <= 7; ++dag) {
            delat.AktuelltTest = test;
            nu = QDateTime(QDate(2026, 12, dag), QTime(19, 0));
            Klicka(inst.cmdSpara);
        }
    EXPECT_TRUE(meddelanden.empty());
}

TEST_F(InstProv, TheRuleItselfHasNoDayForTheContestsItDoesNotName) {
    frTestInst& inst = StartaMedStation();
    for (int test : {7, 8, 9, 10}) {
        delat.AktuelltTest = test;
        inst.KollaTestDatum();
        EXPECT_TRUE(meddelanden.empty()) << test;
    }
    for (int test : {6, 11, 12, 13, 14}) {
        delat.AktuelltTest = test;
        inst.KollaTestDatum();
        EXPECT_EQ(Tag(), felDatum) << test;
    }
}

TEST_F(InstProv, TodayCountsAndNotTheTypedDate) {
    frTestInst& inst = StartaMedStation();
    delat.AktuelltTest = 1;
    inst.txtTestDatum->setText("1999-01-01");
    Klicka(inst.cmdSpara);
    EXPECT_TRUE(meddelanden.empty());
    inst.txtTestDatum->setText("2026-12-01");
    nu = nu.addDays(1);
    Klicka(inst.cmdSpara);
    EXPECT_EQ(Tag(), felDatum);
}

TEST_F(InstProv, TheDateOnlyInformsBecauseTheDataAreSavedAlready) {
    frTestInst& inst = StartaMedStation();
    delat.AktuelltTest = 6;
    inst.txtNamn->setText("Lars");
    QString vidMeddelandet;
    const auto spara = platform::Dialogs().message;
    platform::Dialogs().message = [&](const QString& text, const QString& titel) {
        vidMeddelandet = SVDINI("OpNamn");
        spara(text, titel);
    };
    Klicka(inst.cmdSpara);
    EXPECT_EQ(Tag(), felDatum);
    EXPECT_EQ(vidMeddelandet, "Lars");
}

TEST_F(InstProv, MissingDataAndAWrongDayAreBothTold) {
    Starta();
    delat.AktuelltTest = 6;
    Klicka(frTestInst::instans().cmdSpara);
    EXPECT_EQ(meddelanden, (std::vector<Meddelande>{saknas, felDatum}));
    meddelanden.clear();
}

// ---- keys ---------------------------------------------------------------------------------------------

TEST_F(InstProv, CallsPrefixAndLocatorTurnToCapitalsWhileTyped) {
    StartaMedStation();
    frTestInst& inst = Visa();
    for (Fält* fält :
         {inst.txtSignal, inst.txtEgenSignal, inst.txtKlubbSignal, inst.txtPrefix, inst.txtTestLokator}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        fält->clear();
        SkrivI(fält, "sm7abc/å");
        EXPECT_EQ(fält->text(), "SM7ABC/Å");
    }
}

TEST_F(InstProv, NamesAndAddressesGetOneCapitalAtTheStartOfTheText) {
    StartaMedStation();
    frTestInst& inst = Visa();
    for (Fält* fält : {inst.txtNamn, inst.txtAdress, inst.txtPostAdress, inst.txtLand}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        SkrivI(fält, "åsa von X");
        EXPECT_EQ(fält->text(), "Åsa von X");
        Tryck(Qt::Key_Home);
        Skriv("b");
        EXPECT_EQ(fält->text(), "BÅsa von X");
    }
}

TEST_F(InstProv, TakingAwayTheFirstLetterOfANameLeavesTheOthersAsTheyAre) {
    StartaMedStation();
    frTestInst& inst = Visa();
    for (Fält* fält : {inst.txtNamn, inst.txtAdress, inst.txtPostAdress, inst.txtLand}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        SkrivI(fält, "xlars von y");
        Tryck(Qt::Key_Home);
        Tryck(Qt::Key_Delete);
        EXPECT_EQ(fält->text(), "lars von y");
        Tryck(Qt::Key_Right);
        Tryck(Qt::Key_Backspace);
        EXPECT_EQ(fält->text(), "ars von y");
    }
}

TEST_F(InstProv, ANamePastedStaysAsItIs) {
    StartaMedStation();
    frTestInst& inst = Visa();
    QGuiApplication::clipboard()->setText("lars von y");
    inst.txtNamn->setFocus();
    Tryck(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(inst.txtNamn->text(), "lars von y");
}

TEST_F(InstProv, ALetterThatAnInputMethodComposesIsTreatedAsATypedOne) {
    StartaMedStation();
    frTestInst& inst = Visa();
    const auto skriv = [](const QString& text) {
        QInputMethodEvent händelse;
        händelse.setCommitString(text);
        QApplication::sendEvent(QApplication::focusWidget(), &händelse);
    };
    inst.txtNamn->setFocus();
    for (const char* bokstav : {"é", "v", "é"}) skriv(T(bokstav));
    EXPECT_EQ(inst.txtNamn->text(), "Évé");
    inst.txtEgenSignal->setFocus();
    skriv("sm7é");
    EXPECT_EQ(inst.txtEgenSignal->text(), "SM7É");
}

TEST_F(InstProv, TheOtherFieldsTakeTheirTextAsTyped) {
    StartaMedStation();
    frTestInst& inst = Visa();
    for (Fält* fält : {inst.txtPostnr, inst.txtEmail, inst.txtRig, inst.txtAntenn, inst.txtHöjdHav,
                       inst.txtHöjdLand, inst.txtTestDatum, inst.txtITU, inst.txtZON, inst.txtEffekt}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        fält->clear();
        SkrivI(fält, "a Bc");
        EXPECT_EQ(fält->text(), "a Bc");
    }
}
