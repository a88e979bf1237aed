// The real dialogs on screen: signs, titles, buttons, and what the keys do in them.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

class DialogProv : public Programprov {};

TEST_F(DialogProv, AFilterCanHaveSeveralPatternsAndAnEmptyPartAtItsEnd) {
    EXPECT_EQ(platform::NameFilters("TestLogg (*.log)|*.log|"), "TestLogg (*.log)");
    EXPECT_EQ(platform::NameFilters("TestLogg (*.sum *.all)|*.sum;*.all"), "TestLogg (*.sum *.all)");
    EXPECT_EQ(platform::NameFilters("Program|*.exe|Alla filer|*"), "Program (*.exe);;Alla filer (*)");
}

TEST_F(DialogProv, TheSaveDialogOnScreenPromptsBeforeAnExistingLogAndYesReplacesIt) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    platform::Dialogs().file = {};
    QString fråga;
    NärFönster("FileDialog", [&](QWidget* fönster) {
        auto* dialog = static_cast<QFileDialog*>(fönster);
        EXPECT_EQ(dialog->windowTitle(), "Ny Logg");
        EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(QDir(dialog->directory()), QDir(Fil("Loggar")));
        EXPECT_EQ(dialog->nameFilters(), QStringList{"TestLogg (*.svk)"});
        auto* svar = new QTimer(dialog);
        QObject::connect(svar, &QTimer::timeout, dialog, [&fråga] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            fråga = box->text();
            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        });
        svar->start(10);
        // The name without its ending: the dialog adds it.
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText("prov");
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    f.NyTestLogg();
    EXPECT_TRUE(fråga.contains("prov.svk")) << fråga.toStdString();
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "0");
    EXPECT_TRUE(f.HarLogg());
}

TEST_F(DialogProv, CancelInTheDialogsOnScreenEndsSilently) {
    frTest& f = StartaLogg(1);
    platform::Dialogs().file = {};
    int antal = 0;
    for (bool spara : {false, true}) {
        NärFönster("FileDialog", [&, spara](QWidget* fönster) {
            ++antal;
            auto* dialog = static_cast<QFileDialog*>(fönster);
            EXPECT_EQ(dialog->windowTitle(), spara ? "Ny Logg" : "Öppna Logg");
            EXPECT_EQ(dialog->acceptMode(), spara ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
            EXPECT_EQ(dialog->fileMode(), spara ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        if (spara)
            f.NyTestLogg();
        else
            f.ÖppnaTestLogg();
    }
    EXPECT_EQ(antal, 2);
    EXPECT_TRUE(meddelanden.empty());
}

TEST_F(DialogProv, AMessageOnScreenHasTheInformationSignItsTitleAndOK) {
    Starta();
    QFile::remove(Fil("SVK"));
    platform::Dialogs().message = {};
    bool körd = false;
    NärFönster("MsgBox", [&](QWidget* fönster) {
        körd = true;
        auto* box = static_cast<QMessageBox*>(fönster);
        EXPECT_EQ(box->icon(), QMessageBox::Information);
        EXPECT_EQ(box->text(), "Ett fel har inträffat vid skapandet av ny Testlogg! Åtgärden avbryts!");
        EXPECT_EQ(box->windowTitle(), "NyTestLogg");
        EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
        QTest::keyClick(box, Qt::Key_Return);
    });
    filval.push_back(Logg());
    frTest::instans().NyTestLogg();
    EXPECT_TRUE(körd);
}

TEST_F(DialogProv, TheExitQueryOnScreenHasTheQuestionSignAndSwedishButtons) {
    frTest& f = Starta();
    platform::Dialogs().yesNo = {};
    bool körd = false;
    NärFönster("MsgBox", [&](QWidget* fönster) {
        körd = true;
        auto* box = static_cast<QMessageBox*>(fönster);
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        EXPECT_EQ(box->text(), "Vill du verkligen avsluta Sorvik ?");
        EXPECT_EQ(box->windowTitle(), "Sorvik");
        EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box->button(QMessageBox::Yes)->text().remove('&'), "Ja");
        EXPECT_EQ(box->button(QMessageBox::No)->text().remove('&'), "Nej");
        QTest::keyClick(box, Qt::Key_Escape); // any answer but Yes
    });
    f.close();
    EXPECT_TRUE(körd);
    EXPECT_FALSE(slut.has_value());
    EXPECT_TRUE(f.isVisible());
}
