#include "contest/frTestOm.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "platform/widgets.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QProcess>

using platform::Named;

namespace {

/// Reads a text from the registry of the machine; nothing where there is no registry.
std::optional<QString> GetKeyValue(const QString& nyckel, const QString& värde) {
    Q_UNUSED(nyckel)
    Q_UNUSED(värde)
    return std::nullopt;
}

/// The registered path of the system information program, at its newer or its older place.
std::optional<QString> SysInfoProgram() {
    if (auto sökväg =
            GetKeyValue(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"), QStringLiteral("PATH")))
        return sökväg;
    const auto mapp =
        GetKeyValue(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"));
    return mapp ? std::optional(*mapp + QStringLiteral("\\MSINFO32.EXE")) : std::nullopt;
}

} // namespace

frTestOm::frTestOm()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frTestOm"));
    setWindowTitle(QStringLiteral("Om ") + Produkt);
    lblTitle = Named(new QLabel(Produkt), "lblTitle");
    lblVersion = Named(new QLabel(Version), "lblVersion");
    QFont stor = lblTitle->font();
    stor.setPointSizeF(stor.pointSizeF() * 2);
    stor.setBold(true);
    lblTitle->setFont(stor);
    auto* bild = new QLabel;
    bild->setPixmap(QPixmap(platform::DataPath(QStringLiteral("Bilder/Logo.gif")))
                        .scaledToWidth(220, Qt::SmoothTransformation));
    cmdOK = Named(new QPushButton(QStringLiteral("OK")), "cmdOK");
    cmdSysInfo = Named(new QPushButton(QStringLiteral("System Info...")), "cmdSysInfo");
    cmdOK->setDefault(true);
    auto* texter = new QVBoxLayout;
    for (QWidget* del : std::initializer_list<QWidget*>{
             lblTitle, lblVersion, new QLabel(QStringLiteral("Loggprogram för radiotester"))})
        texter->addWidget(del);
    texter->addStretch(1);
    auto* rad = new QHBoxLayout;
    rad->addWidget(bild);
    rad->addSpacing(16);
    rad->addLayout(texter, 1);
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    knappar->addWidget(cmdSysInfo);
    knappar->addWidget(cmdOK);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(rad);
    plats->addLayout(knappar);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, [this] { StartSysInfo(); });
}

frTestOm& frTestOm::instans() { return platform::SingleWindow<frTestOm>::get(); }

void frTestOm::Visa() { exec(); }

void frTestOm::StartSysInfo() {
    const auto program = SysInfoProgram();
    if (program && QProcess::startDetached(*program, {})) return;
    platform::MsgBox(QStringLiteral("System Information Is Unavailable At This Time"), windowTitle());
}
