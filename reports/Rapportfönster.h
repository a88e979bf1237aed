#pragma once

#include "contest/frTestInst.h"
#include "platform/widgets.h"
#include "reports/Loggbild.h"

#include <QBoxLayout>
#include <QDialog>
#include <QGridLayout>

#include <array>
#include <functional>

/// What the three report windows have in common: fields in two columns over a row of buttons, filled anew
/// each time the window comes up, and closed with all that was typed.
class Rapportfönster : public QDialog {
public:
    using Fält = platform::TextBox;
    using Lista = platform::ComboBox;

    /// @param titel caption while the window is open
    void Visa(const QString& titel);

protected:
    /// @param namn of the window's class
    Rapportfönster(const char* namn, const QString& titel);

    /// A field below those that its column has, with its label.
    /// @param kolumn 0 on the left, 1 on the right
    Fält* NyttFält(const char* namn, const char* rubrik, int kolumn);
    Lista* NyLista(const char* namn, const char* rubrik, int kolumn);
    /// A list without text of its own.
    QComboBox* NyttVal(const char* namn, const char* rubrik, int kolumn);
    QPushButton* NyKnapp(const char* namn, const char* text);
    /// cmdStäng, at the end of the row.
    QPushButton* NyStängknapp();

    /// Fills fields and lists from the station data and the contest.
    virtual void Ladda() = 0;

    /// The station data as they stand in their window.
    static const frTestInst& Station() { return frTestInst::instans(); }
    static reports::Stationsuppgifter Stationsuppgifter();

private:
    void LäggTill(QWidget* kontroll, const char* rubrik, int kolumn);

    QGridLayout* fält_;
    QBoxLayout* knappar_;
    std::array<int, 2> rader_{};
};

/// What the operator is told of a report.
struct Rapporttexter {
    QString fel, felTitel;
    QString klar, klarTitel;
};

/// Runs a writer and tells how it went; the log's grid is bound anew behind one that did well.
void SkapaRapport(const Rapporttexter& texter, const std::function<void()>& skriv);

/// Whether one of the fields is empty without which there is no report; then the operator is told.
bool SaknarUppgifter(std::initializer_list<const QLineEdit*> fält);

/// Fills a list and chooses its first row.
void FyllRapportlista(QComboBox& lista, std::initializer_list<const char*> poster);
