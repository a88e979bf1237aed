#include "databas.h"

#include <sqlite3.h>

#include <fstream>
#include <iterator>
#include <memory>

namespace databygge {

namespace {

using Sats = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

std::string LäsFil(const std::filesystem::path& fil) {
    std::ifstream in(fil, std::ios::binary);
    if (!in) throw Byggfel(fil.string() + ": kan inte läsas");
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string InsertSats(const std::string& tabell, int kolumner) {
    std::string sql = "INSERT INTO \"" + tabell + "\" VALUES (";
    for (int i = 0; i < kolumner; ++i) sql += i == 0 ? "?" : ", ?";
    return sql + ")";
}

} // namespace

void Databas::Stängare::operator()(sqlite3* db) const { sqlite3_close(db); }

Databas::Databas(std::filesystem::path fil)
    : fil_(std::move(fil))
    , delfil_(fil_) {
    delfil_ += ".del";
    std::filesystem::remove(delfil_);
    sqlite3* öppnad = nullptr;
    const int svar = sqlite3_open(delfil_.c_str(), &öppnad);
    db_.reset(öppnad); // to be closed even when it could not be opened
    if (svar != SQLITE_OK) throw Byggfel(delfil_.string() + ": kan inte skapas");
    // A journal would only guard a file that is thrown away when the build fails.
    Utför("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
}

Databas::~Databas() {
    if (!db_) return;
    db_.reset();
    std::error_code ignorerat;
    std::filesystem::remove(delfil_, ignorerat);
}

void Databas::Fel(const std::string& vad) { throw Byggfel(vad + ": " + sqlite3_errmsg(db_.get())); }

void Databas::Utför(const std::string& sql) {
    if (sqlite3_exec(db_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fel(fil_.string());
}

void Databas::Kör(const std::filesystem::path& sqlfil) {
    if (sqlite3_exec(db_.get(), LäsFil(sqlfil).c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fel(sqlfil.string());
}

int Databas::AntalKolumner(const std::string& tabell) {
    sqlite3_stmt* sats = nullptr;
    if (sqlite3_prepare_v2(db_.get(), ("SELECT * FROM \"" + tabell + "\"").c_str(), -1, &sats, nullptr) !=
        SQLITE_OK)
        Fel(tabell);
    const Sats vakt(sats, sqlite3_finalize);
    return sqlite3_column_count(sats);
}

void Databas::Lägg(const std::string& tabell, const std::vector<std::vector<std::string>>& rader) {
    const int kolumner = AntalKolumner(tabell);
    sqlite3_stmt* sats = nullptr;
    if (sqlite3_prepare_v2(db_.get(), InsertSats(tabell, kolumner).c_str(), -1, &sats, nullptr) != SQLITE_OK)
        Fel(tabell);
    const Sats vakt(sats, sqlite3_finalize);
    const std::string tom;
    for (const auto& rad : rader) {
        for (int i = 0; i < kolumner; ++i) {
            const auto& värde =
                static_cast<std::size_t>(i) < rad.size() ? rad[static_cast<std::size_t>(i)] : tom;
            sqlite3_bind_text(sats, i + 1, värde.c_str(), -1, SQLITE_STATIC);
        }
        if (sqlite3_step(sats) != SQLITE_DONE) Fel(tabell + ", " + (rad.empty() ? tom : rad.front()));
        sqlite3_reset(sats);
    }
}

void Databas::Klar() {
    Utför("COMMIT");
    db_.reset();
    std::filesystem::rename(delfil_, fil_);
}

} // namespace databygge
