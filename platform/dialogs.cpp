#include "platform/dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace platform {

namespace {

QMessageBox::StandardButton showBox(QMessageBox::Icon icon, const QString& text, const QString& title,
                                    QMessageBox::StandardButtons buttons) {
    QMessageBox box(icon, title, text, buttons, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText); // a call is no markup
    box.setObjectName(QStringLiteral("MsgBox"));
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

DialogSeam& Dialogs() {
    static DialogSeam seam;
    return seam;
}

void MsgBox(const QString& text, const QString& title) {
    if (Dialogs().message) return Dialogs().message(text, title);
    showBox(QMessageBox::Information, text, title, QMessageBox::Ok);
}

bool AskYesNo(const QString& text, const QString& title) {
    if (Dialogs().yesNo) return Dialogs().yesNo(text, title);
    return showBox(QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}

QString NameFilters(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString shown = parts[i];
        // Qt reads the patterns from the brackets at the end of the text, so they must be the real ones.
        if (const qsizetype bracket = shown.lastIndexOf(QLatin1String(" (")); bracket >= 0)
            shown.truncate(bracket);
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        filters << shown + QStringLiteral(" (") + patterns + QLatin1Char(')');
    }
    return filters.join(QStringLiteral(";;"));
}

std::optional<QString> AskFile(const FileQuestion& question) {
    if (Dialogs().file) return Dialogs().file(question);
    QFileDialog dialog(QApplication::activeWindow(), question.title, question.folder,
                       NameFilters(question.filter));
    dialog.setObjectName(QStringLiteral("FileDialog"));
    // The toolkit's own dialog looks and behaves the same on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(question.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(question.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    const qsizetype suffix = question.filter.lastIndexOf(QLatin1String("*."));
    if (question.save && suffix >= 0) dialog.setDefaultSuffix(question.filter.mid(suffix + 2));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

} // namespace platform
