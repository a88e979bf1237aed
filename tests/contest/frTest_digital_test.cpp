// The main window's side of the digital modes, over an engine of the test's own.
#include "contest/Modemfönster.h"
#include "platform/application.h"

#include <QTextBlock>
#include <QWheelEvent>

using platform::XMMVView;

// ---- set-up -------------------------------------------------------------------------------------------

TEST_F(DigitalProv, SettingsThatWereNeverSavedStartTheEngineWithTheDefaults) {
    const frTest& f = StartaRTTY();
    EXPECT_EQ(motor->anrop,
              (QStringList{"Mode 0 bpsk", "Switch 3 0", "Switch 4 0", "Switch 2 0", "Switch 1 0", "Afc 0 0",
                           "ComPort None", "FifoRx 12", "FifoTx 6", "SoundChannel 0 0", "SoundChannel 1 0",
                           "SoundCard -1", "RxClock 11025", "Carrier 0 2125", "Start"}));
    EXPECT_EQ(f.CBMode->currentText(), "bpsk");
    EXPECT_EQ(f.CBSpeed->currentText(), "31.25");
    EXPECT_EQ(f.XMMVView->Bandwidth(), 500);
    EXPECT_EQ(f.XMMVView->Shown(), XMMVView::Kind::Fft);
    EXPECT_EQ(startade, 1);
}

TEST_F(DigitalProv, EverySettingReachesTheEngineInItsOrder) {
    radio::Digitalval val;
    val.DigiBandbredd = "2K";
    val.DigiUOS = val.DigiHPF = val.DigiATC = val.DigiAFC = 1;
    val.DigiComport = "Com3";
    val.DigiTrafik = "rtty-U";
    val.DigiDisplay = "SYN";
    val.DigiFIFORX = "32";
    val.DigiFIFOTX = "24";
    val.DigiKanalA = 2;
    val.DigiKanalB = 4;
    val.DigiID = "3";
    val.DigiRXKlocka = "48000";
    SparaVal(val);
    const frTest& f = StartaRTTY();
    EXPECT_EQ(motor->anrop,
              (QStringList{"Mode 0 rtty-U", "Switch 3 1", "Switch 4 1", "Switch 2 0", "Switch 1 1", "Afc 0 1",
                           "ComPort Com3", "FifoRx 32", "FifoTx 24", "SoundChannel 0 2", "SoundChannel 1 1",
                           "SoundCard 3", "RxClock 48000", "Carrier 0 2125", "Start"}));
    EXPECT_EQ(f.CBMode->currentText(), "rtty-U");
    EXPECT_EQ(f.XMMVView->Bandwidth(), 2000);
    EXPECT_EQ(f.XMMVView->Shown(), XMMVView::Kind::Sync);
    EXPECT_TRUE(f.BtnATC->isChecked());
    EXPECT_FALSE(f.BtnNET->isChecked());
    EXPECT_TRUE(f.BtnAFC->isChecked());
}

TEST_F(DigitalProv, ANumberThatCannotBeReadIsNoNumberToTheEngine) {
    radio::Digitalval val;
    val.DigiFIFORX = "tolv";
    val.DigiFIFOTX = "";
    val.DigiID = "x";
    val.DigiRXKlocka = "11025 Hz";
    SparaVal(val);
    StartaRTTY();
    const QString oläsligt = QString::number(platform::mmvUnreadable);
    EXPECT_THAT(motor->anrop, ::testing::IsSupersetOf({"FifoRx " + oläsligt, "FifoTx " + oläsligt,
                                                       "SoundCard " + oläsligt, "RxClock " + oläsligt}));
}

TEST_F(DigitalProv, TheListOfModesIsTheEngines) {
    const frTest& f = StartaRTTY();
    EXPECT_EQ(Poster(*f.CBMode), (QStringList{"bpsk", "rtty-L", "rtty-U", "mfsk-L", "mfsk-U"}));
    EXPECT_EQ(Poster(*f.CBSpeed), (QStringList{"31.25", "62.5", "125"}));
    EXPECT_EQ(Poster(*f.CBRX), (QStringList{"tyst", "allt"}));
}

