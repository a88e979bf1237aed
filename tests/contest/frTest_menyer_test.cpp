// The menu bar: every entry by the name and the caption that operators know.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "contest/frGrid.h"
#include "contest/frHjälp.h"
#include "contest/frTestInst.h"
#include "contest/frTestOm.h"
#include "contest/frTestVal.h"
#include "platform/windows.h"

#include <QMenuBar>

#include <map>
#include <set>

namespace {

struct Menyrad {
    const char* meny;
    const char* namn;
    const char* text; ///< empty: the caption is not fixed
};

// clang-format off
constexpr Menyrad menyrader[] = {
    {"mnuArkiv", "mnuArkiv_NyTestLogg", ""},
    {"mnuArkiv", "mnuArkiv_ValavTest", ""},
    {"mnuArkiv", "mnuArkiv_ÖppnaTestlogg", ""},
    {"mnuArkiv", "mnuArkiv_StängTestlogg", ""},
    {"mnuArkiv", "mnuarkiv_Export", "Exportera"},
    {"mnuarkiv_Export", "mnuarkiv_Export_ADI", ".ADI..."},
    {"mnuarkiv_Export", "mnuArkiv_Export_SVK", ".SVK..."},
    {"mnuArkiv", "mnuArkiv_AnslutServer", ""},
    {"mnuArkiv", "mnuArkiv_KopplafrånServer", ""},
    {"mnuArkiv", "mnuArkiv_Avsluta", ""},
    {"mnuRedigera", "mnuRedigera_SparaQSO", "Spara QSO    ( Enter )"},
    {"mnuRedigera", "mnuRedigera_RaderaQSO", "Radera QSO  ( Del )"},
    {"mnuRedigera", "mnuRedigera_NollställLöpnr", "Nollställ Löpnr."},
    {"mnuRedigera", "mnuRedigera_NollställTimer", "Nollställ Timer"},
    {"mnuRedigera", "mnuRedigera_Uppdatera_Lokator", ""},
    {"mnuRedigera", "mnuRedigera_Uppdatera_Friend", ""},
    {"mnuRedigera", "mnuRedigera_TömLokator", ""},
    {"mnuRedigera", "mnuRedigera_TömFriend", ""},
    {"mnuInställning", "mnuInställning_Station_Test", ""},
    {"mnuInställning", "mnuInställning_RoppaCQ", "Tabföljd 1  (roppa CQ)"},
    {"mnuInställning", "mnuInställning_SvaraCQ", "Tabbföljd 2 (svara CQ)"},
    {"mnuInställning", "mnuInställning_Tabbstop_RST", ""},
    {"mnuInställning", "mnuInställning_Tabbstop_Löpnr", ""},
    {"mnuInställning", "mnuInställning_Vila", ""},
    {"mnuInställning", "mnuInställning_Volymkontroll", ""},
    {"mnuInställning", "mnuInställning_RadioPort", ""},
    {"mnuInställning", "mnuInställning_Digital", ""},
    {"mnuInställning", "mnuInställning_Nätverk_Inställning", ""},
    {"mnuInställning", "mnuInställning_Epost", ""},
    {"mnuDXCluster", "mnuDXSpot_DXSpot_Connect", ""},
    {"mnuDXCluster", "mnuDXSpot_DXSpot_Disconnect", ""},
    {"mnuDXCluster", "mnuDXSpot_Visa", "DX Spot Visa"},
    {"mnuDXCluster", "mnuDXSpot_logg", ""},
    {"mnuDXCluster", "mnuDXSpot_Förval", ""},
    {"mnuDXCluster", "mnuDXSpott_DXLogg_TömLogg", ""},
    {"mnuDXCluster", "mnufrDXSpotMeny_VisaDXCluster", "Visa DXCluster"},
    {"mnuDXCluster", "mnufrDXSpotMeny_DöljDXCluster", "Dölj DXCluster"},
    {"mnuDXCluster", "mnufrDXSpotMeny_VisaLogg", ""},
    {"mnuRadio", "mnuRadio_På", ""},
    {"mnuRadio", "mnuRadio_Av", ""},
    {"mnuRadio", "mnuRadio_Shift", ""},
    {"mnuCW", "mnuCW_CWTest", ""},
    {"mnuCW", "mnuCW_CWTestInst", ""},
    {"mnuCW", "mnuCW_Macrofiler_Laddafil", "Ladda Fil"},
    {"mnuDigital", "mnuDigital_Macro_Laddafil", "Ladda Fil"},
    {"mnuRapport", "mnuRapport_Cabrillo", ""},
    {"mnuRapport", "mnuRapport_EDI", ""},
    {"mnuRapport", "mnuRapport_Summa", ""},
    {"mnuRapport", "mnuRapport_Editor", ""},
    {"mnufönster", "mnufönster_Grid", ""},
    {"mnufönster", "mnufönster_Lokator", ""},
    {"mnufönster", "mnuFönster_DXSpot", ""},
    {"mnufönster", "mnuFönster_Digi", "Digital Test (FT8)"},
    {"mnufönster", "mnuFönster_Spelaljudfiler", "Spela ljudfiler (wav)"},
    {"mnuHjälp", "mnuHjälp_Sorvik", ""},
};
// clang-format on

class MenyProv : public Programprov {
protected:
    /// Opens a menu of the bar with Alt and its letter, and presses the entry's place with the arrow keys.
    static void Välj(QWidget* meny, const QAction* post) {
        auto* lista = static_cast<QMenu*>(meny);
        for (int i = 0; i < 40 && lista->activeAction() != post; ++i) QTest::keyClick(lista, Qt::Key_Down);
        ASSERT_EQ(lista->activeAction(), post);
        QTest::keyClick(lista, Qt::Key_Return);
    }
};

} // namespace

