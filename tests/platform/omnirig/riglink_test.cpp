// The line to a radio: against Hamlib's own daemon, and what is tuned.
#include "platform/omnirig/Linkprov.h"

// ---- Hamlib's own daemon ------------------------------------------------------------------------------

TEST_F(LinkTest, FollowsARealDaemonAndTellsChangesAlone) {
    Rigctld daemon;
    EXPECT_EQ(link.Status(), "Rig is not configured");
    UseAddress(daemon.Adress());
    EXPECT_EQ(link.Status(), silent);
    ASSERT_TRUE(ComesOnLine());
    EXPECT_EQ(statuses, QStringList({silent, onLine}));
    EXPECT_EQ(link.Frequency(), 145000000);
    EXPECT_EQ(link.Mode(), "FM");
    ASSERT_TRUE(Rounds(4));
    EXPECT_EQ(changes, QList<qint64>({145000000}));

    daemon.Vrid(14025000);
    ASSERT_TRUE(Tells(14025000));
    daemon.Trafiksätt("CWR");
    ASSERT_TRUE(QTest::qWaitFor([&] { return link.Mode() == "CWR"; }, 2000));
    ASSERT_TRUE(Rounds(3));
    EXPECT_EQ(changes, QList<qint64>({145000000, 14025000, 14025000}));
    EXPECT_EQ(statuses.size(), 2);
}

TEST_F(LinkTest, TunesARealDaemon) {
    Rigctld daemon;
    UseAddress(daemon.Adress());
    ASSERT_TRUE(ComesOnLine());
    Tune(7022500);
    ASSERT_TRUE(Tells(7022500));
    EXPECT_EQ(daemon.Frekvens(), 7022500);
}

TEST_F(LinkTest, ADaemonThatWantsVfosNamedIsServed) {
    Rigctld daemon({"--vfo"});
    UseAddress(daemon.Adress());
    ASSERT_TRUE(ComesOnLine());
    EXPECT_EQ(link.Frequency(), 145000000);
    Tune(14074000);
    ASSERT_TRUE(Tells(14074000));
    EXPECT_EQ(daemon.Säg("f VFOA"), "14074000\n");
    EXPECT_EQ(daemon.Säg("f currVFO"), "14074000\n");
}

TEST_F(LinkTest, ADaemonThatDiesIsSilentWithinTwoSecondsAndComesBackByItself) {
    Rigctld daemon;
    UseAddress(daemon.Adress());
    ASSERT_TRUE(ComesOnLine());
    daemon.Döda();
    ASSERT_TRUE(Falls(2000));
    EXPECT_EQ(link.Status(), silent);
    EXPECT_EQ(link.Frequency(), 145000000) << "the last it told";
    QTest::qWait(700);
    daemon.Starta();
    ASSERT_TRUE(ComesOnLine());
    daemon.Vrid(3550000);
    EXPECT_TRUE(Tells(3550000));
    EXPECT_EQ(statuses, QStringList({silent, onLine, silent, onLine}));
}

TEST_F(LinkTest, ADaemonThatHangsIsSilentWithinTwoSecondsAndIsHeardAgainWhenItGoesOn) {
    Rigctld daemon;
    UseAddress(daemon.Adress());
    ASSERT_TRUE(ComesOnLine());
    daemon.Frys();
    ASSERT_TRUE(Falls(2000));
    daemon.Tina();
    ASSERT_TRUE(ComesOnLine(1000));
    daemon.Vrid(21050000);
    EXPECT_TRUE(Tells(21050000));
}

