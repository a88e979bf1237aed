#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace platform {

/// What a file dialog is asked for.
struct FileQuestion {
    QString title;
    QString folder;
    /// "Text (*.ext)|*.ext": the shown text and its patterns, several pairs behind one another.
    QString filter;
    /// True: a name to write to, with a question before an existing file. False: a file that exists.
    bool save = false;
};

/// A message with the information icon and OK.
void MsgBox(const QString& text, const QString& title);

/// A question with the question icon, Yes and No. True for Yes alone.
bool AskYesNo(const QString& text, const QString& title);

/// The chosen path, or nothing when the dialog was cancelled.
std::optional<QString> AskFile(const FileQuestion& question);

/// Turns "Text (*.a)|*.a|All|*" into the platform's own form, one entry a pair.
QString NameFilters(const QString& filter);

/// What stands in for the dialogs in tests. An unset function lets the real dialog come up.
struct DialogSeam {
    std::function<void(const QString& text, const QString& title)> message;
    std::function<bool(const QString& text, const QString& title)> yesNo;
    std::function<std::optional<QString>(const FileQuestion&)> file;
};
DialogSeam& Dialogs();

} // namespace platform
