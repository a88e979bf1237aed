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

    /// Starts it, and returns at once. @pre neither running nor ending
    void Start(const QStringList& arguments);
    bool IsRunning() const { return !process_.isNull(); }
    /// The one that was stopped holds the radio still.
    bool IsEnding() const { return !ending_.isNull(); }
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
    QPointer<QProcess> ending_;
    QString lastWords_;
    std::function<void()> end_;
};

} // namespace platform
