// The radio's window and the entry form, with a rig service of the test's own.
#include "radio/Radioprov.h"

#include "cluster/DXSpottModul.h"
#include "cluster/frDXSpott.h"
#include "platform/windows.h"

namespace {

const QColor ljusgrön(0x80, 0xFF, 0x80);

} // namespace

// ---- on and off ---------------------------------------------------------------------------------------

TEST_F(RadioProv, OnShowsTheWindowAndSaysSo) {
    frTest& f = StartaLogg(1);
    EXPECT_EQ(f.SBarTest(2), "Radio");
    EXPECT_EQ(startade, 0);
    f.Meny("mnuRadio_På")->trigger();
    EXPECT_TRUE(delat.RadioPå);
    EXPECT_EQ(startade, 1);
    EXPECT_TRUE(Fönster().isVisible());
    EXPECT_FALSE(Fönster().isModal());
    EXPECT_EQ(Fönster().objectName(), "frOmni");
    EXPECT_EQ(Fönster().windowTitle(), "Radio (OmniRig)");
    EXPECT_EQ(f.SBarTest(2), "OmniRig Aktiv");
    EXPECT_TRUE(f.Meny("mnuRadio_På")->isChecked());
    EXPECT_FALSE(f.Meny("mnuRadio_Av")->isChecked());
    EXPECT_EQ(Fönster().RigNummer, 1);
    EXPECT_EQ(Fönster().Rig, &tjänst->Rig(1));
}

TEST_F(RadioProv, TheWindowsControlsAreNamedAsOnTheScreen) {
    StartaMedRadio();
    const auto text = [](const char* namn) { return Fönster().findChild<QRadioButton*>(namn)->text(); };
    for (int i = 1; i <= 4; ++i)
        EXPECT_EQ(text(qPrintable(QStringLiteral("Option%1").arg(i))), QStringLiteral("Rig %1").arg(i));
    EXPECT_TRUE(Fönster().Option[0]->isChecked());
    EXPECT_EQ(Fönster().findChild<QPushButton*>("Command1")->text(), "Inställning");
    for (const char* namn : {"Label3", "Label8"}) EXPECT_TRUE(Fönster().findChild<QLabel*>(namn)) << namn;
}

TEST_F(RadioProv, OnAgainShowsTheSameWindow) {
    frTest& f = StartaMedRadio();
    Fönster().VäljRig(2);
    frOmni* fönster = &Fönster();
    f.Meny("mnuRadio_På")->trigger();
    EXPECT_EQ(startade, 1);
    EXPECT_EQ(&Fönster(), fönster);
    EXPECT_EQ(Fönster().RigNummer, 2);
    EXPECT_TRUE(f.Meny("mnuRadio_På")->isChecked());
}

TEST_F(RadioProv, OffLetsTheRadioGo) {
    frTest& f = StartaMedRadio();
    tjänst->Läge(1, 14025000);
    EXPECT_EQ(f.txtFrekvens->text(), "14,025,00");
    f.Meny("mnuRadio_Av")->trigger();
    EXPECT_FALSE(lever);
    EXPECT_FALSE(delat.RadioPå);
    EXPECT_EQ(f.txtFrekvens->text(), "");
    EXPECT_NE(Frekvensfärg(), ljusgrön);
    EXPECT_EQ(f.SBarTest(2), "Radio");
    EXPECT_FALSE(f.Meny("mnuRadio_På")->isChecked());
    EXPECT_TRUE(f.Meny("mnuRadio_Av")->isChecked());
    EXPECT_FALSE(platform::SingleWindow<frOmni>::exists());
    f.Meny("mnuRadio_På")->trigger();
    EXPECT_EQ(startade, 2);
}

TEST_F(RadioProv, OffWhenItIsOffLeavesTheFrequency) {
    frTest& f = StartaLogg(1);
    f.txtFrekvens->setText("144,300,00");
    f.Meny("mnuRadio_Av")->trigger();
    EXPECT_EQ(f.txtFrekvens->text(), "144,300,00");
    EXPECT_EQ(f.SBarTest(2), "Radio");
    EXPECT_TRUE(f.Meny("mnuRadio_Av")->isChecked());
    EXPECT_EQ(startade, 0);
}

