#include "radio/Digitalval.h"

#include "platform/text.h"
#include "platform/textfile.h"

#include <variant>

namespace radio {

namespace {

/// How a value stands in the file.
enum class Filform { Citat, Bart, Byte, Tal };

struct Filrad {
    Filform form;
    std::variant<QString Digitalval::*, int Digitalval::*> värde;
};

using D = Digitalval;
/// The lines of the file, in their order.
constexpr Filrad filensRader[] = {
    {Filform::Citat, &D::DigiBandbredd}, {Filform::Byte, &D::DigiUOS},      {Filform::Byte, &D::DigiAFC},
    {Filform::Byte, &D::DigiHPF},        {Filform::Byte, &D::DigiATC},      {Filform::Byte, &D::DigiNET},
    {Filform::Citat, &D::DigiComport},   {Filform::Citat, &D::DigiFlöde},   {Filform::Citat, &D::DigiTrafik},
    {Filform::Citat, &D::DigiDisplay},   {Filform::Bart, &D::DigiFIFORX},   {Filform::Bart, &D::DigiFIFOTX},
    {Filform::Tal, &D::DigiKanalA},      {Filform::Tal, &D::DigiKanalB},    {Filform::Bart, &D::DigiID},
    {Filform::Tal, &D::DigiPrio},        {Filform::Bart, &D::DigiRXKlocka}, {Filform::Bart, &D::DigiTXKlocka},
    {Filform::Byte, &D::Rad19},          {Filform::Citat, &D::DigiEffekt},  {Filform::Citat, &D::DigiUDP},
};

} // namespace

QString DigitalvalTillText(const Digitalval& val) {
    QStringList texter;
    for (const Filrad& rad : filensRader) {
        if (const auto* tal = std::get_if<int D::*>(&rad.värde)) {
            texter << platform::PrintNumber(val.*(*tal));
            continue;
        }
        const QString& text = val.*std::get<QString D::*>(rad.värde);
        texter << (rad.form == Filform::Citat ? platform::WriteItem(text) : text);
    }
    return platform::LinesToText(texter);
}

Digitalval DigitalvalFrånText(const QString& text) {
    Digitalval val;
    platform::ItemReader rader(text);
    for (const Filrad& rad : filensRader) {
        if (const auto* fält = std::get_if<QString D::*>(&rad.värde)) {
            // A bare text has its line to itself, so a comma in it does not move what follows.
            val.*(*fält) = rad.form == Filform::Bart ? rader.NextLine().trimmed() : rader.Next();
            continue;
        }
        const double tal = rader.NextNumber();
        val.*std::get<int D::*>(rad.värde) =
            rad.form == Filform::Byte ? platform::ToByte(tal) : platform::ToInt16(tal);
    }
    return val;
}

} // namespace radio
