// The line that keys the radio, on ports of the machine's own: what the kernel is told to do with RTS and
// DTR.
#include "platform/mmvari/keyline.h"

#include <QTest>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <map>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

using platform::KeyLine;

namespace {

/// The modem lines that a pty lacks, for the ones that have been given some, by their device numbers; and
/// what they went through.
struct Lines {
    int bits = TIOCM_RTS | TIOCM_DTR; ///< a port comes up with both on
    std::vector<int> were;
};
std::map<dev_t, Lines> given;

Lines* LinesOf(int port) {
    struct stat status = {};
    if (given.empty() || fstat(port, &status) != 0) return nullptr;
    const auto found = given.find(status.st_rdev);
    return found == given.end() ? nullptr : &found->second;
}

} // namespace

/// Stands before the C library's for this program: all but the lines that were given goes on to the kernel.
extern "C" int ioctl(int port, unsigned long request, ...) noexcept {
    va_list list;
    va_start(list, request);
    void* const argument = va_arg(list, void*);
    va_end(list);
    const bool sets = request == TIOCMBIS || request == TIOCMBIC || request == TIOCMSET;
    Lines* const lines = sets || request == TIOCMGET ? LinesOf(port) : nullptr;
    if (!lines) return static_cast<int>(syscall(SYS_ioctl, port, request, argument));
    int& bits = *static_cast<int*>(argument);
    if (request == TIOCMGET) return bits = lines->bits, 0;
    lines->bits = request == TIOCMSET ? bits : request == TIOCMBIS ? lines->bits | bits : lines->bits & ~bits;
    lines->were.push_back(lines->bits);
    return 0;
}

namespace {

constexpr int both = TIOCM_RTS | TIOCM_DTR;

/// A serial port whose far end is the test's.
class Port {
public:
    Port()
        : far_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        grantpt(far_);
        unlockpt(far_);
        name_ = QString::fromLocal8Bit(ptsname(far_));
    }
    ~Port() { Pull(); }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;

    const QString& Name() const { return name_; }
    /// From now on it has modem lines.
    Lines& Give() {
        struct stat status = {};
        EXPECT_EQ(stat(name_.toLocal8Bit().constData(), &status), 0);
        number_ = status.st_rdev;
        return given[number_];
    }
    void Pull() {
        given.erase(number_);
        if (far_ >= 0) close(far_);
        far_ = -1;
    }
    /// @return bytes that it took
    std::size_t Send(std::size_t length) const {
        const std::vector<char> bytes(length, 'x');
        const ssize_t taken = write(far_, bytes.data(), length);
        return taken > 0 ? static_cast<std::size_t>(taken) : 0;
    }

private:
    int far_;
    dev_t number_ = 0;
    QString name_;
};

} // namespace

TEST(KeyLineTest, RtsAndDtrAreOffUntilTheKeyGoesDownAndOffAgainBehindIt) {
    Port port;
    Lines& lines = port.Give();
    std::unique_ptr<KeyLine> line = platform::OpenKeyLine(port.Name());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(lines.bits & both, 0) << "opening alone keys nothing";
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(line->Key(true));
        EXPECT_EQ(lines.bits & both, both);
        EXPECT_TRUE(line->Key(false));
        EXPECT_EQ(lines.bits & both, 0);
    }
    EXPECT_TRUE(line->Key(true));
    line.reset();
    EXPECT_EQ(lines.bits & both, 0) << "the port is let go of with the key up";
    EXPECT_EQ(lines.were.size(), 14U) << "each line for itself: one that is not there takes the other along";
}

TEST(KeyLineTest, APortThatIsMissingIsNone) {
    EXPECT_EQ(platform::OpenKeyLine("/dev/det finns ingen"), nullptr);
    EXPECT_EQ(platform::OpenKeyLine("EXTFSK"), nullptr);
    EXPECT_EQ(platform::OpenKeyLine(""), nullptr);
    EXPECT_EQ(platform::OpenKeyLine("Com999"), nullptr);
}

TEST(KeyLineTest, APortWithoutLinesTellsSo) {
    const Port port;
    const std::unique_ptr<KeyLine> line = platform::OpenKeyLine(port.Name());
    ASSERT_NE(line, nullptr);
    EXPECT_FALSE(line->Key(true));
    EXPECT_FALSE(line->Key(false));
}

TEST(KeyLineTest, APortThatIsPulledOutTellsSoAndDoesNoHarm) {
    Port port;
    port.Give();
    std::unique_ptr<KeyLine> line = platform::OpenKeyLine(port.Name());
    ASSERT_TRUE(line->Key(true));
    port.Pull();
    QTest::qWait(20);
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(line->Key(false));
    line.reset();
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_EQ(platform::OpenKeyLine(port.Name()), nullptr);
}

TEST(KeyLineTest, OfSeveralPortsTheFirstWhoseLinesCanBeSetIsTaken) {
    Port without, with, spare;
    Lines& lines = with.Give();
    const Lines& untouched = spare.Give();
    const auto line = platform::OpenFirstKeyLine({"nowhere", without.Name(), with.Name(), spare.Name()});
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(line->Key(true));
    EXPECT_EQ(lines.bits & both, both);
    EXPECT_TRUE(untouched.were.empty());
    const auto another = platform::OpenFirstKeyLine({without.Name()});
    ASSERT_NE(another, nullptr) << "which tells by itself that it cannot";
    EXPECT_FALSE(another->Key(true));
    EXPECT_EQ(platform::OpenFirstKeyLine({"nowhere"}), nullptr);
}

TEST(KeyLineTest, WhatTheRadioSaysIsNotPiledUp) {
    const Port port;
    const std::unique_ptr<KeyLine> line = platform::OpenKeyLine(port.Name());
    std::size_t taken = 0;
    for (int i = 0; i < 50; ++i) {
        for (int k = 0; k < 8; ++k) taken += port.Send(4096);
        QTest::qWait(1);
    }
    EXPECT_LT(taken, 200'000U) << "no more than the kernel holds";
}
