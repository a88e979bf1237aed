// Serial lines, the packet engine and the loudspeaker.
#include "platform/failure.h"
#include "platform/packetengine.h"
#include "platform/paths.h"
#include "platform/serialport.h"
#include "platform/sound.h"
#include "support/Linje.h"
#include "support/ToPrint.h"

#include <QApplication>
#include <QFile>
#include <QSoundEffect>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

TEST(SerialPort, OpensReadsAndWrites) {
    Linje linje;
    platform::SerialPort port(QStringLiteral("mscCluster"), nullptr);
    port.CommPort(linje.Enhet());
    EXPECT_FALSE(port.PortOpen());
    port.PortOpen(true);
    ASSERT_TRUE(port.PortOpen());
    EXPECT_EQ(port.InBufferCount(), 0);
    linje.Skriv("v\xe4lkommen");
    ASSERT_TRUE(QTest::qWaitFor([&] { return port.InBufferCount() == 9; }));
    port.InputLen(3);
    EXPECT_EQ(port.Input(), T("väl"));
    port.InputLen(0);
    EXPECT_EQ(port.Input(), "kommen");
    EXPECT_EQ(port.InBufferCount(), 0);
    port.Output(T("HEJ Å\r"));
    QTest::qWait(20);
    EXPECT_EQ(linje.Läs(), "HEJ \xc5\r");
    port.PortOpen(false);
    EXPECT_FALSE(port.PortOpen());
}

TEST(SerialPort, FailsWithoutADevice) {
    platform::SerialPort port(QStringLiteral("mscCluster"), nullptr);
    EXPECT_THROW(port.PortOpen(true), platform::Failure);
    port.CommPort("finns-inte");
    EXPECT_THROW(port.PortOpen(true), platform::Failure);
    EXPECT_FALSE(port.PortOpen());
    EXPECT_THROW(port.InBufferCount(), platform::Failure);
    EXPECT_THROW(port.Input(), platform::Failure);
    EXPECT_THROW(port.Output("x"), platform::Failure);
}

TEST(PacketEngine, IsLookedForWhenItIsFirstUsed) {
    const QTemporaryDir mapp;
    platform::SetProgramFolder(mapp.path());
    EXPECT_THROW(platform::AGWPutData("XX9AA", "", 'c', 0, 0), platform::Failure);
    ASSERT_TRUE(QFile::copy(QStringLiteral(SORVIK_AGWDLL), mapp.filePath("agwdll32.so")));
    const QString fil = mapp.filePath("agw.txt");
    qputenv("SORVIK_AGW", fil.toUtf8());
    platform::AGWPutData("XX9AA", "", 'c', 0, 0);
    platform::AGWPutData("", "HEJ", 'D', 3, 0);
    QFile läst(fil);
    ASSERT_TRUE(läst.open(QFile::ReadOnly));
    EXPECT_EQ(läst.readAll(), "[XX9AA] [] c 0 0\n[] [HEJ] D 3 0\n");
    platform::SetProgramFolder({});
}

TEST(Sound, OfAMissingFilePlaysNothingAndSaysNothing) {
    const QTemporaryDir mapp;
    EXPECT_NO_THROW(platform::PlaySound(mapp.filePath("1.wav")));
}

TEST(Sound, ThatIsNoSoundFileFails) {
    const QTemporaryDir mapp;
    QFile fil(mapp.filePath("1.wav"));
    ASSERT_TRUE(fil.open(QFile::WriteOnly) && fil.write("RIFF, men inte mer") > 0);
    fil.close();
    EXPECT_THROW(platform::PlaySound(fil.fileName()), platform::Failure);
}

TEST(Sound, PlaysOnAMachineWithOrWithoutASoundCard) {
    // Whatever the machine has: no word, no wait, and a second sound takes the place of the first.
    for (const char* namn : {"1.wav", "2.wav", "1.wav"})
        EXPECT_NO_THROW(platform::PlaySound(QStringLiteral(SORVIK_DATA "/Ljud/Test/") + QLatin1String(namn)));
    QTest::qWait(50);
    const auto ljud = qApp->findChildren<QSoundEffect*>();
    ASSERT_EQ(ljud.size(), 1);
    EXPECT_EQ(ljud[0]->source().fileName(), "1.wav");
}