TEST_F(RadioProv, ClosingTheWindowIsOff) {
    frTest& f = StartaMedRadio();
    tjänst->Läge(1, 14025000);
    Fönster().close();
    EXPECT_FALSE(lever);
    EXPECT_FALSE(delat.RadioPå);
    EXPECT_EQ(f.txtFrekvens->text(), "");
    EXPECT_EQ(f.SBarTest(2), "Radio Port");
    EXPECT_TRUE(f.Meny("mnuRadio_Av")->isChecked());
}

TEST_F(RadioProv, EscapeInTheWindowLeadsBackToTheCallAndKeepsTheRadio) {
    frTest& f = StartaMedRadio();
    ASSERT_TRUE(Aktivera(Fönster()));
    Tryck(Qt::Key_Escape);
    EXPECT_TRUE(HarFokus(f.txtSignal));
    EXPECT_TRUE(Fönster().isVisible());
    EXPECT_TRUE(delat.RadioPå);
}

TEST_F(RadioProv, TheProgramsEndLetsTheRadioGo) {
    frTest& f = StartaMedRadio();
    jaNej = {true};
    EXPECT_THROW(f.close(), ProcessSlut);
    EXPECT_FALSE(lever);
}

// ---- the service --------------------------------------------------------------------------------------

TEST_F(RadioProv, VersionsOf256And666AreRefused) {
    StartaLogg(1);
    for (const int fel : {256, 666}) {
        version = fel;
        Form().Meny("mnuRadio_På")->trigger();
        EXPECT_EQ(Tag(), (Meddelande{"OmniRig är inte installerat eller har fel verision nummer!",
                                     "Radio (OmniRig)"}));
        meddelanden.clear();
        EXPECT_FALSE(Fönster().OmniRigEngine);
        EXPECT_FALSE(lever);
        Form().Meny("mnuRadio_Av")->trigger();
    }
    for (const int rätt : {257, 665}) {
        version = rätt;
        Form().Meny("mnuRadio_På")->trigger();
        EXPECT_TRUE(Fönster().OmniRigEngine);
        Form().Meny("mnuRadio_Av")->trigger();
    }
}

TEST_F(RadioProv, WithoutTheServiceTheWindowStaysWithoutARig) {
    platform::OmniRigs().create = []() -> std::unique_ptr<platform::OmniRigX> {
        throw platform::Failure("finns inte");
    };
    frTest& f = StartaMedRadio(2);
    EXPECT_EQ(Tag().text, "OmniRig är inte installerat eller har fel verision nummer!");
    EXPECT_TRUE(Fönster().isVisible());
    EXPECT_TRUE(delat.RadioPå);
    EXPECT_EQ(f.SBarTest(2), "OmniRig Aktiv");
    // On again is the same window, and no second message.
    f.Meny("mnuRadio_På")->trigger();
    EXPECT_TRUE(meddelanden.empty());
    // Nothing that needs a rig does anything.
    Fönster().Option[1]->click();
    Fönster().Command1->click();
    Fönster().OmniRigEngine_StatusChange(0);
    Fönster().OmniRigEngine_ParamsChange(0, 0);
    f.txtFrekvens->setText("7,022,50");
    f.Meny("mnuRadio_Shift")->trigger();
    EXPECT_EQ(f.txtFrekvens->text(), "7,022,50");
    EXPECT_EQ(Fönster().Label8->text(), "");
    f.cmdAvbryt->click();
    EXPECT_EQ(f.txtFrekvens->text(), "") << "the window knows of no frequency";
    NyLogg(9, "prov2.svk");
    f.cmbBand->setCurrentIndex(1);
    SpottTillFormulär({.signal = "SM7ABC", .frekvens = "7,005,00", .trafiksätt = "CW", .band = "40 M"});
    EXPECT_EQ(f.txtFrekvens->text(), "7,005,00");
}

TEST_F(RadioProv, AServiceThatFailsLeavesRigControlOff) {
    förbered = [](ProvOmniRig& ny) { ny.trasig = true; };
    frTest& f = StartaMedRadio();
    EXPECT_EQ(Tag(), (Meddelande{"Kan inte hitta Progamfilen!", "Filfel"}));
    meddelanden.clear();
    EXPECT_FALSE(lever);
    EXPECT_FALSE(delat.RadioPå);
    EXPECT_FALSE(f.Meny("mnuRadio_På")->isChecked());
    EXPECT_TRUE(f.Meny("mnuRadio_Av")->isChecked());
    EXPECT_FALSE(platform::SingleWindow<frOmni>::exists());
    förbered = {};
    f.Meny("mnuRadio_På")->trigger();
    EXPECT_TRUE(delat.RadioPå);
    EXPECT_EQ(Fönster().Rig, &tjänst->Rig(1));
}

