#include "support/Programprov.h"

#include "cluster/DXClusterModul.h"
#include "cluster/DXSpottModul.h"
#include "contest/frVarning.h"
#include "platform/application.h"
#include "platform/clock.h"
#include "platform/mmvari/keyline.h"
#include "platform/mmvari/mmvari.h"
#include "platform/mmvari/soundcard.h"
#include "platform/paths.h"
#include "platform/windows.h"
#include "store/SparaModul.h"
#include "support/Provmapp.h"

#include <sqlite3.h>

namespace {

class Fråga {
public:
    Fråga(const QString& fil, const QString& sats) {
        if (sqlite3_open_v2(fil.toUtf8().constData(), &databas_, SQLITE_OPEN_READWRITE, nullptr) !=
                SQLITE_OK ||
            sqlite3_busy_timeout(databas_, 5000) != SQLITE_OK ||
            sqlite3_prepare_v2(databas_, sats.toUtf8().constData(), -1, &sats_, nullptr) != SQLITE_OK)
            ADD_FAILURE() << fil.toStdString() << ": " << sqlite3_errmsg(databas_);
    }
    ~Fråga() {
        sqlite3_finalize(sats_);
        sqlite3_close(databas_);
    }
    Fråga(const Fråga&) = delete;
    Fråga& operator=(const Fråga&) = delete;
    bool Steg() {
        const int svar = sats_ ? sqlite3_step(sats_) : SQLITE_DONE;
        if (svar != SQLITE_ROW && svar != SQLITE_DONE) ADD_FAILURE() << sqlite3_errmsg(databas_);
        return svar == SQLITE_ROW;
    }
    std::vector<QString> Rad() const {
        std::vector<QString> rad;
        for (int i = 0; i < sqlite3_column_count(sats_); ++i)
            rad.push_back(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(sats_, i))));
        return rad;
    }

private:
    sqlite3* databas_ = nullptr;
    sqlite3_stmt* sats_ = nullptr;
};

} // namespace

void PrintTo(const Meddelande& meddelande, std::ostream* ut) {
    *ut << '"' << meddelande.text.toStdString() << "\" titled \"" << meddelande.titel.toStdString() << '"';
}

Programprov::Programprov() {
    KopieraMapp(QStringLiteral(SORVIK_DATA), mapp_.path() + QStringLiteral("/Data"));
    platform::SetProgramFolder(mapp_.path());
    platform::SetClock([this] { return nu; });
    platform::SetEndProcess([this](int status) {
        slut = status;
        throw ProcessSlut{status};
    });
    // The machine's own sound card and serial port are nobody's to test with.
    platform::SoundCards() = {.input = [](const auto&) { return nullptr; },
                              .output = [](const auto&) { return nullptr; }};
    platform::KeyLines().open = [](const QString&) { return nullptr; };
    delat = {};
    NollställSpott();
    NollställDatabaser();
    KopplaDialoger();
    QObject::connect(&modalvakt_, &QTimer::timeout, &modalvakt_, [this] { VaktaModala(); });
    modalvakt_.start(1000);
}

Programprov::~Programprov() {
    platform::Dialogs() = {};
    platform::Mmvaris() = {};
    platform::SoundCards() = {};
    platform::KeyLines() = {};
    platform::SetEndProcess({});
    platform::SetClock({});
    platform::SetProgramFolder({});
}

void Programprov::NollställSpott() {
    RensaSpotFält();
    SpotBand = 0;
    SpotAvvisad = false;
    SpotRad = 1;
    SpotFörval = {};
    kluster = {};
}

void Programprov::TearDown() {
    platform::DestroyAllWindows();
    NollställDatabaser();
    for (const Meddelande& oväntat : meddelanden)
        ADD_FAILURE() << "unexpected message " << ::testing::PrintToString(oväntat);
    EXPECT_TRUE(jaNej.empty()) << "a question that the test answers was not asked";
    EXPECT_TRUE(filval.empty()) << "a file dialog that the test answers did not come up";
}

void Programprov::VaktaModala() {
    QWidget* uppe = QApplication::activeModalWidget();
    if (!uppe || uppe != modal_) {
        modal_ = uppe;
        modalSekunder_ = 0;
        return;
    }
    if (++modalSekunder_ < 20) return;
    ADD_FAILURE() << "nobody answers the modal window " << uppe->objectName().toStdString();
    uppe->close();
}

