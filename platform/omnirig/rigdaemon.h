#pragma once

#include <QObject>
#include <QPointer>
#include <QProcess>

#include <functional>

namespace platform {

/// Path of rigctld on this machine; empty if it has none.
QString RigctldPath();

/// A rigctld of this program's own: started for one radio, ended with it. None outlives the program, however
/// that ends: two that held the same serial port would garble each other.
class RigDaemon : public QObject {
public:
    explicit RigDaemon(QObject* parent);
    ~RigDaemon() override;

    /// A port of this machine's that nobody listens on.
    static int FreePort();

    /// Starts it, and returns at once. One that could not be started has told so then. @pre not running
    void Start(const QStringList& arguments);
    bool IsRunning() const { return !process_.isNull(); }
    /// One that was stopped, this daemon or another, holds its radio still.
    static bool IsAnyEnding() { return ending_ > 0; }
    /// Asks it to end, and sees to it a second later. Returns at once.
    void Stop();
    /// The end of what it has written, or why it could not start.
    QString LastWords() const { return lastWords_; }
    /// It has ended without being asked to, or could not be started.
    void OnEnd(std::function<void()> end) { end_ = std::move(end); }
    /// 0 while none is running.
    qint64 ProcessId() const { return process_ ? process_->processId() : 0; }

private:
    void Ended(const QString& lastWords);

    QPointer<QProcess> process_;
    inline static int ending_ = 0;
    QString lastWords_;
    std::function<void()> end_;
};

} // namespace platform
