// The line to a radio, when daemons and radios behave badly.
#include "platform/omnirig/Linkprov.h"

TEST_F(LinkTest, NobodyListens) {
    FalskRigctld fake;
    fake.Stäng();
    UseAddress(fake.Adress());
    QTest::qWait(700);
    EXPECT_EQ(statuses, QStringList({silent}));
    EXPECT_FALSE(link.Trouble().isEmpty());
    ASSERT_TRUE(fake.Lyssna());
    EXPECT_TRUE(ComesOnLine());
}

TEST_F(LinkTest, ARadioThatIsDeadBehindItsDaemonIsSilentAndComesBack) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.svara = [](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        return rad == "f" ? std::optional(FalskRigctld::Svar{"RPRT -5\n", 100}) : std::nullopt;
    };
    ASSERT_TRUE(Falls(2000));
    EXPECT_EQ(link.Trouble(), "radion svarar inte");
    EXPECT_EQ(fake.gäster, 1) << "a daemon that answers keeps its connection";
    fake.svara = {};
    EXPECT_TRUE(ComesOnLine());
}

TEST_F(LinkTest, OneRefusalAmongAnswersIsNoSilence) {
    FalskRigctld fake;
    int asked = 0;
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (rad == "f" && ++asked % 3 == 0) return FalskRigctld::Svar{"RPRT -9\n"};
        return std::nullopt;
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    ASSERT_TRUE(Rounds(8));
    EXPECT_EQ(statuses, QStringList({silent, onLine}));
    EXPECT_EQ(changes, QList<qint64>({14025000}));
}

TEST_F(LinkTest, ASlowRadioIsFollowedAndTuned) {
    FalskRigctld fake;
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (rad == "f") return FalskRigctld::Svar{QByteArray::number(fake.frekvens) + '\n', 500};
        if (rad == "m") return FalskRigctld::Svar{"USB\n2400\n", 500};
        return std::nullopt;
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine(4000));
    Tune(7022500);
    ASSERT_TRUE(Tells(7022500, 4000));
    ASSERT_TRUE(Rounds(2));
    EXPECT_EQ(statuses, QStringList({silent, onLine}));
}

TEST_F(LinkTest, ALateAnswerIsNeverTakenForAnother) {
    // Each answer comes later than patience lasts: the radio is silent in between, and never wrong.
    FalskRigctld fake;
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (rad == "f") return FalskRigctld::Svar{"14025000\n", 2200};
        return std::nullopt;
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine(6000));
    ASSERT_TRUE(Falls(2000));
    readings = 0;
    ASSERT_TRUE(ComesOnLine(6000));
    for (const qint64 change : changes) EXPECT_EQ(change, 14025000);
    EXPECT_EQ(fake.gäster, 1);
}

TEST_F(LinkTest, NonsenseIsNeverShownAndTheRadioFallsSilent) {
    struct Pair {
        QByteArray text;
        FalskRigctld fake = {};
        RigLink line = RigLink();
        int changes = 0;
    };
    std::vector<std::unique_ptr<Pair>> pairs;
    for (const QByteArray& text :
         {QByteArray("babble babble\n"), QByteArray("-14025000\n"), QByteArray("7000000\n7100000\n"),
          QByteArray("RPRT 0\n"), QByteArray("\xff\xfe\x01\n"), QByteArray("Frequency: 7\n"),
          QByteArray(5000, '7'), QByteArray("7000000\nUSB\n2400\nHej\n"), QByteArray("7000000")}) {
        Pair& pair = *pairs.emplace_back(std::make_unique<Pair>(text));
        pair.line.OnChange([&pair] { ++pair.changes; });
        pair.line.Use({.way = RigSettings::Way::Address, .address = pair.fake.Adress()});
    }
    const auto all = [&](auto is) { return std::all_of(pairs.begin(), pairs.end(), is); };
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return all([](const auto& pair) { return pair->changes == 1; }); }, 3000));
    for (auto& pair : pairs)
        pair->fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
            return rad == "f" ? std::optional(FalskRigctld::Svar{pair->text}) : std::nullopt;
        };
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return all([](const auto& pair) { return !pair->line.IsOnLine(); }); }, 2000));
    QTest::qWait(1500); // and it stays so
    for (const auto& pair : pairs) {
        SCOPED_TRACE(pair->text.left(20).toStdString());
        EXPECT_EQ(pair->line.Status(), silent);
        EXPECT_EQ(pair->line.Frequency(), 14025000);
        EXPECT_EQ(pair->changes, 1);
    }
}