TEST_F(MenyProv, EveryEntryStandsInItsMenuUnderItsName) {
    frTest& f = Starta();
    for (const Menyrad& rad : menyrader) {
        SCOPED_TRACE(rad.namn);
        const QAction* post = f.Meny(rad.namn);
        EXPECT_EQ(post->objectName(), T(rad.namn));
        EXPECT_EQ(post->associatedObjects().value(0), f.Meny(rad.meny)->menu());
        EXPECT_FALSE(post->text().isEmpty());
        if (*rad.text) {
            EXPECT_EQ(post->text(), T(rad.text));
        }
    }
}

TEST_F(MenyProv, TheBarHoldsTheMenusAndNothingElse) {
    frTest& f = Starta();
    std::set<QString> namn;
    const auto poster = f.menuBar()->actions();
    for (const QAction* meny : poster) {
        EXPECT_NE(meny->menu(), nullptr);
        namn.insert(meny->objectName());
    }
    EXPECT_EQ(namn,
              (std::set<QString>{"mnuArkiv", "mnuRedigera", "mnuInställning", "mnuDXCluster", "mnuRadio",
                                 "mnuCW", "mnuDigital", "mnuRapport", "mnufönster", "mnuHjälp"}));
}

TEST_F(MenyProv, NoTwoEntriesShareANameAndNoTwoMenusALetter) {
    frTest& f = Starta();
    std::map<QString, int> namn;
    const auto poster = f.findChildren<QAction*>();
    for (const QAction* post : poster)
        if (post->objectName().startsWith("mnu")) ++namn[post->objectName()];
    for (const auto& [ett, antal] : namn) EXPECT_EQ(antal, 1) << ett.toStdString();
    std::map<QChar, int> bokstäver;
    const auto menyer = f.menuBar()->actions();
    for (const QAction* meny : menyer) {
        const qsizetype plats = meny->text().indexOf('&');
        ASSERT_GE(plats, 0) << meny->text().toStdString();
        ++bokstäver[meny->text().at(plats + 1).toLower()];
    }
    for (const auto& [bokstav, antal] : bokstäver) EXPECT_EQ(antal, 1) << QString(bokstav).toStdString();
}

TEST_F(MenyProv, DeletingALoggedContactHasTheDelKey) {
    EXPECT_EQ(Starta().Meny("mnuRedigera_RaderaQSO")->shortcut(), QKeySequence(Qt::Key_Delete));
}

TEST_F(MenyProv, NewLogAndChoiceOfContestShowTheSameWindowWithoutWaitingForIt) {
    frTest& f = Starta();
    for (const char* namn : {"mnuArkiv_NyTestLogg", "mnuArkiv_ValavTest"}) {
        SCOPED_TRACE(namn);
        f.Meny(namn)->trigger(); // comes back, though nobody has chosen anything
        EXPECT_TRUE(frTestVal::instans().isVisible());
        EXPECT_FALSE(frTestVal::instans().isModal());
        frTestVal::instans().close();
    }
}

TEST_F(MenyProv, StationDataWaitForTheOperatorAndAreInReachWithNoLogOpen) {
    frTest& f = Starta();
    bool körd = false;
    NärFönster("frTestInst", [&](QWidget* fönster) {
        körd = true;
        EXPECT_TRUE(fönster->isModal());
        EXPECT_EQ(fönster->windowTitle(), "Station / Test Inst.");
        fönster->close();
    });
    f.Meny("mnuInställning_Station_Test")->trigger();
    EXPECT_TRUE(körd);
}

