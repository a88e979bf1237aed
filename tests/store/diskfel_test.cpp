// A disk that takes no more, and a log that may not be written.
#include "Sparprov.h"

#include <QDir>
#include <QDirIterator>

#include <csignal>
#include <fcntl.h>
#include <sched.h>
#include <sys/fsuid.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// No file of this process can be written while it lives.
class FullDisk {
public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &före_);
        const rlimit ingenting{.rlim_cur = 0, .rlim_max = före_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &ingenting);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &före_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit före_{};
};

/// Files are opened with the rights of nobody in particular, since modes do not bind root.
class UtanRättigheter {
public:
    UtanRättigheter() { setfsuid(65534); }
    ~UtanRättigheter() { setfsuid(geteuid()); }
    UtanRättigheter(const UtanRättigheter&) = delete;
    UtanRättigheter& operator=(const UtanRättigheter&) = delete;
};

void Rättigheter(const QString& fil, mode_t rättigheter) {
    const int vem = setfsuid(geteuid()); // only the owner may
    const int svar = chmod(QFile::encodeName(fil).constData(), rättigheter);
    setfsuid(static_cast<uid_t>(vem));
    ASSERT_EQ(svar, 0) << fil.toStdString();
}

/// A mount of its own that this process alone sees, so that it goes with it.
bool MonteraEgen(const QString& mapp, const char* storlek) {
    return unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", QFile::encodeName(mapp).constData(), "tmpfs", 0, storlek) == 0;
}

/// Takes what is left of the disk that the file lies on.
void FyllUpp(const QString& fil) {
    const int fd = open(QFile::encodeName(fil).constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    const std::vector<char> block(1024);
    while (write(fd, block.data(), block.size()) > 0) {
    }
    close(fd);
}

const QString kolumner = QStringLiteral("Datum, Tid, Signal, Frekvens, Trafiksätt, [Band ], Sänt, Mottaget, "
                                        "Multiplar, LöpNr, Namn, QTH, ITU, Zon, "
                                        "Diplom, DXCC, Land, Notering, Prefix, [DXCC Nr], Poäng, Distrikt, "
                                        "NDXCC, NRUTA, Dubblett, Rutor, LöpNrSR");
const Meddelande minnesfel{"Fel har intäffat vid sparning av Test Lokator", "SparaTestLokator"};

} // namespace

struct Diskfall {
    int test;
    const char* text;
    std::array<const char*, 3> rader; ///< of DL1ABC, DL2ABC and DL3ABC
};
void PrintTo(const Diskfall& fall, std::ostream* ut) { *ut << fall.test; }

class Diskfel : public Sparprov {
protected:
    QString Integritet() const { return LäsEtt(Logg(), "PRAGMA integrity_check"); }
    /// Without a second that passes in between, a closed log writes nothing back.
    static void StannaKlockor() {
        const frTest& f = frTest::instans();
        for (platform::Timer* timer : {f.TimerAktiv, f.TimerVila, f.Timer_Wait}) timer->Interval(0);
    }
};

class Diskfels : public Diskfel, public ::testing::WithParamInterface<Diskfall> {
protected:
    /// What a save says that no file takes: the saver, and in contests 0 to 8 the memory of locators.
    static std::vector<Meddelande> Fel() {
        std::vector<Meddelande> fel = {{GetParam().text, "SparaQSO"}};
        if (GetParam().test <= 8) fel.push_back(minnesfel);
        return fel;
    }
};

