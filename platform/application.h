#pragma once

#include <QApplication>

#include <functional>

namespace platform {

/// Ends the process at once with an exit status; nothing after the call runs.
void EndProcess(int status);

/// Tests put their own end in place of the real one; an empty function gives it back.
void SetEndProcess(std::function<void(int status)> end);

/// Called before the message of EndByFailure: what must not go on while it stands, such as a radio that is
/// keyed. An empty function takes it back.
void SetLetGo(std::function<void()> letGo);

/// The end of a failure that no procedure handled: the runtime's own message, then EndProcess(1). Every
/// database stands between two transactions here, so the files are consistent as they are.
void EndByFailure(const QString& message);

/// The event loop with the runtime's last resort around every event.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

/// Lets waiting events run once, as a long operation does at chosen points.
void DoEvents();

/// Swedish dates, times and standard buttons for the whole process.
void InstallSwedish();

} // namespace platform
