#pragma once

#include "contest/TestKatalog.h"
#include "platform/datagrid.h"
#include "platform/serialport.h"
#include "platform/timer.h"
#include "platform/udpsocket.h"
#include "platform/widgets.h"
#include "radio/Makro.h"

#include <QGroupBox>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace platform {
class MmvariX;
class XMMVBtn;
class XMMVLvl;
class XMMVView;
} // namespace platform

/// The main window: entry form, score board, log and menus. It is the first thing loaded and the last to go.
///
/// The body is split by concern: frTest.cpp (life of the window), frTest_layout, frTest_meny,
/// frTest_formulär (the entry form), frTest_spara (the two save chains), frTest_logg (log files),
/// frTest_tavla (grids), frTest_klockor, frTest_kluster, frTest_radio, frTest_digital, frTest_makro,
/// frTest_ft8. What the call in the form means and what a contact is worth stands in store/.
class frTest : public QMainWindow {
public:
    using Fält = platform::TextBox;
    using Lista = platform::ComboBox;

    frTest();
    ~frTest() override;
    static frTest& instans();

    /// From nothing to an idle window: splash, databases, settings, timers. @throws platform::Failure
    void Ladda();

    // ---- the entry form -------------------------------------------------------------------------------
    QGroupBox* frmLogg;
    Fält *txtSignal, *txtRSTM, *txtRSTS, *txtLöpnrM, *txtLöpnrS, *txtDiplom, *txtFrekvens, *txtNamn,
        *txtNotering, *txtLokator, *txtITUM, *txtZONM, *txtDatum;
    /// Filled by the checks and read by the savers; never on screen.
    Fält *txtDXCCNR, *txtPrefix, *txtNDXCC, *txtNRUTA, *txtDubblett, *txtRutor, *txtData;
    Lista *cmbTrafik, *cmbBand, *cmbDiplom;
    QLabel* lblTyp;
    QPushButton *cmdSpara, *cmdAvbryt, *cmdVisa, *cmdRadera, *cmdVila, *cmdRensa;
    QLabel *lblNyttLand, *lblNyttBand, *lblNyRuta, *lblMultipel, *lblDubblett, *lblDistrikt, *lblNyIOTA;

    // ---- what the call is worth -----------------------------------------------------------------------
    QLabel *lblLand, *lblKont, *lblDXCC, *lblTid, *lblRiktning, *lblAvstånd, *lblLängstaQSO;
    QGroupBox* frmTQSO;
    platform::DataGrid* dgTidigareQSO;
    platform::FlexGrid *fgTestData1, *fgTestData2;

    // ---- the score board ------------------------------------------------------------------------------
    QLabel *lblQSO, *lblQSOPoäng, *lblTotalQSOPoäng, *lblMultiplar, *lblDiplom, *lblTotalPoäng;
    QLabel *lblMultipelText, *lblDiplomText;
    platform::DataGrid *dgLogg, *dgMulti, *dgDXCC;
    Fält *txtAktiv, *txtVila, *txtLokalTid, *txtUTCTid;
    QPlainTextEdit* txtInfo;
    QLabel* lblV;
    platform::ClickLabel* Image1;

    // ---- digital contests -----------------------------------------------------------------------------
    QGroupBox* frmDigital;
    platform::XMMVView* XMMVView;
    platform::XMMVLvl* XMMVLvl;
    QComboBox *CBMode, *CBSpeed, *CBRX;
    platform::XMMVBtn *BtnTX, *BtnRX, *BtnHAM, *BtnAFC, *BtnATC, *BtnNET;
    platform::TextView* RXWindow;
    platform::TextPane* TXWindow;
    QGroupBox* fmMacro;
    std::array<platform::PushButton*, radio::makroKnappar + 1> cmdMacro{}; ///< index 1 to 12

    platform::Timer *TestTimer, *TimerAktiv, *TimerVila, *Timer_Wait, *Nettimer;
    // Left from the time before the rig service: a clock without work and a line that nobody opens.
    platform::Timer* Timer_Radio;
    platform::SerialPort* mscRadio1;
    platform::UdpSocket* Winsock1; ///< hears of the FT8 program's contacts

    /// A menu or menu entry by its name. @throws std::out_of_range
    QAction* Meny(const char* namn) const { return menyer_.at(QString::fromUtf8(namn)); }

    // ---- the DX cluster -------------------------------------------------------------------------------
    /// Makes the connection if there is none; one over TCP gives a message.
    void DXSpotPå();
    void DXSpotAv() {} // the connection goes with its window
    void mnuDXSpot_Visa_Click();
    /// The way back from the other windows: the call on the entry form gets the focus.
    void FokusTillSignal();
    /// Moves the window aside, as far as the screen lets it. @param vänster pixels from the left
    void Vänsterkant(int vänster);

