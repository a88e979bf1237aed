// The rig service and the window of its settings, with Hamlib's own daemon.
#include "platform/failure.h"
#include "platform/omnirig/hamlibservice.h"
#include "platform/omnirig/rigdaemon.h"
#include "platform/omnirig/rigdialog.h"
#include "platform/textfile.h"
#include "support/Programprov.h"
#include "support/Riggprov.h"
#include "support/ToPrint.h"

#include <QDir>

using namespace platform;

namespace {

class DialogTest : public Programprov {
protected:
    /// The service by the settings' file, and its window.
    void Open() {
        service = std::make_unique<HamlibService>();
        service->ShowDialog(nullptr);
        dialog = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = dynamic_cast<RigDialog*>(window)) dialog = found;
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(Aktivera(*dialog));
    }
    RigPage& Page(int rig) { return *dialog->pages[static_cast<size_t>(rig - 1)]; }
    /// Waits for the list of radios.
    bool HasModels() {
        return QTest::qWaitFor([this] { return Page(1).lstModell->model()->rowCount() > 0; }, 5000);
    }
    QStringList Models() {
        QStringList names;
        const QAbstractItemModel& list = *Page(1).lstModell->model();
        for (int row = 0; row < list.rowCount(); ++row) names << list.index(row, 0).data().toString();
        return names;
    }
    QString Chosen(int rig) { return Page(rig).lstModell->currentIndex().data().toString(); }
    void SetAddress(int rig, const QString& address) {
        Page(rig).optAdress->click();
        Page(rig).txtAdress->setText(address);
    }
    bool Says(int rig, const QString& text, int within = 9000) {
        return QTest::qWaitFor([&] { return Page(rig).lblSvar->text().startsWith(text); }, within);
    }
    QString File() const { return Fil("INI/OmniRig.ini"); }
    bool IsSaved() const { return QFile::exists(File()); }

    std::unique_ptr<HamlibService> service;
    RigDialog* dialog = nullptr;
};

} // namespace

TEST_F(DialogTest, NothingSetIsTheUsualPortForRigOne) {
    Open();
    EXPECT_EQ(dialog->objectName(), "RigDialog");
    EXPECT_FALSE(dialog->isModal()) << "the contest goes on";
    EXPECT_TRUE(Page(1).optAdress->isChecked());
    EXPECT_EQ(Page(1).txtAdress->text(), "127.0.0.1:4532");
    for (int rig = 2; rig <= 4; ++rig) {
        EXPECT_TRUE(Page(rig).optAv->isChecked());
        EXPECT_FALSE(Page(rig).txtAdress->isEnabled());
        EXPECT_FALSE(Page(rig).lstModell->isEnabled());
        EXPECT_FALSE(Page(rig).cmdTest->isEnabled());
        EXPECT_EQ(service->Rig(rig).StatusStr(), "Rig is not configured");
    }
}