TEST_F(DigitalProv, WidthAndKindOfTheViewFollowTheirTextsAndAnyOtherChangesNothing) {
    frTest& f = StartaRTTY();
    for (const auto& [text, hertz] :
         {std::pair{"500", 500}, {"1K", 1000}, {"2K", 2000}, {"3K", 3000}, {"4K", 3000}, {"", 3000}}) {
        delat.Digital.DigiBandbredd = text;
        f.Initiera_Bandbredd();
        EXPECT_EQ(f.XMMVView->Bandwidth(), hertz) << text;
    }
    using Kind = XMMVView::Kind;
    for (const auto& [text, kind] : {std::pair{"V.F", Kind::Waterfall},
                                     {"SYN", Kind::Sync},
                                     {"FFT", Kind::Fft},
                                     {"WAV", Kind::Wave},
                                     {"fft", Kind::Wave}}) {
        delat.Digital.DigiDisplay = text;
        f.Initiera_BPF();
        EXPECT_EQ(f.XMMVView->Shown(), kind) << text;
    }
}

TEST_F(DigitalProv, AModeThatTheEngineDoesNotKnowLeavesItsOwn) {
    radio::Digitalval val;
    val.DigiTrafik = "olivia";
    SparaVal(val);
    EXPECT_EQ(StartaRTTY().CBMode->currentText(), "bpsk");
}

TEST_F(DigitalProv, OnlyTheDigitalContestRunsTheEngine) {
    frTest& f = StartaLogg(1);
    EXPECT_EQ(motor, nullptr);
    EXPECT_FALSE(f.frmDigital->isVisible());
    NyLogg(6, "rtty.svk");
    EXPECT_TRUE(motor->igång);
    EXPECT_TRUE(f.frmDigital->isVisible());
    NyLogg(3, "cw.svk");
    EXPECT_FALSE(motor->igång);
    EXPECT_FALSE(f.frmDigital->isVisible());
    NyLogg(6, "igen.svk");
    EXPECT_TRUE(motor->igång);
    EXPECT_EQ(startade, 1) << "the same engine";
    EXPECT_EQ(Poster(*f.CBMode).size(), 5);
}

TEST_F(DigitalProv, SavedSettingsAreInForceAtOnce) {
    const frTest& f = StartaRTTY();
    motor->anrop.clear();
    SparaIFönstret([](frInstDigi& inst) {
        inst.cmbTrafik->Row(inst.cmbTrafik->findText("rtty-L"));
        inst.cmbRXKlocka->Row(inst.cmbRXKlocka->findText("22050"));
        inst.chkNET->click();
    });
    EXPECT_EQ(motor->anrop,
              (QStringList{"Mode 0 rtty-L", "Switch 3 0", "Switch 4 0", "Switch 2 1", "Switch 1 0", "Afc 0 0",
                           "ComPort None", "FifoRx 12", "FifoTx 6", "SoundChannel 0 0", "SoundChannel 1 0",
                           "SoundCard -1", "RxClock 22050", "Carrier 0 2125", "Start"}));
    EXPECT_EQ(f.CBMode->currentText(), "rtty-L");
    EXPECT_EQ(f.CBSpeed->currentText(), "45.45");
    EXPECT_TRUE(f.BtnNET->isChecked());
}

TEST_F(DigitalProv, InAnotherContestSavedSettingsTakeNoSoundCard) {
    StartaLogg(1);
    SparaIFönstret([](frInstDigi& inst) { inst.cmbTrafik->Row(1); });
    ASSERT_NE(motor, nullptr);
    EXPECT_TRUE(motor->anrop.contains("Mode 0 rtty-L"));
    EXPECT_FALSE(motor->anrop.contains("Start"));
    EXPECT_FALSE(motor->igång);
}

TEST_F(DigitalProv, AnEngineThatFailsTakesTheWayOfAnyFailure) {
    frTest& f = StartaRTTY();
    motor->trasig = true;
    EXPECT_THROW(f.Initiera_MMVari(), platform::Failure);
}

TEST_F(DigitalProv, LeavingTheProgramLetsGoOfTheRadio) {
    frTest& f = StartaRTTY();
    jaNej.push_back(true);
    EXPECT_THROW(f.Meny("mnuArkiv_Avsluta")->trigger(), ProcessSlut);
    EXPECT_FALSE(motor->igång);
}