    // ---- the radio ------------------------------------------------------------------------------------
    void mnuRadio_På_Click();
    void mnuRadio_Av_Click();
    void mnuRadio_Shift_Click();
    void cmbBand_Click();
    /// The menu's marks as rig control is; once it is off, the frequency loses its colour too.
    void VisaRadioläge();
    /// Light green as soon as a radio has told of itself; a frequency without a form leaves the text.
    void FärgaFrekvens(bool följer);

    // ---- the digital modes ----------------------------------------------------------------------------
    /// Sets the engine up by the settings, and starts it in a digital contest.
    void Initiera_MMVari();
    void Initiera_Bandbredd();
    void Initiera_BPF();
    /// The sound card and the line that keys the radio are free for others.
    void StannaMMVari();
    /// The transmitter goes off at once, if it is on.
    void AvbrytSändning();
    /// The transmitter goes on; back to receive when the text has run out.
    void TX();
    void RX();

    // ---- macros ---------------------------------------------------------------------------------------
    /// Puts the macro of a button, with its placeholders filled in, at the end of TXWindow. @param nummer 1
    /// to 12
    void cmdMacro_Click(int nummer);
    /// The caption of a button as the table has it. @param nummer 1 to 12
    void VisaMakroknapp(int nummer);
    /// Macros from a file, and to one. A failure shows its message.
    void LäsTestMakroIni(const QString& filnamn);
    void SparaTestMakro(const QString& filnamn);
    /// Asks for a file of a folder below Data/ and reads it.
    void LaddaMakrofil(const QString& mapp);
    /// Macros go out by way of TXWindow; nothing else sends one.
    void SkickaTestMacro() {}

    // ---- contacts of the FT8 program ------------------------------------------------------------------
    /// Listens for them and starts the program. Without a port or a program there is a message.
    void StartFT8();
    void Winsock1_DataArrival();
    /// Behind a message or a dialog stands a step that is not done, a save for instance: it would clear the
    /// form that a contact has just filled, and throw away its file.
    static bool FT8FårVänta();
    /// Lets go of a contact that is being corrected, before anything of another one comes onto the form.
    static void SläppRättning();
    /// What belongs to the call before, and not to the one that takes its place.
    void LämnaFörraQSO(bool lokatorKommer);
    /// The distance of the locator instead of the country's, as if it had been typed. What cannot be measured
    /// is said when the operator leaves the field, not when a contact arrives.
    void VisaFT8Avstånd();
    /// Parks txtData in its file. A failure shows its message.
    void SparaData();
    /// The parked record into the entry form; a field whose tag is missing stays as it is. With no open log,
    /// and at a failure, there is a message; what has been filled by then stays.
    void ImporteraAdif();

    // ---- life of the window ---------------------------------------------------------------------------
    void Initiera_Fönster();
    void AktiveraMenyer(bool på);
    void StängAlltOchSpara();
    /// Text of a panel of the status bar, 1 to 4.
    void SBarTest(int panel, const QString& text);
    QString SBarTest(int panel) const;
    void SättRubrik(const QString& titel);

    // ---- log files ------------------------------------------------------------------------------------
    /// A log is open, cursors and all. The flag alone survives a new log that was cancelled in its dialog.
    bool HarLogg() const;
    void NyTestLogg();
    void ÖppnaTestLogg();
    /// @throws platform::Failure
    void VerkställÖppnaTestLogg();
    void StängTestLogg();
    /// Blanks the fields of the row that rsTESTQSO is adding. @throws platform::Failure
    void TömTESTQSO();
    /// Reads the log again, for what other stations have put there. Its timer is never given an interval: an
    /// operator sees other stations' contacts at his own next save, or when he opens the log.
    void UppdateraViaNät();
    // A shared log is opened like any other; there is no server to connect to.
    void AnslutTillServer() {}
    void KopplafrånSever() {}
    void mnuArkiv_StängTestlogg_Click();
    void mnuArkiv_ÖppnaTestlogg_Click();

    // ---- the set-up of a contest ----------------------------------------------------------------------
    void InitieraTest(int test);
    void Initiera_Contest();
    /// Own locator and call as they are now: a new log is open before its station data is confirmed.
    void VisaStation();

