#pragma once

#include "contest/frTestInst.h"
#include "support/Programprov.h"
#include "support/ToPrint.h"

/// A station, logs made from outside, and reports held against golden files byte by byte.
class Rapportprov : public Programprov {
protected:
    static QByteArray Bytes(const QString& fil) {
        QFile läst(fil);
        EXPECT_TRUE(läst.open(QFile::ReadOnly)) << fil.toStdString();
        return läst.readAll();
    }
    static QByteArray Guld(const QString& namn) { return Bytes(QStringLiteral(SORVIK_GULD "/") + namn); }
    QString Rapport(const QString& namn) const { return Fil(QStringLiteral("Rapport/") + namn); }
    QStringList Filer() const { return QDir(Fil(QStringLiteral("Rapport"))).entryList(QDir::Files); }

    /// The report of that name against the golden file; the first line that differs is shown.
    void Jämför(const QString& namn, const QString& guld) const {
        const QList<QByteArray> rader = Bytes(Rapport(namn)).split('\n');
        const QList<QByteArray> rätt = Guld(guld).split('\n');
        for (qsizetype i = 0; i < qMin(rader.size(), rätt.size()); ++i) {
            ASSERT_EQ(rader[i].toStdString(), rätt[i].toStdString())
                << namn.toStdString() << " line " << i + 1;
        }
        EXPECT_EQ(rader.size(), rätt.size()) << namn.toStdString();
    }
    void Jämför(const QString& namn) const { Jämför(namn, namn); }

    /// What the station window holds; it is read from there.
    static void FyllStation() {
        const frTestInst& s = frTestInst::instans();
        const std::pair<QLineEdit*, const char*> fält[] = {
            {s.txtSignal, "SK7MW"},        {s.txtTestLokator, "JO65MR"},   {s.txtTestDatum, "2026-11-15"},
            {s.txtNamn, "Åke Öberg"},      {s.txtAdress, "Sjövägen 1"},    {s.txtPostnr, "123 45"},
            {s.txtPostAdress, "VÄSTERÅS"}, {s.txtLand, "SVERIGE"},         {s.txtEmail, "sk7mw@example.org"},
            {s.txtRig, "IC-7300"},         {s.txtAntenn, "DIPOL"},         {s.txtHöjdHav, "50"},
            {s.txtHöjdLand, "20"},         {s.txtKlubbSignal, "SK7KLUBB"}, {s.txtEffekt, "100"}};
        for (const auto& [ruta, text] : fält) ruta->setText(QString::fromUtf8(text));
    }
    /// A log of a contest that holds what the statements put into it, open, and the station.
    frTest& StartaMed(int test, const char* sql) {
        frTest& f = StartaLogg(test);
        if (*sql) {
            f.mnuArkiv_StängTestlogg_Click();
            for (const QString& sats :
                 QString::fromUtf8(Guld(QString::fromUtf8(sql))).split(u'\n', Qt::SkipEmptyParts))
                Ändra(Logg(), sats);
            filval.push_back(Logg());
            f.mnuArkiv_ÖppnaTestlogg_Click();
        }
        FyllStation();
        return f;
    }
};
