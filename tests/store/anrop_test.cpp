// The search over the country table as the build makes it: real calls, and the country each belongs to.
#include "store/PrefixSök.h"
#include "support/ToPrint.h"

#include <QFile>
#include <QHash>
#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace store {
namespace {

struct Land {
    QString dxcc;
    QString zon;
    QString itu;
    qsizetype rader = 0;
};

using Landtabell = QHash<QString, Land>;

QString Kolumn(sqlite3_stmt* sats, int kolumn) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(sats, kolumn)));
}

Landtabell LäsTabell() {
    sqlite3* öppnad = nullptr;
    const int svar = sqlite3_open_v2(SORVIK_DATA "/Data.Dat", &öppnad, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> db(öppnad, sqlite3_close);
    if (svar != SQLITE_OK) throw std::runtime_error("Data.Dat kan inte öppnas");
    sqlite3_stmt* sats = nullptr;
    if (sqlite3_prepare_v2(db.get(), "SELECT Prefix, DXCC, Zon, ITU FROM Prefix", -1, &sats, nullptr) !=
        SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(db.get()));
    }
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> vakt(sats, sqlite3_finalize);
    Landtabell tabell;
    while (sqlite3_step(sats) == SQLITE_ROW) {
        Land& land = tabell[Kolumn(sats, 0)];
        land = {Kolumn(sats, 1), Kolumn(sats, 2), Kolumn(sats, 3), land.rader + 1};
    }
    return tabell;
}

const Landtabell& Tabell() {
    static const Landtabell tabell = LäsTabell();
    return tabell;
}

qsizetype Antal(const QString& nyckel) {
    const auto rad = Tabell().constFind(nyckel);
    return rad == Tabell().constEnd() ? 0 : rad->rader;
}

QList<QStringList> Anropslista() {
    QFile fil(QStringLiteral(SORVIK_ANROP));
    if (!fil.open(QIODevice::ReadOnly)) throw std::runtime_error("anrop.csv kan inte öppnas");
    QList<QStringList> rader;
    for (const QString& rad : QString::fromUtf8(fil.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        rader.append(rad.trimmed().split(u','));
    }
    return rader;
}

TEST(Anrop, ListanHarSinRubrikOchFyraFält) {
    const auto rader = Anropslista();
    ASSERT_GT(rader.size(), 500);
    EXPECT_EQ(rader.first(), (QStringList{"Anrop", "DXCC", "Zon", "ITU"}));
    for (const QStringList& rad : rader) EXPECT_EQ(rad.size(), 4) << rad.join(u',').toStdString();
}

/// An expectation that is empty is not checked.
void FörväntaLand(const QStringList& rad, const QString& nyckel) {
    const Land land = Tabell().value(nyckel);
    const std::string anrop = rad[0].toStdString() + " by the key " + nyckel.toStdString();
    EXPECT_EQ(land.dxcc, rad[1]) << anrop;
    if (!rad[2].isEmpty()) {
        EXPECT_EQ(land.zon, rad[2]) << anrop;
    }
    if (!rad[3].isEmpty()) {
        EXPECT_EQ(land.itu, rad[3]) << anrop;
    }
}

TEST(Anrop, HamnarISittLandMedSinaZoner) {
    for (const QStringList& rad : Anropslista().mid(1)) {
        const auto nyckel = SökEntydigtPrefix(rad[0], Antal);
        if (rad[1].isEmpty()) {
            EXPECT_EQ(nyckel, std::nullopt) << rad[0].toStdString();
        } else if (!nyckel) {
            ADD_FAILURE() << rad[0].toStdString() << " is not found";
        } else {
            FörväntaLand(rad, *nyckel);
        }
    }
}

TEST(Anrop, VarjeNyckelUtanSnedstreckFinnerSigSjälv) {
    for (auto rad = Tabell().constBegin(); rad != Tabell().constEnd(); ++rad) {
        if (rad.key().contains(u'/')) continue;
        EXPECT_EQ(SökEntydigtPrefix(rad.key(), Antal), std::optional(rad.key()));
    }
}

TEST(Anrop, SlutarAldrigPåEnNyckelSomSaknasUtom4UOchFT) {
    for (const QStringList& rad : Anropslista().mid(1)) {
        for (qsizetype längd = 1; längd <= rad[0].size(); ++längd) {
            const QString nyckel = SökPrefix(rad[0].left(längd), Antal);
            const bool undantag = nyckel.isEmpty() || nyckel == u"4U" || nyckel == u"FT";
            EXPECT_TRUE(undantag || Antal(nyckel) == 1)
                << rad[0].toStdString() << ' ' << nyckel.toStdString();
        }
    }
}

} // namespace
} // namespace store