// clang-format off
INSTANTIATE_TEST_SUITE_P(Familjer, Diskfels, ::testing::Values(
    Diskfall{1, "Ett fel har inträffat vid Sparande/Uppdatering av QSO.", {
        "2026-12-01|18:00:00|DL1ABC|0,000,00|CW|2 M|599|599|JO89WJ||||28|14|JO89|DL|Tyskland||DL|230|500||N|N||JO89|0001",
        "2026-12-01|18:00:00|DL2ABC|0,000,00|CW|2 M|599|599|JO67BQ||||28|14|JO67|DL|Tyskland||DL|230|225|||N||JO67|0001",
        "2026-12-01|18:00:00|DL3ABC|0,000,00|CW|2 M|599|599|JP80||||28|14|JP80|DL|Tyskland||DL|230|580|||N||JP80|0001"}},
    Diskfall{4, "Ett fel har inträffat vid sparande/uppdatering av QSO.", {
        "2026-12-01|18:00:00|DL1ABC|0,000,00|SSB|10 M|59|59|JO89WJ||||28|14|JO89|DL|Tyskland||DL|230|500||N|N||JO89|0001",
        "2026-12-01|18:00:00|DL2ABC|0,000,00|SSB|10 M|59|59|JO67BQ||||28|14|JO67|DL|Tyskland||DL|230|225|||N||JO67|0001",
        "2026-12-01|18:00:00|DL3ABC|0,000,00|SSB|10 M|59|59|JP80||||28|14|JP80|DL|Tyskland||DL|230|580|||N||JP80|0001"}},
    // The number of the held contact was sent and is shown for the next one again.
    Diskfall{7, "Ett fel har inträffat vid sparande/uppdatering av QSO.", {
        "2026-12-01|18:00:00|DL1ABC|0,000,00|CW|80 M|599 01|599 |JO89WJ||||28|14|JO89 80 M|DL|Tyskland||DL|230|2||N|N||JO89 80 M|01",
        "2026-12-01|18:00:00|DL2ABC|0,000,00|CW|80 M|599 02|599 |JO67BQ||||28|14|JO67 80 M|DL|Tyskland||DL|230|2|||N||JO67 80 M|02",
        "2026-12-01|18:00:00|DL3ABC|0,000,00|CW|80 M|599 02|599 |JP80||||28|14|JP80 80 M|DL|Tyskland||DL|230|2|||N||JP80 80 M|02"}},
    Diskfall{9, "Ett fel har inträffat vid sparande/uppdatering av QSO.", {
        "2026-12-01|18:00:00|DL1ABC|0,000,00|CW|80 M|599 001|599 |DL||||28|14|DL (80 M)|DL|Tyskland||DL|230|1||||||001",
        "2026-12-01|18:00:00|DL2ABC|0,000,00|CW|80 M|599 002|599 |DL||||28|14|DL (80 M)|DL|Tyskland||DL|230|1||||||002",
        "2026-12-01|18:00:00|DL3ABC|0,000,00|CW|80 M|599 002|599 |DL||||28|14|DL (80 M)|DL|Tyskland||DL|230|1||||||002"}},
    Diskfall{14, "Ett fel har inträffat vid Sparande/Uppdatering av QSO.", {
        "2026-12-01|18:00:00|DL1ABC|0,000,00|CW|2 M|599|599|JO89WJ||||28|14|JO89|DL|Tyskland||DL|230|500|||N||JO89|001",
        "2026-12-01|18:00:00|DL2ABC|0,000,00|CW|2 M|599|599|JO67BQ||||28|14|JO67|DL|Tyskland||DL|230|225|||N||JO67|002",
        "2026-12-01|18:00:00|DL3ABC|0,000,00|CW|2 M|599|599|JP80||||28|14|JP80|DL|Tyskland||DL|230|580|||N||JP80|002"}}));
// clang-format on

TEST_P(Diskfels, OnAFullDiskTheSaverSaysSoTheProgramGoesOnAndTheNextSaveWritesTheHeldContact) {
    const auto& rader = GetParam().rader;
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo89wj");
    {
        const FullDisk full;
        Kör("dl2abc", "jo67bq");
    }
    EXPECT_EQ(meddelanden, Fel());
    meddelanden.clear();
    EXPECT_EQ(Integritet(), "ok");
    EXPECT_EQ(Rader(kolumner), QStringList{rader[0]}) << "earlier contacts are intact";
    EXPECT_EQ(f.txtSignal->text(), "") << "the form is cleared";
    EXPECT_EQ(f.lblQSO->text(), "1");
    EXPECT_EQ(QApplication::focusWidget(), f.txtSignal);
    EXPECT_FALSE(slut) << "the program goes on";
    Kör("dl3abc", "jp80");
    EXPECT_EQ(Rader(kolumner), (QStringList{rader[0], rader[1], rader[2]}));
    EXPECT_EQ(f.lblQSO->text(), "3");
    EXPECT_EQ(Integritet(), "ok");
    // Only the contact that was saved together with its serial has moved the counter.
    EXPECT_EQ(INFO("LöpNr"), GetParam().test >= 7 ? "3" : "1");
}

TEST_P(Diskfels, TheFirstContactOfALogIsHeldLikeAnyOther) {
    frTest& f = StartaKlar(GetParam().test);
    {
        const FullDisk full;
        Kör("dl2abc", "jo67bq");
    }
    EXPECT_EQ(meddelanden, Fel());
    meddelanden.clear();
    EXPECT_EQ(Antal(), 0);
    Kör("dl3abc", "jp80");
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL2ABC", "DL3ABC"}));
    EXPECT_EQ(f.lblQSO->text(), "2");
}