TEST_F(RadioProv, SettingsAreTheServicesOwn) {
    StartaMedRadio();
    Fönster().Command1->click();
    EXPECT_EQ(tjänst->inställning, &Fönster());
}

// ---- from the radio -----------------------------------------------------------------------------------

TEST_F(RadioProv, TheFrequencyIsShownOnLightGreen) {
    frTest& f = StartaMedRadio();
    struct Fall {
        qint64 hertz;
        const char* visning;
    };
    for (const Fall& fall : {Fall{14025000, "14,025,00"}, {1825000, "1,825,00"}, {144300000, "144,300,00"}}) {
        f.FärgaFrekvens(false);
        tjänst->Läge(1, fall.hertz, platform::rigmode::CwUpper);
        EXPECT_EQ(f.txtFrekvens->text(), fall.visning);
        EXPECT_EQ(Fönster().Label3->text(), fall.visning);
        EXPECT_EQ(Frekvensfärg(), ljusgrön);
        EXPECT_EQ(f.txtFrekvens->palette().color(QPalette::Text), QColor(Qt::black));
        EXPECT_EQ(Fönster().lblTrafiksätt->text(), "CW_U");
    }
    EXPECT_EQ(delat.RadioFrekvens, "14430000");
}

TEST_F(RadioProv, OtherLengthsLeaveTheFieldButColourIt) {
    frTest& f = StartaMedRadio();
    f.txtFrekvens->setText("7,022,50");
    for (const qint64 hertz : {0LL, 5LL, 472000LL, 1296200000LL, 10368100000LL}) {
        f.FärgaFrekvens(false);
        tjänst->Läge(1, hertz);
        EXPECT_EQ(f.txtFrekvens->text(), "7,022,50") << hertz;
        EXPECT_EQ(Fönster().Label3->text(), "7,022,50") << hertz;
        EXPECT_EQ(delat.RadioFrekvens, QString::number(hertz).chopped(1));
        EXPECT_EQ(Frekvensfärg(), ljusgrön);
    }
}

TEST_F(RadioProv, EventsOfARigThatIsNotChosenAreIgnored) {
    frTest& f = StartaMedRadio();
    tjänst->Läge(1, 14025000, platform::rigmode::Usb);
    tjänst->Läge(2, 7010000, platform::rigmode::Lsb);
    tjänst->Status(2, "Rig is not responding");
    EXPECT_EQ(f.txtFrekvens->text(), "14,025,00");
    EXPECT_EQ(Fönster().Label8->text(), "On-line");
    EXPECT_EQ(Fönster().lblTrafiksätt->text(), "USB");
}

TEST_F(RadioProv, ChoosingARigShowsItAtOnce) {
    förbered = [](ProvOmniRig& ny) {
        ny.Rig(3).frekvens = 3550000;
        ny.Rig(3).trafiksätt = platform::rigmode::CwLower;
        ny.Rig(3).status = "Rig is disabled";
    };
    frTest& f = StartaMedRadio();
    Fönster().Option[2]->click();
    EXPECT_EQ(Fönster().RigNummer, 3);
    EXPECT_EQ(Fönster().Label8->text(), "Rig is disabled");
    EXPECT_EQ(f.txtFrekvens->text(), "3,550,00");
    EXPECT_EQ(Fönster().lblTrafiksätt->text(), "CW_L");
    tjänst->Läge(1, 14025000);
    EXPECT_EQ(f.txtFrekvens->text(), "3,550,00");
}

TEST_F(RadioProv, EachOptionChoosesItsRig) {
    StartaMedRadio();
    for (const int nummer : {2, 1, 4, 3, 1}) {
        Fönster().Option[static_cast<size_t>(nummer - 1)]->click();
        EXPECT_EQ(Fönster().RigNummer, nummer);
        EXPECT_EQ(Fönster().Rig, &tjänst->Rig(nummer));
    }
}

