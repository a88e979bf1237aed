// The program and Hamlib's own daemon: what the radio does reaches the entry form, and what the operator
// chooses reaches the radio.
#include "radio/Radioprov.h"

#include "cluster/Klusterprov.h"
#include "cluster/frDXSpottLogg.h"
#include "platform/omnirig/hamlibservice.h"
#include "platform/omnirig/rigsettings.h"
#include "platform/windows.h"

namespace {

using platform::RigSettings;

class RigctldProv : public Klusterprov {
protected:
    static frTest& Form() { return frTest::instans(); }
    static frOmni& Fönster() { return frOmni::instans(); }
    /// The settings' file, with a daemon for each of the first rigs.
    void Ställ(std::initializer_list<QString> adresser) {
        platform::AllRigSettings riggar;
        size_t i = 0;
        for (const QString& adress : adresser)
            riggar[i++] = {.way = RigSettings::Way::Address, .address = adress};
        platform::SaveTextFile(Fil("INI/OmniRig.ini"), platform::RigSettingsToText(riggar));
    }
    static bool Visar(const char* visning) {
        return QTest::qWaitFor([&] { return Form().txtFrekvens->text() == visning; }, 3000);
    }
    static bool Status(const char* status, int inom = 3000) {
        return QTest::qWaitFor([&] { return Fönster().Label8->text() == status; }, inom);
    }
};

} // namespace

TEST_F(RigctldProv, TheFrequencyAndTheModeFollowTheRadio) {
    Rigctld radio;
    Ställ({radio.Adress()});
    StartaLogg(1).Meny("mnuRadio_På")->trigger();
    ASSERT_TRUE(Status("On-line"));
    ASSERT_TRUE(Visar("145,000,00"));
    EXPECT_EQ(delat.RadioFrekvens, "14500000");
    radio.Vrid(14025000);
    ASSERT_TRUE(Visar("14,025,00"));
    for (const auto& [trafiksätt, text] : {std::pair{"CW", "CW_U"},
                                           {"CWR", "CW_L"},
                                           {"USB", "USB"},
                                           {"LSB", "LSB"},
                                           {"RTTYR", "RTTY_U"},
                                           {"RTTY", "RTTY_L"},
                                           {"AM", "AM"},
                                           {"FM", "FM"}}) {
        radio.Trafiksätt(trafiksätt);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Fönster().lblTrafiksätt->text() == text; }, 2000)) << text;
    }
}

TEST_F(RigctldProv, ABandClickAndASpotTuneTheRadio) {
    Rigctld radio;
    Ställ({radio.Adress()});
    frTest& f = StartaLogg(9);
    f.Meny("mnuRadio_På")->trigger();
    ASSERT_TRUE(Status("On-line"));
    const auto står = [&](qint64 hertz) {
        return QTest::qWaitFor([&] { return radio.Frekvens() == hertz; }, 2000);
    };
    f.txtFrekvens->setText("7,022,50");
    f.cmbBand->setCurrentIndex(1);
    f.txtFrekvens->clear();
    EXPECT_TRUE(står(7022500));
    EXPECT_TRUE(Visar("7,022,50"));
    Ta(Rad("SM7ABC", "21005.0") + Rad("OH2BH", "3525.0"));
    frDXSpott::instans().Visa();
    Dubbelklicka(*frDXSpott::instans().fgDXSpott, 1);
    EXPECT_EQ(f.cmbBand->Text(), "15 M");
    EXPECT_TRUE(står(21005000));
    frDXSpottLogg::instans().Visa();
    QTableView& logg = *frDXSpottLogg::instans().dgDXspottLogg;
    Dubbelklicka(logg, 1);
    EXPECT_EQ(f.cmbBand->Text(), "80 M");
    EXPECT_TRUE(står(3525000));
    f.txtFrekvens->setText("144,300,00");
    f.Meny("mnuRadio_Shift")->trigger();
    f.txtFrekvens->clear();
    EXPECT_TRUE(står(144300000));
    EXPECT_TRUE(Visar("144,300,00"));
}

