#include "support/Kanal.h"

#include "platform/mmvari/modem/downconverter.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace provkanal {

namespace {

/// The noise's standard deviation; the signal is scaled, as behind a receiver's audio gain control.
constexpr double brusnivå = 0.1;

/// A path that fades: complex Gaussian of mean power 1 with a Gaussian Doppler spectrum, as a sum of turning
/// arrows.
class Fädning {
public:
    Fädning(double spridning, std::mt19937& slump) {
        std::normal_distribution<double> doppler(0, spridning / 2);
        std::uniform_real_distribution<double> vinkel(0, 2 * std::numbers::pi);
        for (Pil& pil : pilar_) pil = {doppler(slump), vinkel(slump)};
    }
    std::complex<double> Vid(double tid) const {
        std::complex<double> summa;
        for (const Pil& pil : pilar_)
            summa += std::polar(1.0, 2 * std::numbers::pi * pil.hertz * tid + pil.fas);
        return summa / std::sqrt(static_cast<double>(std::size(pilar_)));
    }

private:
    struct Pil {
        double hertz, fas;
    };
    Pil pilar_[24]{};
};

/// The half of the signal's spectrum above 0 Hz: the band from there to half the rate is moved around 0 Hz,
/// what lies outside is taken off, and it is moved back. From 300 Hz on the other half is 80 dB down.
std::vector<std::complex<double>> Analytisk(const Audio& ren, double rate, std::size_t längd) {
    const std::vector<float> filter = platform::modem::LowPass(rate, rate / 4 - 300, rate / 4 + 300);
    const auto halva = static_cast<std::ptrdiff_t>(filter.size() / 2);
    // A quarter of the rate turns by a quarter a sample.
    constexpr std::complex<float> varv[] = {{1, 0}, {0, -1}, {-1, 0}, {0, 1}};
    std::vector<std::complex<float>> flyttad(ren.size());
    for (std::size_t i = 0; i < ren.size(); ++i) flyttad[i] = 2 * ren[i] * varv[i % 4];
    std::vector<std::complex<double>> ut(längd);
    for (std::ptrdiff_t i = 0; i < std::ssize(ut); ++i) {
        float re = 0, im = 0;
        for (std::ptrdiff_t k = std::max<std::ptrdiff_t>(0, i - halva);
             k <= std::min(std::ssize(flyttad) - 1, i + halva); ++k) {
            const float vikt = filter[static_cast<std::size_t>(k - i + halva)];
            re += vikt * flyttad[static_cast<std::size_t>(k)].real();
            im += vikt * flyttad[static_cast<std::size_t>(k)].imag();
        }
        ut[static_cast<std::size_t>(i)] =
            std::complex<double>(re, im) *
            std::complex<double>(std::conj(varv[static_cast<std::size_t>(i) % 4]));
    }
    return ut;
}

/// What the paths make of the signal; drift and fading need its phase, so they work on its analytic half.
Audio Vägar(const Audio& ren, double rate, const Väg& väg, std::mt19937& slump) {
    if (väg.drift == 0 && väg.fädning == 0 && väg.eko == 0) return ren;
    Audio ut(ren.size() + static_cast<std::size_t>(rate / 10));
    if (väg.eko != 0) {
        const auto sent = static_cast<std::size_t>(std::lround(väg.ekoMs * rate / 1000));
        for (std::size_t i = 0; i < ren.size(); ++i) {
            ut[i] += ren[i];
            ut[i + sent] += static_cast<float>(väg.eko) * ren[i];
        }
        return ut;
    }
    const std::vector<std::complex<double>> analytisk = Analytisk(ren, rate, ut.size());
    const Fädning första(väg.fädning, slump), andra(väg.fädning, slump);
    const auto sent = static_cast<std::size_t>(rate / 1000);
    std::complex<double> a = 1, b = 0;
    for (std::size_t i = 0; i < ut.size(); ++i) {
        const double tid = static_cast<double>(i) / rate;
        if (väg.fädning != 0 && i % 32 == 0) {
            a = första.Vid(tid) / std::numbers::sqrt2;
            b = andra.Vid(tid) / std::numbers::sqrt2;
        }
        std::complex<double> z = a * analytisk[i];
        if (i >= sent) z += b * analytisk[i - sent];
        const double varv = väg.drift / 60 * tid * tid / 2;
        ut[i] = static_cast<float>((z * std::polar(1.0, 2 * std::numbers::pi * std::fmod(varv, 1.0))).real());
    }
    return ut;
}

} // namespace