TEST_F(DigitalProv, EveryControlHasItsNameAndItsCaption) {
    const frTest& f = StartaRTTY();
    for (const auto& [namn, text] : {std::pair{"BtnTX", "TX"},
                                     {"BtnRX", "RX"},
                                     {"BtnHAM", "HAM"},
                                     {"BtnAFC", "AFC"},
                                     {"BtnATC", "ATC"},
                                     {"BtnNET", "NET"},
                                     {"cmdRensa", "Rensa"}}) {
        const auto knappar = f.findChildren<QPushButton*>(T(namn));
        ASSERT_EQ(knappar.size(), 1) << namn;
        EXPECT_EQ(knappar[0]->text(), text);
        EXPECT_TRUE(knappar[0]->isVisible()) << namn;
    }
    for (const char* namn : {"frmDigital", "XMMVView", "XMMVLvl", "CBMode", "CBSpeed", "CBRX", "RXWindow",
                             "TXWindow", "fmMacro"}) {
        ASSERT_EQ(f.findChildren<QWidget*>(T(namn)).size(), 1) << namn;
        EXPECT_TRUE(f.findChild<QWidget*>(T(namn))->isVisible()) << namn;
    }
}

// ---- buttons and lists --------------------------------------------------------------------------------

TEST_F(DigitalProv, TheButtonsDoWhatTheySay) {
    const frTest& f = StartaRTTY();
    motor->anrop.clear();
    f.txtSignal->setFocus();
    for (const auto& [knapp, anrop] : {std::pair{f.BtnRX, "Transmit 0"},
                                       {f.BtnHAM, "Carrier 0 2125"},
                                       {f.BtnAFC, "Afc 0 1"},
                                       {f.BtnATC, "Switch 1 1"},
                                       {f.BtnNET, "Switch 2 1"},
                                       {f.BtnAFC, "Afc 0 0"},
                                       {f.BtnATC, "Switch 1 0"},
                                       {f.BtnNET, "Switch 2 0"}}) {
        QTest::mouseClick(knapp, Qt::LeftButton);
        EXPECT_EQ(motor->anrop, QStringList(anrop));
        motor->anrop.clear();
        EXPECT_TRUE(HarFokus(f.txtSignal)) << anrop;
    }
}

TEST_F(DigitalProv, TheTransmitButtonGoesByWhatTheEngineReports) {
    const frTest& f = StartaRTTY();
    for (const auto& [läge, anrop] : {std::pair{0, "Transmit 1"},
                                      {1, "EndTransmit"},
                                      {2, "Transmit 0"},
                                      {3, "Transmit 0"},
                                      {4, "Transmit 0"}}) {
        motor->anrop.clear();
        motor->läge = läge;
        QTest::mouseClick(f.BtnTX, Qt::LeftButton);
        EXPECT_EQ(motor->anrop, QStringList(anrop)) << läge;
    }
}

TEST_F(DigitalProv, TheTransmitButtonSaysWhatItsStateAllows) {
    const frTest& f = StartaRTTY();
    for (const auto& [läge, rubrik] : {std::pair{1, "RX"},
                                       {2, "BeRX"},
                                       {3, "Vänta"},
                                       {4, "Tone"},
                                       {99, "Tone"},
                                       {-1, "Tone"},
                                       {0, "TX"}}) {
        motor->events.transmitState(läge);
        EXPECT_EQ(f.BtnTX->text(), T(rubrik)) << läge;
        const bool röd = f.BtnTX->palette().button().color() != f.BtnRX->palette().button().color();
        EXPECT_EQ(röd, läge != 0) << läge;
    }
}

TEST_F(DigitalProv, SwitchesThatChangeByThemselvesMoveTheirButtons) {
    const frTest& f = StartaRTTY();
    const std::pair<int, platform::XMMVBtn*> knappar[] = {{platform::mmvswitch::Afc, f.BtnAFC},
                                                          {platform::mmvswitch::Atc, f.BtnATC},
                                                          {platform::mmvswitch::Net, f.BtnNET}};
    motor->anrop.clear();
    for (const bool på : {true, false})
        for (const auto& [vilken, knapp] : knappar) {
            motor->brytare[vilken] = på;
            motor->events.switchChanged(vilken);
            EXPECT_EQ(knapp->isChecked(), på) << vilken;
        }
    motor->events.switchChanged(platform::mmvswitch::Uos); // has none
    EXPECT_EQ(motor->anrop, QStringList()) << "nothing goes back to the engine";
}

