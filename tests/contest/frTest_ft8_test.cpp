// Contacts that the FT8 program hands over: real datagrams to the real window.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "platform/launch.h"
#include "platform/textfile.h"
#include "store/frEditorTest.h"

#include <QDir>
#include <QFile>
#include <QUdpSocket>

namespace {

/// A record as the FT8 program sends it: no header, no line end.
QByteArray Record(const QByteArray& signal = "XX9AA") {
    return "<call:" + QByteArray::number(signal.size()) + ">" + signal +
           " <gridsquare:6>JO65mr <mode:3>FT8 <rst_sent:3>-10 <rst_rcvd:3>+03 <qso_date:8>20261201 "
           "<time_on:6>191500 <qso_date_off:8>20261201 <time_off:6>191600 <band:2>2m <freq:10>144.174500 "
           "<station_callsign:5>XX9ZZ <my_gridsquare:6>JO89XI <comment:25>FT8  Sent: -10  Rcvd: +03 <eor>";
}

/// One of the program's other datagrams: magic, schema, type, "WSJT-X", and behind it what the type wants.
QByteArray Binär(char typ, const QByteArray& innehåll) {
    const auto fyra = [](qsizetype tal) {
        return QByteArray{4, '\0'}.replace(
            2, 2, QByteArray{1, static_cast<char>(tal >> 8)} + static_cast<char>(tal));
    };
    return QByteArray("\xad\xbc\xcb\xda\0\0\0\2", 8) + fyra(typ) + fyra(6) + "WSJT-X" +
           fyra(innehåll.size()) + innehåll;
}

const Meddelande ingenLogg{T("Det finns ingen aktiv logg. Du måste skapa en ny eller öppna en befintlig logg "
                             "innan du kan importera en ADIF-fil."),
                           "ImporteraAdif"};
const Meddelande importfel{T("Ett fel har inträffat vid importering av ADIF-fil."), "ImportFT8"};
const Meddelande sparfel{T("Ett fel har inträffat vid sparande av Data."), "SparaData"};

class FT8Prov : public Programprov {
protected:
    FT8Prov() {
        QUdpSocket prov;
        EXPECT_TRUE(prov.bind(QHostAddress::LocalHost, 0, QUdpSocket::DontShareAddress));
        port = prov.localPort();
        platform::Launches().program = [this](const QString& program, const QStringList& argument) {
            startade << (QStringList(program) + argument).join(' ');
            return programmetFinns;
        };
    }
    ~FT8Prov() override { platform::Launches() = {}; }

    /// A log with FT8 among its modes, and the program started from the menu.
    frTest& StartaFT8(int test = 1) {
        frTest& f = StartaLogg(test);
        delat.Digital.DigiUDP = QString::number(port);
        f.Meny("mnuFönster_Digi")->trigger();
        return f;
    }
    /// Sends it and waits until it has arrived and been taken.
    void Sänd(const QByteArray& datagram) {
        frTest& f = frTest::instans();
        f.txtData->setText(väntar);
        ASSERT_EQ(sändare.writeDatagram(datagram, QHostAddress::LocalHost, port), datagram.size());
        ASSERT_TRUE(QTest::qWaitFor([&] { return f.txtData->text() != väntar; }));
    }
    QString ADI() const { return Fil("FT8/TestQSO.ADI"); }
    QByteArray Parkerat() const {
        QFile fil(ADI());
        EXPECT_TRUE(fil.open(QIODevice::ReadOnly));
        return fil.readAll();
    }
    /// Call, frequency, reports, locator.
    static QStringList Fälten() {
        const frTest& f = frTest::instans();
        return {f.txtSignal->text(), f.txtFrekvens->text(), f.txtRSTM->text(), f.txtRSTS->text(),
                f.txtDiplom->text()};
    }
    static void FyllFälten() {
        const frTest& f = frTest::instans();
        f.txtSignal->setText("XX1OLD");
        f.txtFrekvens->setText("1");
        f.txtRSTM->setText("2");
        f.txtRSTS->setText("3");
        f.txtDiplom->setText("JO89");
    }

    const QString väntar = "inget än";
    quint16 port = 0;
    QUdpSocket sändare;
    QStringList startade;
    bool programmetFinns = true;
};

} // namespace

