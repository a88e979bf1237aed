// The main window's side of the digital modes: the engine joined to its buttons, views and text windows.
#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/mmvari/mmvari.h"
#include "platform/mmvari/xmmvbtn.h"
#include "platform/mmvari/xmmvlvl.h"
#include "platform/mmvari/xmmvview.h"
#include "platform/text.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QMouseEvent>
#include <QTextBlock>

namespace {

/// Hz: the mark tone that everybody tunes by.
constexpr double utgångston = 2125;
/// Three lines.
constexpr int minstaText = 56;
/// Characters of a line of received text behind which a blank ends it.
constexpr int längstaRad = 400;
/// Lines of received text that are kept.
constexpr int minnesrader = 5000;
/// What has been sent.
const QColor sändfärg(110, 110, 110);

struct Bredd {
    const char* val;
    int hertz;
};
constexpr std::array bredder = {Bredd{"500", 500}, Bredd{"1K", 1000}, Bredd{"2K", 2000}, Bredd{"3K", 3000}};

struct Bild {
    const char* val;
    platform::XMMVView::Kind kind;
};
constexpr std::array bilder = {
    Bild{"FFT", platform::XMMVView::Kind::Fft}, Bild{"V.F", platform::XMMVView::Kind::Waterfall},
    Bild{"SYN", platform::XMMVView::Kind::Sync}, Bild{"WAV", platform::XMMVView::Kind::Wave}};

/// A list of the engine's. A wheel that passes over it must not take the signal away.
class Modemlista : public QComboBox {
protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QComboBox* NyLista(const char* namn, const QString& beskrivning) {
    auto* lista = platform::Named(new Modemlista, namn);
    lista->setAccessibleName(beskrivning);
    lista->setToolTip(beskrivning);
    lista->setFocusPolicy(Qt::ClickFocus);
    return lista;
}

/// A number of the settings, which a file written by hand may spoil.
int Inställningstal(const QString& text) {
    bool ärTal = false;
    const int tal = text.toInt(&ärTal);
    return ärTal ? tal : platform::mmvUnreadable;
}

/// The text between the blanks on both sides of a place: a call keeps its stroke.
QString OrdVid(const QTextCursor& markör) {
    const QString rad = markör.block().text();
    const int plats = markör.positionInBlock();
    int från = plats, till = plats;
    while (från > 0 && !rad[från - 1].isSpace()) --från;
    while (till < rad.size() && !rad[till].isSpace()) ++till;
    return rad.mid(från, till - från);
}

} // namespace

QWidget* frTest::ByggDigital() {
    // Without a title: on a screen of 720 lines there is none to spare.
    frmDigital = platform::Named(new QGroupBox, "frmDigital");
    frmDigital->setAccessibleName(QStringLiteral("Digital"));
    auto* rader = new QVBoxLayout(frmDigital);
    rader->setContentsMargins(6, 3, 6, 3);
    rader->setSpacing(4);
    auto* övre = new QHBoxLayout;
    XMMVLvl = platform::Named(new platform::XMMVLvl, "XMMVLvl");
    XMMVView = platform::Named(new platform::XMMVView, "XMMVView");
    XMMVView->onTune = [this](double hertz) { Mmv().Carrier(0, hertz); };
    XMMVView->onClick = [this] { txtSignal->setFocus(); };
    övre->addWidget(XMMVLvl);
    övre->addWidget(XMMVView, 1);
    övre->addLayout(ByggModemknappar());
    rader->addLayout(övre, 1);
    rader->addLayout(ByggTextfönster(), 1);
    frmDigital->hide();
    return frmDigital;
}

QLayout* frTest::ByggModemknappar() {
    auto* plats = new QGridLayout;
    plats->setSpacing(3);
    CBMode = NyLista("CBMode", QStringLiteral("Trafiksätt för modemet"));
    CBSpeed = NyLista("CBSpeed", QStringLiteral("Hastighet i baud"));
    CBRX = NyLista("CBRX", QStringLiteral("Mottagning: vad som skrivs av bruset"));
    connect(CBMode, &QComboBox::activated, this, [this] { Mmv().Mode(0, CBMode->currentText()); });
    connect(CBSpeed, &QComboBox::activated, this, [this] { Mmv().Speed(0, CBSpeed->currentText()); });
    connect(CBRX, &QComboBox::activated, this, [this](int rad) { Mmv().ReceiveChoice(0, rad); });
    // The next call typed is meant for the form: a list would look it up among its entries.
    for (QComboBox* lista : {CBMode, CBSpeed, CBRX})
        connect(lista, &QComboBox::activated, txtSignal, [this] { txtSignal->setFocus(); });

    const auto knapp = [this](const char* text, const char* namn, const QString& hjälp, bool stannar,
                              const auto& klick) {
        auto* ny = new platform::XMMVBtn(QString::fromUtf8(text), namn, stannar);
        ny->setToolTip(hjälp);
        connect(ny, &QPushButton::clicked, this, klick);
        return ny;
    };
    BtnTX = knapp("TX", "BtnTX", QStringLiteral("Sändning av och på"), false, [this] { BtnTX_Click(); });
    BtnRX = knapp("RX", "BtnRX", QStringLiteral("Mottagning genast; det som väntar sänds inte"), false,
                  [this] { Mmv().Transmit(false); });
    BtnHAM = knapp("HAM", "BtnHAM", QStringLiteral("Tillbaka till 2125 Hz"), false,
                   [this] { Mmv().Carrier(0, utgångston); });
    BtnAFC = knapp("AFC", "BtnAFC", QStringLiteral("Följ en signal som ligger bredvid"), true,
                   [this](bool på) { Mmv().Afc(0, på); });
    BtnATC = knapp("ATC", "BtnATC", QStringLiteral("Väg RTTY-tonerna var för sig"), true,
                   [this](bool på) { Mmv().Switch(platform::mmvswitch::Atc, på); });
    BtnNET = knapp("NET", "BtnNET", QStringLiteral("Sänd på den frekvens som tas emot"), true,
                   [this](bool på) { Mmv().Switch(platform::mmvswitch::Net, på); });
    plats->addWidget(CBMode, 0, 0);
    plats->addWidget(CBSpeed, 0, 1);
    plats->addWidget(CBRX, 0, 2);
    for (int i = 0; platform::XMMVBtn * ny : {BtnTX, BtnRX, BtnHAM, BtnAFC, BtnATC, BtnNET}) {
        plats->addWidget(ny, 1 + i / 3, i % 3);
        ++i;
    }
    plats->setRowStretch(3, 1);
    return plats;
}

QLayout* frTest::ByggTextfönster() {
    auto* rad = new QHBoxLayout;
    RXWindow = platform::Named(new platform::TextView, "RXWindow");
    TXWindow = platform::Named(new platform::TextPane, "TXWindow");
    // Tab goes round the entry form; what it types into a text window is no use on the air. From there it
    // leads back to the call, and not to the macro beside it, which Enter would send.
    for (platform::TextPane* fönster : {static_cast<platform::TextPane*>(RXWindow), TXWindow}) {
        fönster->TabLeadsTo(txtSignal);
        fönster->setFocusPolicy(Qt::ClickFocus);
        fönster->setTabChangesFocus(true);
        fönster->setUndoRedoEnabled(false);
        fönster->setMinimumHeight(minstaText);
    }
    // What the operator takes back of what was sent already must not cost what he types next.
    connect(TXWindow, &QPlainTextEdit::textChanged, this,
            [this] { SändPlats = std::min(SändPlats, TXWindow->document()->characterCount() - 1); });
    RXWindow->setAccessibleName(QStringLiteral("Mottaget"));
    TXWindow->setAccessibleName(QStringLiteral("Sänt"));
    RXWindow->setReadOnly(true);
    RXWindow->setMaximumBlockCount(minnesrader);
    RXWindow->OnDoubleClick([this](const QTextCursor& markör) { RXWindow_DblClick(markör); });
    cmdRensa = platform::NewButton("cmdRensa", QStringLiteral("Rensa"));
    cmdRensa->setAutoDefault(true); // Enter on a focused button presses that button
    cmdRensa->setFocusPolicy(Qt::TabFocus);
    rad->addWidget(RXWindow, 1);
    rad->addWidget(TXWindow, 1);
    rad->addWidget(ByggMakro());
    rad->addWidget(cmdRensa, 0, Qt::AlignTop);
    return rad;
}

// ---- the engine ---------------------------------------------------------------------------------------

platform::MmvariX& frTest::Mmv() {
    if (MMVARI) return *MMVARI;
    MMVARI = platform::CreateMmvari();
    platform::MmvEvents& händelser = MMVARI->events;
    händelser.spectrum = [this](const platform::MmvSpectrum& spektrum) { XMMVView->Draw(spektrum); };
    händelser.level = [this](double nivå) { XMMVLvl->Draw(nivå); };
    händelser.transmitState = [this](int läge) { MMVARI_Sändläge(läge); };
    händelser.transmitRequest = [this] { MMVARI_SändBegäran(); };
    händelser.received = [this](int kanal, QChar tecken) { MMVARI_Mottaget(kanal, tecken); };
    händelser.speedChanged = [this](int kanal) {
        if (kanal == 0) VisaHastighet();
    };
    händelser.receiveListChanged = [this](int kanal) {
        if (kanal == 0) VisaMottagning();
    };
    händelser.switchChanged = [this](int vilken) { VisaKnapp(vilken); };
    händelser.status = [this](const QString& text) { SBarTest(3, text); };
    return *MMVARI;
}

void frTest::Initiera_MMVari() {
    const radio::Digitalval& val = delat.Digital;
    platform::MmvariX& mmv = Mmv();
    CBMode->clear();
    for (int i = 0; i < mmv.ModeCount(); ++i) CBMode->addItem(mmv.ModeName(i));
    mmv.Mode(0, val.DigiTrafik);
    CBMode->setCurrentText(mmv.Mode(0));
    VisaHastighet();
    VisaMottagning();
    mmv.Switch(platform::mmvswitch::Uos, val.DigiUOS != 0);
    mmv.Switch(platform::mmvswitch::Hpf, val.DigiHPF != 0);
    mmv.Switch(platform::mmvswitch::Net, val.DigiNET != 0);
    mmv.Switch(platform::mmvswitch::Atc, val.DigiATC != 0);
    mmv.Afc(0, val.DigiAFC != 0);
    for (const int vilken : {platform::mmvswitch::Net, platform::mmvswitch::Atc, platform::mmvswitch::Afc})
        VisaKnapp(vilken);
    Initiera_Bandbredd();
    Initiera_BPF();
    mmv.ComPort(val.DigiComport);
    mmv.FifoRx(Inställningstal(val.DigiFIFORX));
    mmv.FifoTx(Inställningstal(val.DigiFIFOTX));
    mmv.SoundChannel(0, val.DigiKanalA);
    mmv.SoundChannel(1, val.DigiKanalB - 3);
    mmv.SoundCard(Inställningstal(val.DigiID));
    mmv.RxClock(Inställningstal(val.DigiRXKlocka));
    mmv.Carrier(0, utgångston);
    // Saving the settings in another contest, or with no log open, does not take the sound card.
    if (delat.DigitalTest && HarLogg()) mmv.Start();
}

void frTest::AvbrytSändning() {
    if (MMVARI) MMVARI->Transmit(false);
}

void frTest::StannaMMVari() {
    if (MMVARI) MMVARI->Stop();
}

void frTest::Initiera_Bandbredd() {
    for (const Bredd& bredd : bredder)
        if (delat.Digital.DigiBandbredd == QLatin1String(bredd.val)) XMMVView->Bandwidth(bredd.hertz);
}

void frTest::Initiera_BPF() {
    for (const Bild& bild : bilder)
        if (delat.Digital.DigiDisplay == QLatin1String(bild.val)) XMMVView->Show(bild.kind);
}

void frTest::VisaHastighet() {
    CBSpeed->clear();
    CBSpeed->addItems(Mmv().Speeds(0));
    CBSpeed->setCurrentText(Mmv().Speed(0));
}

void frTest::VisaMottagning() {
    CBRX->clear();
    CBRX->addItems(Mmv().ReceiveList(0));
    CBRX->setCurrentIndex(Mmv().ReceiveChoice(0));
}

void frTest::VisaKnapp(int vilken) {
    const std::pair<int, platform::XMMVBtn*> knappar[] = {{platform::mmvswitch::Afc, BtnAFC},
                                                          {platform::mmvswitch::Atc, BtnATC},
                                                          {platform::mmvswitch::Net, BtnNET}};
    for (const auto& [sin, knapp] : knappar)
        if (sin == vilken) knapp->setChecked(Mmv().IsOn(vilken));
}

// ---- sending ------------------------------------------------------------------------------------------

void frTest::TX() { Mmv().Transmit(true); }

void frTest::RX() { Mmv().EndTransmit(); }

void frTest::BtnTX_Click() {
    // A second press stops what the first one would let run out.
    switch (Mmv().State()) {
    case platform::mmvstate::Receive: return TX();
    case platform::mmvstate::Transmit: return RX();
    default: Mmv().Transmit(false);
    }
}

void frTest::MMVARI_Sändläge(int läge) {
    static const std::array<QString, 4> rubriker = {QStringLiteral("TX"), QStringLiteral("RX"),
                                                    QStringLiteral("BeRX"), QStringLiteral("Vänta")};
    const auto plats = static_cast<size_t>(läge);
    BtnTX->setText(plats < rubriker.size() ? rubriker[plats] : QStringLiteral("Tone"));
    const bool sänder = läge != platform::mmvstate::Receive;
    BtnTX->Alert(sänder); // "RX" on it, which is what a press leads to, does not look like being on the air
    if (!sänder) TömTXWindow();
}

void frTest::TömTXWindow() {
    SändPlats = 0; // what is typed from now on goes out from its beginning
    TXWindow->clear();
    TXWindow->setExtraSelections({});
}

void frTest::MMVARI_SändBegäran() {
    // The operator's caret stays where it is: another one follows what goes out.
    QTextCursor tecken(TXWindow->document());
    tecken.movePosition(QTextCursor::End);
    if (SändPlats >= tecken.position()) return;
    tecken.setPosition(SändPlats);
    tecken.setPosition(SändPlats + 1, QTextCursor::KeepAnchor);
    const QChar sänt = tecken.selectedText().front();
    ++SändPlats;
    tecken.setPosition(0);
    tecken.setPosition(SändPlats, QTextCursor::KeepAnchor);
    QTextEdit::ExtraSelection märke;
    märke.cursor = tecken;
    märke.format.setForeground(sändfärg);
    TXWindow->setExtraSelections({märke});
    if (sänt != QChar::ParagraphSeparator && sänt != QChar::LineSeparator) return Mmv().SendCharacter(sänt);
    // Others begin a new line at the carriage return alone, or at the line feed alone.
    for (const QChar slut : {u'\r', u'\n'}) Mmv().SendCharacter(slut);
}

// ---- receiving ----------------------------------------------------------------------------------------

void frTest::MMVARI_Mottaget(int kanal, QChar tecken) {
    if (kanal != 0 || tecken == u'\n') return;
    // Noise prints these too. Nobody would see them in a call that was picked, and no search would find it.
    if (tecken.category() == QChar::Other_Control && !QStringLiteral("\r\b\t").contains(tecken)) return;
    RXWindow->moveCursor(QTextCursor::End);
    QTextCursor markör = RXWindow->textCursor();
    if (tecken == u'\b') {
        markör.deletePreviousChar(); // a line end is one character here
        return;
    }
    QTextCharFormat format;
    format.setFontWeight(QFont::Normal);
    // A station that sends no line ends, or noise, must not make a line that takes long to lay out.
    const auto längd = markör.block().length();
    const bool full = tecken == u' ' && längd > längstaRad;
    if (längd > 2 * längstaRad) markör.insertBlock(); // not even a blank
    markör.insertText(tecken == u'\r' || full ? QString(u'\n') : QString(tecken), format);
    RXWindow->moveCursor(QTextCursor::End);
}

void frTest::RXWindow_DblClick(const QTextCursor& markör) {
    const QString ord = OrdVid(markör);
    if (!ord.isEmpty()) {
        if (txtSignal->text().isEmpty())
            // Noise prints apostrophes, with which no search of the log can be made: they would end the
            // program.
            txtSignal->setText(platform::ToUpper(ord).remove(u'\''));
        else
            txtLöpnrM->setText(ord);
    }
    txtSignal->setFocus();
}