TEST_F(LinkTest, ADaemonThatTalksUnaskedIsNotBelieved) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    changes.clear();
    // Numbers all the time, which would each do for an answer.
    QTimer babble;
    QObject::connect(&babble, &QTimer::timeout, &babble, [&] {
        if (fake.Gäst()) fake.Gäst()->write("7000000\n");
    });
    babble.start(5);
    ASSERT_TRUE(Falls(2500));
    EXPECT_TRUE(changes.isEmpty());
    babble.stop();
    EXPECT_TRUE(ComesOnLine());
    EXPECT_EQ(link.Frequency(), 14025000);
}

TEST_F(LinkTest, ADaemonThatGreetsIsNoDaemon) {
    FalskRigctld fake;
    fake.hälsning = "220 mail.example ESMTP\r\n";
    UseAddress(fake.Adress());
    QTest::qWait(1200);
    EXPECT_EQ(link.Status(), silent);
    EXPECT_GT(fake.gäster, 1);
    EXPECT_EQ(link.Trouble(), "obegripligt svar");
}

TEST_F(LinkTest, ADaemonThatDoesNotKnowTheFirstQuestionIsServedPlainly) {
    FalskRigctld fake;
    fake.svara = [](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        return rad == "\\chk_vfo" ? std::optional(FalskRigctld::Svar{"RPRT -1\n"}) : std::nullopt;
    };
    UseAddress(fake.Adress());
    EXPECT_TRUE(ComesOnLine());
}

TEST_F(LinkTest, AReceiverWithoutModesIsFollowed) {
    FalskRigctld fake;
    fake.svara = [](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        return rad == "m" ? std::optional(FalskRigctld::Svar{"RPRT -11\n"}) : std::nullopt;
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    EXPECT_EQ(link.Frequency(), 14025000);
    EXPECT_EQ(link.Mode(), "");
}

TEST_F(LinkTest, AnswersThatComeByteByByteAreRead) {
    FalskRigctld fake;
    QTimer drip;
    QByteArray text;
    QObject::connect(&drip, &QTimer::timeout, &drip, [&] {
        if (text.isEmpty() || !fake.Gäst()) return;
        fake.Gäst()->write(text.first(1));
        fake.Gäst()->flush();
        text.remove(0, 1);
    });
    drip.start(3);
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        text += rad == "f" ? "18080000\n" : rad == "m" ? "PKTUSB\n3000\n" : "0\n";
        return FalskRigctld::Svar{};
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    EXPECT_EQ(link.Frequency(), 18080000);
    EXPECT_EQ(link.Mode(), "PKTUSB");
}

TEST_F(LinkTest, ADaemonThatIsSilentAboutTheFirstQuestionIsServedWithoutIt) {
    FalskRigctld fake;
    fake.Svara("\\chk_vfo", {});
    UseAddress(fake.Adress());
    EXPECT_TRUE(ComesOnLine(6000));
    EXPECT_EQ(fake.gäster, 2);
}

TEST_F(LinkTest, ADaemonThatWantsVfosNamedIsServedAlsoWhenItIsSilentOnce) {
    FalskRigctld fake;
    bool knows = true;
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (rad == "\\chk_vfo") return FalskRigctld::Svar{knows ? "1\n" : ""};
        if (rad == "f currVFO") return FalskRigctld::Svar{"14025000\n"};
        if (rad == "m currVFO") return FalskRigctld::Svar{"CW\n500\n"};
        return FalskRigctld::Svar{};
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    knows = false;
    fake.Gäst()->abort();
    ASSERT_TRUE(Falls(1000));
    EXPECT_TRUE(ComesOnLine(6000));
    EXPECT_EQ(changes, QList<qint64>({14025000})) << "where it was is no news";
}

TEST_F(LinkTest, AnotherServerIsAskedTheFirstQuestionAgain) {
    FalskRigctld silentOne;
    silentOne.Svara("\\chk_vfo", {});
    UseAddress(silentOne.Adress());
    ASSERT_TRUE(QTest::qWaitFor([this] { return link.Trouble() == "rigctld svarar inte"; }, 5000));
    FalskRigctld other;
    UseAddress(other.Adress());
    ASSERT_TRUE(ComesOnLine());
    EXPECT_EQ(other.rader.first(), "\\chk_vfo");
}

TEST_F(LinkTest, ARadioThatDiesBetweenFrequencyAndModeIsNotBelieved) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.Svara("m", {"RPRT -5\n", 300});
    fake.frekvens = 7000000;
    ASSERT_TRUE(Falls(2000));
    EXPECT_EQ(link.Trouble(), "radion svarar inte");
    QTest::qWait(1000);
    EXPECT_FALSE(link.IsOnLine());
    EXPECT_EQ(changes, QList<qint64>({14025000}));
    EXPECT_EQ(link.Mode(), "CW");
}

