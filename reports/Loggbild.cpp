#include "reports/Loggbild.h"

namespace reports {
namespace {

/// @throws platform::Failure if the log lacks a column
std::vector<int> Platser(const platform::Recordset& logg, std::span<const Kolumn> kolumner) {
    std::vector<int> platser;
    for (const Kolumn& kolumn : kolumner) platser.push_back(logg.FieldIndex(QString::fromUtf8(kolumn.namn)));
    return platser;
}

} // namespace

Loggbild LäsLogg(platform::Recordset& logg, std::span<const Kolumn> kolumner) {
    Loggbild bild;
    // The editor may have narrowed the log; a report is of all of it.
    if (!logg.Filter().isEmpty()) logg.Filter(QString());
    try {
        const std::vector<int> platser = Platser(logg, kolumner);
        bild.kontakter.resize(static_cast<size_t>(logg.RecordCount()));
        qsizetype rad = 0;
        for (Kontakt& kontakt : bild.kontakter) {
            for (size_t i = 0; i < kolumner.size(); ++i)
                kontakt.*kolumner[i].fält = logg.At(rad, platser[i]).text();
            ++rad;
        }
    } catch (const platform::Failure&) {
        bild.läsbar = false;
        return bild;
    }
    logg.MoveLast();
    if (!logg.IsEOF()) logg.MoveNext();
    return bild;
}

QString KortDatum(const QString& datum) { return datum.right(8).remove(u'-'); }

QString KortTid(const QString& tid) { return tid.left(5).remove(u':'); }

QString BaraRST(const QString& rapport) { return rapport.section(u' ', 0, 0); }

} // namespace reports