// ---- the start ----------------------------------------------------------------------------------------

TEST_F(FT8Prov, TheMenuListensAndStartsTheProgram) {
    const frTest& f = StartaFT8();
    EXPECT_EQ(startade, QStringList("wsjtx"));
    EXPECT_TRUE(delat.FT8Läge);
    EXPECT_EQ(f.Winsock1->LocalPort(), port);
    EXPECT_EQ(f.Winsock1->objectName(), "Winsock1");
    EXPECT_FALSE(f.txtData->isVisible());
}

TEST_F(FT8Prov, WithoutTheProgramThereIsAMessageAndTheSocketStaysOpen) {
    programmetFinns = false;
    StartaFT8();
    EXPECT_EQ(Tag(), (Meddelande{"Kan inte hitta Filen!", "Filfel"}));
    EXPECT_FALSE(delat.FT8Läge);
    Sänd(Record());
    EXPECT_EQ(frTest::instans().txtSignal->text(), "XX9AA");
}

TEST_F(FT8Prov, WithoutAPortTheProgramIsNotStarted) {
    frTest& f = StartaLogg(1);
    const QString välj = " Välj en under Inställning - Digital Inställning...";
    f.StartFT8();
    EXPECT_EQ(Tag(), (Meddelande{"Ingen UDP-port är vald." + välj, "StartFT8"}));
    for (const QString fel : {"0", "x", "65536", "-1", "1e300", "1e999"}) {
        delat.Digital.DigiUDP = fel;
        f.StartFT8();
        EXPECT_EQ(Tag(), (Meddelande{"UDP-porten " + fel + " kan inte öppnas." + välj, "StartFT8"}));
    }
    EXPECT_EQ(startade, QStringList());
    EXPECT_FALSE(delat.FT8Läge);
}

TEST_F(FT8Prov, APortThatAnotherProgramHasIsSaidToBeTaken) {
    QUdpSocket annan;
    ASSERT_TRUE(annan.bind(QHostAddress::LocalHost, port, QUdpSocket::DontShareAddress));
    StartaFT8();
    EXPECT_EQ(Tag().titel, "StartFT8");
    EXPECT_EQ(startade, QStringList());
    annan.close();
    frTest::instans().StartFT8();
    EXPECT_TRUE(delat.FT8Läge) << "it is free now";
}

TEST_F(FT8Prov, AnotherStartTakesTheNewPort) {
    frTest& f = StartaFT8();
    QUdpSocket prov;
    ASSERT_TRUE(prov.bind(QHostAddress::LocalHost, 0));
    const quint16 ny = prov.localPort();
    prov.close();
    delat.Digital.DigiUDP = QString::number(ny);
    f.StartFT8();
    EXPECT_TRUE(prov.bind(QHostAddress::LocalHost, port, QUdpSocket::DontShareAddress))
        << "the old one is free";
    port = ny;
    Sänd(Record());
    EXPECT_EQ(f.txtSignal->text(), "XX9AA");
}

TEST_F(FT8Prov, AChangeOfModeEndsTheHandOffsMode) {
    frTest& f = StartaFT8();
    f.cmbTrafik->Row(1);
    EXPECT_FALSE(delat.FT8Läge);
}

// ---- a record -----------------------------------------------------------------------------------------

TEST_F(FT8Prov, ARecordIsParkedAndFillsTheForm) {
    const frTest& f = StartaFT8();
    Sänd(Record());
    EXPECT_EQ(f.txtData->text(), QString(Record()));
    EXPECT_EQ(Parkerat(), "\"" + Record() + "\"\r\n");
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "144.174500", "+03", "-10", "JO65MR"}));
}

TEST_F(FT8Prov, TheContactIsSavedWithTheOrdinaryButtonAndTheParkedRecordGoes) {
    frTest& f = StartaLogg(1);
    delat.Digital.DigiUDP = QString::number(port);
    f.cmbTrafik->Row(f.cmbTrafik->findText("FT8"));
    f.StartFT8();
    Sänd(Record("SM5ABC"));
    QTest::mouseClick(f.cmdSpara, Qt::LeftButton);
    EXPECT_EQ(Läs(Logg(), "SELECT Signal, Frekvens, Trafiksätt, Mottaget, Sänt, Multiplar FROM TESTQSO"),
              (std::vector<std::vector<QString>>{{"SM5ABC", "144.174500", "FT8", "+03", "-10", "JO65MR"}}));
    EXPECT_FALSE(QFile::exists(ADI()));
    EXPECT_EQ(f.txtSignal->text(), "");
}

