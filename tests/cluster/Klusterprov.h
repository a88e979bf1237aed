#pragma once

#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "cluster/DXClusterModul.h"
#include "cluster/DXSpottModul.h"
#include "cluster/frDXCluster.h"
#include "cluster/frDXSpott.h"

/// The program with a log open, and text of a cluster handed to it as the network would.
class Klusterprov : public Programprov {
protected:
    /// A line of an announcement with its line end.
    static QString Rad(const QString& signal, const QString& kHz = QStringLiteral("14025.5"),
                       const QString& notering = QStringLiteral("big signal                  1234Z")) {
        return QStringLiteral("DX de XX9AA:   %1  %2   %3\r\n").arg(kHz, signal, notering);
    }
    /// What a read over TCP does with the text once it is on the screen.
    static void Ta(const QString& text) {
        kluster.ClusterTyp = 1;
        kluster.ClusterBuffert = text;
        TolkaDXClusterData();
    }
    static platform::FlexGrid& Rutnät() { return *frDXSpott::instans().fgDXSpott; }
    /// The texts of a row of the spot grid.
    static QStringList Spottrad(int rad) {
        QStringList texter;
        for (int i = 0; i < frDXSpott::kolumner; ++i) texter << Rutnät().Cell(rad, i);
        return texter;
    }
    /// Double-clicks the second cell of a row with the mouse.
    static void Dubbelklicka(QAbstractItemView& rutnät, int rad) {
        const QModelIndex cell = rutnät.model()->index(rad, 1);
        rutnät.scrollTo(cell);
        const QPoint plats = rutnät.visualRect(cell).center();
        QTest::mouseClick(rutnät.viewport(), Qt::LeftButton, {}, plats);
        QTest::mouseDClick(rutnät.viewport(), Qt::LeftButton, {}, plats);
    }
    /// The stored spots, read from outside: call, frequency, mode, band.
    std::vector<std::vector<QString>> Lagrade() const {
        return Läs(Fil("DXSpott.Dat"),
                   "SELECT Signal, Frekvens, Trafiksätt, DXBand FROM DXSpottLogg ORDER BY rowid");
    }
    int AntalLagrade() const {
        return LäsEtt(Fil("DXSpott.Dat"), "SELECT count(*) FROM DXSpottLogg").toInt();
    }
};
