#include "store/frEditorTest.h"

#include "platform/windows.h"

#include <QFormLayout>

frEditorTest::frEditorTest() {
    setObjectName(QStringLiteral("frEditorTest"));
    setWindowTitle(QStringLiteral("Logg Data (Editor)"));
    txtNotering = platform::Named(new platform::TextBox, "txtNotering");
    txtNotering->setAccessibleName(QStringLiteral("Notering"));
    auto* rader = new QFormLayout(this);
    rader->addRow(QStringLiteral("Notering"), txtNotering);
}

frEditorTest& frEditorTest::instans() { return platform::SingleWindow<frEditorTest>::get(); }

void frEditorTest::Notera(const QString& text) {
    txtNotering->setText(text);
    QPalette färger = txtNotering->palette();
    färger.setColor(QPalette::Text, QColor(255, 0, 0));
    txtNotering->setPalette(färger);
}