TEST_F(FT8Prov, TheDistanceIsThatOfTheLocatorAtOnce) {
    frTest& f = StartaFT8();
    Sänd("<call:6>SM7AAA <eor>");
    const QString landets = f.lblAvstånd->text();
    Sänd("<call:6>SM7AAA <gridsquare:4>JO66 <eor>");
    const QString rutans = f.lblAvstånd->text();
    EXPECT_NE(rutans, landets);
    Sänd("<call:6>SM7AAA <gridsquare:4>XX99 <eor>");
    EXPECT_EQ(f.lblAvstånd->text(), rutans) << "a square that is none is not measured, and nothing is said";
    f.txtDiplom->setText("JO66");
    f.txtDiplom_LostFocus();
    EXPECT_EQ(f.lblAvstånd->text(), rutans) << "as if it had been typed";
}

TEST_F(FT8Prov, ASecondRecordTakesThePlaceOfTheFirst) {
    StartaFT8();
    Sänd(Record());
    Sänd("<call:5>XX9BB <eor>");
    EXPECT_EQ(Parkerat(), "\"<call:5>XX9BB <eor>\"\r\n");
    EXPECT_EQ(Fälten(), (QStringList{"XX9BB", "144.174500", "+03", "-10", "JO65MR"}))
        << "what it does not tell stays";
}

TEST_F(FT8Prov, EmptyReportsAndAnEmptyLocatorEmptyTheirFields) {
    StartaFT8();
    FyllFälten();
    Sänd("<call:7>XX9AA/P <gridsquare:0> <mode:3>FT8 <rst_sent:0> <rst_rcvd:0> <freq:10>144.174500 <eor>");
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA/P", "144.174500", "", "", ""}));
}

TEST_F(FT8Prov, ATagInAFieldBeforeItIsTakenForTheFieldAndOneBehindItIsNot) {
    StartaFT8();
    FyllFälten();
    Sänd("<call:5>XX9AA <rst_sent:3>-10 <freq:10>144.174500 <comment:16>TNX <call:2>HEJ  <gridsquare:4>JO89 "
         "<eor>");
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "144.174500", "2", "-10", "JO89"}));
    Sänd("<comment:17>TNX <freq:4>50.3! <call:5>XX9BB <freq:10>144.174500 <eor>");
    EXPECT_EQ(Fälten(), (QStringList{"XX9BB", "50.3", "2", "-10", "JO89"}));
}

TEST_F(FT8Prov, ALineEndOrAHeaderMakesNoDifference) {
    StartaFT8();
    for (const QByteArray& datagram :
         {Record() + "\n", Record() + "\r\n", Record() + "\r\n<lokator:4>AA00 <eor>",
          "\n<adif_ver:5>3.1.0\n<programid:6>WSJT-X\n<EOH>\n" + Record(),
          Record() + "\r\n<call:5>XX9BB <eor>\r\n", Record().toUpper()}) {
        FyllFälten();
        Sänd(datagram);
        EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "144.174500", "+03", "-10", "JO65MR"}))
            << datagram.toStdString();
    }
}

TEST_F(FT8Prov, TheProgramsDatagramThatWrapsTheRecordIsReadToo) {
    StartaFT8();
    FyllFälten();
    Sänd(Binär(12, "\n<adif_ver:5>3.1.0\n<programid:6>WSJT-X\n<EOH>\n" + Record()));
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "144.174500", "+03", "-10", "JO65MR"}));
}