    // ---- the entry form -------------------------------------------------------------------------------
    void RensaTest();
    /// What the last call was found to be and to be worth must not stand beside the next one, nor count for
    /// it.
    void RensaBedömning();
    void cmdSpara_Click();
    void cmdAvbryt_Click();
    void cmdVisa_Click();
    void cmdRadera_Click();
    void cmdRensa_Click();
    void mnuRedigera_SparaQSO_Click();
    void mnuRedigera_NollställLöpnr_Click();
    void cmbTrafik_Click();
    void txtSignal_Change();
    void txtSignal_LostFocus();
    void txtLöpnrM_LostFocus();
    void txtLöpnrS_Change();
    void txtDiplom_Change();
    void txtDiplom_GotFocus();
    void txtDiplom_LostFocus();
    /// Copies the current row of the log into the form for editing. Nobody calls it: the editor of logged
    /// contacts has fields of its own. A failure shows its message.
    void VisaTestQSOData();
    /// Fills the two lists with all modes and bands. Nobody calls it: the lists come with the contest.
    void Initiera_Combo();
    /// Nothing depends on it; it is kept for its name.
    void KollaPrefix() {}
    /// Tab orders 1 (calling CQ) and 2 (answering).
    void Tabbföljd(int nummer);
    void TabbstoppRST(bool på);
    void TabbstoppLöpnr(bool på);
    /// What leaving txtDiplom does, if it has not been done for the locator that stands there now.
    void UppdateraAvstånd();

    // ---- grids ----------------------------------------------------------------------------------------
    void UppdateraTest();
    void UppdateraBand();
    void Initiera_fgTestData1();
    void Initiera_fgTestData2();
    void Initiera_dgLogg1();
    void Initiera_dgLogg2();
    void Initiera_dgLogg();
    void Initiera_dgMulti();
    void Initiera_fgDXCC();
    void Initiera_fgSignal();
    void Initiera_dgTidigareQSO();
    /// No row of the log is shown while no log is open.
    void KopplaFrånRutnät();

    // ---- clocks ---------------------------------------------------------------------------------------
    void TestTimer_Tick();
    void AktivTestTid();
    void VilaTesttid();
    void Timer_Wait_Tick();
    void cmdVila_Click();
    void mnuRedigera_NollställTimer_Click();

    /// The locator for which lblAvstånd was computed; empty after RensaTest.
    QString avståndFör;
    /// VisaTestDXCC has coloured the country labels. Nothing asks.
    bool landFärgat = false;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    const contest::Test& Test() const;

    void Placera(QPoint plats);
    void ByggFönster();
    QWidget* ByggFormulär();
    QWidget* ByggVärde();
    QWidget* ByggTavla();
    QWidget* ByggKlockor();
    QWidget* ByggTakt();
    QWidget* ByggListor();
    QWidget* ByggDigital();
    QLayout* ByggModemknappar();
    QLayout* ByggTextfönster();
    platform::MmvariX& Mmv();
    void VisaHastighet();
    void VisaMottagning();
    void VisaKnapp(int vilken);
    void BtnTX_Click();
    void MMVARI_Sändläge(int läge);
    void TömTXWindow();
    void MMVARI_SändBegäran();
    void MMVARI_Mottaget(int kanal, QChar tecken);
    void RXWindow_DblClick(const QTextCursor& markör);
    QWidget* ByggMakro();
    void ByggStatusrad();
    void ByggMenyer();
    void KopplaMenyer();
    void KopplaFormulär();
    void KopplaKnappar();

    void InitieraVal(const contest::Test& val);
    /// The two refusals before a save; each shows its message.
    bool SparaVägras();
    /// KollaPoäng under the conditions of the save chains and of txtSignal's focus.
    void KollaPoängOmDags();
    /// A contact that could not be written when it was saved gets its last chance; if that fails
    /// too, the message comes and the contact is given up.
    void SkrivHållenKontakt();
    void EfterSparad();
    void StartaKlockor();
    /// Neither activity nor rest runs; the rate goes on.
    void StannaKlockor();
    void ÄrvTvåPoäng(const QString& multiplar);
    void EnSekund(Fält* klocka);
    void Taktrapport(int& räknare, int gräns, int& qsoVidSenaste, const QString& text);

    void SättTabIndex(QWidget* fält, int index);
    void VerkställTabbordning();

    std::map<QString, QAction*> menyer_;
    bool prefixLoggVisas_ = false; ///< the layout in which dgLogg stands
    std::vector<QWidget*> tabbordning_;
    std::array<QLabel*, 4> paneler_{};
    std::unique_ptr<platform::MmvariX> MMVARI; ///< made when a digital contest is first set up
    int SändPlats = 0;                         ///< of the character in TXWindow that goes out next
};
