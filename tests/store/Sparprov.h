#pragma once

#include "platform/failure.h"
#include "store/LokatorModul.h"
#include "store/RäknaModul.h"
#include "store/SparaModul.h"
#include "store/frEditorTest.h"
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include <QStringList>

/// How a save is asked for.
enum class Spar { Knapp, Meny };
inline void PrintTo(Spar spar, std::ostream* ut) { *ut << (spar == Spar::Knapp ? "button" : "menu"); }

/// What the tests of saving share: a log with a standing clock, and its rows as one text each.
class Sparprov : public Programprov {
protected:
    /// A new log, with the clock fields filled as they are a second after the start.
    frTest& StartaKlar(int test) {
        frTest& f = StartaLogg(test);
        f.TestTimer_Tick();
        return f;
    }

    static void Spara(Spar spar) {
        if (spar == Spar::Knapp)
            Tryck(Qt::Key_Return);
        else
            frTest::instans().Meny("mnuRedigera_SparaQSO")->trigger();
    }

    /// Rows of a file in the order of their storing, the fields joined by a bar; a null shows as NULL.
    static QStringList Rader(const QString& fil, const QString& kolumner,
                             const QString& tabell = QStringLiteral("TESTQSO")) {
        QStringList rader;
        for (const auto& rad : Läs(fil, QStringLiteral("SELECT ") + kolumner + QStringLiteral(" FROM ") +
                                            tabell + QStringLiteral(" ORDER BY rowid"))) {
            QStringList fält;
            for (const QString& värde : rad) fält += värde.isNull() ? QStringLiteral("NULL") : värde;
            rader += fält.join(QLatin1Char('|'));
        }
        return rader;
    }
    QStringList Rader(const QString& kolumner) const { return Rader(Logg(), kolumner); }
    QString INFO(const QString& kolumn) const {
        return LäsEtt(Logg(), QStringLiteral("SELECT ") + kolumn + QStringLiteral(" FROM INFO"));
    }
    int Antal() const { return LäsEtt(Logg(), QStringLiteral("SELECT count(*) FROM TESTQSO")).toInt(); }
    /// The memory of locators: "SM5ABC|JO89WJ".
    QStringList Lokatorminne() const {
        return Rader(Fil(QStringLiteral("Lokator.dat")), QStringLiteral("Signal, Lokator"),
                     QStringLiteral("Lokator"));
    }

    /// Types a call that is warned of and closes so many warnings by their frames, one after the other, so
    /// that the contact stays on the form; then its locator. A call on the same band is warned of twice in
    /// contests 1 to 5, by the rule of the whole log and by that of the band.
    static void SkrivVarnad(const QString& signal, const QString& lokator, int varningar) {
        frTest& f = frTest::instans();
        SkrivI(f.txtSignal, signal);
        StängVarningar(varningar);
        f.txtDiplom->setFocus();
        f.activateWindow(); // as a window manager does when the warning goes
        ASSERT_TRUE(HarFokus(f.txtDiplom));
        f.txtDiplom->selectAll(); // the locator remembered from the earlier contact
        Skriv(lokator);
    }
    static void StängVarningar(int antal) {
        NärFönster("frVarning", [antal](QWidget* varning) {
            varning->close();
            if (antal > 1) StängVarningar(antal - 1);
        });
    }

    /// Loads a row of the log, counted in date and time order, into the form as the editor does.
    static void Redigera(qsizetype plats) {
        frTest& f = frTest::instans();
        platform::Recordset& logg = db().rsTESTQSO;
        logg.AbsolutePosition(plats);
        delat.RedigeraQSO = true;
        delat.RedigeradBookmark = logg.GetBookmark();
        const std::pair<frTest::Fält*, const char*> fält[] = {
            {f.txtDatum, "Datum"},       {f.txtUTCTid, "Tid"},   {f.txtFrekvens, "Frekvens"},
            {f.txtRSTM, "Mottaget"},     {f.txtRSTS, "Sänt"},    {f.txtNamn, "Namn"},
            {f.txtDiplom, "Multiplar"},  {f.txtNDXCC, "NDXCC"},  {f.txtNRUTA, "NRUTA"},
            {f.txtDubblett, "Dubblett"}, {f.txtSignal, "Signal"}};
        f.cmbTrafik->Text(logg.Field(QStringLiteral("Trafiksätt")).text());
        f.cmbBand->Text(logg.Field(QStringLiteral("Band ")).text());
        for (const auto& [ruta, kolumn] : fält) ruta->setText(logg.Field(QString::fromUtf8(kolumn)).text());
        f.lblQSOPoäng->setText(logg.Field(QStringLiteral("Poäng")).text());
    }
};
