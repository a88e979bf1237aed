// What is said to rigctld and what it answers; the settings by which it is reached.
#include "platform/failure.h"
#include "platform/omnirig/omnirig.h"
#include "platform/omnirig/rigctld.h"
#include "platform/omnirig/rigsettings.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace platform;
using rigctld::Answer;
using rigctld::Asked;
using Kind = rigctld::Answer::Kind;

namespace {

Kind KindOf(Asked asked, const QByteArray& received) { return rigctld::ReadAnswer(asked, received).kind; }

} // namespace

// ---- questions ----------------------------------------------------------------------------------------

TEST(RigctldQuestion, NamesTheVfoOnlyWhereTheDaemonWantsIt) {
    EXPECT_EQ(rigctld::Question(Asked::VfoMode, false), "\\chk_vfo\n");
    EXPECT_EQ(rigctld::Question(Asked::Frequency, false), "f\n");
    EXPECT_EQ(rigctld::Question(Asked::Mode, false), "m\n");
    EXPECT_EQ(rigctld::Question(Asked::Frequency, true), "f currVFO\n");
    EXPECT_EQ(rigctld::Question(Asked::Mode, true), "m currVFO\n");
    EXPECT_EQ(rigctld::Tuning(7022500, rigctld::Vfo::Current, false), "F 7022500\n");
    EXPECT_EQ(rigctld::Tuning(7022500, rigctld::Vfo::A, false), "F 7022500\n");
    EXPECT_EQ(rigctld::Tuning(144300000, rigctld::Vfo::Current, true), "F currVFO 144300000\n");
    EXPECT_EQ(rigctld::Tuning(144300000, rigctld::Vfo::A, true), "F VFOA 144300000\n");
}

// ---- answers ------------------------------------------------------------------------------------------

TEST(RigctldAnswer, FrequencyIsOneLineOfWholeHertz) {
    for (const auto& [text, hertz] : {std::pair{"14025000\n", 14025000LL},
                                      {"14074000.000000\n", 14074000},
                                      {"145000000\r\n", 145000000},
                                      {"10368100000\n", 10368100000},
                                      {"999999999999\n", 999999999999}}) {
        const Answer answer = rigctld::ReadAnswer(Asked::Frequency, text);
        EXPECT_EQ(answer.kind, Kind::Good) << text;
        EXPECT_EQ(answer.frequency, hertz) << text;
    }
}

TEST(RigctldAnswer, WhatIsNoFrequencyIsNeverTakenForOne) {
    for (const char* text : {"-5\n",
                             "-9223372036854775808\n",
                             "abc\n",
                             "\n",
                             "14025000 Hz\n",
                             "1402x000\n",
                             "14025000.\n",
                             "14,025\n",
                             "1e7\n",
                             "0x10\n",
                             "9999999999999\n",
                             "14025000\nUSB\n",
                             "14025000\n2400\n",
                             "14025000\nRPRT -1\n",
                             "14025000\n7",
                             "USB\n2400\n",
                             "get_freq:\nFrequency: 14025000\nRPRT 0\n",
                             "RPRT 0\n",
                             "RPRT\n",
                             "RPRT x\n",
                             "rprt -5\n",
                             "\xff\xfe\n"})
        EXPECT_EQ(KindOf(Asked::Frequency, text), Kind::Garbage) << text;
}

TEST(RigctldAnswer, ZeroHertzIsARadioThatHasNotTold) {
    EXPECT_EQ(KindOf(Asked::Frequency, "0\n"), Kind::Refused);
    EXPECT_EQ(KindOf(Asked::Frequency, "0.000000\n"), Kind::Refused);
}

TEST(RigctldAnswer, ModeIsAWordAndAPassband) {
    for (const auto& [text, mode] : {std::pair{"USB\n2400\n", "USB"},
                                     {"PKTUSB\n3000\n", "PKTUSB"},
                                     {"CW\n-1\n", "CW"},
                                     {"FM-D\n0\n", "FM-D"},
                                     {"C4FM\n15000\n", "C4FM"},
                                     {"\n0\n", ""}}) {
        const Answer answer = rigctld::ReadAnswer(Asked::Mode, text);
        EXPECT_EQ(answer.kind, Kind::Good) << text;
        EXPECT_EQ(answer.mode, QString::fromLatin1(mode)) << text;
    }
    for (const char* text :
         {"14025000\n", "14025000\n2400\n", "USB\nUSB\n", "USB\n2400\n3", "USB\n2400\nRPRT 0\n",
          "U S B\n2400\n", "USBUSBUSBUSBUSB\n2400\n", "RPRT 0\n", "U\xc5\n1\n"})
        EXPECT_EQ(KindOf(Asked::Mode, text), Kind::Garbage) << text;
}