TEST_F(RadioProv, TheStatusOfARigThatIsChosenIsKnownBeforeItsFrequency) {
    förbered = [](ProvOmniRig& ny) {
        ny.Rig(1).status = "Rig is not responding";
        ny.Rig(1).frekvens = 14025000;
        ny.Rig(2).frekvens = 7010000;
    };
    StartaMedRadio();
    EXPECT_EQ(delat.RadioFrekvens, "") << "rig 1 is off line";
    Fönster().Option[1]->click();
    EXPECT_EQ(delat.RadioFrekvens, "701000");
    Fönster().Option[0]->click();
    EXPECT_EQ(delat.RadioFrekvens, "701000");
    EXPECT_EQ(Form().txtFrekvens->text(), "14,025,00");
}

TEST_F(RadioProv, OffLineTheFrequencyIsWrittenButNotRemembered) {
    frTest& f = StartaMedRadio();
    tjänst->Läge(1, 14025000);
    EXPECT_EQ(delat.RadioFrekvens, "1402500");
    tjänst->Status(1, "Rig is not responding");
    tjänst->Läge(1, 14030000);
    EXPECT_EQ(f.txtFrekvens->text(), "14,030,00");
    EXPECT_EQ(delat.RadioFrekvens, "1402500");
}

TEST_F(RadioProv, AModeWithoutATextLeavesTheLabel) {
    StartaMedRadio();
    tjänst->Läge(1, 14025000, platform::rigmode::Fm);
    tjänst->Läge(1, 14025000, 0x400000);
    EXPECT_EQ(Fönster().lblTrafiksätt->text(), "FM");
}

TEST_F(RadioProv, TheModeDoesNotReachTheForm) {
    frTest& f = StartaMedRadio(1);
    const QString trafiksätt = f.cmbTrafik->Text();
    const QString band = f.cmbBand->Text();
    tjänst->Läge(1, 14025000, platform::rigmode::RttyUpper);
    EXPECT_EQ(f.cmbTrafik->Text(), trafiksätt);
    EXPECT_EQ(f.cmbBand->Text(), band);
}

TEST_F(RadioProv, AClearedFormShowsWhereTheRadioIs) {
    frTest& f = StartaMedRadio();
    tjänst->Läge(1, 144300000);
    SkrivI(f.txtFrekvens, "144,310,00");
    f.cmdAvbryt->click();
    EXPECT_EQ(f.txtFrekvens->text(), "144,300,00");
    f.Meny("mnuRadio_Av")->trigger();
    SkrivI(f.txtFrekvens, "144,310,00");
    f.cmdAvbryt->click();
    EXPECT_EQ(f.txtFrekvens->text(), "144,310,00");
}

TEST_F(RadioProv, ASavedContactHasTheRadiosFrequency) {
    StartaMedRadio(1);
    tjänst->Läge(1, 432205000);
    Kör("SM7ABC", "JO65MS");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT Frekvens FROM TESTQSO"), "432,205,00");
    EXPECT_EQ(Form().txtFrekvens->text(), "432,205,00");
}

// ---- to the radio -------------------------------------------------------------------------------------

TEST_F(RadioProv, ShiftSendsTheFieldsFrequencyToBothVfos) {
    frTest& f = StartaMedRadio();
    struct Fall {
        const char* visning;
        int hertz;
    };
    for (const Fall& fall : {Fall{"7,022,50", 7022500}, {"14,025,00", 14025000}, {"144,300,00", 144300000}}) {
        tjänst->Rig(1).skrivet.clear();
        f.txtFrekvens->setText(fall.visning);
        f.Meny("mnuRadio_Shift")->trigger();
        EXPECT_EQ(tjänst->Rig(1).skrivet,
                  (QList<std::pair<char, int>>{{'A', fall.hertz}, {'F', fall.hertz}}));
    }
}

TEST_F(RadioProv, OtherLengthsAndTextsAreNotSent) {
    frTest& f = StartaMedRadio();
    for (const char* text : {"", "7,0", "472,00", "1296,200,00", "0,000,00", "DX1234", "14.025.0"}) {
        f.txtFrekvens->setText(text);
        f.Meny("mnuRadio_Shift")->trigger();
    }
    EXPECT_TRUE(tjänst->Rig(1).skrivet.isEmpty());
}