TEST_F(FT8Prov, OtherDatagramsOnThePortLeaveTheFormAlone) {
    StartaFT8();
    QByteArray alla;
    for (int i = 0; i < 256; ++i) alla += static_cast<char>(i);
    for (const QByteArray& datagram :
         {Binär(0, QByteArray("\0\0\0\5", 4) + "2.6.1"), Binär(5, "XX9AA"), alla, QByteArray(),
          QByteArray("hej"), QByteArray(1, '\0'), QByteArray(65507, '<'), QByteArray(65507, '\n'),
          QByteArray("<call"), alla + alla}) {
        FyllFälten();
        Sänd(datagram);
        EXPECT_EQ(Fälten(), (QStringList{"XX1OLD", "1", "2", "3", "JO89"})) << datagram.size();
        EXPECT_EQ(Parkerat(), "\"" + datagram + "\"\r\n");
    }
}

TEST_F(FT8Prov, ARecordAtTheEndOfTheLargestDatagramIsRead) {
    StartaFT8();
    Sänd(QByteArray(65507 - Record().size(), 'x') + Record());
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "144.174500", "+03", "-10", "JO65MR"}));
    EXPECT_EQ(Parkerat().size(), 65507 + 4);
}

TEST_F(FT8Prov, LettersOfTheCodePageAreOneCharacterEach) {
    StartaFT8();
    Sänd("<call:5>XX9\xc5\xc4 <gridsquare:6>jo\xe5\xe4mr <eor>");
    EXPECT_EQ(Fälten()[0], T("XX9ÅÄ"));
    EXPECT_EQ(Fälten()[4], T("JOÅÄMR"));
    EXPECT_EQ(Parkerat(), "\"<call:5>XX9\xc5\xc4 <gridsquare:6>jo\xe5\xe4mr <eor>\"\r\n");
}

// ---- what goes wrong ----------------------------------------------------------------------------------

TEST_F(FT8Prov, ALengthThatIsNoneEndsTheRestWithAMessageAndWhatIsFilledStays) {
    StartaFT8();
    FyllFälten();
    Sänd("<call:5>XX9AA <freq:10>144.174500 <rst_rcvd:x>+03 <rst_sent:3>-10 <gridsquare:4>JO65 <eor>");
    EXPECT_EQ(Tag(), importfel);
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "144.174500", "2", "3", "JO89"}));
    FyllFälten();
    Sänd("<call:256>XX9AA <freq:10>144.174500 <eor>");
    EXPECT_EQ(Tag(), importfel);
    EXPECT_EQ(Fälten()[1], "1");
}

TEST_F(FT8Prov, WithNoLogOpenTheRecordIsParkedAndTheMessageComes) {
    frTest& f = StartaFT8();
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    FyllFälten();
    Sänd(Record());
    EXPECT_EQ(Tag(), ingenLogg);
    EXPECT_EQ(Parkerat(), "\"" + Record() + "\"\r\n");
    EXPECT_EQ(f.txtData->text(), QString(Record()));
    EXPECT_EQ(Fälten(), (QStringList{"XX1OLD", "1", "2", "3", "JO89"}));
}

TEST_F(FT8Prov, BehindAMessageRecordsAreParkedWithoutAnotherOne) {
    frTest& f = StartaFT8();
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    int meddelade = 0;
    platform::Dialogs().message = [&](const QString&, const QString&) {
        ++meddelade;
        Sänd(Record("XX9BB")); // arrives while the operator reads
    };
    Sänd(Record());
    EXPECT_EQ(meddelade, 1);
    EXPECT_EQ(Parkerat(), "\"" + Record("XX9BB") + "\"\r\n");
    Sänd(Record());
    EXPECT_EQ(meddelade, 2) << "once it is answered, the next one comes";
}

TEST_F(FT8Prov, BehindTheRealMessageToo) {
    frTest& f = StartaFT8();
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    platform::Dialogs().message = nullptr;
    int sedda = 0;
    NärFönster("MsgBox", [&](QWidget* ruta) {
        ++sedda;
        EXPECT_EQ(ruta->windowTitle(), "ImporteraAdif");
        Sänd(Record("XX9BB"));
        static_cast<QDialog*>(ruta)->accept();
    });
    Sänd(Record());
    EXPECT_EQ(sedda, 1);
    EXPECT_EQ(Parkerat(), "\"" + Record("XX9BB") + "\"\r\n");
}

