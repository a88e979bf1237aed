#pragma once

#include "platform/timer.h"

#include <QDialog>
#include <QLabel>

/// Two seconds of logo while the program starts.
class frSplashTest : public QDialog {
public:
    frSplashTest();
    static frSplashTest& instans();

    /// Comes back when the two seconds have gone.
    void VisaModalt();

    QLabel *picLogo, *lblver;
    platform::Timer* TimerSplash;

protected:
    void reject() override {} // Esc does not hurry it
    void closeEvent(QCloseEvent* event) override;

private:
    void TimerSplash_Tick();

    int räknare_ = 0;
};