TEST_F(DigitalProv, ModeSpeedAndReceptionAreChosenWithTheMouse) {
    const frTest& f = StartaRTTY();
    motor->anrop.clear();
    Klicka(*f.CBMode, 1);
    EXPECT_EQ(f.CBMode->currentText(), "rtty-L");
    EXPECT_EQ(f.CBSpeed->currentText(), "45.45") << "the list follows the mode";
    Klicka(*f.CBSpeed, 2);
    EXPECT_EQ(f.CBSpeed->currentText(), "75");
    Klicka(*f.CBRX, 1);
    EXPECT_EQ(motor->anrop, (QStringList{"Mode 0 rtty-L", "Speed 0 75", "ReceiveChoice 0 1"}));
}

TEST_F(DigitalProv, AndWithTheKeys) {
    const frTest& f = StartaRTTY();
    motor->anrop.clear();
    for (QComboBox* lista : {f.CBMode, f.CBSpeed, f.CBRX}) {
        lista->setFocus();
        Tryck(Qt::Key_Down);
    }
    EXPECT_EQ(motor->anrop, (QStringList{"Mode 0 rtty-L", "Speed 0 50", "ReceiveChoice 0 1"}));
}

TEST_F(DigitalProv, ChangesOfTheFirstChannelAreShownAndThoseOfTheSecondAreNot) {
    const frTest& f = StartaRTTY();
    motor->fart = 2;
    motor->mottagning = 1;
    motor->events.speedChanged(1);
    motor->events.receiveListChanged(1);
    EXPECT_EQ(f.CBSpeed->currentText(), "31.25");
    EXPECT_EQ(f.CBRX->currentIndex(), 0);
    motor->anrop.clear();
    motor->events.speedChanged(0);
    motor->events.receiveListChanged(0);
    EXPECT_EQ(f.CBSpeed->currentText(), "125");
    EXPECT_EQ(f.CBRX->currentIndex(), 1);
    EXPECT_EQ(motor->anrop, QStringList());
}

TEST_F(DigitalProv, SpectrumAndLevelGoToTheirViews) {
    const frTest& f = StartaRTTY();
    platform::MmvSpectrum spektrum;
    spektrum.line.assign(1000, -80.0F);
    spektrum.spacing = 3;
    spektrum.tones = {2125};
    const QImage före = f.XMMVView->grab().toImage();
    motor->events.spectrum(spektrum);
    EXPECT_NE(f.XMMVView->grab().toImage(), före);
    motor->events.level(0.5);
    EXPECT_EQ(f.XMMVLvl->Level(), 0.5);
}

TEST_F(DigitalProv, AClickOnTheViewTunesAndGivesTheFocusBack) {
    const frTest& f = StartaRTTY();
    f.txtNamn->setFocus();
    motor->anrop.clear();
    QTest::mouseClick(f.XMMVView, Qt::LeftButton, Qt::NoModifier, QPoint(f.XMMVView->width() / 2, 50));
    EXPECT_EQ(motor->anrop,
              QStringList(QString("Carrier 0 %1").arg(f.XMMVView->HertzAt(f.XMMVView->width() / 2))));
    EXPECT_TRUE(HarFokus(f.txtSignal));
    delat.Digital.DigiDisplay = "WAV";
    frTest::instans().Initiera_BPF();
    f.txtNamn->setFocus();
    QTest::mouseClick(f.XMMVView, Qt::LeftButton, Qt::NoModifier, QPoint(10, 50));
    EXPECT_EQ(motor->anrop.size(), 1);
    EXPECT_TRUE(HarFokus(f.txtSignal));
}

TEST_F(DigitalProv, WhatStandsInTheWayIsInTheStatusBar) {
    const frTest& f = StartaRTTY();
    motor->events.status("Inget ljudkort");
    EXPECT_EQ(f.SBarTest(3), "Inget ljudkort");
    motor->events.status("");
    EXPECT_EQ(f.SBarTest(3), "");
}

