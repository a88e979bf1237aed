// Text to a wave file and a wave file to text, with the modem that the program uses.
#include "platform/mmvari/modem/modem.h"

#include <sndfile.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace {

using namespace platform::modem;

constexpr const char* help = R"(modem --mode MODE [options] --decode FILE    prints the text in an audio file
modem --mode MODE [options] --encode FILE    reads a text and writes a 16-bit mono wave file

MODE is bpsk, rtty-L, rtty-U, mfsk-L or mfsk-U.
  --baud B        speed; 31.25, 62.5, 125 (bpsk), 45.45, 50, 75 (rtty), 15.625, 7.8125, 31.25 (mfsk);
                  the first of each is the default
  --carrier HZ    RTTY: the mark tone, space is 170 Hz above it (rtty-L) or below (rtty-U);
                  other modes: the middle of the signal. Default 2125
  --rate R        samples a second, 6000 to 50000: of the file that --encode writes, default 11025;
                  --decode takes the file's own
  --afc           follow a signal that is off the carrier
  --atc           RTTY: weigh the two tones by their own strengths
  --no-squelch    print also what noise looks like
  --no-uos        RTTY: a space does not go back to letters
  --channel N     of a file with several, from 0; default 0
  --status        print carrier and quality at the end, to standard error
--decode reads what libsndfile reads. Texts are in Windows-1252.
)";

struct Options {
    Setup setup;
    bool baud = false; ///< given
    bool afc = false, atc = false, squelch = true, uos = true, status = false;
    int channel = 0;
    std::string decode, encode;
};

double Number(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !(std::abs(value) < 1e6))
        throw std::invalid_argument("not a number: " + std::string(text));
    return value;
}

Options Parse(std::span<char*> arguments) {
    Options options;
    std::optional<Mode> mode;
    std::size_t i = 0;
    const auto value = [&] {
        if (++i == arguments.size())
            throw std::invalid_argument(std::string(arguments[i - 1]) + " wants a value");
        return std::string_view(arguments[i]);
    };
    for (; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--mode") {
            mode = ModeNamed(value());
            if (!mode) throw std::invalid_argument("no such mode: " + std::string(arguments[i]));
        } else if (argument == "--baud") {
            options.setup.baud = Number(value());
            options.baud = true;
        } else if (argument == "--carrier")
            options.setup.carrier = Number(value());
        else if (argument == "--rate")
            options.setup.rate = std::floor(Number(value()));
        else if (argument == "--channel")
            options.channel = static_cast<int>(Number(value()));
        else if (argument == "--decode")
            options.decode = value();
        else if (argument == "--encode")
            options.encode = value();
        else if (argument == "--afc")
            options.afc = true;
        else if (argument == "--atc")
            options.atc = true;
        else if (argument == "--no-squelch")
            options.squelch = false;
        else if (argument == "--no-uos")
            options.uos = false;
        else if (argument == "--status")
            options.status = true;
        else
            throw std::invalid_argument("unknown: " + std::string(argument) + "; --help lists all");
    }
    if (!mode) throw std::invalid_argument("--mode is missing; --help lists all");
    if (options.decode.empty() == options.encode.empty())
        throw std::invalid_argument("one of --decode and --encode, please");
    options.setup.mode = *mode;
    if (!options.baud) options.setup.baud = Info(*mode).speeds.front();
    return options;
}

class SoundFile {
public:
    SoundFile(const std::string& path, int access, SF_INFO& info)
        : file_(sf_open(path.c_str(), access, &info)) {
        if (!file_) throw std::runtime_error(path + ": " + sf_strerror(nullptr));
    }
    ~SoundFile() { sf_close(file_); }
    SoundFile(const SoundFile&) = delete;
    SoundFile& operator=(const SoundFile&) = delete;
    operator SNDFILE*() const { return file_; }

private:
    SNDFILE* file_;
};

void Decode(Options options) {
    SF_INFO info{};
    const SoundFile file(options.decode, SFM_READ, info);
    if (options.channel < 0 || options.channel >= info.channels)
        throw std::invalid_argument("no such channel");
    options.setup.rate = info.samplerate;
    const auto receiver = MakeReceiver(options.setup);
    receiver->Afc(options.afc);
    receiver->Atc(options.atc);
    receiver->Squelch(options.squelch);
    receiver->UnshiftOnSpace(options.uos);

    constexpr sf_count_t block = 1024;
    const auto channels = static_cast<std::size_t>(info.channels);
    std::vector<float> frames(block * channels), mono;
    const auto receive = [&] {
        std::string text;
        receiver->Receive(mono, text);
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fflush(stdout);
    };
    while (const sf_count_t read = sf_readf_float(file, frames.data(), block)) {
        mono.clear();
        for (std::size_t i = 0; i < static_cast<std::size_t>(read); ++i)
            mono.push_back(frames[i * channels + static_cast<std::size_t>(options.channel)]);
        receive();
    }
    // Silence behind the file brings out what the receiver still ponders.
    mono.assign(static_cast<std::size_t>(info.samplerate) * 6, 0.0F);
    receive();
    if (options.status)
        std::cerr << "carrier " << receiver->Carrier() << " Hz, quality " << receiver->Now().quality << '\n';
}

void Encode(const Options& options) {
    const auto transmitter = MakeTransmitter(options.setup);
    transmitter->UnshiftOnSpace(options.uos);
    for (std::istreambuf_iterator<char> it(std::cin), end; it != end; ++it) transmitter->Put(*it);
    transmitter->Finish();

    SF_INFO info{};
    info.samplerate = static_cast<int>(options.setup.rate);
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    const SoundFile file(options.encode, SFM_WRITE, info);
    std::vector<float> audio(1024);
    while (!transmitter->Done()) {
        transmitter->Generate(audio);
        for (float& sample : audio) sample *= 0.7F;
        if (sf_writef_float(file, audio.data(), static_cast<sf_count_t>(audio.size())) !=
            static_cast<sf_count_t>(audio.size()))
            throw std::runtime_error(options.encode + ": " + sf_strerror(file));
    }
}

} // namespace

int main(int count, char** arguments) {
    const std::span<char*> given(arguments + 1, static_cast<std::size_t>(count - 1));
    for (const std::string_view argument : given)
        if (argument == "--help") {
            std::cout << help;
            return EXIT_SUCCESS;
        }
    try {
        const Options options = Parse(given);
        options.encode.empty() ? Decode(options) : Encode(options);
    } catch (const std::exception& error) {
        std::cerr << "modem: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
