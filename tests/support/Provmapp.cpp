#include "support/Provmapp.h"

#include "contest/frSplashTest.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QTimer>

void KopieraMapp(const QString& från, const QString& till) {
    QDirIterator allt(från, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    QDir().mkpath(till);
    while (allt.hasNext()) {
        const QString källa = allt.next();
        const QString mål = till + källa.mid(från.size());
        if (allt.fileInfo().isDir())
            QDir().mkpath(mål);
        else
            QFile::copy(källa, mål);
    }
}

void NärFönsterSyns(const QByteArray& klass, const std::function<void(QWidget*)>& gör, int försök) {
    QTimer::singleShot(1, qApp, [=] {
        for (QWidget* fönster : QApplication::topLevelWidgets())
            if (fönster->isVisible() && fönster->objectName().toUtf8() == klass) {
                // Not at once: the window may still be on its way into its own event loop.
                QTimer::singleShot(10, fönster, [=] { gör(fönster); });
                return;
            }
        if (försök > 0) NärFönsterSyns(klass, gör, försök - 1);
    });
}

void HoppaÖverSplash() {
    NärFönsterSyns("frSplashTest", [](QWidget* splash) {
        for (int i = 0; i < 20; ++i) static_cast<frSplashTest*>(splash)->TimerSplash->Tick();
    });
}
