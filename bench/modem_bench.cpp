// How many characters the modem gets wrong, against the strength of the signal; and what it costs.
// bench/README.md has the tables and the commands that make them.
#include "platform/mmvari/modem/bpsk_varicode.h"
#include "platform/mmvari/modem/spectrum.h"
#include "support/Kanal.h"

#include <sndfile.h>

#include <array>
#include <bit>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <stdexcept>
#include <unistd.h>

using namespace platform::modem;
using provkanal::Audio;
using provkanal::Väg;

namespace {

constexpr const char* hjälp = R"(modem_bench [options]: character error rate against SNR in 2,500 Hz
  --mode M --baud B --rate R --carrier HZ     the modem (bpsk, 11025, 1500)
  --snr FROM:TO:STEP      dB
  --chars N --trials N    characters in a trial, and trials
  --offset HZ             the transmitter's carrier is off by this; turns AFC on
  --clock E               the transmitter's symbol clock is fast by this part (0.005)
  --echo GAIN:MS --fading HZ --drift HZ_PER_MINUTE
  --atc --no-squelch --show
  --peer COMMAND          another decoder on the same audio, {wav} in it is the file; its figures stand beside
  --noise SECONDS         characters printed on noise alone
  --speed SECONDS         how many times faster than real time
)";

struct Val {
    Setup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 11025};
    double från = -10, till = 0, steg = 1, förskjuten = 0, klocka = 0, brus = 0, fart = 0;
    int tecken = 500, prov = 4;
    bool atc = false, brusspärr = true, visa = false;
    std::string granne;
    Väg väg;
};

std::unique_ptr<Receiver> Mottagare(const Val& val) {
    auto mottagare = MakeReceiver(val.setup);
    mottagare->Afc(val.förskjuten != 0 || val.väg.drift != 0);
    mottagare->Atc(val.atc);
    mottagare->Squelch(val.brusspärr);
    return mottagare;
}

std::string Ta(Receiver& mottagare, const Audio& ljud) {
    std::string text;
    // A sound card gives pieces of a few hundredths of a second.
    for (std::size_t i = 0; i < ljud.size(); i += 441)
        mottagare.Receive(std::span(ljud).subspan(i, std::min<std::size_t>(441, ljud.size() - i)), text);
    const Audio tystnad(static_cast<std::size_t>(6 * 50000), 0.0F);
    mottagare.Receive(std::span(tystnad).first(tystnad.size() / 2), text);
    return text;
}

/// What another program makes of the same audio: 16-bit samples in a file.
std::string Granne(const Val& val, const Audio& ljud) {
    const std::filesystem::path fil =
        std::filesystem::temp_directory_path() / ("modem_bench" + std::to_string(getpid()) + ".wav");
    SF_INFO form{};
    form.samplerate = static_cast<int>(val.setup.rate);
    form.channels = 1;
    form.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* ut = sf_open(fil.c_str(), SFM_WRITE, &form);
    // The loudest is kept below full scale.
    float störst = 1e-9F;
    for (const float prov : ljud) störst = std::max(störst, std::abs(prov));
    Audio mindre = ljud;
    for (float& prov : mindre) prov *= 0.9F / störst;
    sf_writef_float(ut, mindre.data(), static_cast<sf_count_t>(mindre.size()));
    sf_close(ut);
    std::string kommando = val.granne;
    kommando.replace(kommando.find("{wav}"), 5, fil.string());
    FILE* rör = popen(kommando.c_str(), "r");
    std::string text;
    std::array<char, 4096> del{};
    while (const std::size_t läst = fread(del.data(), 1, del.size(), rör)) text.append(del.data(), läst);
    pclose(rör);
    std::filesystem::remove(fil);
    return text;
}

