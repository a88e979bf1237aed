#include "contest/frTest.h"

#include "contest/DeladeVärden.h"
#include "platform/windows.h"
#include "store/Databaser.h"
#include "store/Filter.h"
#include "store/PrefixSök.h"
#include "store/RäknaModul.h"
#include "store/SparaModul.h"
#include "store/frEditorTest.h"

using platform::GridColumn;
using platform::Twips;

namespace {

/// Bands with a column in the two band grids; 30, 17 and 12 m have none.
constexpr std::array<const char*, 9> rutnätsband = {"160 M", "80 M", "40 M", "20 M", "15 M",
                                                    "10 M",  "6 M",  "2 M",  "70 CM"};
struct Trafikrad {
    const char* rubrik;
    const char* trafiksätt;
};
/// Rows of the worked grid; of the digital modes only RTTY counts.
constexpr std::array<Trafikrad, 5> trafikrader = {
    {{"CW", "CW"}, {"SSB", "SSB"}, {"AM", "AM"}, {"FM", "FM"}, {"DIGI", "RTTY"}}};

const QColor röd(255, 0, 0);

void SkrivBandrubriker(platform::FlexGrid& rutnät) {
    for (size_t i = 0; i < rutnätsband.size(); ++i) {
        const QString band = QString::fromUtf8(rutnätsband[i]);
        rutnät.Cell(0, static_cast<int>(i) + 1, band.section(QLatin1Char(' '), 0, 0));
    }
}

/// A red X wherever the cursor has a row for the condition and the band, and nothing elsewhere. The cursor
/// looks a filter up in its index: none of them is a pass over the rows.
/// @param markör nullptr: no X for any band
void SättKryss(platform::FlexGrid& rutnät, int rad, platform::Recordset* markör, const QString& villkor) {
    for (size_t i = 0; i < rutnätsband.size(); ++i) {
        if (markör)
            markör->Filter(villkor + QStringLiteral(" AND ") +
                           store::Lika(u"[Band ]", QString::fromUtf8(rutnätsband[i])));
        const bool körd = markör && markör->RecordCount() > 0;
        rutnät.Cell(rad, static_cast<int>(i) + 1, körd ? QStringLiteral("X") : QString(), röd);
    }
}

/// Columns that stay out of dgLogg in every contest.
const QStringList utanförLogg = {
    QStringLiteral("DXCC"),     QStringLiteral("Notering"), QStringLiteral("Namn"),
    QStringLiteral("QTH"),      QStringLiteral("Land"),     QStringLiteral("Prefix"),
    QStringLiteral("DXCC Nr"),  QStringLiteral("NDXCC"),    QStringLiteral("NRuta"),
    QStringLiteral("Dubblett"), QStringLiteral("LöpNrSR"),  QStringLiteral("NDIST"),
    QStringLiteral("Province"), QStringLiteral("State")};
constexpr std::array loggBredder = {1510, 1510, 1710, 1510, 1110, 1110, 1020, 1110,
                                    1020, 1120, 1110, 1500, 1120, 1120, 1220};

void BindLogg(platform::DataGrid& rutnät, const QString& utan) {
    platform::Recordset& logg = db().rsTESTQSO;
    std::vector<GridColumn> kolumner;
    const QStringList fält = logg.FieldNames();
    for (const QString& namn : fält) {
        if (utanförLogg.contains(namn, Qt::CaseInsensitive) || namn == utan) continue;
        // A log from elsewhere may have columns of its own behind ours.
        const size_t plats = qMin(kolumner.size(), loggBredder.size() - 1);
        kolumner.push_back({namn, namn.trimmed(), Twips(loggBredder[plats])});
    }
    rutnät.Bind(&logg, kolumner);
}

} // namespace

void frTest::KopplaFrånRutnät() {
    for (platform::DataGrid* rutnät : {dgLogg, dgMulti, dgDXCC, dgTidigareQSO}) rutnät->Unbind();
    frEditorTest::FöljLogg(false);
}

void frTest::UppdateraTest() {
    RequeryFrågor();
    Databaser& d = db();
    // The editor may have narrowed the log to a prefix or a country; the board counts all of it.
    if (!d.rsTESTQSO.Filter().isEmpty()) d.rsTESTQSO.Filter(QString());
    lblQSO->setNum(static_cast<int>(d.rsTESTQSO.RecordCount()));
    lblDiplom->setNum(static_cast<int>(d.rsDiplom.RecordCount()));
    lblMultiplar->setNum(static_cast<int>(d.rsMultiplar.RecordCount()));
    RäknaPoäng(delat.AktuelltTest);
}

