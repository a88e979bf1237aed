#include "radio/frOmni.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/windows.h"
#include "radio/Rigfrekvens.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFormLayout>
#include <QScreen>

#include <utility>

using platform::Named;
using platform::Twips;

frOmni::frOmni()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frOmni"));
    setWindowTitle(QStringLiteral("Radio (OmniRig)"));
    auto* riggar = new QHBoxLayout;
    for (size_t i = 0; i < Option.size(); ++i) {
        const int nummer = static_cast<int>(i) + 1;
        Option[i] = new QRadioButton(QStringLiteral("Rig %1").arg(nummer));
        Option[i]->setObjectName(QStringLiteral("Option%1").arg(nummer));
        connect(Option[i], &QRadioButton::clicked, this, [this, nummer] { VäljRig(nummer); });
        riggar->addWidget(Option[i]);
    }
    Option[0]->setChecked(true);
    const auto etikett = [](const char* namn, const char* rubrik) {
        auto* ny = Named(new QLabel, namn);
        ny->setAccessibleName(QString::fromUtf8(rubrik));
        ny->setTextFormat(Qt::PlainText);
        return ny;
    };
    Label3 = etikett("Label3", "Frekvens");
    lblTrafiksätt = etikett("lblTrafiksätt", "Trafiksätt");
    Label8 = etikett("Label8", "Status");
    QFont stor = font();
    stor.setPointSizeF(stor.pointSizeF() * 1.6);
    stor.setBold(true);
    Label3->setFont(stor);
    auto* värden = new QFormLayout;
    for (QLabel* värde : {Label3, lblTrafiksätt, Label8}) värden->addRow(värde->accessibleName(), värde);
    Command1 = platform::NewButton("Command1", QStringLiteral("Inställning"));
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    knappar->addWidget(Command1);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(riggar);
    plats->addLayout(värden);
    plats->addStretch(1);
    plats->addLayout(knappar);
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
}

frOmni& frOmni::instans() { return platform::SingleWindow<frOmni>::get(); }

void frOmni::LaddaUr() {
    if (!platform::SingleWindow<frOmni>::exists()) return;
    frOmni& fönster = instans();
    fönster.Rig = nullptr;
    fönster.OmniRigEngine.reset();
    frTest& f = frTest::instans();
    f.txtFrekvens->clear();
    f.SBarTest(2, QStringLiteral("Radio Port"));
    delat.RadioPå = false;
    f.VisaRadioläge();
    platform::SingleWindow<frOmni>::unload();
}

void frOmni::Visa() {
    if (!std::exchange(laddad_, true)) {
        StartaOmniRig();
        Init_Fönster();
        Command1->setFocus(); // not a rig, which a key that is meant for the log would exchange
    }
    platform::ShowInFront(*this);
}

void frOmni::Init_Fönster() {
    constexpr int bredd = 4600;
    resize(qMax(Twips(bredd), minimumSizeHint().width()), minimumSizeHint().height());
    // Beside the main window, which makes room for it, and under the spots; on a screen that has none, down
    // at the log beside them, where it hides nothing of the entry form.
    const QRect skärm = screen()->availableGeometry();
    const int kant = Twips(4990); // where the main window's left edge is put
    const bool harRum = width() <= kant && kant + frTest::instans().width() <= skärm.width();
    platform::MoveOntoScreen(*this, harRum ? QPoint(0, Twips(6600))
                                           : QPoint(kant, skärm.bottom() - height() - Twips(900)));
}

void frOmni::StartaOmniRig() {
    if (OmniRigEngine) return;
    try {
        OmniRigEngine = platform::CreateOmniRig();
        if (!radio::VersionDuger(OmniRigEngine->InterfaceVersion()))
            throw platform::Failure(QStringLiteral("Okänd version."));
    } catch (const platform::Failure&) {
        OmniRigEngine.reset();
        return platform::MsgBox(QStringLiteral("OmniRig är inte installerat eller har fel verision nummer!"),
                                windowTitle());
    }
    OmniRigEngine->OnStatusChange([this](int rig) { OmniRigEngine_StatusChange(rig); });
    OmniRigEngine->OnParamsChange(
        [this](int rig, int parametrar) { OmniRigEngine_ParamsChange(rig, parametrar); });
    VäljRig(1);
}

void frOmni::VäljRig(int nummer) {
    if (!OmniRigEngine) return;
    RigNummer = nummer;
    Rig = &OmniRigEngine->Rig(nummer);
    OmniRigEngine_StatusChange(nummer);
    OmniRigEngine_ParamsChange(nummer, 0);
}

void frOmni::OmniRigEngine_StatusChange(int rig) {
    if (rig == RigNummer && Rig) Label8->setText(Rig->StatusStr());
}

void frOmni::OmniRigEngine_ParamsChange(int rig, int parametrar) {
    Q_UNUSED(parametrar)
    if (rig != RigNummer || !Rig) return;
    Label3->setText(QString::number(Rig->RxFrequency()));
    const QString tioHertz = radio::TioHertz(Label3->text());
    if (Label8->text() == QLatin1String("On-line")) {
        delat.RadioFrekvens = tioHertz;
        BandOmni(tioHertz);
    }
    frTest& f = frTest::instans();
    if (const auto visning = radio::FrekvensVisning(tioHertz)) f.txtFrekvens->setText(*visning);
    f.FärgaFrekvens(true);
    Label3->setText(f.txtFrekvens->text());
    if (const auto text = radio::TrafiksättText(Rig->Mode())) lblTrafiksätt->setText(*text);
}

void frOmni::RadioSkick(QString text) {
    if (!delat.RadioPå) return;
    text = radio::Siffror(frTest::instans().txtFrekvens->text());
    switch (text.size()) {
    case 6: return Freq6(text);
    case 7: return Freq7(text);
    case 8: return Freq8(text);
    default: return;
    }
}

void frOmni::Freq6(const QString& värde) { Sänd(värde); }
void frOmni::Freq7(const QString& värde) { Sänd(värde); }
void frOmni::Freq8(const QString& värde) { Sänd(värde); }

void frOmni::Sänd(const QString& tioHertz) {
    const auto hertz = radio::Hertz(tioHertz);
    if (!Rig || !hertz) return;
    Rig->FreqA(*hertz);
    Rig->Freq(*hertz);
}

void frOmni::Command1_Click() {
    if (OmniRigEngine) OmniRigEngine->ShowDialog(this);
}

void frOmni::reject() { frTest::instans().FokusTillSignal(); }

void frOmni::closeEvent(QCloseEvent* event) {
    event->ignore();
    LaddaUr();
}
