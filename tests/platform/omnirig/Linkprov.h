#pragma once

#include "platform/omnirig/riglink.h"
#include "support/Riggprov.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace platform;

inline const QString onLine = QStringLiteral("On-line");
inline const QString silent = QStringLiteral("Rig is not responding");

/// The line to a radio, and all that it has told.
class LinkTest : public ::testing::Test {
protected:
    LinkTest() {
        link.OnStatus([this] { statuses << link.Status(); });
        link.OnChange([this] { changes << link.Frequency(); });
        link.OnReading([this] { ++readings; });
    }
    void UseAddress(const QString& address) {
        link.Use({.way = RigSettings::Way::Address, .address = address});
    }
    bool ComesOnLine(int within = 3000) {
        return QTest::qWaitFor([this] { return link.IsOnLine() && readings > 0; }, within);
    }
    bool Falls(int within) {
        return QTest::qWaitFor([this] { return !link.IsOnLine(); }, within);
    }
    bool Tells(qint64 hertz, int within = 2000) {
        return QTest::qWaitFor([this, hertz] { return link.Frequency() == hertz; }, within);
    }
    /// Lets so many rounds of questions pass.
    bool Rounds(int count) {
        const int until = readings + count;
        return QTest::qWaitFor([this, until] { return readings >= until; }, 1000 + 1500 * count);
    }
    /// Tunes as the window does.
    void Tune(qint64 hertz) {
        link.Tune(rigctld::Vfo::A, hertz);
        link.Tune(rigctld::Vfo::Current, hertz);
    }

    RigLink link;
    QStringList statuses;
    QList<qint64> changes;
    int readings = 0;
};