TEST(RigctldAnswer, AnAnswerThatIsCutAnywhereIsUnfinished) {
    const QByteArray frequency = "14025000\n";
    const QByteArray mode = "USB\n2400\n";
    const QByteArray report = "RPRT -5\n";
    for (qsizetype length = 0; length < frequency.size(); ++length)
        EXPECT_EQ(KindOf(Asked::Frequency, frequency.first(length)), Kind::Unfinished) << length;
    for (qsizetype length = 0; length < mode.size(); ++length)
        EXPECT_EQ(KindOf(Asked::Mode, mode.first(length)), Kind::Unfinished) << length;
    for (const Asked asked : {Asked::VfoMode, Asked::Frequency, Asked::Mode, Asked::Write})
        for (qsizetype length = 0; length < report.size(); ++length)
            EXPECT_EQ(KindOf(asked, report.first(length)), Kind::Unfinished) << length;
}

TEST(RigctldAnswer, AReportInPlaceOfAValueIsARefusal) {
    for (const Asked asked : {Asked::VfoMode, Asked::Frequency, Asked::Mode, Asked::Write}) {
        const Answer answer = rigctld::ReadAnswer(asked, "RPRT -5\n");
        EXPECT_EQ(answer.kind, Kind::Refused);
        EXPECT_EQ(answer.error, -5);
    }
    EXPECT_EQ(KindOf(Asked::Write, "RPRT 0\n"), Kind::Good);
    // Of a command that changes nothing it would say success and no value.
    for (const Asked asked : {Asked::VfoMode, Asked::Frequency, Asked::Mode})
        EXPECT_EQ(KindOf(asked, "RPRT 0\n"), Kind::Garbage);
    EXPECT_EQ(KindOf(Asked::Write, "14025000\n"), Kind::Garbage);
    EXPECT_EQ(KindOf(Asked::Write, "RPRT 0\nRPRT 0\n"), Kind::Garbage);
}

TEST(RigctldAnswer, VfoModeIsReadInEachWayThatDaemonsPutIt) {
    for (const char* text : {"1\n", "CHKVFO 1\n", "ChkVFO: 1\n"})
        EXPECT_TRUE(rigctld::ReadAnswer(Asked::VfoMode, text).vfoMode) << text;
    for (const char* text : {"0\n", "CHKVFO 0\n", "ChkVFO: 0\n"}) {
        EXPECT_EQ(KindOf(Asked::VfoMode, text), Kind::Good) << text;
        EXPECT_FALSE(rigctld::ReadAnswer(Asked::VfoMode, text).vfoMode) << text;
    }
    EXPECT_EQ(KindOf(Asked::VfoMode, "hello\n"), Kind::Garbage);
    EXPECT_EQ(KindOf(Asked::VfoMode, "\n"), Kind::Garbage);
    EXPECT_EQ(KindOf(Asked::VfoMode, "14025000\n"), Kind::Garbage);
}

TEST(RigctldAnswer, AFloodWithoutALineEndIsGarbageSoon) {
    EXPECT_EQ(KindOf(Asked::Frequency, QByteArray(250, '1')), Kind::Unfinished);
    EXPECT_EQ(KindOf(Asked::Frequency, QByteArray(300, '1')), Kind::Garbage);
}

// ---- modes --------------------------------------------------------------------------------------------

TEST(RigctldMode, EveryModeOfHamlibHasAValueOrNone) {
    using namespace rigmode;
    const std::pair<const char*, int> table[] = {{"CW", CwUpper},
                                                 {"CWN", CwUpper},
                                                 {"CWR", CwLower},
                                                 {"USB", Usb},
                                                 {"ECSSUSB", Usb},
                                                 {"LSB", Lsb},
                                                 {"ECSSLSB", Lsb},
                                                 {"RTTY", RttyLower},
                                                 {"RTTYR", RttyUpper},
                                                 {"PKTUSB", RttyUpper},
                                                 {"PKTLSB", RttyLower},
                                                 {"PSK", RttyUpper},
                                                 {"PSKR", RttyLower},
                                                 {"FAX", RttyUpper},
                                                 {"AM", Am},
                                                 {"AMN", Am},
                                                 {"AMS", Am},
                                                 {"SAM", Am},
                                                 {"SAL", Am},
                                                 {"SAH", Am},
                                                 {"DSB", Am},
                                                 {"PKTAM", Am},
                                                 {"AM-D", Am},
                                                 {"FM", Fm},
                                                 {"FMN", Fm},
                                                 {"WFM", Fm},
                                                 {"PKTFM", Fm},
                                                 {"FM-D", Fm},
                                                 {"PKTFMN", Fm},
                                                 {"C4FM", Fm},
                                                 {"D-STAR", Fm},
                                                 {"P25", Fm},
                                                 {"DPMR", Fm},
                                                 {"NXDN-VN", Fm},
                                                 {"NXDN-N", Fm},
                                                 {"DCR", Fm},
                                                 {"DD", Fm},
                                                 {"cw", CwUpper},
                                                 {"ISBUSB", Usb},
                                                 {"ISBLSB", Lsb},
                                                 {"CW-R", CwLower},
                                                 {"RTTY-R", RttyUpper},
                                                 {"SPEC", Unknown},
                                                 {"IQ", Unknown},
                                                 {"", Unknown},
                                                 {"XYZ", Unknown}};
    for (const auto& [mode, value] : table)
        EXPECT_EQ(rigctld::ModeOf(QString::fromLatin1(mode)), value) << mode;
}

