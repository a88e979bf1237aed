#pragma once

#include "csv.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace databygge {

/// A SQLite file in the making. It is written beside its place and moved there by Klar, so that a build that
/// fails leaves no half file behind. The same sources give the same bytes.
class Databas {
public:
    /// @param fil where the finished file is to lie; an older one is replaced by Klar
    /// @throws Byggfel if the file cannot be made
    explicit Databas(std::filesystem::path fil);
    ~Databas();
    Databas(const Databas&) = delete;
    Databas& operator=(const Databas&) = delete;

    /// Runs the statements of an SQL file.
    /// @throws Byggfel with SQLite's words if one fails
    void Kör(const std::filesystem::path& sqlfil);

    /// Adds rows to a table; columns without a value get the empty text, for a log never holds null.
    /// @param rader one value a column, from the first column on
    /// @throws Byggfel if the table refuses a row
    void Lägg(const std::string& tabell, const std::vector<std::vector<std::string>>& rader);

    /// Ends the work: closes the file and moves it to its place.
    void Klar();

private:
    struct Stängare {
        void operator()(sqlite3* db) const;
    };

    void Utför(const std::string& sql);
    int AntalKolumner(const std::string& tabell);
    [[noreturn]] void Fel(const std::string& vad);

    std::filesystem::path fil_;
    std::filesystem::path delfil_;
    std::unique_ptr<sqlite3, Stängare> db_;
};

} // namespace databygge