TEST_F(LinkTest, ARadioWithoutAnAddressOfItsOwnGetsADaemonThatEndsWithIt) {
    Rigctld radio; // stands in for a radio on a serial port
    qint64 pid = 0;
    {
        RigLink own;
        bool isRead = false;
        own.OnReading([&] { isRead = true; });
        constexpr int netRigctl = 2;
        own.Use({.way = RigSettings::Way::Model, .model = netRigctl, .port = radio.Adress()});
        ASSERT_TRUE(QTest::qWaitFor([&] { return isRead; }, 8000)) << own.Trouble().toStdString();
        EXPECT_TRUE(own.IsOnLine());
        pid = own.Daemon().ProcessId();
        ASSERT_GT(pid, 0);
        radio.Vrid(10120000);
        EXPECT_TRUE(QTest::qWaitFor([&] { return own.Frequency() == 10120000; }, 2000));
        own.Tune(rigctld::Vfo::Current, 14050000);
        EXPECT_TRUE(QTest::qWaitFor([&] { return own.Frequency() == 14050000; }, 2000));
        EXPECT_EQ(radio.Frekvens(), 14050000);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return kill(static_cast<pid_t>(pid), 0) != 0; }, 3000));
}

TEST_F(LinkTest, AnOwnDaemonThatIsKilledIsStartedAgain) {
    link.Use({.way = RigSettings::Way::Model, .model = 1});
    ASSERT_TRUE(ComesOnLine(8000));
    const qint64 pid = link.Daemon().ProcessId();
    kill(static_cast<pid_t>(pid), SIGKILL);
    ASSERT_TRUE(Falls(2000));
    readings = 0;
    ASSERT_TRUE(ComesOnLine(8000));
    EXPECT_NE(link.Daemon().ProcessId(), pid);
}

TEST_F(LinkTest, AnOwnDaemonMakesRoomForTheNext) {
    link.Use({.way = RigSettings::Way::Model, .model = 1});
    ASSERT_TRUE(ComesOnLine(8000));
    const auto pid = static_cast<pid_t>(link.Daemon().ProcessId());
    kill(pid, SIGSTOP); // it will not end until it is made to
    link.Use({.way = RigSettings::Way::Model, .model = 1});
    EXPECT_TRUE(RigDaemon::IsAnyEnding());
    EXPECT_EQ(link.Daemon().ProcessId(), 0) << "two would garble each other on one port";
    readings = 0;
    ASSERT_TRUE(ComesOnLine(8000));
    EXPECT_NE(kill(pid, 0), 0);
    EXPECT_FALSE(RigDaemon::IsAnyEnding());
}

TEST_F(LinkTest, AProgramThatIsKilledTakesItsDaemonAlong) {
    QProcess program;
    program.start(RIGDAEMON_PEER, QStringList());
    ASSERT_TRUE(program.waitForReadyRead(5000));
    const auto pid = static_cast<pid_t>(program.readLine().trimmed().toLongLong());
    ASSERT_GT(pid, 0);
    EXPECT_EQ(kill(pid, 0), 0);
    program.kill();
    program.waitForFinished();
    EXPECT_TRUE(QTest::qWaitFor([pid] { return kill(pid, 0) != 0; }, 3000));
}

TEST_F(LinkTest, AnOwnDaemonThatHangsIsReplaced) {
    link.Use({.way = RigSettings::Way::Model, .model = 1});
    ASSERT_TRUE(ComesOnLine(8000));
    const qint64 pid = link.Daemon().ProcessId();
    kill(static_cast<pid_t>(pid), SIGSTOP);
    ASSERT_TRUE(Falls(2000));
    readings = 0;
    ASSERT_TRUE(ComesOnLine(20000));
    EXPECT_NE(link.Daemon().ProcessId(), pid);
}

TEST_F(LinkTest, ADaemonThatCannotBeStartedSaysSoAndIsTriedAgain) {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    link.Use({.way = RigSettings::Way::Model, .model = 1});
    EXPECT_EQ(link.Status(), silent);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !link.Trouble().isEmpty(); }, 3000));
    qputenv("PATH", path);
    EXPECT_TRUE(ComesOnLine(8000));
}

