// The line to a radio: against Hamlib's own daemon, and against ones that behave badly.
#include "platform/omnirig/riglink.h"
#include "support/Riggprov.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

const QString onLine = QStringLiteral("On-line");
const QString silent = QStringLiteral("Rig is not responding");

class LinkTest : public ::testing::Test {
protected:
    LinkTest() {
        link.OnStatus([this] { statuses << link.Status(); });
        link.OnChange([this] { changes << link.Frequency(); });
        link.OnReading([this] { ++readings; });
    }
    void UseAddress(const QString& address) {
        link.Use({.way = RigSettings::Way::Address, .address = address});
    }
    bool ComesOnLine(int within = 3000) {
        return QTest::qWaitFor([this] { return link.IsOnLine() && readings > 0; }, within);
    }
    bool Falls(int within) {
        return QTest::qWaitFor([this] { return !link.IsOnLine(); }, within);
    }
    bool Tells(qint64 hertz, int within = 2000) {
        return QTest::qWaitFor([this, hertz] { return link.Frequency() == hertz; }, within);
    }
    /// Lets so many rounds of questions pass.
    bool Rounds(int count) {
        const int until = readings + count;
        return QTest::qWaitFor([this, until] { return readings >= until; }, 1000 + 1500 * count);
    }
    /// Tunes as the window does.
    void Tune(qint64 hertz) {
        link.Tune(rigctld::Vfo::A, hertz);
        link.Tune(rigctld::Vfo::Current, hertz);
    }

    RigLink link;
    QStringList statuses;
    QList<qint64> changes;
    int readings = 0;
};

} // namespace

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

TEST_F(LinkTest, ARadioThatHamlibDoesNotKnowSaysWhy) {
    link.Use({.way = RigSettings::Way::Model, .model = 99999});
    ASSERT_TRUE(QTest::qWaitFor([&] { return link.Trouble().contains("99999"); }, 5000))
        << link.Trouble().toStdString();
    EXPECT_EQ(link.Status(), silent);
}

// ---- daemons that behave badly ------------------------------------------------------------------------

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
    // The knob is turned, the question about it under way, and then a spot is chosen.
    fake.svara = [&](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        if (rad == "f" && fake.Skrivna().isEmpty()) return FalskRigctld::Svar{"14030000\n", 300};
        return std::nullopt;
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return fake.rader.last() == "f"; }, 1000));
    QTest::qWait(250);
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

TEST_F(LinkTest, ATuningThatIsNeverAnsweredIsASilentRadio) {
    FalskRigctld fake;
    fake.svara = [](const QByteArray& rad) -> std::optional<FalskRigctld::Svar> {
        return rad.startsWith('F') ? std::optional(FalskRigctld::Svar{}) : std::nullopt;
    };
    UseAddress(fake.Adress());
    ASSERT_TRUE(ComesOnLine());
    Tune(7022500);
    ASSERT_TRUE(Falls(2000));
    Tune(7030000);
    QTest::qWait(300);
    EXPECT_EQ(fake.Skrivna(), QList<QByteArray>({"F 7022500"})) << "one at a time";
}

// ---- other settings -----------------------------------------------------------------------------------

TEST_F(LinkTest, AnotherRadioForgetsTheFirst) {
    FalskRigctld first;
    FalskRigctld second;
    second.frekvens = 50100000;
    UseAddress(first.Adress());
    ASSERT_TRUE(ComesOnLine());
    first.frekvens = 14030000;
    UseAddress(second.Adress());
    EXPECT_EQ(link.Status(), silent);
    EXPECT_EQ(link.Frequency(), 0);
    readings = 0;
    ASSERT_TRUE(ComesOnLine());
    EXPECT_EQ(changes, QList<qint64>({14025000, 50100000}));
    link.Use({});
    EXPECT_EQ(link.Status(), "Rig is not configured");
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