TEST_F(LinkTest, AFrequencyThatIsOldWhenTheModeComesIsNotBelieved) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.Svara("m", {"USB\n2400\n", 2000});
    fake.frekvens = 7000000;
    ASSERT_TRUE(Falls(2000));
    QTest::qWait(2500);
    EXPECT_FALSE(link.IsOnLine()) << "nor does it come and go";
    EXPECT_EQ(link.Trouble(), "radion svarar för långsamt");
    EXPECT_EQ(changes, QList<qint64>({14025000}));
    fake.svara = {};
    EXPECT_TRUE(ComesOnLine(4000));
    EXPECT_EQ(link.Frequency(), 7000000);
}

TEST_F(LinkTest, ARealDaemonWithADeadRadioBehindItIsSilentAndComesBack) {
    Rigctld radio;
    Rigctld daemon({"-m", "2", "-r", radio.Adress()});
    UseAddress(daemon.Adress());
    ASSERT_TRUE(ComesOnLine());
    radio.Vrid(14025000);
    ASSERT_TRUE(Tells(14025000));
    changes.clear();
    radio.Frys();
    ASSERT_TRUE(Falls(2500));
    QTest::qWait(1000);
    radio.Tina();
    // The daemon notices when its own ten seconds are over, at the latest.
    ASSERT_TRUE(QTest::qWaitFor([this] { return link.IsOnLine(); }, 20000));
    for (const qint64 change : changes) EXPECT_EQ(change, 14025000);
}

TEST_F(LinkTest, RefusedTuningsDoNotKeepADeadRadioOnLine) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.svara = [](const QByteArray&) { return FalskRigctld::Svar{"RPRT -6\n"}; };
    QTimer operatör;
    QObject::connect(&operatör, &QTimer::timeout, &operatör, [this] { Tune(7022500); });
    operatör.start(400);
    EXPECT_TRUE(Falls(2000));
}

TEST_F(LinkTest, NonsenseInAnswerToATuningIsSaidAgain) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.Svara("F", {"set_freq: 7022500\nRPRT -1\n"});
    Tune(7022500);
    ASSERT_TRUE(QTest::qWaitFor([&] { return fake.Skrivna().size() == 1; }, 1000));
    fake.svara = {};
    ASSERT_TRUE(Tells(7022500));
    EXPECT_EQ(fake.Skrivna(), QList<QByteArray>({"F 7022500", "F 7022500"}));
    EXPECT_EQ(changes, QList<qint64>({14025000, 7022500}));
}

TEST_F(LinkTest, NonsenseInAnswerToEveryTuningShowsWhereTheRadioStands) {
    FalskRigctld fake;
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    fake.Svara("F", {"set_freq: 7022500\nRPRT -1\n"});
    Tune(7022500);
    ASSERT_TRUE(QTest::qWaitFor([this] { return changes.size() == 2; }, 8000));
    EXPECT_EQ(changes, QList<qint64>({14025000, 14025000}));
}

TEST_F(LinkTest, ATuningThatIsNeverAnsweredIsASilentRadioUntilTheConnectionIsGivenUp) {
    FalskRigctld fake;
    fake.Svara("F", {});
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    Tune(7022500);
    ASSERT_TRUE(Falls(2000));
    EXPECT_EQ(link.Trouble(), "rigctld svarar inte");
    Tune(7030000);
    QTest::qWait(300);
    EXPECT_EQ(fake.Skrivna(), QList<QByteArray>({"F 7022500"})) << "one at a time";
    ASSERT_TRUE(ComesOnLine(15000));
    EXPECT_EQ(fake.gäster, 2);
    EXPECT_EQ(fake.Skrivna(), QList<QByteArray>({"F 7022500"})) << "what was wanted is long ago";
}

TEST_F(LinkTest, AHostThatSwallowsTheConnectionIsTriedAgain) {
    // A full queue of connections that nobody takes: the next one neither comes nor fails.
    QTcpServer full;
    full.setListenBacklogSize(0);
    ASSERT_TRUE(full.listen(QHostAddress::LocalHost));
    full.pauseAccepting();
    std::vector<std::unique_ptr<QTcpSocket>> waiting;
    for (int i = 0; i < 8; ++i) {
        waiting.push_back(std::make_unique<QTcpSocket>());
        waiting.back()->connectToHost(QHostAddress(QHostAddress::LocalHost), full.serverPort());
    }
    QTest::qWait(200);
    UseAddress(QStringLiteral("127.0.0.1:%1").arg(full.serverPort()));
    ASSERT_TRUE(QTest::qWaitFor([this] { return link.Trouble() == "rigctld svarar inte"; }, 5000));
    EXPECT_EQ(statuses, QStringList({silent}));
}