TEST_F(FT8Prov, WithoutTheFolderNothingCanBeParkedOrRead) {
    StartaFT8();
    ASSERT_TRUE(QDir(Fil("FT8")).removeRecursively());
    FyllFälten();
    Sänd(Record());
    ASSERT_EQ(meddelanden.size(), 2U);
    EXPECT_EQ(meddelanden[0], sparfel);
    EXPECT_EQ(meddelanden[1], importfel);
    meddelanden.clear();
    EXPECT_EQ(Fälten()[0], "XX1OLD");
}

TEST_F(FT8Prov, TheLogStandsOnItsLastRowAfterwards) {
    StartaFT8();
    Loggad("SM5ABC", "2 M");
    Loggad("SM6ABC", "2 M");
    db().rsTESTQSO.MoveFirst();
    Sänd(Record());
    EXPECT_EQ(db().rsTESTQSO.Field("Signal").text(), "SM6ABC");
}

TEST_F(FT8Prov, ACallOrALocatorThatNoSearchCanHoldIsNotTaken) {
    const frTest& f = StartaFT8();
    FyllFälten();
    Sänd("<call:5>XX9'A <freq:10>144.174500 <eor>");
    EXPECT_EQ(Tag(), importfel);
    EXPECT_EQ(Fälten(), (QStringList{"XX1OLD", "1", "2", "3", "JO89"}));
    Sänd("<call:5>XX9AA <rst_sent:3>'10 <gridsquare:4>JO'5 <eor>");
    EXPECT_EQ(Tag(), importfel);
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "1", "2", "'10", "JO89"})) << "no search is made for a report";
    f.txtSignal->setFocus();
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(slut, std::nullopt);
    Sänd(Record());
    EXPECT_EQ(Fälten(), (QStringList{"XX9AA", "144.174500", "+03", "-10", "JO65MR"}));
}

// ---- what was under way -------------------------------------------------------------------------------

TEST_F(FT8Prov, ARecordWaitsBehindTheDuplicateWarningThatClearsTheForm) {
    frTest& f = StartaFT8();
    Loggad("SM5ABC", "2 M");
    f.txtData->setText(väntar);
    NärFönster("frVarning", [&](QWidget* varning) {
        EXPECT_GT(sändare.writeDatagram(Record("SM7AAA"), QHostAddress::LocalHost, port), 0);
        EXPECT_GT(sändare.writeDatagram(Record("SM7BBB"), QHostAddress::LocalHost, port), 0);
        QTest::qWait(200);
        EXPECT_EQ(f.txtData->text(), väntar);
        EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
        static_cast<QDialog*>(varning)->accept();
    });
    SkrivI(f.txtSignal, "SM5ABC");
    Tryck(Qt::Key_Tab);
    ASSERT_TRUE(QTest::qWaitFor([&] { return f.txtSignal->text() == "SM7BBB"; }));
    EXPECT_EQ(Fälten(), (QStringList{"SM7BBB", "144.174500", "+03", "-10", "JO65MR"}));
    EXPECT_EQ(f.txtDubblett->text(), "");
}

TEST_F(FT8Prov, ARecordWaitsBehindAMessageOfSavingAndKeepsItsFile) {
    frTest& f = StartaFT8();
    delat.FT8Läge = true;
    FyllFälten();
    f.txtRSTM->clear();
    f.txtRSTS->clear();
    platform::Dialogs().message = nullptr; // the real one
    int sedda = 0;
    NärFönster("MsgBox", [&](QWidget* ruta) {
        ++sedda;
        EXPECT_EQ(ruta->windowTitle(), "SparaQSO");
        EXPECT_GT(sändare.writeDatagram(Record("SM7AAA"), QHostAddress::LocalHost, port), 0);
        QTest::qWait(200);
        static_cast<QDialog*>(ruta)->accept();
    });
    f.cmdSpara_Click();
    EXPECT_EQ(sedda, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return f.txtSignal->text() == "SM7AAA"; }));
    EXPECT_EQ(Parkerat(), "\"" + Record("SM7AAA") + "\"\r\n");
}

