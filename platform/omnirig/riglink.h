#pragma once

#include "platform/omnirig/rigctld.h"
#include "platform/omnirig/rigdaemon.h"
#include "platform/omnirig/rigsettings.h"

#include <QDeadlineTimer>
#include <QTcpSocket>
#include <QTimer>

#include <functional>
#include <optional>

namespace platform {

/// The line to one radio: a connection to a rigctld, its own or another's, over which one command at a time
/// is sent and its answer awaited.
///
/// Frequency and mode are asked for five times a second. A radio is on line from the first time both have
/// been answered as they should, until nothing good has come for 1.6 seconds or the connection is lost. What
/// is wrong with it is tried again for ever: a daemon that is silent keeps its connection for as long as it
/// may still answer (rigctld gives up on a dead radio after ten seconds; then one of our own is replaced),
/// one that talks nonsense gets a new one, so that no late answer can be taken for another. A server that
/// says nothing to the first question, whether VFOs have names, is tried without it three seconds later.
///
/// Nothing here waits. A listener may use the link anew; it must not delete it.
class RigLink : public QObject {
public:
    explicit RigLink(QObject* parent = nullptr);
    ~RigLink() override;

    /// Lets go of the radio, forgets it and reaches for the one that is set here.
    void Use(const RigSettings& settings);

    /// "On-line", "Rig is not responding" or "Rig is not configured".
    QString Status() const { return status_; }
    bool IsOnLine() const;
    /// Hertz, as last told; 0 before that.
    qint64 Frequency() const { return frequency_; }
    /// In Hamlib's words, as last told.
    QString Mode() const { return mode_; }
    /// Why the radio does not answer, for the operator; empty if that is not known.
    QString Trouble() const { return trouble_; }

    /// Tunes the radio. Of what has not been sent yet the newest counts; what could not be sent within five
    /// seconds is given up, for a radio that comes back must not jump to where the operator wanted it long
    /// ago. Without a radio nothing happens.
    void Tune(rigctld::Vfo vfo, qint64 hertz);

    void OnStatus(std::function<void()> listener) { onStatus_ = std::move(listener); }
    /// Frequency or mode is another than before, or the radio has been tuned and tells where it is now.
    void OnChange(std::function<void()> listener) { onChange_ = std::move(listener); }
    /// Frequency and mode have been told, changed or not.
    void OnReading(std::function<void()> listener) { onReading_ = std::move(listener); }

    /// What it has started for the radio.
    const RigDaemon& Daemon() const { return daemon_; }

private:
    void Connect();
    void Drop();
    void Lost(const QString& trouble);
    void Attend();
    QString WhyClosed() const;
    void GiveUp();
    void Refused(int error);
    void AskNext();
    bool SendTuning();
    void Send(rigctld::Asked asked, const QByteArray& command);
    void Receive();
    void Take(rigctld::Asked asked, const rigctld::Answer& answer);
    void TakeRound();
    void SetStatus(const QString& status);

    RigSettings settings_;
    QString status_;
    QString trouble_;
    qint64 frequency_ = 0;
    QString mode_;

    int useCount_ = 0; ///< tells one call of Use from the next
    int daemonPort_ = 0;
    bool isOpen_ = false; ///< a connection is there or under way
    bool isConnected_ = false;
    bool vfoMode_ = false;
    std::optional<rigctld::Asked> asked_; ///< what is awaited
    rigctld::Asked next_ = rigctld::Asked::VfoMode;
    QByteArray received_;
    bool asksVfoMode_ = true; ///< the next connection begins with that question
    /// Of the round that is under way, and how long it is worth something.
    qint64 heardFrequency_ = 0;
    QString heardMode_;
    QDeadlineTimer heardUntil_;
    bool isNews_ = true; ///< the next round is reported, changed or not

    /// To be sent, each overwritten by what comes after it.
    std::optional<qint64> tuneA_, tuneCurrent_;
    QDeadlineTimer tuneBefore_;
    /// What is under way while a Write is awaited; it may have to be sent again.
    struct {
        rigctld::Vfo vfo;
        qint64 hertz;
    } written_{};

    std::function<void()> onStatus_, onChange_, onReading_;

    QTimer later_;    ///< the socket has something to say; never heard from within its own calls
    QTimer poll_;     ///< the next command is due
    QTimer retry_;    ///< the next connection is due
    QTimer patience_; ///< runs out when the radio no longer counts as on line
    QTimer giveUp_;   ///< runs out when the connection is not worth waiting on
    QTcpSocket socket_;
    RigDaemon daemon_;
};

} // namespace platform