TEST_F(MenyProv, AMenuEntryCanBeReachedWithKeysAlone) {
    frTest& f = Starta();
    QMenu* arkiv = f.Meny("mnuArkiv")->menu();
    QTest::keyClick(f.menuBar(), Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return arkiv->isVisible(); }));
    Välj(arkiv, f.Meny("mnuArkiv_ValavTest"));
    EXPECT_TRUE(QTest::qWaitFor([] { return frTestVal::instans().isVisible(); }));
}

TEST_F(MenyProv, AClickOnTheRadioEntryThatIsMarkedKeepsItsMark) {
    frTest& f = StartaLogg(1);
    f.Meny("mnuRadio_Av")->trigger();
    EXPECT_TRUE(f.Meny("mnuRadio_Av")->isChecked());
    EXPECT_FALSE(f.Meny("mnuRadio_På")->isChecked());
}

// ---- the small windows --------------------------------------------------------------------------------

TEST_F(MenyProv, TheAboutWindowTellsProductAndVersion) {
    frTest& f = Starta();
    bool körd = false;
    NärFönster("frTestOm", [&](QWidget* fönster) {
        körd = true;
        auto* om = static_cast<frTestOm*>(fönster);
        EXPECT_EQ(om->windowTitle(), "Om Sorvik");
        EXPECT_EQ(om->lblTitle->text(), "Sorvik");
        EXPECT_EQ(om->lblVersion->text(), "3.0.0");
        QTest::mouseClick(om->cmdOK, Qt::LeftButton);
        EXPECT_FALSE(om->isVisible());
    });
    f.Meny("mnuHjälp_Om")->trigger();
    EXPECT_TRUE(körd);
}

TEST_F(MenyProv, SystemInformationIsUnavailableWhereNoProgramIsRegistered) {
    Starta();
    QTest::mouseClick(frTestOm::instans().cmdSysInfo, Qt::LeftButton);
    EXPECT_EQ(Tag().text, "System Information Is Unavailable At This Time");
}

TEST_F(MenyProv, TheMapIsOpenedByItsMenuAndClosedByItsButton) {
    frTest& f = StartaLogg(1);
    f.Meny("mnufönster_Grid")->trigger();
    frGrid& karta = frGrid::instans();
    EXPECT_TRUE(karta.isVisible());
    EXPECT_EQ(karta.windowTitle(), "Grid Karta");
    EXPECT_FALSE(karta.picKarta->pixmap().isNull());
    EXPECT_EQ(karta.findChildren<QPushButton*>(), QList<QPushButton*>{karta.cmdAvbryt});
    QTest::mouseClick(karta.cmdAvbryt, Qt::LeftButton);
    EXPECT_FALSE(karta.isVisible());
}

TEST_F(MenyProv, AClickOnTheSmallMapOpensTheLargeOne) {
    frTest& f = Starta();
    EXPECT_FALSE(f.Image1->pixmap().isNull());
    QTest::mouseClick(f.Image1, Qt::LeftButton);
    EXPECT_TRUE(frGrid::instans().isVisible());
}

TEST_F(MenyProv, TheMapWindowComesWithoutItsPictureToo) {
    QFile::remove(Fil("Bilder/Karta.png"));
    frTest& f = StartaLogg(1);
    f.Meny("mnufönster_Grid")->trigger();
    EXPECT_TRUE(frGrid::instans().isVisible());
}

TEST_F(MenyProv, TheHelpEntryShowsTheHelpFileOfTheProgramFolder) {
    frTest& f = Starta();
    QFile fil(Fil("Sorvik Multi.hlp"));
    ASSERT_TRUE(fil.open(QIODevice::WriteOnly));
    fil.write("Så här kör man en test.");
    fil.close();
    f.Meny("mnuHjälp_Sorvik")->trigger();
    const frHjälp& hjälp = frHjälp::instans();
    EXPECT_TRUE(hjälp.isVisible());
    EXPECT_EQ(hjälp.txtHjälp->toPlainText(), "Så här kör man en test.");
    EXPECT_TRUE(hjälp.txtHjälp->isReadOnly());
    QTest::mouseClick(hjälp.cmdStäng, Qt::LeftButton);
    EXPECT_FALSE(hjälp.isVisible());
}

TEST_F(MenyProv, AMissingHelpFileIsNamedInTheHelpWindow) {
    QFile::remove(Fil("Sorvik Multi.hlp"));
    Starta().Meny("mnuHjälp_Sorvik")->trigger();
    EXPECT_TRUE(frHjälp::instans().txtHjälp->toPlainText().contains("Sorvik Multi.hlp"));
}