TEST_F(RadioProv, NothingIsSentWhileRigControlIsOff) {
    frTest& f = StartaLogg(11);
    f.txtFrekvens->setText("7,022,50");
    f.Meny("mnuRadio_Shift")->trigger();
    f.cmbBand->setCurrentIndex(1);
    EXPECT_EQ(startade, 0);
    EXPECT_FALSE(platform::SingleWindow<frOmni>::exists());
}

TEST_F(RadioProv, WhatIsSentIsTheFieldsTextAndOnlyWhileRigControlIsOn) {
    frTest& f = StartaMedRadio();
    f.txtFrekvens->setText("7,022,50");
    Fönster().RadioSkick("3,500,00");
    EXPECT_EQ(tjänst->Rig(1).skrivet, (QList<std::pair<char, int>>{{'A', 7022500}, {'F', 7022500}}));
    tjänst->Rig(1).skrivet.clear();
    delat.RadioPå = false;
    Fönster().RadioSkick("3,500,00");
    EXPECT_TRUE(tjänst->Rig(1).skrivet.isEmpty());
}

TEST_F(RadioProv, EachLengthTunesTheSame) {
    StartaMedRadio();
    Fönster().Freq6("350000");
    Fönster().Freq7("1402500");
    Fönster().Freq8("14430000");
    QList<int> hertz;
    for (const auto& [vfo, värde] : tjänst->Rig(1).skrivet)
        if (vfo == 'F') hertz << värde;
    EXPECT_EQ(hertz, QList<int>({3500000, 14025000, 144300000}));
}

TEST_F(RadioProv, ALogWithAListOfBandsIsOpenedWithItsFirstOneChosen) {
    // The list's first row is chosen by code, and that is a click like another.
    frTest& f = StartaMedRadio(1);
    tjänst->Läge(1, 14025000);
    NyLogg(9, "prov2.svk");
    EXPECT_EQ(tjänst->Rig(1).skrivet, (QList<std::pair<char, int>>{{'A', 14025000}, {'F', 14025000}}));
    EXPECT_EQ(f.txtFrekvens->text(), "14,025,00");
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    EXPECT_TRUE(delat.RadioPå);
    tjänst->Läge(1, 7010000);
    EXPECT_EQ(f.txtFrekvens->text(), "7,010,00");
    EXPECT_EQ(tjänst->Rig(1).skrivet.size(), 2);
}

TEST_F(RadioProv, TheRigThatIsChosenIsTuned) {
    frTest& f = StartaMedRadio();
    Fönster().Option[3]->click();
    f.txtFrekvens->setText("50,110,00");
    f.Meny("mnuRadio_Shift")->trigger();
    EXPECT_TRUE(tjänst->Rig(1).skrivet.isEmpty());
    EXPECT_EQ(tjänst->Rig(4).skrivet.size(), 2);
}

TEST_F(RadioProv, ABandThatIsChosenTunesTheRadio) {
    frTest& f = StartaMedRadio(11);
    ASSERT_GT(f.cmbBand->count(), 1);
    tjänst->Rig(1).skrivet.clear();
    f.txtFrekvens->setText("7,022,50");
    ASSERT_TRUE(Aktivera(f));
    f.cmbBand->setFocus();
    Tryck(Qt::Key_Down);
    EXPECT_EQ(tjänst->Rig(1).skrivet, (QList<std::pair<char, int>>{{'A', 7022500}, {'F', 7022500}}));
}

TEST_F(RadioProv, TypingAFrequencySendsNothing) {
    frTest& f = StartaMedRadio(11);
    tjänst->Rig(1).skrivet.clear();
    SkrivI(f.txtFrekvens, "7,022,50");
    Tryck(Qt::Key_Tab);
    EXPECT_TRUE(tjänst->Rig(1).skrivet.isEmpty());
}

TEST_F(RadioProv, ASpotOnAnotherBandTunesTheRadioAndOneOnTheSameDoesNot) {
    frTest& f = StartaMedRadio(11);
    tjänst->Rig(1).skrivet.clear();
    f.cmbBand->setCurrentIndex(0);
    tjänst->Rig(1).skrivet.clear();
    const QString annat = f.cmbBand->itemText(1);
    SpottTillFormulär({.signal = "SM7ABC", .frekvens = "7,005,00", .trafiksätt = "CW", .band = annat});
    EXPECT_EQ(tjänst->Rig(1).skrivet, (QList<std::pair<char, int>>{{'A', 7005000}, {'F', 7005000}}));
    SpottTillFormulär({.signal = "SM7XYZ", .frekvens = "7,010,00", .trafiksätt = "CW", .band = annat});
    EXPECT_EQ(tjänst->Rig(1).skrivet.size(), 2);
    EXPECT_EQ(f.txtFrekvens->text(), "7,010,00");
}