TEST_F(RigctldProv, RigTwoIsIgnoredWhileRigOneIsChosen) {
    Rigctld ett;
    Rigctld två;
    Ställ({ett.Adress(), två.Adress()});
    ett.Vrid(14025000);
    två.Vrid(7010000);
    StartaLogg(1).Meny("mnuRadio_På")->trigger();
    ASSERT_TRUE(Visar("14,025,00"));
    två.Vrid(7020000);
    QTest::qWait(600);
    EXPECT_EQ(Form().txtFrekvens->text(), "14,025,00");
    Fönster().Option[1]->click();
    EXPECT_EQ(Form().txtFrekvens->text(), "7,020,00");
    EXPECT_EQ(Fönster().Label8->text(), "On-line");
    ett.Vrid(14035000);
    QTest::qWait(600);
    EXPECT_EQ(Form().txtFrekvens->text(), "7,020,00");
    Fönster().Option[2]->click();
    EXPECT_EQ(Fönster().Label8->text(), "Rig is not configured");
}

TEST_F(RigctldProv, ADaemonThatIsKilledAndStartedAgainIsFollowedAgain) {
    Rigctld radio;
    Ställ({radio.Adress()});
    StartaLogg(1).Meny("mnuRadio_På")->trigger();
    ASSERT_TRUE(Status("On-line"));
    radio.Döda();
    ASSERT_TRUE(Status("Rig is not responding", 2000));
    EXPECT_EQ(Form().txtFrekvens->text(), "145,000,00");
    radio.Starta();
    ASSERT_TRUE(Status("On-line"));
    radio.Vrid(432200000);
    EXPECT_TRUE(Visar("432,200,00"));
    EXPECT_EQ(delat.RadioFrekvens, "43220000");
}

TEST_F(RigctldProv, AHangingRadioDoesNotHoldUpTheKeys) {
    Rigctld radio;
    Ställ({radio.Adress()});
    frTest& f = StartaLogg(1);
    f.Meny("mnuRadio_På")->trigger();
    ASSERT_TRUE(Status("On-line"));
    radio.Frys();
    ASSERT_TRUE(Status("Rig is not responding", 2000));
    f.Meny("mnuRadio_Shift")->trigger();
    ASSERT_TRUE(Aktivera(f));
    SkrivI(f.txtSignal, "SM7ABC");
    EXPECT_EQ(f.txtSignal->text(), "SM7ABC");
    // Off while a question hangs; nothing waits for its answer.
    f.Meny("mnuRadio_Av")->trigger();
    EXPECT_EQ(f.SBarTest(2), "Radio");
}

TEST_F(RigctldProv, AMachineWithoutTheDaemonGetsTheMessage) {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", Fil("INI").toUtf8());
    StartaLogg(1).Meny("mnuRadio_På")->trigger();
    qputenv("PATH", path);
    EXPECT_EQ(Tag().text, "OmniRig är inte installerat eller har fel verision nummer!");
    EXPECT_TRUE(Fönster().isVisible());
    EXPECT_EQ(Fönster().Label8->text(), "");
}

TEST_F(RigctldProv, SettingsThatCannotBeReadGiveAMessageAndStayInTheirFile) {
    platform::SaveTextFile(Fil("INI/OmniRig.ini"), "\"adress\",\"127.0.0.1:4532\"\r\n");
    StartaLogg(1).Meny("mnuRadio_På")->trigger();
    EXPECT_TRUE(Tag().text.startsWith("Ett fel har inträffat vid inläsning av ini-filen för radion."));
    auto& tjänst = dynamic_cast<platform::HamlibService&>(*Fönster().OmniRigEngine);
    EXPECT_EQ(tjänst.Settings(), platform::DefaultRigSettings());
    EXPECT_EQ(platform::LoadTextFile(Fil("INI/OmniRig.ini")), "\"adress\",\"127.0.0.1:4532\"\r\n");
}
