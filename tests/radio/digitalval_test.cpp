// The settings of the digital modes and their file.
#include "platform/failure.h"
#include "radio/Digitalval.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace radio;

namespace {

/// A value of its own in every line.
Digitalval Egna() {
    Digitalval val;
    val.DigiBandbredd = "3K";
    val.DigiUOS = 1;
    val.DigiAFC = 2;
    val.DigiHPF = 3;
    val.DigiATC = 4;
    val.DigiNET = 255;
    val.DigiComport = "Com3";
    val.DigiFlöde = "DTR";
    val.DigiTrafik = "rtty-L";
    val.DigiDisplay = "SYN";
    val.DigiFIFORX = "32";
    val.DigiFIFOTX = "24";
    val.DigiKanalA = 2;
    val.DigiKanalB = 5;
    val.DigiID = "3";
    val.DigiPrio = -32768;
    val.DigiRXKlocka = "48000";
    val.DigiTXKlocka = "-74.50";
    val.Rad19 = 7;
    val.DigiEffekt = "100 W, PEP";
    val.DigiUDP = "2333";
    return val;
}

} // namespace

TEST(Digitalval, TheFileHasTwentyOneLines) {
    EXPECT_EQ(DigitalvalTillText({}),
              "\"500\"\r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n\"None\"\r\n\"RTS\"\r\n\"bpsk\"\r\n"
              "\"FFT\"\r\n12\r\n6\r\n 0 \r\n 3 \r\n-1\r\n 0 \r\n11025\r\n0.00\r\n 0 \r\n\"\"\r\n"
              "\"\"\r\n");
}

TEST(Digitalval, EveryValueHasItsLine) {
    EXPECT_EQ(DigitalvalTillText(Egna()),
              "\"3K\"\r\n 1 \r\n 2 \r\n 3 \r\n 4 \r\n 255 \r\n\"Com3\"\r\n\"DTR\"\r\n\"rtty-L\"\r\n"
              "\"SYN\"\r\n32\r\n24\r\n 2 \r\n 5 \r\n3\r\n-32768 \r\n48000\r\n-74.50\r\n 7 \r\n"
              "\"100 W, PEP\"\r\n\"2333\"\r\n");
}

TEST(Digitalval, WhatIsWrittenIsReadAgain) {
    EXPECT_EQ(DigitalvalFrånText(DigitalvalTillText(Egna())), Egna());
    EXPECT_EQ(DigitalvalFrånText(DigitalvalTillText({})), Digitalval{});
}

TEST(Digitalval, ABareTextMayHaveBlanksAroundItAndACommaInIt) {
    Digitalval val = Egna();
    val.DigiTXKlocka = "74,50";
    EXPECT_EQ(DigitalvalFrånText(DigitalvalTillText(val)), val);
    const QString text = DigitalvalTillText({}).replace("\r\n12\r\n", "\r\n 12 \r\n");
    EXPECT_EQ(DigitalvalFrånText(text), Digitalval{});
}

TEST(Digitalval, WhatFollowsTheLastLineIsPassedOver) {
    EXPECT_EQ(DigitalvalFrånText(DigitalvalTillText(Egna()) + "mer\r\n"), Egna());
}

TEST(Digitalval, ABrokenFileIsAFailure) {
    const QString hel = DigitalvalTillText({});
    const QString enRadMindre = hel.section("\r\n", 0, 19) + "\r\n";
    for (const QString& text :
         {QString(), enRadMindre, QString(hel).replace(" 3 ", " x "), QString(hel).replace(" 3 ", " 32768 "),
          QString(hel).replace(" 3 ", "  "), QString(hel).replace("\"500\"\r\n 0 ", "\"500\"\r\n 256 "),
          QString(hel).replace("\"500\"\r\n 0 ", "\"500\"\r\n-1 ")})
        EXPECT_THROW(DigitalvalFrånText(text), platform::Failure) << text.toStdString();
}