/// Wrong characters against SNR, and where they cross what the tables speak of.
class Kurva {
public:
    void Punkt(double snr, int fel, int antal) {
        std::printf("  (%d of %d)", fel, antal);
        Punkt(snr, static_cast<double>(fel) / antal);
    }
    void Punkt(double snr, double andel) {
        std::printf(" %7.4f", andel);
        for (const double mål : {0.1, 0.05, 0.01})
            if (förra_ >= mål && andel <= mål && !gräns_.contains(mål))
                gräns_[mål] = förraSnr_ + (snr - förraSnr_) * (std::log(förra_) - std::log(mål)) /
                                              (std::log(förra_) - std::log(std::max(andel, 1e-5)));
        förra_ = andel;
        förraSnr_ = snr;
    }
    void Gränser(const char* namn) const {
        std::printf("%-10s", namn);
        for (const auto& [mål, snr] : gräns_) std::printf("  %.0f %%: %.2f dB", mål * 100, snr);
        std::printf("\n");
    }

private:
    double förra_ = 0, förraSnr_ = 0;
    std::map<double, double> gräns_;
};

/// What is possible in white noise with everything known but the bits; nothing for MFSK, whose code has no
/// closed form. RTTY: five bits of non-coherent orthogonal FSK, and a third more for what a wrong shift
/// spoils. BPSK: coherent, each wrong symbol spoils two bits, and a character falls with any of its bits.
std::optional<double> Teori(const Setup& setup, double snr, const std::string& text) {
    const double g = std::pow(10, snr / 10) * 2500 / setup.baud;
    switch (setup.mode) {
    case Mode::RttyL:
    case Mode::RttyU: return 1.3 * (1 - std::pow(1 - std::exp(-g / 2) / 2, 5));
    case Mode::Bpsk: {
        const double symbol = std::erfc(std::sqrt(g)) / 2, bit = 2 * symbol * (1 - symbol);
        double bits = 0;
        for (const char tecken : text) bits += std::bit_width(VaricodeWord(tecken)) + 2;
        return 1 - std::pow(1 - bit, bits / static_cast<double>(text.size()));
    }
    default: return std::nullopt;
    }
}

void Tabell(const Val& val) {
    Kurva vår, grannens, gränsen;
    for (double snr = val.från; snr <= val.till + 1e-9; snr += val.steg) {
        int fel = 0, grannfel = 0, antal = 0;
        for (int prov = 0; prov < val.prov; ++prov) {
            const std::string text = provkanal::Testtext(val.tecken, static_cast<std::uint32_t>(prov));
            Setup sänd = val.setup;
            sänd.carrier += val.förskjuten;
            sänd.baud *= 1 + val.klocka;
            Väg väg = val.väg;
            väg.snr = snr;
            väg.frö = static_cast<std::uint32_t>(prov + 1);
            const std::string in = val.setup.mode == Mode::Bpsk ? "        " : "RYRYRYRYRY ";
            const Audio ljud =
                provkanal::Sänd(provkanal::Koda(sänd, in + text + " RYRY"), val.setup.rate, väg);
            const auto mottagare = Mottagare(val);
            const std::string ut = Ta(*mottagare, ljud);
            if (val.visa && prov == 0) std::printf("%s\n", ut.c_str());
            fel += provkanal::Fel(provkanal::Städa(text), provkanal::Städa(ut));
            if (!val.granne.empty())
                grannfel += provkanal::Fel(provkanal::Städa(text), provkanal::Städa(Granne(val, ljud)));
            antal += static_cast<int>(text.size());
        }
        std::printf("%7.2f dB", snr);
        vår.Punkt(snr, fel, antal);
        if (!val.granne.empty()) grannens.Punkt(snr, grannfel, antal);
        if (const auto teori = Teori(val.setup, snr, provkanal::Testtext(val.tecken, 0)))
            gränsen.Punkt(snr, *teori);
        std::printf("\n");
        std::fflush(stdout);
    }
    vår.Gränser("here");
    if (!val.granne.empty()) grannens.Gränser("peer");
    gränsen.Gränser("limit");
}

void Brus(const Val& val) {
    const auto mottagare = Mottagare(val);
    const std::string ut = Ta(*mottagare, provkanal::Brus(val.brus, val.setup.rate, 99));
    std::printf("noise, %.0f s: %zu characters, %.2f a minute\n", val.brus, ut.size(),
                static_cast<double>(ut.size()) / val.brus * 60);
}

