#include "contest/frSplashTest.h"

#include "contest/DeladeVärden.h"
#include "platform/paths.h"
#include "platform/widgets.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QCloseEvent>

using platform::Named;

namespace {
constexpr int antalTick = 20; // of 100 ms
}

frSplashTest::frSplashTest()
    : QDialog(nullptr, Qt::SplashScreen) {
    setObjectName(QStringLiteral("frSplashTest"));
    setWindowTitle(Produkt);
    picLogo = Named(new QLabel, "picLogo");
    picLogo->setPixmap(QPixmap(platform::DataPath(QStringLiteral("Bilder/Logo.gif"))));
    lblver = Named(new QLabel(Version), "lblver");
    lblver->setAlignment(Qt::AlignRight);
    auto* plats = new QVBoxLayout(this);
    plats->setContentsMargins(12, 12, 12, 8);
    plats->addWidget(picLogo);
    plats->addWidget(lblver);
    TimerSplash = new platform::Timer(
        QStringLiteral("TimerSplash"), [this] { TimerSplash_Tick(); }, this);
}

frSplashTest& frSplashTest::instans() { return platform::SingleWindow<frSplashTest>::get(); }

void frSplashTest::VisaModalt() {
    räknare_ = 0;
    TimerSplash->Interval(100);
    exec();
    deleteLater();
}

void frSplashTest::closeEvent(QCloseEvent* event) { event->ignore(); }

void frSplashTest::TimerSplash_Tick() {
    if (++räknare_ < antalTick) return;
    TimerSplash->Interval(0);
    done(Accepted);
}
