#pragma once

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "platform/windows.h"
#include "store/Databaser.h"
#include "support/Provmapp.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <sqlite3.h>

/// The program in a folder of its own, with station data and no log. A message ends the benchmark.
class Bänkprogram {
public:
    /// @param plats where the folder is made: on the disk or in memory
    /// @param förbered runs when the folder is there and the program not yet
    explicit Bänkprogram(const QString& plats, const std::function<void()>& förbered = {})
        : mapp_(plats + QStringLiteral("/sorvik-bench-XXXXXX")) {
        KopieraMapp(QStringLiteral(SORVIK_DATA), mapp_.path() + QStringLiteral("/Data"));
        platform::SetProgramFolder(mapp_.path());
        delat = {};
        NollställDatabaser();
        Sats(platform::DataPath(QStringLiteral("SVD.Dat")),
             "UPDATE SVDINI SET OpSignal='SK7MW', OpTestLokator='JO65MR', OpTestDatum='2026-12-01'");
        if (förbered) förbered();
        platform::Dialogs().message = [](const QString& text, const QString&) {
            qFatal("%s", qPrintable(text));
        };
        HoppaÖverSplash();
        Fönster().Ladda();
        (void)QTest::qWaitForWindowActive(&Fönster());
    }
    ~Bänkprogram() {
        platform::DestroyAllWindows();
        NollställDatabaser();
    }
    Bänkprogram(const Bänkprogram&) = delete;
    Bänkprogram& operator=(const Bänkprogram&) = delete;

    static frTest& Fönster() { return frTest::instans(); }
    static QString Logg() { return platform::DataPath(QStringLiteral("Loggar/bench.svk")); }
    /// An empty log of a contest.
    static void NyLogg(int test) {
        QFile::copy(platform::DataPath(QStringLiteral("SVK")), Logg());
        QFile::setPermissions(Logg(), QFile::ReadOwner | QFile::WriteOwner);
        Sats(Logg(), qPrintable(QStringLiteral("UPDATE INFO SET Aktuellt_Test=%1").arg(test)));
    }
    static void Öppna() {
        delat.TestLoggFil = Logg();
        Fönster().VerkställÖppnaTestLogg();
        QCoreApplication::processEvents();
    }
    /// Runs a statement on a database file.
    static void Sats(const QString& fil, const char* sats) {
        sqlite3* databas = nullptr;
        char* fel = nullptr;
        if (sqlite3_open(fil.toUtf8().constData(), &databas) != SQLITE_OK ||
            sqlite3_exec(databas, sats, nullptr, nullptr, &fel) != SQLITE_OK)
            qFatal("%s: %s", sats, fel ? fel : "cannot open");
        sqlite3_close(databas);
    }

private:
    QTemporaryDir mapp_;
};