TEST_F(RadioProv, ASpotOnTheBandThatWasTypedOverTunesTheRadio) {
    frTest& f = StartaMedRadio(11);
    f.cmbBand->setCurrentIndex(1);
    tjänst->Rig(1).skrivet.clear();
    f.cmbBand->Text("2 M");
    const QString band = f.cmbBand->itemText(1);
    SpottTillFormulär({.signal = "SM7ABC", .frekvens = "7,005,00", .trafiksätt = "CW", .band = band});
    EXPECT_EQ(f.cmbBand->Text(), band);
    EXPECT_EQ(tjänst->Rig(1).skrivet.size(), 2);
}

TEST_F(RadioProv, ASpotThatTheMenuTakesLeavesTheRadio) {
    frTest& f = StartaMedRadio(9);
    tjänst->Läge(1, 14025000);
    tjänst->Rig(1).skrivet.clear();
    frDXSpott::instans().SkrivRad(1, {"XX9AA", "SM7ABC", "7,005,00", "CW", "", "40"});
    f.Meny("mnuDXSpot_Visa")->trigger();
    EXPECT_EQ(f.txtSignal->text(), "SM7ABC");
    EXPECT_EQ(f.txtFrekvens->text(), "7,005,00");
    EXPECT_TRUE(tjänst->Rig(1).skrivet.isEmpty());
}

TEST_F(RadioProv, TheKeysOfANewWindowChangeNoRig) {
    StartaMedRadio();
    ASSERT_TRUE(Aktivera(Fönster()));
    EXPECT_TRUE(Fönster().Command1->hasFocus());
    for (const Qt::Key tangent : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}) Tryck(tangent);
    EXPECT_EQ(Fönster().RigNummer, 1);
}

TEST_F(RadioProv, BandOmniLeavesTheBand) {
    frTest& f = StartaMedRadio(11);
    const QString band = f.cmbBand->Text();
    Fönster().BandOmni("702250");
    EXPECT_EQ(f.cmbBand->Text(), band);
}

TEST_F(RadioProv, TheOldRadioLineIsNotUsed) {
    frTest& f = StartaMedRadio();
    tjänst->Läge(1, 14025000);
    EXPECT_EQ(f.findChild<QObject*>("Timer_Radio"), f.Timer_Radio);
    EXPECT_EQ(f.findChild<QObject*>("mscRadio1"), f.mscRadio1);
    f.Timer_Radio->Tick();
    f.Meny("mnuInställning_RadioPort")->trigger();
    EXPECT_EQ(f.Timer_Radio->Interval(), 0);
    EXPECT_FALSE(f.mscRadio1->PortOpen());
    EXPECT_EQ(f.txtFrekvens->text(), "14,025,00");
}

// ---- its place ----------------------------------------------------------------------------------------

TEST_F(RadioProv, TheWindowHidesNothingOfTheEntryForm) {
    const bool storSkärm = qEnvironmentVariableIsSet("SORVIK_STORSKARM");
    frTest& f = StartaLogg(1);
    f.move(10, f.y());
    f.Meny("mnuRadio_På")->trigger();
    const QRect skärm = f.screen()->availableGeometry();
    EXPECT_EQ(f.x(), storSkärm ? 332 : qMax(0, qMin(332, skärm.right() - f.width())));
    EXPECT_TRUE(skärm.contains(Fönster().frameGeometry()));
    const QRect formulär(f.frmLogg->mapToGlobal(QPoint()), f.frmLogg->size());
    EXPECT_FALSE(Fönster().frameGeometry().intersects(formulär));
    EXPECT_NE(Fönster().frameGeometry().intersects(f.frameGeometry()), storSkärm);
    if (storSkärm) {
        EXPECT_EQ(Fönster().pos(), QPoint(0, 440));
    } else {
        EXPECT_GT(Fönster().y(), skärm.center().y());
    }
    Fönster().move(20, 30);
    f.Meny("mnuRadio_På")->trigger();
    EXPECT_EQ(Fönster().pos(), QPoint(20, 30)) << "where the operator has put it";
}