void Programprov::KopplaDialoger() {
    platform::Dialogs() = {.message =
                               [this](const QString& text, const QString& titel) {
                                   meddelanden.push_back({text, titel});
                               },
                           .yesNo =
                               [this](const QString& text, const QString& titel) {
                                   frågor.push_back({text, titel});
                                   if (jaNej.empty()) {
                                       ADD_FAILURE() << "unexpected question " << text.toStdString();
                                       return false;
                                   }
                                   const bool svar = jaNej.front();
                                   jaNej.pop_front();
                                   return svar;
                               },
                           .file = [this](const platform::FileQuestion& fråga) -> std::optional<QString> {
                               filfrågor.push_back(fråga);
                               if (filval.empty()) {
                                   ADD_FAILURE() << "unexpected file dialog " << fråga.title.toStdString();
                                   return std::nullopt;
                               }
                               const auto svar = filval.front();
                               filval.pop_front();
                               return svar;
                           }};
}

frTest& Programprov::Starta() {
    HoppaÖverSplash();
    frTest& f = frTest::instans();
    f.Ladda();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&f));
    return f;
}

frTest& Programprov::StartaLogg(int test, const QString& namn) {
    Ändra(Fil(QStringLiteral("SVD.Dat")),
          QStringLiteral(
              "UPDATE SVDINI SET OpSignal='SK7MW', OpTestLokator='JO65MR', OpTestDatum='2026-12-01'"));
    frTest& f = Starta();
    NyLogg(test, namn);
    return f;
}

void Programprov::NyLogg(int test, const QString& namn) {
    delat.AktuelltTest = test;
    filval.push_back(Logg(namn));
    frTest::instans().NyTestLogg();
    ASSERT_TRUE(frTest::instans().HarLogg());
}

frTest& Programprov::StartaOm() {
    platform::DestroyAllWindows();
    NollställDatabaser();
    delat = {};
    return Starta();
}

Meddelande Programprov::Tag() {
    EXPECT_EQ(meddelanden.size(), 1U);
    if (meddelanden.empty()) return {};
    const Meddelande första = meddelanden.front();
    meddelanden.erase(meddelanden.begin());
    return första;
}

void Programprov::Skriv(const QString& text) {
    for (const QChar tecken : text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        if (tecken.unicode() < 0x80)
            QTest::keyClicks(QApplication::focusWidget(), QString(tecken));
        else // QTest knows the key codes of ASCII alone
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(tecken),
                                Qt::NoModifier);
    }
}

void Programprov::Tryck(Qt::Key tangent, Qt::KeyboardModifiers med) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), tangent, med);
}

void Programprov::SkrivI(QWidget* fält, const QString& text) {
    fält->setFocus();
    Skriv(text);
}

void Programprov::Kör(const QString& signal, const QString& lokator) {
    frTest& f = frTest::instans();
    SkrivI(f.txtSignal, signal);
    f.txtDiplom->setFocus();
    Skriv(lokator);
    Tryck(Qt::Key_Return);
}

void Programprov::Loggad(const QString& signal, const QString& band, const QString& trafiksätt) {
    Ändra(delat.TestLoggFil,
          QStringLiteral(
              "INSERT INTO TESTQSO (Datum, Tid, Signal, Frekvens, Trafiksätt, \"Band \", Sänt, Mottaget, "
              "Multiplar, LöpNr, Namn, QTH, ITU, Zon, Diplom, DXCC, Land, Notering, Prefix, \"DXCC Nr\", "
              "Poäng, Distrikt, NDXCC, NRUTA, Dubblett, Rutor, LöpNrSR) VALUES ('2026-11-30', '20:00:00', "
              "'%1', '0,000,00', '%3', '%2', '599', '599', '', '', '', '', '18', '14', '', 'SM', "
              "'Sverige', '', 'SM5', '284', 100, '', '', '', '', '', '')")
              .arg(signal, band, trafiksätt));
    db().rsTESTQSO.Requery();
    RequeryFrågor();
}

void Programprov::NärFönster(const char* klass, std::function<void(QWidget*)> gör) {
    NärFönsterSyns(klass, gör);
}

void Programprov::SvaraVarning(bool ok) {
    NärFönster("frVarning", [ok](QWidget* fönster) {
        auto* varning = static_cast<frVarning*>(fönster);
        if (ok)
            QTest::mouseClick(varning->cmdOK, Qt::LeftButton);
        else
            varning->close();
    });
}

std::vector<std::vector<QString>> Programprov::Läs(const QString& fil, const QString& fråga) {
    Fråga läsning(fil, fråga);
    std::vector<std::vector<QString>> rader;
    while (läsning.Steg()) rader.push_back(läsning.Rad());
    return rader;
}

QString Programprov::LäsEtt(const QString& fil, const QString& fråga) {
    const auto rader = Läs(fil, fråga);
    return rader.empty() ? QString() : rader.front().front();
}

void Programprov::Ändra(const QString& fil, const QString& sats) { Fråga(fil, sats).Steg(); }