/// Resident memory in MB.
double Minne() {
    long sidor = 0, kvar = 0;
    std::ifstream("/proc/self/statm") >> sidor >> kvar;
    return static_cast<double>(kvar) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

void Fart(const Val& val) {
    const Audio ren = provkanal::Koda(val.setup, provkanal::Testtext(100, 1));
    Väg väg;
    väg.snr = 0;
    const Audio ljud = provkanal::Sänd(ren, val.setup.rate, väg);
    const auto mottagare = Mottagare(val);
    platform::modem::Spectrum spektrum(val.setup.rate);
    const auto stycke = static_cast<std::size_t>(val.setup.rate / 50);
    double sekunder = 0, minne = 0;
    int rader = 0;
    std::string text;
    const auto början = std::chrono::steady_clock::now();
    while (sekunder < val.fart) {
        text.clear();
        for (std::size_t i = 0; i + stycke <= ljud.size(); i += stycke) {
            const auto del = std::span(ljud).subspan(i, stycke);
            mottagare->Receive(del, text);
            rader += spektrum.Push(del) ? 1 : 0;
        }
        sekunder += static_cast<double>(ljud.size()) / val.setup.rate;
        if (minne == 0) minne = Minne();
    }
    const std::chrono::duration<double> gick = std::chrono::steady_clock::now() - början;
    std::printf(
        "%.0f times real time with %.1f lines a second; %.1f MB after %.0f s of sound, %.1f after %.0f s\n",
        sekunder / gick.count(), rader / sekunder, minne, static_cast<double>(ljud.size()) / val.setup.rate,
        Minne(), sekunder);
}

Val Tolka(int antal, char** ord) {
    Val val;
    bool baud = false;
    for (int i = 1; i < antal; ++i) {
        const std::string namn = ord[i];
        const auto nästa = [&]() -> const char* {
            if (++i == antal) throw std::invalid_argument(namn + " wants a value");
            return ord[i];
        };
        const auto tal = [&] { return std::atof(nästa()); };
        if (namn == "--help")
            throw std::invalid_argument(hjälp);
        else if (namn == "--mode")
            val.setup.mode = ModeNamed(nästa()).value();
        else if (namn == "--baud") {
            val.setup.baud = tal();
            baud = true;
        } else if (namn == "--rate")
            val.setup.rate = tal();
        else if (namn == "--carrier")
            val.setup.carrier = tal();
        else if (namn == "--snr")
            std::sscanf(nästa(), "%lf:%lf:%lf", &val.från, &val.till, &val.steg);
        else if (namn == "--chars")
            val.tecken = static_cast<int>(tal());
        else if (namn == "--trials")
            val.prov = static_cast<int>(tal());
        else if (namn == "--offset")
            val.förskjuten = tal();
        else if (namn == "--clock")
            val.klocka = tal();
        else if (namn == "--echo")
            std::sscanf(nästa(), "%lf:%lf", &val.väg.eko, &val.väg.ekoMs);
        else if (namn == "--fading")
            val.väg.fädning = tal();
        else if (namn == "--drift")
            val.väg.drift = tal();
        else if (namn == "--peer")
            val.granne = nästa();
        else if (namn == "--noise")
            val.brus = tal();
        else if (namn == "--speed")
            val.fart = tal();
        else if (namn == "--atc")
            val.atc = true;
        else if (namn == "--no-squelch")
            val.brusspärr = false;
        else if (namn == "--show")
            val.visa = true;
        else
            throw std::invalid_argument("unknown: " + namn);
    }
    if (!baud) val.setup.baud = Info(val.setup.mode).speeds.front();
    return val;
}

} // namespace

int main(int antal, char** ord) {
    try {
        const Val val = Tolka(antal, ord);
        if (val.brus > 0)
            Brus(val);
        else if (val.fart > 0)
            Fart(val);
        else
            Tabell(val);
    } catch (const std::exception& fel) {
        std::cerr << fel.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
