#pragma once

#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "platform/mmvari/mmvari.h"
#include "platform/mmvari/xmmvbtn.h"
#include "platform/mmvari/xmmvlvl.h"
#include "platform/mmvari/xmmvview.h"
#include "platform/textfile.h"
#include "radio/frInstDigi.h"

#include <QAbstractItemView>

/// A modem engine of the test's own: it writes down what it is told, and tells what the test lets it.
class ProvMotor : public platform::MmvariX {
public:
    explicit ProvMotor(ProvMotor*& plats)
        : plats_(plats) {
        plats_ = this;
    }
    ~ProvMotor() override { plats_ = nullptr; }

    int ModeCount() const override { return static_cast<int>(trafiksätt.size()); }
    QString ModeName(int nummer) const override { return trafiksätt[nummer]; }
    void Mode(int kanal, const QString& namn) override {
        if (trasig) throw platform::Failure("trasig");
        Skriv(QString("Mode %1 %2").arg(kanal).arg(namn));
        if (!trafiksätt.contains(namn) || namn == vald) return;
        vald = namn;
        fart = 0;
        events.speedChanged(kanal);
        events.receiveListChanged(kanal);
    }
    QString Mode(int) const override { return vald; }
    QStringList Speeds(int) const override {
        return vald == "bpsk" ? QStringList{"31.25", "62.5", "125"} : QStringList{"45.45", "50", "75"};
    }
    void Speed(int kanal, const QString& baud) override {
        Skriv(QString("Speed %1 %2").arg(kanal).arg(baud));
        fart = static_cast<int>(Speeds(kanal).indexOf(baud));
        events.speedChanged(kanal);
    }
    QString Speed(int kanal) const override { return Speeds(kanal)[fart]; }
    QStringList ReceiveList(int) const override { return {"tyst", "allt"}; }
    void ReceiveChoice(int kanal, int val) override {
        Skriv(QString("ReceiveChoice %1 %2").arg(kanal).arg(val));
        mottagning = val;
    }
    int ReceiveChoice(int) const override { return mottagning; }
    void Carrier(int kanal, double hertz) override { Skriv(QString("Carrier %1 %2").arg(kanal).arg(hertz)); }
    double Carrier(int) const override { return 2125; }
    void Afc(int kanal, bool på) override {
        Skriv(QString("Afc %1 %2").arg(kanal).arg(på));
        brytare[platform::mmvswitch::Afc] = på;
    }
    void Switch(int vilken, bool på) override {
        Skriv(QString("Switch %1 %2").arg(vilken).arg(på));
        brytare[vilken] = på;
    }
    bool IsOn(int vilken) const override { return brytare.value(vilken); }
    void Transmit(bool på) override { Skriv(QString("Transmit %1").arg(på)); }
    void EndTransmit() override { Skriv("EndTransmit"); }
    int State() const override { return läge; }
    void SendCharacter(QChar tecken) override { sänt += tecken; }
    void ComPort(const QString& namn) override { Skriv("ComPort " + namn); }
    void FifoRx(int djup) override { Skriv(QString("FifoRx %1").arg(djup)); }
    void FifoTx(int djup) override { Skriv(QString("FifoTx %1").arg(djup)); }
    void SoundChannel(int radio, int sida) override {
        Skriv(QString("SoundChannel %1 %2").arg(radio).arg(sida));
    }
    void SoundCard(int id) override { Skriv(QString("SoundCard %1").arg(id)); }
    void RxClock(int takt) override { Skriv(QString("RxClock %1").arg(takt)); }
    void Start() override {
        Skriv("Start");
        igång = true;
    }
    void Stop() override { igång = false; }

    const QStringList trafiksätt{"bpsk", "rtty-L", "rtty-U", "mfsk-L", "mfsk-U"};
    QString vald = "bpsk", sänt;
    int fart = 0, mottagning = 0, läge = 0;
    QMap<int, bool> brytare;
    QStringList anrop;                 ///< what it was told
    std::function<QString()> vidAnrop; ///< what to write down beside it
    bool igång = false, trasig = false;

private:
    void Skriv(const QString& vad) { anrop << (vidAnrop ? vad + vidAnrop() : vad); }

    ProvMotor*& plats_;
};

/// The program over that engine.
class DigitalProv : public Programprov {
protected:
    DigitalProv() {
        platform::Mmvaris().create = [this] {
            ++startade;
            return std::make_unique<ProvMotor>(motor);
        };
    }

    frTest& StartaRTTY() { return StartaLogg(6); }
    /// Settings that were saved the day before.
    void SparaVal(const radio::Digitalval& val) const {
        platform::SaveTextFile(Fil("INI/SVDDigi.ini"), radio::DigitalvalTillText(val));
    }
    /// The settings window, opened by its menu, changed and saved.
    template <typename Ändring>
    void SparaIFönstret(const Ändring& ändra) {
        frTest::instans().Meny("mnuInställning_Digital")->trigger();
        ändra(frInstDigi::instans());
        QTest::mouseClick(frInstDigi::instans().cmdSpara, Qt::LeftButton);
        EXPECT_FALSE(frInstDigi::instans().isVisible());
    }
    static QStringList Poster(const QComboBox& lista) {
        QStringList poster;
        for (int i = 0; i < lista.count(); ++i) poster << lista.itemText(i);
        return poster;
    }
    /// Chooses a row of a list as the mouse does.
    static void Klicka(QComboBox& lista, int rad) {
        lista.showPopup();
        const QModelIndex plats = lista.model()->index(rad, 0);
        lista.view()->scrollTo(plats);
        QTest::qWait(QApplication::doubleClickInterval() / 4);
        QTest::mouseMove(lista.view()->viewport(), lista.view()->visualRect(plats).center());
        QTest::mouseClick(lista.view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          lista.view()->visualRect(plats).center());
        lista.hidePopup();
    }
    /// Text on the first channel, a character at a time.
    void Mottag(const QString& text) const {
        for (const QChar tecken : text) motor->events.received(0, tecken);
    }
    /// A text in TXWindow of which so many characters have gone out.
    void Begär(frTest& f, const QString& text, int antal) const {
        f.TXWindow->setPlainText(text);
        for (int i = 0; i < antal; ++i) motor->events.transmitRequest();
    }

    ProvMotor* motor = nullptr;
    int startade = 0;
};
