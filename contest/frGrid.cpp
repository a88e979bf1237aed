#include "contest/frGrid.h"

#include "contest/Grafik.h"
#include "contest/frTest.h"
#include "platform/widgets.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QScreen>
#include <QScrollArea>

using platform::Named;

frGrid::frGrid()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frGrid"));
    setWindowTitle(QStringLiteral("Grid Karta"));
    picKarta = Named(new QLabel, "picKarta");
    picKarta->setPixmap(KartBild());
    auto* yta = new QScrollArea;
    yta->setWidget(picKarta);
    yta->setAlignment(Qt::AlignCenter);
    cmdAvbryt = Named(new QPushButton(QStringLiteral("Stäng")), "cmdAvbryt");
    cmdAvbryt->setDefault(true);
    auto* plats = new QVBoxLayout(this);
    plats->addWidget(yta, 1);
    plats->addWidget(cmdAvbryt, 0, Qt::AlignRight);
    connect(cmdAvbryt, &QPushButton::clicked, this, &QWidget::close);
    resize((picKarta->sizeHint() + QSize(40, 80))
               .boundedTo(screen()->availableGeometry().size() - QSize(40, 60)));
}

frGrid& frGrid::instans() { return platform::SingleWindow<frGrid>::get(); }

void frGrid::Visa() {
    show();
    raise();
    activateWindow();
}
