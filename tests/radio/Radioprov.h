#pragma once

#include "support/Programprov.h"
#include "support/Riggprov.h"

#include "platform/omnirig/omnirig.h"
#include "platform/textfile.h"
#include "radio/frOmni.h"

/// A rig service of the test's own.
class ProvOmniRig : public platform::OmniRigX {
public:
    struct Rigg : platform::RigX {
        QString status = QStringLiteral("On-line");
        qint64 frekvens = 0;
        int trafiksätt = 0;
        QList<std::pair<char, int>> skrivet; ///< A for VFO A, F for the one in use, and hertz

        QString StatusStr() const override { return status; }
        qint64 RxFrequency() const override { return frekvens; }
        int Mode() const override { return trafiksätt; }
        void Freq(int hertz) override { skrivet.push_back({'F', hertz}); }
        void FreqA(int hertz) override { skrivet.push_back({'A', hertz}); }
    };

    explicit ProvOmniRig(int version, bool& lever)
        : version_(version)
        , lever_(lever) {
        lever_ = true;
    }
    ~ProvOmniRig() override { lever_ = false; }
    int InterfaceVersion() const override { return version_; }
    Rigg& Rig(int number) override {
        if (trasig) throw platform::Failure("trasig");
        return riggar.at(static_cast<size_t>(number - 1));
    }
    void ShowDialog(QWidget* over) override { inställning = over; }

    /// The rig tells of itself, as the service would when it has changed.
    void Status(int rig, const QString& status) {
        Rig(rig).status = status;
        StatusChanged(rig);
    }
    void Läge(int rig, qint64 hertz, int trafiksätt = 0) {
        Rig(rig).frekvens = hertz;
        Rig(rig).trafiksätt = trafiksätt;
        ParamsChanged(rig, 0);
    }

    std::array<Rigg, 4> riggar;
    bool trasig = false;            ///< a service that fails
    QWidget* inställning = nullptr; ///< where the settings were asked for

private:
    int version_;
    bool& lever_;
};

/// The program with a rig service of the test's own.
class RadioProv : public Programprov {
protected:
    RadioProv() {
        platform::OmniRigs().create = [this]() -> std::unique_ptr<platform::OmniRigX> {
            ++startade;
            auto ny = std::make_unique<ProvOmniRig>(version, lever);
            tjänst = ny.get();
            if (förbered) förbered(*ny);
            return ny;
        };
    }
    ~RadioProv() override { platform::OmniRigs() = {}; }

    static frTest& Form() { return frTest::instans(); }
    static frOmni& Fönster() { return frOmni::instans(); }
    frTest& StartaMedRadio(int test = 1) {
        frTest& f = StartaLogg(test);
        f.Meny("mnuRadio_På")->trigger();
        return f;
    }
    static QColor Frekvensfärg() { return Form().txtFrekvens->palette().color(QPalette::Base); }

    int version = 0x101;
    int startade = 0;
    bool lever = false;
    ProvOmniRig* tjänst = nullptr;
    std::function<void(ProvOmniRig&)> förbered;
};
