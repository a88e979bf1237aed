#include "csv.h"

namespace databygge {

namespace {

[[noreturn]] void Fel(int rad, const std::string& vad) {
    throw Byggfel("rad " + std::to_string(rad) + ": " + vad);
}

/// Takes the line end at the reading place, if one is there.
bool TaRadslut(std::istream& in) {
    if (in.peek() == '\r') in.get();
    if (in.peek() != '\n') return in.eof();
    in.get();
    return true;
}

/// Reads the inside of a quoted field; the opening quote is taken already.
std::string LäsCiterat(std::istream& in, int& rad) {
    const int första = rad;
    std::string text;
    for (int tecken = in.get(); tecken != std::istream::traits_type::eof(); tecken = in.get()) {
        if (tecken == '"') {
            if (in.peek() != '"') return text;
            in.get();
        }
        if (tecken == '\n') ++rad;
        text += static_cast<char>(tecken);
    }
    Fel(första, "citattecknet avslutas aldrig");
}

std::string LäsOciterat(std::istream& in, int rad) {
    std::string text;
    for (int tecken = in.peek(); tecken != std::istream::traits_type::eof(); tecken = in.peek()) {
        if (tecken == ',' || tecken == '\r' || tecken == '\n') break;
        if (tecken == '"') Fel(rad, "citattecken mitt i ett fält");
        text += static_cast<char>(in.get());
    }
    return text;
}

void HoppaTommaRader(std::istream& in, int& rad) {
    while (in.peek() == '\n' || in.peek() == '\r') {
        if (in.get() == '\n') ++rad;
    }
}

} // namespace

bool LäsCsvPost(std::istream& in, int& rad, CsvPost& post) {
    HoppaTommaRader(in, rad);
    post.fält.clear();
    post.rad = ++rad;
    if (in.peek() == std::istream::traits_type::eof()) return false;
    for (;;) {
        const bool citerat = in.peek() == '"';
        if (citerat) in.get();
        post.fält.push_back(citerat ? LäsCiterat(in, rad) : LäsOciterat(in, rad));
        if (in.peek() == ',') {
            in.get();
            continue;
        }
        if (TaRadslut(in)) return true;
        Fel(rad, "text efter ett avslutat citat");
    }
}

} // namespace databygge
