#pragma once

#include "contest/frVarning.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <vector>

/// Answers every frVarning that comes up as long as it lives, and keeps what each one said.
class Varningsvakt {
public:
    /// @param ok with OK, else by the window's frame.
    explicit Varningsvakt(bool ok)
        : ok_(ok) {
        QObject::connect(&klocka_, &QTimer::timeout, &klocka_, [this] { Titta(); });
        klocka_.start(1);
    }

    const std::vector<QString>& Texter() const { return texter_; }
    size_t Antal() const { return texter_.size(); }

private:
    void Titta() {
        if (svarar_) return;
        for (QWidget* fönster : QApplication::topLevelWidgets())
            if (fönster->isVisible() && fönster->objectName() == QLatin1String("frVarning")) {
                svarar_ = true;
                // Not at once: the window may still be on its way into its own event loop.
                QTimer::singleShot(10, &klocka_,
                                   [this, fönster] { Svara(*static_cast<frVarning*>(fönster)); });
            }
    }
    void Svara(frVarning& varning) {
        texter_.push_back(varning.lblVarning2->text());
        svarar_ = false;
        if (ok_)
            QTest::mouseClick(varning.cmdOK, Qt::LeftButton);
        else
            varning.close();
    }

    const bool ok_;
    bool svarar_ = false;
    std::vector<QString> texter_;
    QTimer klocka_;
};