TEST_F(DigitalProv, RensaEmptiesBothTextsAndNotTheForm) {
    frTest& f = StartaRTTY();
    f.txtSignal->setText("SM5ABC");
    Mottag("CQ CQ");
    Begär(f, "ABCDEF", 4);
    QTest::mouseClick(f.cmdRensa, Qt::LeftButton);
    EXPECT_EQ(f.RXWindow->toPlainText(), "");
    EXPECT_EQ(f.TXWindow->toPlainText(), "");
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    motor->sänt.clear();
    SkrivI(f.TXWindow, "xy");
    for (int i = 0; i < 5; ++i) motor->events.transmitRequest();
    EXPECT_EQ(motor->sänt, "xy") << "what is typed behind it goes out from its beginning";
}

// ---- its place ----------------------------------------------------------------------------------------

TEST_F(DigitalProv, EverythingHasItsPlaceOnASmallScreen) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Fil("Macrofiler/Digital/RTTY-test.ini"));
    // 1280 by 720, less the window's own frame.
    const QSize liten(1280, 690);
    f.setWindowState(Qt::WindowNoState);
    f.resize(liten);
    ASSERT_TRUE(QTest::qWaitFor([&] { return f.size() == liten; }, 5000)) << f.minimumSizeHint().height();
    QList<QWidget*> delar{f.RXWindow, f.TXWindow,      f.XMMVView, f.XMMVLvl,    f.CBMode,
                          f.CBSpeed,  f.CBRX,          f.BtnTX,    f.BtnRX,      f.BtnHAM,
                          f.BtnAFC,   f.BtnATC,        f.BtnNET,   f.cmdRensa,   f.dgLogg,
                          f.frmLogg,  f.dgTidigareQSO, f.cmdSpara, f.statusBar()};
    for (int i = 1; i <= 12; ++i) delar << f.cmdMacro[static_cast<size_t>(i)];
    for (const QWidget* del : delar) {
        EXPECT_EQ(del->visibleRegion().boundingRect(), del->rect()) << del->objectName().toStdString();
        const QRect plats(del->mapTo(&f, QPoint()), del->size());
        EXPECT_TRUE(f.rect().contains(plats)) << del->objectName().toStdString();
    }
    for (const QWidget* del : delar)
        for (const QWidget* annan : delar) {
            if (del == annan || del->isAncestorOf(annan) || annan->isAncestorOf(del)) continue;
            const QRect a(del->mapTo(&f, QPoint()), del->size()),
                b(annan->mapTo(&f, QPoint()), annan->size());
            EXPECT_FALSE(a.intersects(b))
                << del->objectName().toStdString() << annan->objectName().toStdString();
        }
    const auto rader = [](const QPlainTextEdit* text) {
        return text->viewport()->height() / text->fontMetrics().lineSpacing();
    };
    EXPECT_GE(rader(f.RXWindow), 3);
    EXPECT_GE(rader(f.TXWindow), 3);
}

// ---- nobody stays on the air ----------------------------------------------------------------------------

TEST_F(DigitalProv, AnotherLogEndsTheTransmission) {
    frTest& f = StartaRTTY();
    motor->anrop.clear();
    filval = {std::nullopt};
    f.Meny("mnuArkiv_ÖppnaTestlogg")->trigger();
    EXPECT_EQ(motor->anrop, QStringList{"Transmit 0"}) << "before the dialog";
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    EXPECT_FALSE(motor->igång) << "without a log nobody is on the air";
}

TEST_F(DigitalProv, AFailureThatEndsTheProgramLetsGoOfTheRadioFirst) {
    StartaRTTY();
    EXPECT_THROW(platform::EndByFailure("det gick inte"), ProcessSlut);
    EXPECT_FALSE(motor->igång);
}

TEST_F(DigitalProv, SavedSettingsDoNotStartTheEngineBehindAnotherContestsLog) {
    StartaLogg(1);
    delat.AktuelltTest = 6; // chosen, and the dialog for the new log cancelled
    SparaIFönstret([](frInstDigi& inst) { inst.chkNET->click(); });
    ASSERT_NE(motor, nullptr);
    EXPECT_FALSE(motor->igång);
}

