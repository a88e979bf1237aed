#pragma once

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "store/Databaser.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <vector>

/// The process was asked to end. Thrown out of the procedure that asked, since a test goes on living.
struct ProcessSlut {
    int status;
};

/// A message box that came up.
struct Meddelande {
    QString text;
    QString titel;
    bool operator==(const Meddelande&) const = default;
};
void PrintTo(const Meddelande& meddelande, std::ostream* ut);

/// The whole program in a folder of its own: real windows, real files made from the build's templates, a
/// clock that stands still, and no dialog that waits for anybody.
///
/// Every message box that a test does not take out of `meddelanden` (with Tag) fails it at the end, and so
/// does a question or file dialog without an answer.
class Programprov : public ::testing::Test {
protected:
    Programprov();
    ~Programprov() override;
    void TearDown() override;

    /// Loads the main window as the program's start does, with the splash hurried along.
    frTest& Starta();
    /// Starta, own station data SK7MW in JO65MR, and a new, open log of a contest.
    frTest& StartaLogg(int test, const QString& namn = QStringLiteral("prov.svk"));
    /// A new log in the running program, without the windows around the choice.
    void NyLogg(int test, const QString& namn);
    /// Ends the program as a crash would and starts it anew on the same files.
    frTest& StartaOm();

    /// The message that came, taken out; it must be the only one so far.
    Meddelande Tag();

    // Keys as the operator presses them, into the control that has the focus.
    static void Skriv(const QString& text);
    static void Tryck(Qt::Key tangent, Qt::KeyboardModifiers med = Qt::NoModifier);
    /// Puts the focus into a field and types.
    static void SkrivI(QWidget* fält, const QString& text);
    /// A contact as it is typed: call, Tab to the exchange, locator, Enter.
    void Kör(const QString& signal, const QString& lokator);

    /// A Swedish contact of the evening before, written into the open log from outside and read in again.
    void Loggad(const QString& signal, const QString& band, const QString& trafiksätt = QStringLiteral("CW"));

    /// Whether the control gets the focus, at once or as soon as its window is active again.
    static bool HarFokus(const QWidget* kontroll) {
        return QTest::qWaitFor([kontroll] { return QApplication::focusWidget() == kontroll; }, 2000);
    }
    /// Makes a window the active one, as a window manager does with one that comes up.
    static bool Aktivera(QWidget& fönster) {
        fönster.activateWindow();
        return QTest::qWaitFor([&fönster] { return fönster.isActiveWindow(); }, 2000);
    }
    /// What happens when a modal window of that class comes up next: the function runs inside it.
    static void NärFönster(const char* klass, std::function<void(QWidget*)> gör);
    /// frVarning: OK (the contact is thrown away), or closed by its frame (the contact stays).
    static void SvaraVarning(bool ok);

    QString Fil(const QString& relativ) const { return mapp_.path() + QStringLiteral("/Data/") + relativ; }
    QString Logg(const QString& namn = QStringLiteral("prov.svk")) const {
        return Fil(QStringLiteral("Loggar/") + namn);
    }

    /// Rows of a file, read with SQLite from outside, each field as text; columns in the order asked for.
    static std::vector<std::vector<QString>> Läs(const QString& fil, const QString& fråga);
    /// The first field of the first row.
    static QString LäsEtt(const QString& fil, const QString& fråga);
    /// Runs a statement from outside, as another program would.
    static void Ändra(const QString& fil, const QString& sats);

    std::vector<Meddelande> meddelanden;
    std::deque<bool> jaNej;                    ///< answers to the next questions
    std::deque<std::optional<QString>> filval; ///< answers to the next file dialogs; nothing: cancelled
    std::vector<platform::FileQuestion> filfrågor;
    std::vector<Meddelande> frågor;
    QDateTime nu{QDate(2026, 12, 1), QTime(19, 0, 0)}; ///< the first Tuesday of a month
    std::optional<int> slut;                           ///< status the process was asked to end with

private:
    static void NollställSpott();
    void KopplaDialoger();
    /// A modal window that the test did not expect would otherwise hold it for ever.
    void VaktaModala();

    QTemporaryDir mapp_;
    QTimer modalvakt_;
    QPointer<QWidget> modal_;
    int modalSekunder_ = 0;
};
