// Makes one database file of the run-time tree from its readable sources:
//
//     bygg_data <file> <schema.sql> [<Prefix.csv> <table>]
//
// With a CSV file the table Prefix gets its rows, the table TESTDXCC one row a country. The status is 1 and
// no file is made when a source breaks a rule.

#include "databas.h"
#include "prefixtabell.h"

#include <iostream>

namespace {

using databygge::Prefixrad;
using Rader = std::vector<std::vector<std::string>>;

Rader Prefixrader(const std::vector<Prefixrad>& tabell) {
    Rader rader;
    for (const auto& rad : tabell) rader.emplace_back(rad.begin(), rad.end());
    return rader;
}

Rader Landrader(const std::vector<Prefixrad>& tabell) {
    Rader rader;
    for (const auto& [dxcc, kod] : databygge::Länder(tabell)) rader.push_back({dxcc, kod});
    return rader;
}

void Bygg(const std::vector<std::string>& arg) {
    databygge::Databas databas(arg[0]);
    databas.Kör(arg[1]);
    if (arg.size() == 4) {
        const auto tabell = databygge::LäsPrefixtabell(std::filesystem::path(arg[2]));
        databas.Lägg(arg[3], arg[3] == "Prefix" ? Prefixrader(tabell) : Landrader(tabell));
    }
    databas.Klar();
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arg(argv + 1, argv + argc);
    if (arg.size() != 2 && arg.size() != 4) {
        std::cerr << "bygg_data <fil> <schema.sql> [<Prefix.csv> <tabell>]\n";
        return 2;
    }
    try {
        Bygg(arg);
    } catch (const std::exception& fel) {
        std::cerr << "bygg_data: " << fel.what() << '\n';
        return 1;
    }
    return 0;
}
