#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// What is said on the line to rigctld, the daemon that the Hamlib library comes with: its protocol of one
/// command a line, and its list of radios. rigctld(1) and rigctl(1) describe both.
namespace platform::rigctld {

/// A command that awaits its answer.
enum class Asked {
    VfoMode,   ///< does the daemon want a VFO named in every command?
    Frequency, ///< of the VFO in use
    Mode,
    Write ///< any command that changes something
};

/// The line that asks. @param vfoMode what VfoMode was answered with @pre not Write
QByteArray Question(Asked asked, bool vfoMode);

enum class Vfo { A, Current };
/// The line that tunes. A daemon without names for its VFOs tunes the one in use whichever is meant.
QByteArray Tuning(qint64 hertz, Vfo vfo, bool vfoMode);

struct Answer {
    enum class Kind {
        Unfinished, ///< more must come
        Good,
        Refused, ///< the daemon answers, the radio does not or will not
        Garbage  ///< nothing that belongs to the command: the two ends have lost step
    };
    Kind kind = Kind::Unfinished;
    qint64 frequency = 0; ///< hertz
    QString mode = {};    ///< in Hamlib's words; empty if the radio has none
    bool vfoMode = false;
    int error = 0; ///< Hamlib's code, -1 and down, if it was refused
};

/// Reads everything that has come since the command was sent; what belongs to no answer makes it garbage.
/// A frequency of 0 counts as refused: the radio has not told one.
Answer ReadAnswer(Asked asked, const QByteArray& received);

/// Whether a refusal says that the radio has no such thing, and not that it has failed.
bool IsMissing(int error);
/// What stands behind an error code, for the operator.
QString ErrorText(int error);

/// The mode (rigmode) of one in Hamlib's words; unknown ones are rigmode::Unknown.
///
/// Hamlib's CW and RTTY are what radios call so: upper side for CW, lower for RTTY, and R for the reverse. Of
/// what the service has no word for, the digital and data modes count as RTTY on their side, each kind of AM
/// as AM, and the digital voices, which live in FM channels, as FM.
int ModeOf(const QString& mode);

/// A radio that Hamlib knows.
struct Model {
    int number = 0;
    QString name; ///< maker and type
    bool operator==(const Model&) const = default;
};

/// The radios in the output of `rigctld --list`, in its order. Lines that are none are passed over.
QVector<Model> ReadModels(const QByteArray& list);

} // namespace platform::rigctld
