// Loaded into the unchanged program by QT_QPA_GENERIC_PLUGINS, for a start that nobody sits before: tells on
// standard output which windows come up, and answers every message box with Yes or OK.
//
// With OKPRESS_CLOSE in the environment it closes the main window as soon as that is on screen.

#include <QtGui/QGenericPlugin>
#include <QtWidgets>

#include <cstdio>

namespace {

class Watcher : public QObject {
public:
    Watcher() {
        connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
        timer_.start(20);
    }

private:
    void Look() {
        const auto windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            if (!window->isVisible() || window->objectName().isEmpty()) continue;
            if (Tell(window)) continue; // it may still be on its way into its event loop
            if (const auto* box = qobject_cast<const QMessageBox*>(window)) return Answer(*box);
            if (window->objectName() == QLatin1String("frTest")) Close(*window);
        }
    }

    void Close(QWidget& window) {
        if (closing_ || !qEnvironmentVariableIsSet("OKPRESS_CLOSE")) return;
        closing_ = true;
        // Not from here: the timer stands still while the question waits for its answer.
        QMetaObject::invokeMethod(&window, &QWidget::close, Qt::QueuedConnection);
    }

    /// @return false if the window has been told of before
    bool Tell(const QWidget* window) {
        if (told_.contains(window)) return false;
        told_.insert(window);
        // The next window may lie at the same place.
        connect(window, &QObject::destroyed, this, [this, window] { told_.remove(window); });
        const auto* box = qobject_cast<const QMessageBox*>(window);
        QString line = window->objectName();
        if (box) line += QStringLiteral(": ") + box->windowTitle() + QLatin1Char('|') + box->text();
        std::printf("%s\n", line.replace(QLatin1Char('\n'), QLatin1Char(' ')).toUtf8().constData());
        std::fflush(stdout);
        return true;
    }

    static void Answer(const QMessageBox& box) {
        QAbstractButton* button = box.button(QMessageBox::Yes);
        (button ? button : box.button(QMessageBox::Ok))->click();
    }

    QTimer timer_;
    QSet<const QWidget*> told_;
    bool closing_ = false;
};

} // namespace

class OkPress : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "okpress.json")

public:
    QObject* create(const QString& key, const QString& argument) override {
        Q_UNUSED(key)
        Q_UNUSED(argument)
        return new Watcher;
    }
};

#include "okpress.moc"
