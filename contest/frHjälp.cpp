#include "contest/frHjälp.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/paths.h"
#include "platform/widgets.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QFile>
#include <QFontDatabase>
#include <QScreen>

using platform::Named;

namespace {

QString Hjälptext() {
    QFile fil(platform::DataPath(QStringLiteral("Sorvik Multi.hlp")));
    if (!fil.open(QIODevice::ReadOnly)) return QStringLiteral("Hjälpfilen saknas: ") + fil.fileName();
    return QString::fromUtf8(fil.readAll());
}

} // namespace

frHjälp::frHjälp()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frHjälp"));
    setWindowTitle(Produkt + QStringLiteral(" Hjälp"));
    txtHjälp = Named(new QPlainTextEdit(Hjälptext()), "txtHjälp");
    txtHjälp->setReadOnly(true);
    txtHjälp->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtHjälp->setAccessibleName(QStringLiteral("Hjälp"));
    cmdStäng = Named(new QPushButton(QStringLiteral("Stäng")), "cmdStäng");
    cmdStäng->setDefault(true);
    auto* plats = new QVBoxLayout(this);
    plats->addWidget(txtHjälp, 1);
    plats->addWidget(cmdStäng, 0, Qt::AlignRight);
    connect(cmdStäng, &QPushButton::clicked, this, &QWidget::close);
    const int bredd = txtHjälp->fontMetrics().averageCharWidth() * 94 + 40;
    resize(QSize(bredd, 640).boundedTo(screen()->availableGeometry().size() - QSize(40, 60)));
}

frHjälp& frHjälp::instans() { return platform::SingleWindow<frHjälp>::get(); }

void frHjälp::Visa() {
    show();
    raise();
    activateWindow();
}