Audio Brus(double sekunder, double rate, std::uint32_t frö) {
    std::mt19937 slump(frö);
    std::normal_distribution<float> brus(0, static_cast<float>(brusnivå));
    Audio ut(static_cast<std::size_t>(sekunder * rate));
    for (float& s : ut) s = brus(slump);
    return ut;
}

Audio Sänd(const Audio& ren, double rate, const Väg& väg) {
    std::mt19937 slump(väg.frö * 7919U + 17U);
    const Audio signal = Vägar(ren, rate, väg, slump);
    // Fading comes and goes: its strength is that of the undisturbed signal, for both paths together carry as
    // much.
    const Audio& mått = väg.fädning != 0 ? ren : signal;
    double effekt = 0;
    for (const float s : mått) effekt += static_cast<double>(s) * s;
    effekt /= static_cast<double>(mått.size());
    const double täthet = brusnivå * brusnivå / (rate / 2);
    const double skala = std::sqrt(std::pow(10, väg.snr / 10) * täthet * 2500 / effekt);

    Audio ut = Brus(2 * väg.tystnad + static_cast<double>(signal.size()) / rate, rate, väg.frö);
    // Without noise the receiver's ear is at the signal, not at a tenth of it.
    const bool brusfri = väg.snr >= 100;
    if (brusfri) std::fill(ut.begin(), ut.end(), 0.0F);
    const auto början = static_cast<std::size_t>(väg.tystnad * rate);
    ut.resize(std::max(ut.size(), början + signal.size()));
    for (std::size_t i = 0; i < signal.size(); ++i)
        ut[början + i] += static_cast<float>(brusfri ? 0.5 : skala) * signal[i];
    return ut;
}

Audio Koda(const platform::modem::Setup& setup, const std::string& text) {
    const auto sändare = platform::modem::MakeTransmitter(setup);
    for (const char tecken : text) sändare->Put(tecken);
    sändare->Finish();
    Audio ut;
    while (!sändare->Done()) {
        Audio stycke(256);
        sändare->Generate(stycke);
        ut.insert(ut.end(), stycke.begin(), stycke.end());
    }
    return ut;
}

std::string Testtext(int tecken, std::uint32_t frö) {
    std::mt19937 slump(frö + 1000);
    const auto en = [&](const std::string& ur) { return ur[slump() % ur.size()]; };
    const std::string bokstäver = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const auto signal = [&] {
        std::string call(1, en("KWNGFIJ"));
        if (slump() % 2) call += en(bokstäver);
        call += en("0123456789");
        for (unsigned n = slump() % 3 ? 3 : 2; n > 0; --n) call += en(bokstäver);
        return call;
    };
    std::string text;
    while (static_cast<int>(text.size()) < tecken) {
        const std::string a = signal(), b = signal();
        std::string nummer = std::to_string(1 + slump() % 2000);
        nummer.insert(0, nummer.size() < 3 ? 3 - nummer.size() : 0, '0');
        text += "CQ TEST DE " + a + ' ' + a + " CQ " + b + " 599 " + nummer + ' ' + nummer + ' ' + b +
                " QSL TU DE " + a + " TEST ";
    }
    text.resize(static_cast<std::size_t>(tecken));
    if (text.back() == ' ') text.back() = 'K';
    return text;
}

int Fel(const std::string& sänt, const std::string& mottaget) {
    // A row of the distance table for each character received; the match may begin and end anywhere in it.
    std::vector<int> rad(sänt.size() + 1);
    for (std::size_t i = 0; i < rad.size(); ++i) rad[i] = static_cast<int>(i);
    int bäst = rad.back();
    for (const char tecken : mottaget) {
        int vinkel = rad[0];
        for (std::size_t i = 1; i < rad.size(); ++i) {
            const int ny = std::min({rad[i] + 1, rad[i - 1] + 1, vinkel + (sänt[i - 1] == tecken ? 0 : 1)});
            vinkel = rad[i];
            rad[i] = ny;
        }
        bäst = std::min(bäst, rad.back());
    }
    return bäst;
}

std::string Städa(const std::string& text) {
    std::string ut;
    for (const char tecken : text) {
        const auto c = static_cast<unsigned char>(tecken);
        if (c == ' ' || c == '\r' || c == '\n' || c == '\t') {
            if (ut.empty() || ut.back() != ' ') ut += ' ';
        } else if (c > ' ' && c < 127)
            ut += static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    }
    return ut;
}

} // namespace provkanal