TEST_F(LinkTest, ADaemonThatCouldNotBeRunLeavesNothingBehind) {
    QTemporaryDir folder;
    QFile broken(folder.filePath("rigctld"));
    ASSERT_TRUE(broken.open(QFile::WriteOnly));
    broken.write("#!/nowhere/sh\n");
    broken.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    broken.close();
    ASSERT_TRUE(QTest::qWaitFor([] { return !RigDaemon::IsAnyEnding(); }, 3000));
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.path().toUtf8());
    link.Use({.way = RigSettings::Way::Model, .model = 1});
    link.Use({.way = RigSettings::Way::Model, .model = 1}); // stops what is about to start
    qputenv("PATH", path);
    EXPECT_TRUE(QTest::qWaitFor([] { return !RigDaemon::IsAnyEnding(); }, 3000));
    EXPECT_TRUE(ComesOnLine(8000));
}

TEST_F(LinkTest, APortThatIsNotThereIsNamed) {
    link.Use({.way = RigSettings::Way::Model, .model = 3073, .port = "/dev/ttyNONE"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !link.Trouble().isEmpty(); }, 5000));
    EXPECT_EQ(link.Trouble(), "porten /dev/ttyNONE finns inte");
}

TEST_F(LinkTest, ARadioThatHamlibDoesNotKnowSaysWhy) {
    link.Use({.way = RigSettings::Way::Model, .model = 99999});
    ASSERT_TRUE(QTest::qWaitFor([&] { return link.Trouble().contains("99999"); }, 5000))
        << link.Trouble().toStdString();
    EXPECT_EQ(link.Status(), silent);
}

// ---- tuning -------------------------------------------------------------------------------------------

TEST_F(LinkTest, OfSeveralFrequenciesTheNewestIsSentAndEachOnce) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    for (const qint64 hertz : {7000000, 7010000, 7020000, 7022500}) Tune(hertz);
    ASSERT_TRUE(Tells(7022500));
    EXPECT_EQ(fake.Skrivna(), QList<QByteArray>({"F 7022500"}));
    EXPECT_EQ(changes, QList<qint64>({14025000, 7022500}));
}

TEST_F(LinkTest, WhereTheRadioWasBeforeItIsTunedIsNotTold) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    // The knob has been turned and the question about it is under way when a spot is chosen.
    bool isAsked = false;
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (rad != "f" || !fake.Skrivna().isEmpty()) return std::nullopt;
        isAsked = true;
        return FalskRigctld::Svar{"14030000\n", 300};
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return isAsked; }, 1000));
    Tune(7022500);
    ASSERT_TRUE(Tells(7022500));
    EXPECT_EQ(changes, QList<qint64>({14025000, 7022500}));
}

TEST_F(LinkTest, ARefusedFrequencyShowsWhereTheRadioStands) {
    FalskRigctld fake;
    fake.svara = [](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        return rad.startsWith('F') ? std::optional(FalskRigctld::Svar{"RPRT -1\n"}) : std::nullopt;
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    ASSERT_TRUE(Rounds(2));
    Tune(432200000);
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes.size() == 2; }, 2000));
    EXPECT_EQ(changes, QList<qint64>({14025000, 14025000}));
    ASSERT_TRUE(Rounds(3));
    EXPECT_EQ(changes.size(), 2);
    EXPECT_EQ(link.Status(), onLine);
}

TEST_F(LinkTest, AFrequencyOfLongAgoIsNotSentWhenTheRadioComesBack) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.Stäng();
    ASSERT_TRUE(Falls(2000));
    Tune(7022500);
    QTest::qWait(5200);
    ASSERT_TRUE(fake.Lyssna());
    changes.clear();
    ASSERT_TRUE(ComesOnLine());
    ASSERT_TRUE(Rounds(3));
    EXPECT_TRUE(fake.Skrivna().isEmpty());
    EXPECT_EQ(changes, QList<qint64>({14025000})) << "and the operator sees where the radio is";
}

TEST_F(LinkTest, AFrequencyOfAMomentAgoIsSentWhenTheRadioComesBack) {
    FalskRigctld fake;
    fake.Stäng();
    UseAddress(fake.Adress());
    Tune(7022500);
    QTest::qWait(300);
    ASSERT_TRUE(fake.Lyssna());
    ASSERT_TRUE(Tells(7022500, 3000));
    EXPECT_EQ(changes, QList<qint64>({7022500}));
}

