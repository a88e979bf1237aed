#pragma once

#include "platform/widgets.h"

#include <QDialog>

/// The editor of logged contacts. Its note field doubles as the note of the contact on the entry form, so the
/// window lives, unseen, from the first save or duplicate on.
class frEditorTest : public QDialog {
public:
    frEditorTest();
    static frEditorTest& instans();

    /// Puts a red note there, which the next saves take over until the field is changed.
    void Notera(const QString& text);

    platform::TextBox* txtNotering;
};
