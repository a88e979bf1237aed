// The command-line tool, and other people's modems through it.
#include "support/Kanal.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status;
    std::string text;
};

/// Runs a shell command. Its standard output comes back.
Outcome Shell(const std::string& command) {
    FILE* pipe = popen(command.c_str(), "r");
    std::string text;
    std::array<char, 4096> part{};
    while (const std::size_t read = fread(part.data(), 1, part.size(), pipe)) text.append(part.data(), read);
    return {WEXITSTATUS(pclose(pipe)), text};
}

class ModemTool : public testing::Test {
protected:
    ModemTool() { fs::create_directories(folder_); }
    ~ModemTool() override { fs::remove_all(folder_); }

    std::string File(const std::string& name) const { return folder_ / name; }
    /// Writes a sound file with the tool. The text goes by a file: it may hold anything.
    Outcome Encode(const std::string& options, const std::string& text, const std::string& file) {
        std::ofstream(File("text"), std::ios::binary) << text;
        return Shell(tool + options + " --encode " + File(file) + " < " + File("text") + " 2>&1");
    }
    static Outcome Decode(const std::string& options, const std::string& file) {
        return Shell(tool + options + " --decode '" + file + "' 2>&1");
    }

    static inline const std::string tool = std::string(MODEM_TOOL) + " ";

private:
    fs::path folder_ = fs::temp_directory_path() / ("modem-" + std::to_string(getpid()));
};

std::string Trimmed(std::string text) {
    text = provkanal::Städa(text);
    while (!text.empty() && text.front() == ' ') text.erase(0, 1);
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

const std::string contact = "CQ TEST DE SM0ABC SM0ABC 599 001 JO89 K";

TEST_F(ModemTool, TurnsTextIntoSoundAndBackInEveryModeAndSpeed) {
    for (const char* mode :
         {"bpsk", "bpsk --baud 62.5", "bpsk --baud 125", "rtty-L", "rtty-U --baud 50", "rtty-L --baud 75",
          "mfsk-U", "mfsk-L", "mfsk-U --baud 7.8125", "mfsk-L --baud 31.25"}) {
        const std::string options = std::string("--mode ") + mode;
        ASSERT_EQ(Encode(options, contact, "x.wav").status, 0) << mode;
        EXPECT_EQ(Trimmed(Decode(options, File("x.wav")).text), contact) << mode;
    }
}

TEST_F(ModemTool, WritesSixteenBitMonoAtTheGivenRate) {
    ASSERT_EQ(Encode("--mode rtty-L --rate 8000", "RY", "x.wav").status, 0);
    std::ifstream file(File("x.wav"), std::ios::binary);
    std::array<unsigned char, 36> head{};
    file.read(reinterpret_cast<char*>(head.data()), head.size());
    const auto number = [&](std::size_t at) { return head[at] + head[at + 1] * 256; };
    EXPECT_EQ(std::string(head.begin(), head.begin() + 4), "RIFF");
    EXPECT_EQ(number(22), 1) << "channels";
    EXPECT_EQ(number(24), 8000) << "rate";
    EXPECT_EQ(number(34), 16) << "bits";
}

TEST_F(ModemTool, SaysWhatIsWrong) {
    for (const auto& [options, complaint] :
         {std::pair{"--mode morse --decode x", "no such mode"},
          {"--decode x", "--mode is missing"},
          {"--mode bpsk", "one of --decode and --encode"},
          {"--mode bpsk --baud x --decode y", "not a number"},
          {"--mode bpsk --decode", "wants a value"},
          {"--mode bpsk --decode /no/such/file", "No such file"},
          {"--mode bpsk --frequency 3", "unknown"},
          {"--mode bpsk --carrier 9000 --encode /dev/null", "outside the audio"},
          {"--mode bpsk --rate 100 --encode /dev/null", "6000 to 50000"},
          {"--mode bpsk --encode /no/such/folder/x.wav", "No such file"}}) {
        const Outcome outcome = Shell(tool + options + " </dev/null 2>&1");
        EXPECT_EQ(outcome.status, 1) << options;
        EXPECT_NE(outcome.text.find(complaint), std::string::npos) << options << ": " << outcome.text;
    }
    EXPECT_EQ(Shell(tool + "--help").status, 0);
    EXPECT_NE(Shell(tool + "--help").text.find("--carrier HZ"), std::string::npos);
}

// ---- other modems
// ------------------------------------------------------------------------------------------

struct Recording {
    const char* file;
    const char* options;
};

class Recordings : public testing::TestWithParam<Recording> {};
INSTANTIATE_TEST_SUITE_P(All, Recordings,
                         testing::Values(Recording{"bpsk31", "--mode bpsk --carrier 1000"},
                                         Recording{"mfsk16", "--mode mfsk-U --carrier 1500"},
                                         Recording{"mfsk8", "--mode mfsk-U --baud 7.8125 --carrier 1500"},
                                         Recording{"rtty45", "--mode rtty-L --carrier 2125"}));

TEST_P(Recordings, OfAnotherModemAreReadWithoutAnError) {
    const auto& [file, options] = GetParam();
    std::ifstream sent(std::string(PROV) + "/short.txt");
    const std::string text{std::istreambuf_iterator<char>(sent), {}};
    ASSERT_FALSE(text.empty());
    const Outcome outcome = Shell(std::string(MODEM_TOOL) + ' ' + options + " --afc --decode " + PROV + "/" +
                                  file + "_short.flac");
    EXPECT_EQ(Trimmed(outcome.text), Trimmed(text));
}

/// All that minimodem's alphabet has too.
const std::string printable = "ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789 -$!&#'()\":?,./; THE QUICK BROWN FOX";

class Minimodem : public ModemTool, public testing::WithParamInterface<const char*> {};
INSTANTIATE_TEST_SUITE_P(Speeds, Minimodem, testing::Values("45.45", "50", "75"));

TEST_P(Minimodem, ReadsOurTeletype) {
    ASSERT_EQ(Encode(std::string("--mode rtty-L --baud ") + GetParam(), printable + "\n" + printable, "x.wav")
                  .status,
              0);
    const Outcome outcome =
        Shell(std::string("minimodem --rx -q -5 -M 2125 -S 2295 -f ") + File("x.wav") + " " + GetParam());
    EXPECT_EQ(Trimmed(outcome.text), printable + " " + printable);
}

TEST_P(Minimodem, IsReadByUs) {
    std::ofstream(File("text")) << printable << "\n" << printable;
    ASSERT_EQ(Shell(std::string("minimodem --tx -5 --stopbits 1.5 -M 2125 -S 2295 -R 11025 -f ") +
                    File("x.wav") + " " + GetParam() + " < " + File("text"))
                  .status,
              0)
        << "minimodem is in Debian's package of that name";
    EXPECT_EQ(Trimmed(Decode(std::string("--mode rtty-L --baud ") + GetParam(), File("x.wav")).text),
              printable + " " + printable);
}

} // namespace
