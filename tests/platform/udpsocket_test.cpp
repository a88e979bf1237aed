// Datagrams, from a real sender on the loopback address.
#include "platform/failure.h"
#include "platform/udpsocket.h"
#include "support/ToPrint.h"

#include <QNetworkInterface>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

using platform::UdpSocket;

namespace {

class UdpProv : public ::testing::Test {
protected:
    UdpProv() {
        // A port that is free.
        QUdpSocket prov;
        EXPECT_TRUE(prov.bind(QHostAddress::LocalHost, 0, QUdpSocket::DontShareAddress));
        port = prov.localPort();
        prov.close();
        socket->OnDataArrival([this] { kom << socket->GetData(); });
        socket->LocalPort(port);
    }
    void Sänd(const QByteArray& datagram) {
        ASSERT_EQ(sändare.writeDatagram(datagram, QHostAddress::LocalHost, port), datagram.size());
    }
    bool Kommer(qsizetype antal) {
        return QTest::qWaitFor([this, antal] { return kom.size() >= antal; });
    }

    quint16 port = 0;
    std::unique_ptr<UdpSocket> socket = std::make_unique<UdpSocket>(QStringLiteral("Winsock1"), nullptr);
    QUdpSocket sändare;
    QStringList kom;
};

} // namespace

TEST_F(UdpProv, EachDatagramIsHandedOnWholeAndInOrder) {
    socket->Bind();
    for (const char* text : {"ett", "", "tv\xe5\r\n\x80"}) Sänd(text);
    ASSERT_TRUE(Kommer(3));
    EXPECT_EQ(kom, (QStringList{"ett", "", T("två\r\n€")}));
    EXPECT_EQ(socket->GetData(), "") << "it has been taken";
}

TEST_F(UdpProv, BytesOfEveryKindAndTheLargestDatagramComeThrough) {
    socket->Bind();
    QByteArray allt;
    for (int i = 0; i < 65507; ++i) allt += static_cast<char>(i % 256);
    Sänd(allt);
    ASSERT_TRUE(Kommer(1));
    EXPECT_EQ(kom[0].size(), 65507);
    EXPECT_EQ(kom[0].at(0), QChar(u'\0'));
    EXPECT_EQ(kom[0].at(255), QChar(0xff));
}

TEST_F(UdpProv, AListenerThatWaitsHearsOfWhatComesMeanwhile) {
    socket->OnDataArrival([this] {
        kom << socket->GetData();
        if (kom.size() > 1) return;
        Sänd("senare");
        EXPECT_TRUE(Kommer(2));
    });
    socket->Bind();
    Sänd("nu");
    ASSERT_TRUE(Kommer(2));
    EXPECT_EQ(kom, (QStringList{"nu", "senare"}));
}

TEST_F(UdpProv, AFloodDoesNotHoldTheEventLoopUp) {
    socket->OnDataArrival([this] {
        kom << socket->GetData();
        QTest::qSleep(3);
    });
    socket->Bind();
    for (int i = 0; i < 20; ++i) Sänd("x");
    ASSERT_TRUE(Kommer(1));
    EXPECT_LT(kom.size(), 20) << "the test got its turn in between";
    EXPECT_TRUE(Kommer(20));
}

TEST_F(UdpProv, AClosedSocketReceivesNothingAndLetsGoOfThePort) {
    socket->Bind();
    Sänd("x");
    socket->Close();
    QUdpSocket annan;
    EXPECT_TRUE(annan.bind(QHostAddress::LocalHost, port, QUdpSocket::DontShareAddress));
    annan.close();
    socket->Bind();
    Sänd("y");
    ASSERT_TRUE(Kommer(1));
    EXPECT_EQ(kom, QStringList("y"));
}

TEST_F(UdpProv, AListenerMayCloseTheSocketOrDeleteIt) {
    socket->Bind();
    socket->OnDataArrival([this] {
        kom << socket->GetData();
        socket->Close();
    });
    Sänd("a");
    Sänd("b");
    ASSERT_TRUE(Kommer(1));
    QCoreApplication::processEvents();
    EXPECT_EQ(kom, QStringList("a"));
    socket->OnDataArrival([this] { socket.reset(); });
    socket->Bind();
    Sänd("c");
    Sänd("d");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !socket; }));
    QCoreApplication::processEvents();
}

TEST_F(UdpProv, APortThatIsTakenOrDoesNotExistIsAFailure) {
    QUdpSocket annan;
    ASSERT_TRUE(annan.bind(QHostAddress::LocalHost, port, QUdpSocket::DontShareAddress));
    EXPECT_THROW(socket->Bind(), platform::Failure);
    annan.close();
    for (const int fel : {0, -1, 65536}) {
        socket->LocalPort(fel);
        EXPECT_THROW(socket->Bind(), platform::Failure) << fel;
    }
    socket->LocalPort(port);
    socket->Bind();
    EXPECT_THROW(socket->Bind(), platform::Failure) << "it is open";
    EXPECT_EQ(socket->LocalPort(), port);
}

TEST_F(UdpProv, TwoOfOurProgramsDoNotShareAPort) {
    socket->Bind();
    UdpSocket andra(QStringLiteral("andra"), nullptr);
    andra.LocalPort(port);
    EXPECT_THROW(andra.Bind(), platform::Failure);
}

TEST_F(UdpProv, OtherComputersAreNotHeard) {
    socket->Bind();
    for (const QHostAddress& adress : QNetworkInterface::allAddresses()) {
        if (adress.isLoopback() || adress.protocol() != QAbstractSocket::IPv4Protocol) continue;
        sändare.writeDatagram("utanfrom", adress, port);
    }
    Sänd("hemma");
    ASSERT_TRUE(Kommer(1));
    EXPECT_EQ(kom, QStringList("hemma"));
}

TEST_F(UdpProv, WhatIsHeldComesWholeAndInOrderOnceItMay) {
    bool hålls = true;
    socket->HoldWhile([&] { return hålls; });
    socket->Bind();
    for (const char* text : {"ett", "", "tre"}) Sänd(text);
    QTest::qWait(150);
    EXPECT_EQ(kom, QStringList());
    hålls = false;
    ASSERT_TRUE(Kommer(3));
    EXPECT_EQ(kom, (QStringList{"ett", "", "tre"}));
}

TEST_F(UdpProv, MoreIsHeldThanTheSystemsBufferTakes) {
    bool hålls = true;
    socket->HoldWhile([&] { return hålls; });
    socket->Bind();
    for (int i = 0; i < 3000; ++i) {
        Sänd(QByteArray::number(i).rightJustified(200, ' '));
        if (i % 50 == 49) QTest::qWait(60); // as they come over minutes
    }
    hålls = false;
    ASSERT_TRUE(Kommer(3000));
    for (int i = 0; i < 3000; ++i) ASSERT_EQ(kom[i].trimmed(), QString::number(i));
}

TEST_F(UdpProv, AClosedSocketDropsWhatWasHeld) {
    bool hålls = true;
    socket->HoldWhile([&] { return hålls; });
    socket->Bind();
    Sänd("ett");
    QTest::qWait(100);
    socket->Close();
    hålls = false;
    socket->Bind();
    Sänd(T("två").toLatin1());
    ASSERT_TRUE(Kommer(1));
    EXPECT_EQ(kom, QStringList(T("två")));
}
