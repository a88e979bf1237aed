#pragma once

#include "platform/mmvari/Provkort.h"
#include "platform/mmvari/softmodem.h"
#include "support/Kanal.h"
#include "support/ToPrint.h"

#include <QTest>
#include <QThread>

#include <complex>
#include <gtest/gtest.h>
#include <numbers>

/// The engine between a sound card and a key line of the test's own, with everything it tells written down.
class ModemTest : public ::testing::Test {
protected:
    using Audio = provkanal::Audio;
    using Modem = platform::modem::Setup;

    ModemTest() {
        UseInstead(card, line);
        modem = std::make_unique<platform::SoftModem>();
        Listen();
    }
    ~ModemTest() override {
        modem.reset();
        platform::SoundCards() = {};
        platform::KeyLines() = {};
    }

    void Listen() {
        platform::MmvEvents& e = modem->events;
        e.spectrum = [this](const platform::MmvSpectrum& spectrum) {
            ++pictures;
            picture = spectrum;
        };
        e.level = [this](double level) { levels.push_back(level); };
        e.transmitState = [this](int state) { states.push_back(state); };
        e.transmitRequest = [this] {
            ++requests;
            if (text.isEmpty()) return;
            modem->SendCharacter(text.front());
            text.remove(0, 1);
        };
        e.received = [this](int channel, QChar character) { (channel == 0 ? heardA : heardB) += character; };
        e.speedChanged = [this](int channel) { changes << QString("speed %1").arg(channel); };
        e.receiveListChanged = [this](int channel) { changes << QString("list %1").arg(channel); };
        e.switchChanged = [this](int which) { changes << QString("switch %1").arg(which); };
        e.status = [this](const QString& status) { statuses << status; };
    }

    /// Sound of one channel, or of two, in pieces as a card delivers them.
    void Hear(const Audio& left, const Audio& right = {}, double piece = 0.02) {
        const auto step = static_cast<std::size_t>(piece * card.rate);
        const std::size_t length = std::max(left.size(), right.size());
        for (std::size_t at = 0; at < length; at += step) {
            for (std::size_t i = at; i < std::min(at + step, length); ++i) {
                card.coming.push_back(i < left.size() ? left[i] : 0);
                if (card.channels == 2) card.coming.push_back(i < right.size() ? right[i] : 0);
            }
            modem->Turn();
        }
    }
    /// A transmission, with silence around it, at the card's rate.
    Audio Sound(Modem setup, const std::string& what) const {
        setup.rate = card.rate;
        Audio audio(static_cast<std::size_t>(card.rate / 4));
        const Audio signal = provkanal::Koda(setup, what);
        audio.insert(audio.end(), signal.begin(), signal.end());
        audio.resize(audio.size() + static_cast<std::size_t>(card.rate) * 2);
        for (float& sample : audio) sample *= 0.5F;
        return audio;
    }
    Audio Tone(double hertz, double seconds, double amplitude) const {
        Audio audio(static_cast<std::size_t>(seconds * card.rate));
        for (std::size_t i = 0; i < audio.size(); ++i)
            audio[i] = static_cast<float>(
                amplitude * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / card.rate));
        return audio;
    }

    /// Turns until it is so, with the card playing; waits out the radio's own time. @return whether it came
    template <typename Is>
    bool Run(const Is& is, double seconds = 60) {
        QElapsedTimer stuck;
        stuck.start();
        for (double played = 0; played < seconds && stuck.elapsed() < 30'000;) {
            if (is()) return true;
            if (modem->State() == platform::mmvstate::Wait) {
                QThread::msleep(1);
            } else {
                card.Play(0.01);
                played += 0.01;
            }
            modem->Turn();
        }
        return is();
    }
    bool RunTo(int state) {
        return Run([&] { return modem->State() == state; });
    }
    /// What a receiver of the same mode reads in what was sent.
    std::string Read(const std::vector<float>& sound, Modem setup) const {
        setup.rate = card.rate;
        std::string read;
        const auto receiver = platform::modem::MakeReceiver(setup);
        receiver->Receive(sound, read);
        receiver->Receive(Audio(static_cast<std::size_t>(card.rate) * 4), read);
        return read;
    }

    ProvCard card;
    ProvLine line;
    QString text; ///< that the listener gives away, a character a request
    int requests = 0, pictures = 0;
    platform::MmvSpectrum picture;
    std::vector<double> levels;
    std::vector<int> states;
    QString heardA, heardB;
    QStringList changes, statuses;
    std::unique_ptr<platform::SoftModem> modem;
};

/// The same, to send with the quickest mode there is.
class SendTest : public ModemTest {
protected:
    static constexpr platform::modem::Setup bpsk125{
        .mode = platform::modem::Mode::Bpsk, .baud = 125, .carrier = 1500};

    /// Started, with the quickest mode and a port.
    void StartQuick() {
        modem->Speed(0, "125");
        modem->Carrier(0, 1500);
        modem->ComPort("Com1");
        modem->FifoTx(6);
        modem->Start();
    }
    /// Sends all of a text and lets it run out.
    void Send(const QString& what) {
        text = what;
        modem->Transmit(true);
        modem->EndTransmit();
        ASSERT_TRUE(RunTo(platform::mmvstate::Receive));
    }
    std::string Sent(const Modem& setup = bpsk125) const { return Read(card.sent, setup); }

    /// The strongest tone near a place, in a stretch of what was sent. In Hz.
    double Tone(double near, double from, double seconds) const {
        double best = 0, most = 0;
        for (double hertz = near - 25; hertz <= near + 25; hertz += 0.1) {
            std::complex<double> sum, turn = std::polar(1.0, -2 * std::numbers::pi * hertz / card.rate),
                                      at = 1;
            const auto first = static_cast<std::size_t>(from * card.rate);
            for (std::size_t i = first; i < first + static_cast<std::size_t>(seconds * card.rate); ++i) {
                sum += static_cast<double>(card.sent.at(i)) * at;
                at *= turn;
            }
            if (std::abs(sum) > most) {
                most = std::abs(sum);
                best = hertz;
            }
        }
        return best;
    }
};