void frTest::UppdateraBand() {
    platform::Recordset& logg = db().rsTESTQSO;
    if (logg.RecordCount() > 0) logg.MoveFirst();
    int rad = 1;
    for (const Trafikrad& trafik : trafikrader)
        SättKryss(*fgTestData1, rad++, &logg,
                  store::Lika(u"Trafiksätt", QString::fromUtf8(trafik.trafiksätt)));
}

void frTest::Initiera_fgTestData1() {
    fgTestData1->Clear(6, 10);
    SkrivBandrubriker(*fgTestData1);
    int rad = 1;
    for (const Trafikrad& trafik : trafikrader) fgTestData1->Cell(rad++, 0, QString::fromUtf8(trafik.rubrik));
}

// Runs at nearly every key press in the call: the grid is not emptied first, so that only cells that change
// are drawn.
void frTest::Initiera_fgTestData2() {
    SkrivBandrubriker(*fgTestData2);
    const std::array<std::pair<QString, QString>, 3> rader = {
        {{lblDXCC->text(), store::DXCCNrFilter(txtDXCCNR->text())},
         {txtITUM->text(), store::Lika(u"ITU", txtITUM->text())},
         {txtZONM->text(), store::Lika(u"Zon", txtZONM->text())}}};
    const bool harLand = !txtDXCCNR->text().isEmpty() && HarLogg();
    int rad = 1;
    for (const auto& [rubrik, villkor] : rader) {
        fgTestData2->Cell(rad, 0, rubrik, röd);
        SättKryss(*fgTestData2, rad++, harLand ? &db().rsDXCCBand : nullptr, villkor);
    }
}

void frTest::Initiera_dgLogg1() {
    BindLogg(*dgLogg, QStringLiteral("Multiplar"));
    prefixLoggVisas_ = true;
}

void frTest::Initiera_dgLogg2() {
    BindLogg(*dgLogg, QStringLiteral("Diplom"));
    prefixLoggVisas_ = false;
}

void frTest::Initiera_dgLogg() {
    if (Test().prefixLogg)
        Initiera_dgLogg1();
    else
        Initiera_dgLogg2();
}

void frTest::Initiera_dgMulti() {
    const bool multiplar = Test().prefixLogg;
    platform::Recordset& markör = multiplar ? db().rsMultiplar : db().rsDiplom;
    const QString fält = multiplar ? QStringLiteral("Multiplar") : QStringLiteral("Diplom");
    if (dgMulti->Source() != &markör || !dgMulti->Bound()) dgMulti->Bind(&markör, {{fält, fält, 140}});
    if (markör.RecordCount() > 0) markör.MoveLast();
}

void frTest::Initiera_fgDXCC() {
    if (!dgDXCC->Bound()) dgDXCC->Bind(&db().rsDXCC, {{QStringLiteral("DXCC"), QStringLiteral("DXCC"), 80}});
}

void frTest::Initiera_fgSignal() {
    platform::Recordset& signaler = db().rsSignal;
    if (signaler.IsOpen() && !signaler.IsEOF()) signaler.MoveLast();
}

void frTest::Initiera_dgTidigareQSO() {
    platform::Recordset& tidigare = db().rsTidigare;
    if (!dgTidigareQSO->Bound())
        dgTidigareQSO->Bind(&tidigare, {{QStringLiteral("Datum"), QStringLiteral("Datum"), 82},
                                        {QStringLiteral("Tid"), QStringLiteral("Tid"), 66},
                                        {QStringLiteral("Frekvens"), QStringLiteral("Frekvens"), 82},
                                        {QStringLiteral("Signal"), QStringLiteral("Signal"), 86},
                                        {QStringLiteral("Trafiksätt"), QStringLiteral("Trafik"), 50},
                                        {QStringLiteral("Band "), QStringLiteral("Band"), 54},
                                        {QStringLiteral("Sänt"), QStringLiteral("Sänt"), 66},
                                        {QStringLiteral("Mottaget"), QStringLiteral("Motaget"), 66}});
    if (tidigare.Sort().isEmpty()) tidigare.Sort(QStringLiteral("Datum, Tid"));
}