TEST_F(DialogTest, SavedSettingsHoldAtOnceAndTheNextTime) {
    Rigctld radio;
    Open();
    SetAddress(2, radio.Adress());
    Page(3).optModell->click();
    ASSERT_TRUE(HasModels());
    Page(3).txtSök->setText("ic-7300");
    Page(3).cmbPort->setEditText("/dev/ttyNONE");
    Page(3).cmbHastighet->setCurrentText("19200");
    dialog->cmdSpara->click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(LoadTextFile(File()), "\"adress\",\"127.0.0.1:4532\",0,\"\",0\r\n"
                                    "\"adress\",\"" +
                                        radio.Adress() +
                                        "\",0,\"\",0\r\n"
                                        "\"modell\",\"\",3073,\"/dev/ttyNONE\",19200\r\n"
                                        "\"av\",\"\",0,\"\",0\r\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return service->Rig(2).StatusStr() == "On-line"; }, 3000));
    EXPECT_EQ(service->Rig(2).RxFrequency(), 145000000);
    EXPECT_EQ(service->Rig(2).Mode(), rigmode::Fm);

    service.reset();
    Open();
    ASSERT_TRUE(HasModels());
    EXPECT_EQ(Page(2).txtAdress->text(), radio.Adress());
    EXPECT_TRUE(Page(3).optModell->isChecked());
    EXPECT_EQ(Chosen(3), "Icom IC-7300");
    EXPECT_EQ(Page(3).cmbPort->currentText(), "/dev/ttyNONE");
    EXPECT_EQ(Page(3).cmbHastighet->currentText(), "19200");
}

TEST_F(DialogTest, ClosingSavesNothing) {
    Open();
    SetAddress(2, "127.0.0.1:1");
    dialog->cmdAvbryt->click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(IsSaved());
    service->ShowDialog(nullptr);
    EXPECT_TRUE(Page(2).optAv->isChecked());
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(DialogTest, SettingsThatMakeNoSenseAreNotSaved) {
    Open();
    for (const char* address : {"", ":", "host:port", "host:99999"}) {
        SetAddress(3, address);
        dialog->cmdSpara->click();
        EXPECT_EQ(Tag().text, "Adressen ska vara värd:port, till exempel 127.0.0.1:4532.");
        meddelanden.clear();
        EXPECT_EQ(dialog->tabRig->currentIndex(), 2);
    }
    SetAddress(3, "host\":1");
    dialog->cmdSpara->click();
    EXPECT_EQ(Tag().text, "Citattecken och ovanliga tecken kan inte användas i adress eller port.");
    meddelanden.clear();
    Page(3).txtAdress->clear();
    Page(3).optModell->click();
    dialog->cmdSpara->click();
    EXPECT_EQ(Tag().text, "Välj en radio i listan.");
    meddelanden.clear();
    ASSERT_TRUE(HasModels());
    for (const int rig : {2, 3}) {
        Page(rig).optModell->click();
        Page(rig).txtSök->setText("ic-7300");
        Page(rig).cmbPort->setEditText("/dev/ttyUSB0");
    }
    dialog->cmdSpara->click();
    EXPECT_EQ(Tag().text, "Två radioapparater kan inte ha samma port, /dev/ttyUSB0.");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(IsSaved());
}

TEST_F(DialogTest, SettingsThatCannotBeWrittenStayInTheWindow) {
    Open();
    SetAddress(2, "127.0.0.1:1");
    ASSERT_TRUE(QDir(Fil("INI")).removeRecursively());
    dialog->cmdSpara->click();
    EXPECT_TRUE(Tag().text.startsWith("Inställningarna kunde inte sparas."));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(Page(2).txtAdress->text(), "127.0.0.1:1");
    EXPECT_EQ(service->Settings(), DefaultRigSettings());
    EXPECT_EQ(service->Rig(2).StatusStr(), "Rig is not configured");
}

// ---- the list of radios -------------------------------------------------------------------------------

TEST_F(DialogTest, RadiosAreFoundByWordsInAnyOrder) {
    Open();
    ASSERT_TRUE(HasModels());
    const QStringList all = Models();
    EXPECT_GT(all.size(), 200);
    EXPECT_TRUE(all.contains("Icom IC-7300"));
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    Page(1).optModell->click();
    Page(1).txtSök->setText("7300 icom");
    EXPECT_EQ(Models(), QStringList({"Icom IC-7300"}));
    EXPECT_EQ(Chosen(1), "Icom IC-7300") << "the one that is left is meant";
    EXPECT_EQ(Page(1).lblModell->text(), "Vald: Icom IC-7300");
    Page(1).txtSök->setText("yaesu ft-9");
    EXPECT_GT(Models().size(), 3);
    for (const QString& name : Models()) EXPECT_TRUE(name.startsWith("Yaesu FT-9")) << name.toStdString();
    EXPECT_EQ(Chosen(1), "") << "looking is not choosing";
    EXPECT_EQ(Page(1).lblModell->text(), "Vald: Icom IC-7300");
    Page(1).txtSök->setText("(.*[");
    EXPECT_TRUE(Models().isEmpty());
    Page(1).txtSök->clear();
    EXPECT_EQ(Models(), all);
    EXPECT_EQ(Chosen(1), "Icom IC-7300");
    EXPECT_EQ(Page(1).Settings().model, 3073);
}

TEST_F(DialogTest, ARadioIsChosenWithKeysInTheList) {
    Open();
    ASSERT_TRUE(HasModels());
    Page(1).optModell->click();
    SkrivI(Page(1).txtSök, "ft-9");
    Tryck(Qt::Key_Tab);
    ASSERT_TRUE(Page(1).lstModell->hasFocus());
    Tryck(Qt::Key_Down);
    EXPECT_FALSE(Chosen(1).isEmpty());
    EXPECT_GT(Page(1).Settings().model, 0);
}

TEST_F(DialogTest, AListThatComesLateIsSearchedForWhatIsTyped) {
    Open();
    Page(1).optModell->click();
    Page(1).txtSök->setText("ic-7300");
    EXPECT_EQ(Page(1).lblModell->text(), "Ingen radio är vald.");
    ASSERT_TRUE(HasModels());
    EXPECT_EQ(Chosen(1), "Icom IC-7300");
    EXPECT_EQ(Page(1).Settings().model, 3073);
}

TEST_F(DialogTest, AListThatCouldNotBeReadIsReadTheNextTime) {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    Open();
    QTest::qWait(100);
    qputenv("PATH", path);
    dialog->cmdAvbryt->click();
    service->ShowDialog(nullptr);
    EXPECT_TRUE(HasModels());
}

TEST_F(DialogTest, WhatTheListsDoNotHoldIsKept) {
    AllRigSettings rigs;
    rigs[0] = {.way = RigSettings::Way::Model, .model = 987654, .port = "/dev/egen", .speed = 230400};
    SaveTextFile(File(), RigSettingsToText(rigs));
    Open();
    ASSERT_TRUE(HasModels());
    EXPECT_EQ(Page(1).cmbHastighet->currentText(), "230400");
    EXPECT_EQ(Page(1).lblModell->text(), "Vald: modell 987654");
    dialog->cmdSpara->click();
    EXPECT_EQ(LoadTextFile(File()), RigSettingsToText(rigs));
}

// ---- the test of a radio ------------------------------------------------------------------------------

TEST_F(DialogTest, TheTestSaysWhatTheRadioAnswers) {
    Rigctld radio;
    radio.Vrid(14025000);
    radio.Trafiksätt("CW");
    Open();
    SetAddress(2, radio.Adress());
    Page(2).cmdTest->click();
    EXPECT_EQ(Page(2).lblSvar->text(), "Frågar radion ...");
    ASSERT_TRUE(Says(2, "Radion svarar: 14\u00a0025,00 kHz CW"));
    radio.Vrid(14030000);
    EXPECT_TRUE(Says(2, "Radion svarar: 14\u00a0030,00 kHz CW"));
    EXPECT_FALSE(IsSaved());
    // Saved as it stands it goes on as it is.
    int changes = 0;
    service->OnStatusChange([&](int) { ++changes; });
    dialog->cmdSpara->click();
    EXPECT_EQ(service->Rig(2).StatusStr(), "On-line");
    EXPECT_EQ(changes, 0);
}

TEST_F(DialogTest, AnAnswerStandsAsLongAsTheSettingsItIsTo) {
    FalskRigctld one;
    FalskRigctld two;
    Open();
    for (auto change : std::initializer_list<std::function<void()>>{
             [&] { Page(1).txtAdress->setText("127.0.0.1:1"); }, [&] { Page(1).optAv->click(); },
             [&] { SetAddress(2, two.Adress()), Page(2).cmdTest->click(); }}) {
        SetAddress(1, one.Adress());
        Page(1).cmdTest->click();
        ASSERT_TRUE(Says(1, "Radion svarar: "));
        change();
        EXPECT_EQ(Page(1).lblSvar->text(), "");
        QTest::qWait(500);
        EXPECT_EQ(Page(1).lblSvar->text(), "");
    }
    ASSERT_TRUE(Says(2, "Radion svarar: "));
    dialog->cmdAvbryt->click();
    EXPECT_EQ(service->Rig(2).StatusStr(), "Rig is not configured");
}

TEST_F(DialogTest, TheTestSaysWhyARadioDoesNotAnswer) {
    FalskRigctld fake;
    fake.svara = [](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        return rad == "f" ? std::optional(FalskRigctld::Svar{"RPRT -6\n"}) : std::nullopt;
    };
    Open();
    SetAddress(1, fake.Adress());
    Page(1).cmdTest->click();
    EXPECT_TRUE(Says(1, "Ingen kontakt: fel på porten till radion"));
    fake.svara = {};
    EXPECT_TRUE(Says(1, "Radion svarar: "));
    fake.Stäng();
    EXPECT_TRUE(Says(1, "Ingen kontakt: "));
    SetAddress(1, "nonsense:x");
    Page(1).cmdTest->click();
    EXPECT_TRUE(Page(1).lblSvar->text().startsWith("Adressen ska vara"));
}

TEST_F(DialogTest, ARadioThatIsTriedOutHasADaemonOnlyForAsLong) {
    Open();
    ASSERT_TRUE(HasModels());
    Page(4).optModell->click();
    Page(4).txtSök->setText("hamlib dummy");
    const QModelIndexList found =
        Page(4).lstModell->model()->match(Page(4).lstModell->model()->index(0, 0), Qt::DisplayRole,
                                          "Hamlib Dummy", 1, Qt::MatchExactly | Qt::MatchCaseSensitive);
    ASSERT_EQ(found.size(), 1);
    Page(4).lstModell->setCurrentIndex(found.first());
    Page(4).cmdTest->click();
    ASSERT_TRUE(Says(4, "Radion svarar: 145\u00a0000,00 kHz FM"));
    const auto pid = static_cast<pid_t>(service->Link(4).Daemon().ProcessId());
    ASSERT_GT(pid, 0);
    dialog->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return kill(pid, 0) != 0; }, 3000));
    EXPECT_EQ(service->Rig(4).StatusStr(), "Rig is not configured");
}