// ---- the list of radios -------------------------------------------------------------------------------

TEST(RigctldModels, AreReadUnderTheirHeadings) {
    const QByteArray list =
        " Rig #  Mfg                    Model                   Version         Status      Macro\n"
        "     1  Hamlib                 Dummy                   20221128.0      Stable      RIG_MODEL_DUMMY\n"
        "  1004  Yaesu                  MARK-V FT-1000MP        20230104.0      Stable      "
        "RIG_MODEL_FT1000MPMKV\n"
        "  3073  Icom                   IC-7300                 20230109.10     Stable      "
        "RIG_MODEL_IC7300\n"
        "\n"
        "rigctld: done\n";
    EXPECT_EQ(rigctld::ReadModels(list),
              (QVector<rigctld::Model>{
                  {1, "Hamlib Dummy"}, {1004, "Yaesu MARK-V FT-1000MP"}, {3073, "Icom IC-7300"}}));
    EXPECT_EQ(rigctld::ReadModels(""), QVector<rigctld::Model>());
    EXPECT_EQ(rigctld::ReadModels("no list\n 1 x\n"), QVector<rigctld::Model>());
}

// ---- addresses ----------------------------------------------------------------------------------------

TEST(RigAddress, IsHostAndPort) {
    EXPECT_EQ(ReadRigAddress("127.0.0.1:4532"), (RigAddress{"127.0.0.1", 4532}));
    EXPECT_EQ(ReadRigAddress(" shack.local:4534 "), (RigAddress{"shack.local", 4534}));
    EXPECT_EQ(ReadRigAddress("localhost"), (RigAddress{"localhost", 4532}));
    EXPECT_EQ(ReadRigAddress("[::1]:4540"), (RigAddress{"::1", 4540}));
    EXPECT_EQ(ReadRigAddress("[fe80::1]"), (RigAddress{"fe80::1", 4532}));
    EXPECT_EQ(ReadRigAddress("::1"), (RigAddress{"::1", 4532}));
    for (const char* text :
         {"", " ", ":4532", "host:", "host:0", "host:65536", "host:x", "a b:1", "host:-1", "[]:1"})
        EXPECT_EQ(ReadRigAddress(text), std::nullopt) << text;
}

// ---- settings -----------------------------------------------------------------------------------------

TEST(RigSettings, AreWrittenAndReadAgain) {
    AllRigSettings rigs = DefaultRigSettings();
    EXPECT_EQ(rigs[0], (RigSettings{.way = RigSettings::Way::Address, .address = "127.0.0.1:4532"}));
    EXPECT_EQ(rigs[1], RigSettings());
    rigs[2] = {
        .way = RigSettings::Way::Model, .model = 3073, .port = "/dev/serial/by-id/usb,A å", .speed = 19200};
    const QString text = RigSettingsToText(rigs);
    EXPECT_EQ(text, "\"adress\",\"127.0.0.1:4532\",0,\"\",0\r\n"
                    "\"av\",\"\",0,\"\",0\r\n"
                    "\"modell\",\"\",3073,\"/dev/serial/by-id/usb,A å\",19200\r\n"
                    "\"av\",\"\",0,\"\",0\r\n");
    EXPECT_EQ(RigSettingsFromText(text), rigs);
}

TEST(RigSettings, ABrokenTextIsAFailure) {
    const QString good = RigSettingsToText(DefaultRigSettings());
    for (const QString& text :
         {QString(), good.chopped(30), QString(good).replace("adress", "adres"),
          QString(good).replace(",0,", ",x,"), QString(good).replace(",0,", ",99999999999,")})
        EXPECT_THROW(RigSettingsFromText(text), Failure) << text.toStdString();
}

TEST(RigSettings, TheDaemonServesThisMachineAlone) {
    EXPECT_EQ(DaemonArguments({.way = RigSettings::Way::Model, .model = 1}, 45000),
              QStringList({"--model", "1", "--listen-addr", "127.0.0.1", "--port", "45000",
                           "--set-conf=cache_timeout=100"}));
    EXPECT_EQ(
        DaemonArguments(
            {.way = RigSettings::Way::Model, .model = 3073, .port = "/dev/ttyUSB0", .speed = 9600}, 45000)
            .mid(7),
        QStringList({"--rig-file", "/dev/ttyUSB0", "--serial-speed", "9600"}));
}
