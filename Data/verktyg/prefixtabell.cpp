#include "prefixtabell.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <map>
#include <set>
#include <string_view>
#include <tuple>

namespace databygge {

namespace {

enum Kolumn { kPrefix, kLand, kDxcc, kKontinent, kTid, kItu, kZon, kKod, kLokator };

bool Inom(char tecken, char första, char sista) { return tecken >= första && tecken <= sista; }

bool ÄrNyckel(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char t) { return Inom(t, 'A', 'Z') || Inom(t, '0', '9') || t == '/'; });
}

bool ÄrHeltal(std::string_view text, int minst, int mest) {
    int tal = 0;
    const auto [slut, fel] = std::from_chars(text.data(), text.data() + text.size(), tal);
    return fel == std::errc() && slut == text.data() + text.size() && tal >= minst && tal <= mest &&
           text == std::to_string(tal);
}

/// Hours with at most two decimals, the written form of the countries' offsets.
bool ÄrTid(std::string_view text) {
    const auto punkt = text.find('.');
    if (!ÄrHeltal(text.substr(0, punkt), -12, 14) && text.substr(0, punkt) != "-0") return false;
    if (punkt == std::string_view::npos) return true;
    const auto decimaler = text.substr(punkt + 1);
    return decimaler == "5" || decimaler == "25" || decimaler == "75";
}

bool ÄrLokator(std::string_view text) {
    return text.size() == 6 && Inom(text[0], 'A', 'R') && Inom(text[1], 'A', 'R') &&
           Inom(text[2], '0', '9') && Inom(text[3], '0', '9') && Inom(text[4], 'A', 'X') &&
           Inom(text[5], 'A', 'X');
}

bool ÄrKontinent(const std::string& text) {
    static const std::set<std::string> kända{"AF", "AN", "AS", "EU", "NA", "OC", "SA"};
    return kända.contains(text);
}

/// @return what is wrong with the row, empty when nothing is
std::string Fel(const Prefixrad& rad) {
    for (std::size_t i = 0; i < rad.size(); ++i) {
        if (rad[i].empty()) return std::string("tomt fält ") + kPrefixKolumner[i];
    }
    if (!ÄrNyckel(rad[kPrefix])) return "ogiltig nyckel " + rad[kPrefix];
    if (!ÄrKontinent(rad[kKontinent])) return "okänd kontinent " + rad[kKontinent];
    if (!ÄrTid(rad[kTid])) return "ogiltig tid " + rad[kTid];
    if (!ÄrHeltal(rad[kItu], 1, 90)) return "ogiltig ITU-zon " + rad[kItu];
    if (!ÄrHeltal(rad[kZon], 1, 40)) return "ogiltig CQ-zon " + rad[kZon];
    if (!ÄrHeltal(rad[kKod], 1, 999)) return "ogiltig kod " + rad[kKod];
    if (!ÄrLokator(rad[kLokator])) return "ogiltig lokator " + rad[kLokator];
    return {};
}

/// Holds every row against the earlier rows: ascending keys, one country to a short form, a number and a
/// name.
class Samband {
public:
    /// @return what is wrong, empty when nothing is
    std::string Fel(const Prefixrad& rad) {
        if (rad[kPrefix] == senaste_) return "nyckeln finns redan: " + rad[kPrefix];
        if (rad[kPrefix] < senaste_) return "nyckeln står i fel ordning: " + rad[kPrefix];
        senaste_ = rad[kPrefix];
        const Identitet land{rad[kDxcc], rad[kKod], rad[kLand]};
        for (const auto& vilken : {"D" + rad[kDxcc], "K" + rad[kKod], "L" + rad[kLand]}) {
            if (länder_.try_emplace(vilken, land).first->second != land)
                return "DXCC, Kod och Land går isär för " + rad[kPrefix];
        }
        return {};
    }

private:
    using Identitet = std::tuple<std::string, std::string, std::string>;
    std::string senaste_;
    std::map<std::string, Identitet> länder_;
};

void KontrolleraRubrik(const CsvPost& post) {
    if (!std::equal(post.fält.begin(), post.fält.end(), kPrefixKolumner.begin(), kPrefixKolumner.end()))
        throw Byggfel("rad " + std::to_string(post.rad) + ": fel rubrik");
}

Prefixrad TillRad(const CsvPost& post) {
    Prefixrad rad;
    if (post.fält.size() != rad.size()) throw Byggfel("rad " + std::to_string(post.rad) + ": fel antal fält");
    std::copy(post.fält.begin(), post.fält.end(), rad.begin());
    return rad;
}

} // namespace

std::vector<Prefixrad> LäsPrefixtabell(std::istream& in) {
    int radnummer = 0;
    CsvPost post;
    LäsCsvPost(in, radnummer, post);
    KontrolleraRubrik(post);
    std::vector<Prefixrad> tabell;
    Samband samband;
    while (LäsCsvPost(in, radnummer, post)) {
        tabell.push_back(TillRad(post));
        auto fel = Fel(tabell.back());
        if (fel.empty()) fel = samband.Fel(tabell.back());
        if (!fel.empty()) throw Byggfel("rad " + std::to_string(post.rad) + ": " + fel);
    }
    if (tabell.empty()) throw Byggfel("tabellen är tom");
    return tabell;
}

std::vector<Prefixrad> LäsPrefixtabell(const std::filesystem::path& fil) {
    std::ifstream in(fil, std::ios::binary);
    if (!in) throw Byggfel(fil.string() + ": kan inte läsas");
    try {
        return LäsPrefixtabell(in);
    } catch (const Byggfel& fel) {
        throw Byggfel(fil.string() + ": " + fel.what());
    }
}

std::vector<Land> Länder(const std::vector<Prefixrad>& tabell) {
    std::set<Land> länder;
    for (const auto& rad : tabell) länder.emplace(rad[kDxcc], rad[kKod]);
    return {länder.begin(), länder.end()};
}

} // namespace databygge