TEST_F(DialogTest, ARadioWhoseSettingsStayIsNotDisturbed) {
    FalskRigctld fake;
    Open();
    SetAddress(1, fake.Adress());
    dialog->cmdSpara->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return service->Rig(1).StatusStr() == "On-line"; }, 3000));
    int changes = 0;
    service->OnStatusChange([&](int rig) { changes += rig == 1; });
    service->ShowDialog(nullptr);
    SetAddress(2, "127.0.0.1:1");
    dialog->cmdSpara->click();
    QTest::qWait(300);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(fake.gäster, 1);
}

TEST_F(DialogTest, ARadioThatMovesToAnotherRigLeavesTheFirstBeforeItIsTaken) {
    AllRigSettings rigs;
    rigs[1] = {.way = RigSettings::Way::Model, .model = 1};
    SaveTextFile(File(), RigSettingsToText(rigs));
    service = std::make_unique<HamlibService>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return service->Rig(2).StatusStr() == "On-line"; }, 8000));
    std::swap(rigs[0], rigs[1]);
    service->Save(rigs);
    EXPECT_TRUE(RigDaemon::IsAnyEnding());
    EXPECT_EQ(service->Link(1).Daemon().ProcessId(), 0) << "the other holds the port still";
    EXPECT_TRUE(QTest::qWaitFor([&] { return service->Rig(1).StatusStr() == "On-line"; }, 8000));
    EXPECT_EQ(service->Rig(2).StatusStr(), "Rig is not configured");
}

