#pragma once

#include <QByteArray>
#include <QString>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

/// A serial line whose other end the test holds.
class Linje {
public:
    Linje()
        : ände_(posix_openpt(O_RDWR | O_NOCTTY)) {
        EXPECT_EQ(grantpt(ände_), 0);
        EXPECT_EQ(unlockpt(ände_), 0);
    }
    ~Linje() { close(ände_); }
    Linje(const Linje&) = delete;
    Linje& operator=(const Linje&) = delete;
    QString Enhet() const { return QString::fromUtf8(ptsname(ände_)); }
    void Skriv(const QByteArray& text) {
        EXPECT_EQ(write(ände_, text.constData(), static_cast<size_t>(text.size())), text.size());
    }
    QByteArray Läs() {
        char buffert[256];
        const ssize_t antal = read(ände_, buffert, sizeof buffert);
        return {buffert, qMax<ssize_t>(antal, 0)};
    }

private:
    int ände_;
};