TEST_F(FT8Prov, ADuplicateThatStandsOnTheFormDoesNotColourTheNewContact) {
    frTest& f = StartaFT8(7);
    Loggad("SM5ABC", "80 M");
    SvaraVarning(false); // the contact stays
    SkrivI(f.txtSignal, "SM5ABC");
    Tryck(Qt::Key_Tab);
    ASSERT_TRUE(delat.DubblettFlagga);
    ASSERT_EQ(f.txtDubblett->text(), "D");
    Sänd(Record("SM7AAA"));
    f.cmdSpara_Click();
    EXPECT_EQ(Läs(Logg(), "SELECT Signal, Dubblett FROM TESTQSO WHERE Signal <> 'SM5ABC'"),
              (std::vector<std::vector<QString>>{{"SM7AAA", ""}}));
    EXPECT_GT(LäsEtt(Logg(), "SELECT Poäng FROM TESTQSO WHERE Signal = 'SM7AAA'").toInt(), 0);
}

TEST_F(FT8Prov, TheSameCallAgainStaysTheDuplicateItIs) {
    frTest& f = StartaFT8(7);
    Loggad("SM5ABC", "80 M");
    SvaraVarning(false);
    SkrivI(f.txtSignal, "SM5ABC");
    Tryck(Qt::Key_Tab);
    Sänd(Record("SM5ABC"));
    EXPECT_EQ(f.txtDubblett->text(), "D");
    EXPECT_TRUE(delat.DubblettFlagga);
}

TEST_F(FT8Prov, TheCountryOfTheCallBeforeDoesNotStayWithOneThatHasNone) {
    frTest& f = StartaFT8();
    SkrivI(f.txtSignal, "OH2ABC");
    ASSERT_EQ(f.lblDXCC->text(), "OH");
    Sänd(Record("QQ0ZZZ"));
    EXPECT_EQ(f.lblDXCC->text(), "");
    for (const frTest::Fält* fält : {f.txtPrefix, f.txtITUM, f.txtZONM})
        EXPECT_EQ(fält->text(), "") << fält->objectName().toStdString();
}

TEST_F(FT8Prov, ALocatorThatIsBeingTypedIsNotMeasuredForAnybody) {
    frTest& f = StartaFT8();
    for (const char* skrivet : {"J", "JO", "JO8", "JO89W", "JO65MR12"}) {
        SkrivI(f.txtSignal, "OH2ABC");
        f.txtDiplom->setText(skrivet);
        Sänd("hej");
        Sänd(Binär(0, "2.6.1"));
        Sänd("<call:6>SM7AAA <gridsquare:8>JO65MR12 <eor>");
        Sänd("<call:6>SM7BBB <gridsquare:2>JO <eor>");
        Sänd(Record("SM7CCC"));
        EXPECT_EQ(f.txtDiplom->text(), "JO65MR");
        f.RensaTest();
    }
}

TEST_F(FT8Prov, AContactThatIsChosenForCorrectionIsNotWrittenOver) {
    frTest& f = StartaFT8();
    Loggad("SM5ABC", "2 M");
    Loggad("SM6ABC", "2 M");
    db().rsTESTQSO.MoveFirst();
    frEditorTest::instans().VisaVald();
    ASSERT_TRUE(delat.RedigeraQSO);
    Sänd("<freq:4>50.3 <eor>");
    EXPECT_FALSE(delat.RedigeraQSO) << "whatever comes onto the form is not for that contact";
    db().rsTESTQSO.MoveFirst();
    frEditorTest::instans().VisaVald();
    Sänd("hej");
    EXPECT_TRUE(delat.RedigeraQSO) << "nothing to take its place";
    EXPECT_EQ(db().rsTESTQSO.Field("Signal").text(), "SM5ABC");
    Sänd(Record("SM7AAA"));
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_EQ(frEditorTest::instans().txtSignal->text(), "") << "and the editor shows it";
    f.cmdSpara_Click();
    EXPECT_EQ(Läs(Logg(), "SELECT Signal FROM TESTQSO ORDER BY Signal"),
              (std::vector<std::vector<QString>>{{"SM5ABC"}, {"SM6ABC"}, {"SM7AAA"}}));
}

TEST_F(FT8Prov, TheProgramFolderHasThePlaceForTheRecord) {
    Starta();
    EXPECT_TRUE(QDir(Fil("FT8")).exists());
}