TEST_F(DialogTest, APortThatAnotherRigHoldsIsNotTested) {
    AllRigSettings rigs;
    rigs[0] = {.way = RigSettings::Way::Model, .model = 3073, .port = "/dev/ttyNONE"};
    SaveTextFile(File(), RigSettingsToText(rigs));
    Open();
    ASSERT_TRUE(HasModels());
    Page(2).optModell->click();
    Page(2).txtSök->setText("ic-7300");
    Page(2).cmbPort->setEditText("/dev/ttyNONE");
    Page(2).cmdTest->click();
    EXPECT_EQ(Page(2).lblSvar->text(), "Porten /dev/ttyNONE används av en annan rig.");
    EXPECT_EQ(service->Rig(2).StatusStr(), "Rig is not configured");
    Page(2).cmbPort->setEditText("/dev/ttyOTHER");
    EXPECT_EQ(Page(2).lblSvar->text(), "");
}

TEST_F(DialogTest, EnterInTheSearchLeadsToTheList) {
    Open();
    ASSERT_TRUE(HasModels());
    Page(1).optModell->click();
    SkrivI(Page(1).txtSök, "ft-9");
    Tryck(Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(Page(1).lstModell->hasFocus());
    EXPECT_FALSE(IsSaved());
}

TEST_F(DialogTest, EventsCarryTheNumberOfTheirRig) {
    FalskRigctld one;
    FalskRigctld three;
    AllRigSettings rigs;
    rigs[0] = {.way = RigSettings::Way::Address, .address = one.Adress()};
    rigs[2] = {.way = RigSettings::Way::Address, .address = three.Adress()};
    SaveTextFile(File(), RigSettingsToText(rigs));
    HamlibService rigService;
    std::array<int, 5> statuses{};
    std::array<int, 5> params{};
    rigService.OnStatusChange([&](int rig) { ++statuses.at(static_cast<size_t>(rig)); });
    rigService.OnParamsChange([&](int rig, int) { ++params.at(static_cast<size_t>(rig)); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return params[1] == 1 && params[3] == 1; }, 3000));
    three.frekvens = 7010000;
    EXPECT_TRUE(QTest::qWaitFor([&] { return params[3] == 2; }, 3000));
    EXPECT_EQ(statuses, (std::array<int, 5>{0, 1, 0, 1, 0}));
    EXPECT_EQ(params, (std::array<int, 5>{0, 1, 0, 2, 0}));
    EXPECT_EQ(rigService.InterfaceVersion(), 0x101);
    EXPECT_THROW(rigService.Rig(5), std::out_of_range);
}

TEST_F(DialogTest, TheServiceTakesItsWindowAlong) {
    Open();
    const QPointer<RigDialog> window = dialog;
    SetAddress(1, "127.0.0.1:1");
    Page(1).cmdTest->click();
    service.reset();
    EXPECT_TRUE(window.isNull());
}

TEST_F(DialogTest, EveryFieldIsReachedByItsKey) {
    Open();
    Tryck(Qt::Key_2, Qt::AltModifier);
    EXPECT_EQ(dialog->tabRig->currentIndex(), 1);
    Tryck(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Page(2).optAdress->isChecked(); }));
    Tryck(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(HarFokus(Page(2).txtAdress));
    Tryck(Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Page(2).optModell->isChecked(); }));
    Tryck(Qt::Key_K, Qt::AltModifier);
    EXPECT_TRUE(HarFokus(Page(2).txtSök));
    Tryck(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(HarFokus(Page(2).cmbPort));
    Tryck(Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(HarFokus(Page(2).cmbHastighet));
    Tryck(Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Page(2).optAv->isChecked(); }));
}