TEST_P(Diskfels, AnEditedContactIsHeldAsItWasEdited) {
    StartaKlar(GetParam().test);
    Kör("dl1abc", "jo89wj");
    Redigera(0);
    SkrivI(frTest::instans().txtNamn, "Karl");
    {
        const FullDisk full;
        Tryck(Qt::Key_Return);
    }
    EXPECT_EQ(Tag(), Fel().front()) << "its locator is known already";
    EXPECT_EQ(Rader(kolumner), QStringList{GetParam().rader[0]});
    Kör("dl3abc", "jp80");
    EXPECT_EQ(Rader("Signal, Namn"), (QStringList{"DL1ABC|Karl", "DL3ABC|"}));
}

TEST_P(Diskfels, TheCursorHoldsTheFirstOfSeveralContactsAndTellsOfEachOther) {
    StartaKlar(GetParam().test);
    Kör("dl1abc", "jo89wj");
    {
        const FullDisk full;
        Kör("dl2abc", "jo67bq");
        EXPECT_EQ(meddelanden, Fel());
        meddelanden.clear();
        Kör("dl4abc", "jo66aa");
        EXPECT_EQ(meddelanden, Fel());
        meddelanden.clear();
    }
    Kör("dl3abc", "jp80");
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL1ABC", "DL2ABC", "DL3ABC"}));
}

TEST_P(Diskfels, ALongestContactWhoseEditIsHeldIsNotShownAndTheProgramGoesOn) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo89wj");
    const QString visad = f.lblLängstaQSO->text();
    const QString sparad = INFO("LängstaQSOSträng");
    Redigera(0);
    f.txtSignal->setText("DL9ZZZ");
    {
        const FullDisk full;
        f.txtNamn->setFocus();
        Tryck(Qt::Key_Return);
    }
    EXPECT_EQ(meddelanden, Fel());
    meddelanden.clear();
    EXPECT_FALSE(slut);
    EXPECT_EQ(f.lblLängstaQSO->text(), visad);
    EXPECT_EQ(INFO("LängstaQSOSträng"), sparad);
    Kör("dl3abc", "jo88aa");
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL9ZZZ", "DL3ABC"}));
}

TEST_P(Diskfels, AHeldContactIsWrittenWhenTheLogIsClosed) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo89wj");
    {
        const FullDisk full;
        Kör("dl2abc", "jo67bq");
    }
    EXPECT_EQ(meddelanden, Fel());
    meddelanden.clear();
    f.mnuArkiv_StängTestlogg_Click();
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL1ABC", "DL2ABC"}));
}

TEST_P(Diskfels, AHeldContactIsWrittenAtExit) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo89wj");
    {
        const FullDisk full;
        Kör("dl2abc", "jo67bq");
    }
    EXPECT_EQ(meddelanden, Fel());
    meddelanden.clear();
    f.StängAlltOchSpara();
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL1ABC", "DL2ABC"}));
}

TEST_P(Diskfels, TheDeletionOfAnotherContactWritesTheHeldOne) {
    frTest& f = StartaKlar(GetParam().test);
    Kör("dl1abc", "jo89wj");
    Kör("dl3abc", "jp80");
    {
        const FullDisk full;
        Kör("dl2abc", "jo67bq");
    }
    EXPECT_EQ(meddelanden, Fel());
    meddelanden.clear();
    Redigera(0);
    jaNej.push_back(true);
    f.cmdRadera->click();
    EXPECT_EQ(frågor.back().text, "Vill du verkligen radera DL1ABC från loggen?");
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL3ABC", "DL2ABC"}));
    EXPECT_EQ(f.lblQSO->text(), "2");
}

TEST_F(Diskfel, ADiskThatFillsUpUnderTheLogIsToldAndGoesOnOnceThereIsSpace) {
    QDir().mkpath(Fil("Loggar"));
    if (!MonteraEgen(Fil("Loggar"), "size=400k")) GTEST_SKIP() << "no file system can be mounted here";
    const QString utfyllnad = Fil("Loggar/utfyllnad");
    frTest& f = StartaKlar(7);
    Kör("dl1abc", "jo89wj");
    FyllUpp(utfyllnad);
    Kör("dl2abc", "jo67bq");
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid sparande/uppdatering av QSO.", "SparaQSO"}))
        << "the memory of locators lies on another disk";
    EXPECT_EQ(Rader("Signal, LöpNrSR"), QStringList{"DL1ABC|01"});
    EXPECT_EQ(Integritet(), "ok");
    EXPECT_EQ(f.txtSignal->text(), "");
    ASSERT_TRUE(QFile::remove(utfyllnad));
    Kör("dl3abc", "jp80");
    EXPECT_EQ(Rader("Signal, LöpNrSR"), (QStringList{"DL1ABC|01", "DL2ABC|02", "DL3ABC|02"}));
    EXPECT_EQ(Integritet(), "ok");
    StannaKlockor();
    f.StängTestLogg();
    umount(QFile::encodeName(Fil("Loggar")).constData());
}