TEST_F(LinkTest, WhileATuningIsUnderWayTheNewestWins) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (!rad.startsWith('F')) return std::nullopt;
        fake.frekvens = rad.mid(2).toLongLong();
        return FalskRigctld::Svar{"RPRT 0\n", 300};
    };
    Tune(7000000);
    ASSERT_TRUE(QTest::qWaitFor([&] { return fake.Skrivna().size() == 1; }, 1000));
    for (const qint64 hertz : {7010000, 7020000, 7022500}) Tune(hertz);
    ASSERT_TRUE(Tells(7022500));
    EXPECT_EQ(fake.Skrivna(), QList<QByteArray>({"F 7000000", "F 7022500"}));
    EXPECT_EQ(changes, QList<qint64>({14025000, 7022500}));
}

TEST_F(LinkTest, WhereVfosHaveNamesBothAreTuned) {
    FalskRigctld fake;
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (rad == "\\chk_vfo") return FalskRigctld::Svar{"1\n"};
        if (rad == "f currVFO") return FalskRigctld::Svar{QByteArray::number(fake.frekvens) + '\n'};
        if (rad == "m currVFO") return FalskRigctld::Svar{"CW\n500\n"};
        if (rad.startsWith("F currVFO ")) fake.frekvens = rad.mid(10).toLongLong();
        return FalskRigctld::Svar{rad.startsWith('F') ? "RPRT 0\n" : ""};
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    Tune(7022500);
    ASSERT_TRUE(Tells(7022500));
    EXPECT_EQ(fake.Skrivna(), QList<QByteArray>({"F VFOA 7022500", "F currVFO 7022500"}));
}

TEST_F(LinkTest, ATuningThatTheConnectionTookAlongIsSaidAgain) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (!rad.startsWith('F')) return std::nullopt;
        fake.Gäst()->disconnectFromHost();
        return FalskRigctld::Svar{};
    };
    Tune(7022500);
    ASSERT_TRUE(Falls(1000));
    fake.svara = {};
    ASSERT_TRUE(Tells(7022500));
    EXPECT_EQ(fake.Skrivna().size(), 2);
}

// ---- other settings -----------------------------------------------------------------------------------

TEST_F(LinkTest, AnotherRadioForgetsTheFirst) {
    FalskRigctld first;
    FalskRigctld second;
    second.frekvens = 50100000;
    UseAddress(first.Adress());
    ASSERT_TRUE(ComesOnLine());
    first.frekvens = 14030000;
    first.Stäng();
    ASSERT_TRUE(Falls(2000));
    Tune(7022500); // meant for the first
    UseAddress(second.Adress());
    EXPECT_EQ(link.Status(), silent);
    EXPECT_EQ(link.Frequency(), 0);
    readings = 0;
    ASSERT_TRUE(ComesOnLine());
    EXPECT_EQ(changes, QList<qint64>({14025000, 50100000}));
    link.Use({});
    EXPECT_EQ(link.Status(), "Rig is not configured");
    EXPECT_EQ(first.Skrivna(), QList<QByteArray>());
    Tune(7000000);
    const auto said = second.rader.size();
    QTest::qWait(500);
    EXPECT_EQ(second.rader.size(), said);
    EXPECT_TRUE(second.Skrivna().isEmpty());
}

TEST_F(LinkTest, AListenerMayChangeTheSettings) {
    FalskRigctld fake;
    link.OnStatus([this] {
        statuses << link.Status();
        if (link.IsOnLine()) link.Use({});
    });
    UseAddress(fake.Adress());
    ASSERT_TRUE(QTest::qWaitFor([&] { return statuses.size() == 3; }, 3000));
    QTest::qWait(300);
    EXPECT_EQ(statuses, QStringList({silent, onLine, "Rig is not configured"}));
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_EQ(readings, 0);
}