TEST_F(DigitalProv, WithoutALogNothingStartsTheEngine) {
    frTest& f = StartaRTTY();
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    SparaIFönstret([](frInstDigi& inst) { inst.chkNET->click(); });
    EXPECT_FALSE(motor->igång) << "the settings alone do not";
    f.TXWindow->setPlainText("CQ");
    NyLogg(6, "ny.svk");
    EXPECT_TRUE(motor->igång);
    EXPECT_EQ(f.TXWindow->toPlainText(), "") << "what was left there is not sent in the new log";
    filval = {std::nullopt};
    f.NyTestLogg();
    EXPECT_FALSE(f.HarLogg());
    EXPECT_FALSE(motor->igång) << "the old log was closed before the dialog";
}

TEST_F(DigitalProv, TheQuestionAtTheEndIsNotAskedOnTheAir) {
    frTest& f = StartaRTTY();
    motor->anrop.clear();
    jaNej.push_back(false);
    f.close();
    EXPECT_EQ(motor->anrop, QStringList("Transmit 0"));
    EXPECT_TRUE(motor->igång);
}

// ---- the operator's hands are on the form -----------------------------------------------------------------

TEST_F(DigitalProv, TheWheelOverAListChangesNothing) {
    frTest& f = StartaRTTY();
    motor->anrop.clear();
    for (QComboBox* lista : {f.CBMode, f.CBSpeed, f.CBRX}) {
        const QPointF mitt(lista->rect().center());
        QWheelEvent hjul(mitt, lista->mapToGlobal(mitt), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(lista, &hjul);
    }
    EXPECT_EQ(motor->anrop, QStringList());
}

TEST_F(DigitalProv, AfterAChoiceTheNextCallGoesToTheForm) {
    frTest& f = StartaRTTY();
    f.CBMode->setFocus();
    Skriv("r");
    EXPECT_EQ(motor->vald, "rtty-L");
    EXPECT_TRUE(HarFokus(f.txtSignal));
}

TEST_F(DigitalProv, EnterPressesTheButtonThatHasTheFocus) {
    frTest& f = StartaRTTY();
    SkrivI(f.txtSignal, "SM5XYZ");
    motor->anrop.clear();
    f.BtnTX->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(motor->anrop, QStringList{"Transmit 1"});
    EXPECT_EQ(f.txtSignal->text(), "SM5XYZ") << "nothing was saved";
}

TEST_F(DigitalProv, WhatIsTakenBackOfTheSentTextCostsNothingOfTheNext) {
    frTest& f = StartaRTTY();
    f.TXWindow->setPlainText("CQ CQ");
    for (int i = 0; i < 5; ++i) motor->events.transmitRequest();
    f.TXWindow->setPlainText("CQ");
    f.TXWindow->moveCursor(QTextCursor::End);
    f.TXWindow->insertPlainText("DE");
    for (int i = 0; i < 5; ++i) motor->events.transmitRequest();
    EXPECT_EQ(motor->sänt, "CQ CQDE");
}

TEST_F(DigitalProv, AReceivedLineWithoutAnEndIsBrokenAtABlank) {
    frTest& f = StartaRTTY();
    for (int i = 0; i < 1000; ++i)
        for (const QChar tecken : QString("CQ ")) motor->events.received(0, tecken);
    EXPECT_GT(f.RXWindow->blockCount(), 5);
    for (QTextBlock rad = f.RXWindow->document()->begin(); rad.isValid(); rad = rad.next())
        EXPECT_LT(rad.length(), 410);
    EXPECT_EQ(f.RXWindow->toPlainText().simplified().count("CQ"), 1000);
}

TEST_F(DigitalProv, AReceivedLineWithoutABlankIsBrokenToo) {
    const frTest& f = StartaRTTY();
    for (int i = 0; i < 3000; ++i) motor->events.received(0, u'R');
    for (QTextBlock rad = f.RXWindow->document()->begin(); rad.isValid(); rad = rad.next())
        EXPECT_LT(rad.length(), 810);
    EXPECT_EQ(f.RXWindow->toPlainText().count('R'), 3000);
}