// ---- a log that may not be written --------------------------------------------------------------------

class Skrivskydd : public Diskfel, public ::testing::WithParamInterface<std::pair<int, const char*>> {
protected:
    /// Everything below Data may be written by anybody.
    void Öppna() {
        Rättigheter(QFileInfo(Fil("..")).canonicalFilePath(), 0777);
        Rättigheter(Fil(""), 0777);
        QDirIterator allt(Fil(""), QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (allt.hasNext()) {
            const QString fil = allt.next();
            Rättigheter(fil, allt.fileInfo().isDir() ? 0777 : 0666);
        }
    }
    void ÖppnaLoggen() {
        filval.push_back(Logg());
        frTest::instans().mnuArkiv_ÖppnaTestlogg_Click();
    }
};
INSTANTIATE_TEST_SUITE_P(
    Familjer, Skrivskydd,
    ::testing::Values(std::pair(1, "Ett fel har inträffat vid Sparande/Uppdatering av QSO."),
                      std::pair(4, "Ett fel har inträffat vid sparande/uppdatering av QSO."),
                      std::pair(7, "Ett fel har inträffat vid sparande/uppdatering av QSO."),
                      std::pair(9, "Ett fel har inträffat vid sparande/uppdatering av QSO."),
                      std::pair(14, "Ett fel har inträffat vid Sparande/Uppdatering av QSO.")));

TEST_P(Skrivskydd, OfTheFileIsToldAtEachSaveAndNothingElseHappens) {
    const auto [test, text] = GetParam();
    frTest& f = StartaKlar(test);
    Kör("dl1abc", "jo89wj");
    StannaKlockor();
    Öppna();
    Rättigheter(Logg(), 0444);
    const UtanRättigheter nobody;
    ÖppnaLoggen();
    EXPECT_EQ(f.lblQSO->text(), "1") << "it can be read";
    for (const auto& [signal, lokator] : {std::pair("dl2abc", "jo67bq"), std::pair("dl3abc", "jp80")}) {
        f.TestTimer_Tick();
        Kör(signal, lokator);
        EXPECT_EQ(Tag(), (Meddelande{text, "SparaQSO"}));
        EXPECT_EQ(f.txtSignal->text(), "");
        EXPECT_EQ(f.lblQSO->text(), "1");
    }
    EXPECT_FALSE(slut);
    EXPECT_EQ(Rader("Signal"), QStringList{"DL1ABC"});
    StannaKlockor();
    Rättigheter(Logg(), 0666);
    ÖppnaLoggen();
    EXPECT_EQ(Tag(), (Meddelande{"Ett databasfel har inträffat.", "StängTestLogg"}))
        << "what was held is lost";
    Kör("dl4abc", "jo66aa");
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL1ABC", "DL4ABC"}));
    EXPECT_EQ(Integritet(), "ok");
    StannaKlockor();
}

TEST_P(Skrivskydd, OfTheFolderIsToldAndTheNextSaveWritesTheHeldContact) {
    const auto [test, text] = GetParam();
    StartaKlar(test);
    Öppna();
    const UtanRättigheter nobody;
    ÖppnaLoggen();
    frTest::instans().TestTimer_Tick();
    Kör("dl1abc", "jo89wj");
    // Without a journal beside it no log is written.
    Rättigheter(Fil("Loggar"), 0555);
    Kör("dl2abc", "jo67bq");
    EXPECT_EQ(Tag(), (Meddelande{text, "SparaQSO"}));
    EXPECT_EQ(Rader("Signal"), QStringList{"DL1ABC"});
    Rättigheter(Fil("Loggar"), 0777);
    Kör("dl3abc", "jp80");
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL1ABC", "DL2ABC", "DL3ABC"}));
    EXPECT_EQ(Integritet(), "ok");
    StannaKlockor();
}
