// The macro buttons: what a click puts into the transmit window, the file, the editor.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "platform/textfile.h"
#include "platform/windows.h"
#include "radio/frMacroEditor.h"

#include <QDir>
#include <QFile>
#include <QScreen>

namespace {

const Meddelande läsfel{T("Ett fel har inträffat vid läsning av Makro Ini."), T("LäsTestMakroIni")};
const Meddelande skrivfel{T("Ett fel har inträffat vid sparning av Makro Ini"), "SparaTestMakro"};

class MakroProv : public Programprov {
protected:
    /// A log of the RTTY contest, the station's data set.
    frTest& StartaRTTY() {
        frTest& f = StartaLogg(6);
        delat.OpSignal = "XX9AA";
        delat.OpNamn = "Nils";
        delat.OpPostadr = "Lund";
        return f;
    }
    static QPushButton* Knapp(int nummer) {
        return frTest::instans().findChild<QPushButton*>(QString("cmdMacro(%1)").arg(nummer));
    }
    static void Makro(int nummer, const QString& text, const QString& rubrik = {}) {
        delat.MakroTabell[static_cast<size_t>(nummer - 1)] = {rubrik, text};
    }
    static void Klicka(int nummer) { QTest::mouseClick(Knapp(nummer), Qt::LeftButton); }
    /// What a click on a button with this text sends.
    static QString Sänt(const QString& makro) {
        frTest::instans().TXWindow->clear();
        Makro(1, makro);
        Klicka(1);
        return frTest::instans().TXWindow->toPlainText();
    }
    static QStringList Rubriker() {
        QStringList rubriker;
        for (int i = 1; i <= 12; ++i) rubriker << Knapp(i)->text();
        return rubriker;
    }
    /// A file of so many pairs "K1", "TEXT 1" and up.
    QString Makrofil(int par) const {
        QStringList rader;
        for (int i = 1; i <= par; ++i) rader << QString("\"K%1\"").arg(i) << QString("\"TEXT %1\"").arg(i);
        platform::SaveTextFile(Fil("prov.ini"), platform::LinesToText(rader));
        return Fil("prov.ini");
    }
    /// Opens the editor of a button with the right mouse button; the function runs inside it.
    void Redigera(int nummer, const std::function<void(frMacroEditor&)>& gör) {
        int öppnad = 0;
        NärFönster("frMacroEditor", [&](QWidget* fönster) {
            ++öppnad;
            EXPECT_TRUE(fönster->isModal());
            gör(static_cast<frMacroEditor&>(*fönster));
            fönster->close();
        });
        QTest::mousePress(Knapp(nummer), Qt::RightButton);
        EXPECT_EQ(öppnad, 1);
        QTest::mouseRelease(Knapp(nummer), Qt::RightButton);
    }
    static void Klicka(QPushButton* knapp) { QTest::mouseClick(knapp, Qt::LeftButton); }
};

QString Numrerade(const char* märke, int antal) {
    QStringList delar;
    for (int i = 1; i <= 12; ++i) delar << (i <= antal ? märke + QString::number(i) : QString());
    return delar.join('|');
}

} // namespace

// ---- the buttons --------------------------------------------------------------------------------------

TEST_F(MakroProv, TwelveBlankButtonsStandInTheirFrameInTheDigitalContest) {
    frTest& f = StartaRTTY();
    EXPECT_TRUE(delat.MakroDigital);
    EXPECT_FALSE(delat.MakroCW);
    EXPECT_EQ(f.fmMacro->objectName(), "fmMacro");
    EXPECT_EQ(f.fmMacro->title(), "Macro");
    for (int i = 1; i <= 12; ++i) {
        ASSERT_NE(Knapp(i), nullptr) << i;
        EXPECT_EQ(Knapp(i), f.cmdMacro[static_cast<size_t>(i)]);
        EXPECT_TRUE(f.fmMacro->isAncestorOf(Knapp(i)));
        EXPECT_TRUE(Knapp(i)->isVisible());
        EXPECT_EQ(Knapp(i)->text(), "");
    }
}

TEST_F(MakroProv, ButtonsAreOfOneWidthWhateverTheirCaptions) {
    StartaRTTY();
    const int bredd = Knapp(2)->width();
    for (const char* rubrik : {"", "EN MYCKET LÅNG RUBRIK SOM INTE FÅR PLATS"}) {
        Makro(1, "", T(rubrik));
        frTest::instans().VisaMakroknapp(1);
        QCoreApplication::processEvents();
        EXPECT_EQ(Knapp(1)->width(), bredd);
    }
}

TEST_F(MakroProv, AClickPutsTheTextAtTheEndOfTheTransmitWindow) {
    frTest& f = StartaRTTY();
    Makro(1, "CQ TEST %SS %SS K");
    f.TXWindow->setPlainText("SM5ABC ");
    f.TXWindow->moveCursor(QTextCursor::Start);
    Klicka(1);
    EXPECT_EQ(f.TXWindow->toPlainText(), "SM5ABC CQ TEST XX9AA XX9AA K");
    Klicka(1);
    EXPECT_EQ(f.TXWindow->toPlainText(), "SM5ABC CQ TEST XX9AA XX9AA KCQ TEST XX9AA XX9AA K")
        << "no line end";
}

TEST_F(MakroProv, PlaceholdersStandForTheFormAndTheStation) {
    frTest& f = StartaRTTY();
    f.txtSignal->setText("SM5ABC");
    f.txtRSTS->setText("579");
    f.txtRSTM->setText("589");
    f.txtNamn->setText("KARL");
    EXPECT_EQ(Sänt("%SS %SM %RS %RM %NS %NM %QS %LS %DS"),
              "XX9AA SM5ABC 579 589 Nils KARL Lund JO65MR 2026-12-01");
    f.txtSignal->setText("SM6ABC");
    EXPECT_EQ(Sänt("%sm"), "SM6ABC") << "the form as it stands at the click";
}

TEST_F(MakroProv, TheOwnCallIsTheContestsAndWithoutOneTheStations) {
    StartaRTTY();
    delat.EgenSignal = "XX1BB";
    EXPECT_EQ(Sänt("%SS"), "XX9AA");
    delat.OpSignal.clear();
    EXPECT_EQ(Sänt("%SS"), "XX1BB");
}

TEST_F(MakroProv, AnEmptyCallLeavesNothingAndSaysNothing) {
    StartaRTTY();
    EXPECT_EQ(Sänt("%SM 599"), " 599");
}

TEST_F(MakroProv, SerialNumberAndTimeGoOutAsTheyAreWritten) {
    StartaRTTY();
    EXPECT_EQ(Sänt("%LN %TS"), "%LN %TS");
}

TEST_F(MakroProv, TransmitAndReceiveAreNoText) {
    StartaRTTY();
    EXPECT_EQ(Sänt("%tx CQ %Rx"), " CQ ");
}

TEST_F(MakroProv, AButtonWithoutATextAddsNothing) {
    frTest& f = StartaRTTY();
    f.TXWindow->setPlainText("SM5ABC");
    Klicka(12);
    EXPECT_EQ(f.TXWindow->toPlainText(), "SM5ABC");
}

TEST_F(MakroProv, EachButtonHasARowOfItsOwn) {
    frTest& f = StartaRTTY();
    for (int i = 1; i <= 12; ++i) Makro(i, QString("%1 ").arg(i));
    for (int i = 12; i >= 1; --i) Klicka(i);
    EXPECT_EQ(f.TXWindow->toPlainText(), "12 11 10 9 8 7 6 5 4 3 2 1 ");
}

TEST_F(MakroProv, AClickLeavesTheFocusWhereTheOperatorTypes) {
    frTest& f = StartaRTTY();
    f.txtSignal->setFocus();
    Skriv("sm5");
    Makro(1, "CQ");
    Klicka(1);
    Skriv("abc");
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
}

TEST_F(MakroProv, TheKeyboardReachesAButtonAndItsEditor) {
    frTest& f = StartaRTTY();
    Makro(3, "CQ");
    Knapp(2)->setFocus();
    Tryck(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), Knapp(3));
    Tryck(Qt::Key_Space);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(f.TXWindow->toPlainText(), "CQCQ");
    int öppnad = 0;
    NärFönster("frMacroEditor", [&](QWidget* fönster) {
        ++öppnad;
        fönster->close();
    });
    QContextMenuEvent meny(QContextMenuEvent::Keyboard, QPoint(1, 1), Knapp(3)->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(Knapp(3), &meny);
    EXPECT_EQ(öppnad, 1);
    EXPECT_EQ(delat.MakroKnapp, 3);
}

// ---- the file -----------------------------------------------------------------------------------------

TEST_F(MakroProv, AFileOfTwelvePairsFillsAllButtons) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    EXPECT_EQ(Rubriker().join('|'), Numrerade("K", 12));
    Klicka(12);
    EXPECT_EQ(f.TXWindow->toPlainText(), "TEXT 12");
}

TEST_F(MakroProv, OfAFileOfFivePairsFourButtonsAreFilled) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    f.LäsTestMakroIni(Makrofil(5));
    EXPECT_EQ(Rubriker().join('|'), Numrerade("K", 4));
    Klicka(5);
    EXPECT_EQ(f.TXWindow->toPlainText(), "");
    Klicka(4);
    EXPECT_EQ(f.TXWindow->toPlainText(), "TEXT 4");
}

TEST_F(MakroProv, AnAmpersandInACaptionIsNoShortcut) {
    frTest& f = StartaRTTY();
    platform::SaveTextFile(Fil("prov.ini"), QString("\"S&P\"\r\n\"X\"\r\n").repeated(12));
    f.LäsTestMakroIni(Fil("prov.ini"));
    EXPECT_EQ(Knapp(1)->text(), "S&&P");
    EXPECT_TRUE(Knapp(1)->shortcut().isEmpty());
    EXPECT_EQ(Knapp(1)->accessibleName(), "S&P");
}

TEST_F(MakroProv, AFileThatIsMissingOrTooLongGivesTheMessage) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    f.LäsTestMakroIni(Fil("finns inte.ini"));
    EXPECT_EQ(Tag(), läsfel);
    EXPECT_EQ(Rubriker().join('|'), Numrerade("K", 12));
    f.LäsTestMakroIni(Makrofil(14));
    f.LäsTestMakroIni(Makrofil(15));
    EXPECT_EQ(Tag(), läsfel);
}

TEST_F(MakroProv, AfterAFailureAButtonStillSaysWhatItSends) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    platform::SaveTextFile(Fil("prov.ini"), "\"NY\"\r\n\"NY TEXT\"\r\n\"HALV\"\r\n");
    f.LäsTestMakroIni(Fil("prov.ini"));
    EXPECT_EQ(Tag(), läsfel);
    EXPECT_EQ(Knapp(1)->text(), "NY");
    Klicka(1);
    EXPECT_EQ(f.TXWindow->toPlainText(), "NY TEXT");
    EXPECT_EQ(Knapp(3)->text(), "K3");
}

TEST_F(MakroProv, AMacroFileIsDigitalWhateverWasBefore) {
    frTest& f = StartaRTTY();
    delat.MakroDigital = false;
    f.LäsTestMakroIni(Makrofil(12));
    EXPECT_TRUE(delat.MakroDigital);
}

TEST_F(MakroProv, SavingWritesTwelvePairsAndWithTheOtherFlagFourteen) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(14));
    const QString fil = Fil("ny.ini");
    f.SparaTestMakro(fil);
    EXPECT_EQ(platform::LoadTextFile(fil), platform::LoadTextFile(Makrofil(12)));
    delat.MakroCW = true;
    f.SparaTestMakro(fil);
    EXPECT_EQ(platform::LoadTextFile(fil), platform::LoadTextFile(Makrofil(14)));
    delat.MakroDigital = delat.MakroCW = false;
    QFile::remove(fil);
    f.SparaTestMakro(fil);
    EXPECT_FALSE(QFile::exists(fil));
}

TEST_F(MakroProv, AFailedSaveGivesItsMessage) {
    frTest& f = StartaRTTY();
    f.SparaTestMakro(Fil("ingen mapp/ny.ini"));
    EXPECT_EQ(Tag(), skrivfel);
}

TEST_F(MakroProv, BothMenusLoadAFileFromTheirFolder) {
    frTest& f = StartaRTTY();
    const std::pair<const char*, const char*> menyer[] = {
        {"mnuCW_Macrofiler_Laddafil", "Macrofiler/CW"}, {"mnuDigital_Macro_Laddafil", "Macrofiler/Digital/"}};
    for (const auto& [meny, mapp] : menyer) {
        delat.MakroTabell = {};
        filval.push_back(Makrofil(12));
        f.Meny(meny)->trigger();
        EXPECT_EQ(filfrågor.back().title, "Ladda Fil");
        EXPECT_EQ(filfrågor.back().folder, Fil(mapp));
        EXPECT_EQ(filfrågor.back().filter, "Fil (*.ini)|*.ini");
        EXPECT_FALSE(filfrågor.back().save);
        EXPECT_EQ(delat.MakroTabell[0][0], "K1");
        delat.MakroTabell[0][0] = "kvar";
        filval.push_back(std::nullopt);
        f.Meny(meny)->trigger();
        EXPECT_EQ(delat.MakroTabell[0][0], "kvar") << "cancelled";
    }
}

TEST_F(MakroProv, TheProgramFolderComesWithMacrosForBothKindsOfContest) {
    frTest& f = StartaRTTY();
    for (const char* fil : {"Macrofiler/CW/CW-test.ini", "Macrofiler/Digital/RTTY-test.ini"}) {
        f.LäsTestMakroIni(Fil(fil));
        for (const QString& rubrik : Rubriker()) EXPECT_NE(rubrik, "") << fil;
    }
}

// ---- the editor ---------------------------------------------------------------------------------------

TEST_F(MakroProv, TheRightButtonOpensTheEditorOfThatMacro) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    for (const int nummer : {1, 7, 12}) {
        Redigera(nummer, [&](frMacroEditor& editor) {
            EXPECT_EQ(delat.MakroKnapp, nummer);
            EXPECT_EQ(editor.txtKnapp->text(), QString("K%1").arg(nummer));
            EXPECT_EQ(editor.txtMakro->text(), QString("TEXT %1").arg(nummer));
            EXPECT_EQ(editor.lblKnapp->text(), QString("Knapp %1").arg(nummer));
        });
    }
    EXPECT_EQ(f.TXWindow->toPlainText(), "") << "the right button sends nothing";
}

TEST_F(MakroProv, TheEditorsControlsCarryTheirNamesAndCaptions) {
    StartaRTTY();
    Redigera(1, [](frMacroEditor& editor) {
        EXPECT_EQ(editor.objectName(), "frMacroEditor");
        EXPECT_TRUE(editor.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        const std::pair<const char*, const char*> knappar[] = {{"cmdSpara", "Spara"},
                                                               {"cmdRensa", "Rensa"},
                                                               {"cmdStäng", "Stäng"},
                                                               {"cmdKnappfärg", "Knapp färg"},
                                                               {"cmdÅter", "Grundställ Färg"}};
        for (const auto& [namn, text] : knappar)
            EXPECT_EQ(editor.findChild<QPushButton*>(T(namn))->text(), T(text));
        for (const char* namn : {"txtKnapp", "txtMakro"})
            EXPECT_NE(editor.findChild<QLineEdit*>(T(namn)), nullptr) << namn;
    });
}

TEST_F(MakroProv, TheEditorsListTellsOfThePlaceholders) {
    StartaRTTY();
    Redigera(1, [](frMacroEditor& editor) {
        const platform::FlexGrid& lista = *editor.gridKortKom;
        EXPECT_EQ(lista.objectName(), "gridKortKom");
        ASSERT_EQ(lista.rowCount(), 14);
        EXPECT_EQ(lista.Cell(0, 0), "Kommando");
        EXPECT_EQ(lista.Cell(0, 1), "Beskrivning");
        EXPECT_EQ(lista.Cell(1, 0), "%TX");
        EXPECT_EQ(lista.Cell(1, 1), T("För TX läge"));
        EXPECT_EQ(lista.Cell(13, 0), "%TS");
        EXPECT_EQ(lista.Cell(13, 1), "Tid");
    });
}

TEST_F(MakroProv, WhatIsTypedInTheEditorIsInCapitals) {
    StartaRTTY();
    Redigera(1, [](frMacroEditor& editor) {
        SkrivI(editor.txtKnapp, T("cq å"));
        SkrivI(editor.txtMakro, "%tx cq \"x\"");
        EXPECT_EQ(editor.txtKnapp->text(), T("CQ Å"));
        EXPECT_EQ(editor.txtMakro->text(), "%TX CQ \"X\"");
    });
}

TEST_F(MakroProv, SavingChangesTheButtonAtOnceAndThenAsksForTheFile) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    filval.push_back(Fil("Macrofiler/Digital/egen.ini"));
    Redigera(2, [&](frMacroEditor& editor) {
        editor.txtKnapp->setText("CQ");
        editor.txtMakro->setText("CQ %SS");
        Tryck(Qt::Key_Return);
        EXPECT_EQ(Knapp(2)->text(), "CQ");
        EXPECT_TRUE(editor.isVisible());
    });
    ASSERT_EQ(filfrågor.size(), 2U); // the log's, and this one
    EXPECT_EQ(filfrågor[1].title, "Spara Fil");
    EXPECT_EQ(filfrågor[1].folder, Fil("Macrofiler/Digital"));
    EXPECT_EQ(filfrågor[1].filter, "Fil (*.ini)|*.ini");
    EXPECT_TRUE(filfrågor[1].save);
    EXPECT_EQ(platform::LoadTextFile(Fil("Macrofiler/Digital/egen.ini")),
              platform::LoadTextFile(Makrofil(12)).replace("\"K2\"\r\n\"TEXT 2\"", "\"CQ\"\r\n\"CQ %SS\""));
    Klicka(2);
    EXPECT_EQ(f.TXWindow->toPlainText(), "CQ XX9AA");
}

TEST_F(MakroProv, ASaveThatIsCancelledKeepsTheMacroAndWritesNothing) {
    StartaRTTY();
    const QStringList före = QDir(Fil("Macrofiler/Digital")).entryList(QDir::Files);
    filval.push_back(std::nullopt);
    Redigera(1, [](frMacroEditor& editor) {
        editor.txtKnapp->setText("CQ");
        Klicka(editor.cmdSpara);
    });
    EXPECT_EQ(Knapp(1)->text(), "CQ");
    EXPECT_EQ(QDir(Fil("Macrofiler/Digital")).entryList(QDir::Files), före);
}

TEST_F(MakroProv, WithTheOtherFlagTheEditorSavesInTheOtherFolderAndLeavesTheButton) {
    StartaRTTY();
    delat.MakroDigital = false;
    delat.MakroCW = true;
    filval.push_back(Fil("Macrofiler/CW/egen.ini"));
    Redigera(1, [](frMacroEditor& editor) {
        editor.txtKnapp->setText("CQ");
        Klicka(editor.cmdSpara);
    });
    EXPECT_EQ(filfrågor.back().folder, Fil("Macrofiler/CW"));
    EXPECT_EQ(platform::LoadTextFile(Fil("Macrofiler/CW/egen.ini")).count("\r\n"), 28);
    EXPECT_EQ(Knapp(1)->text(), "");
}

TEST_F(MakroProv, ClearingAndClosingWithoutASaveLeaveTheMacroAlone) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    Redigera(1, [](frMacroEditor& editor) {
        Klicka(editor.cmdRensa);
        EXPECT_EQ(editor.txtKnapp->text() + editor.txtMakro->text(), "");
        for (QPushButton* knapp : {editor.cmdKnappfärg, editor.cmdÅter}) Klicka(knapp);
        Klicka(editor.cmdStäng);
        EXPECT_FALSE(editor.isVisible());
    });
    EXPECT_EQ(Rubriker().join('|'), Numrerade("K", 12));
    Redigera(1, [](const frMacroEditor& editor) { EXPECT_EQ(editor.txtMakro->text(), "TEXT 1"); });
}

TEST_F(MakroProv, TheEditorStandsInItsPlaceOnTheScreenEachTime) {
    StartaRTTY();
    Redigera(1, [](frMacroEditor& editor) { editor.move(3, 3); });
    Redigera(1, [](const frMacroEditor& editor) {
        const QRect skärm = editor.screen()->availableGeometry();
        EXPECT_EQ(editor.x(), qMin(platform::Twips(2400), skärm.right() - editor.width()));
        EXPECT_EQ(editor.y(), qMin(platform::Twips(6400), skärm.bottom() - editor.height()));
        EXPECT_TRUE(skärm.contains({editor.pos(), editor.size()}));
    });
}

TEST_F(MakroProv, EnterPressesTheEditorsButtonThatHasTheFocus) {
    frTest& f = StartaRTTY();
    f.LäsTestMakroIni(Makrofil(12));
    const size_t tidigare = filfrågor.size();
    Redigera(1, [](frMacroEditor& editor) {
        ASSERT_TRUE(Aktivera(editor));
        editor.txtMakro->setFocus();
        for (const char* namn : {"cmdSpara", "cmdRensa"}) {
            Tryck(Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget()->objectName(), namn);
        }
        Tryck(Qt::Key_Return);
        EXPECT_EQ(editor.txtMakro->text(), "");
        EXPECT_TRUE(editor.isVisible());
        editor.cmdStäng->setFocus();
        Tryck(Qt::Key_Return);
        EXPECT_FALSE(editor.isVisible());
    });
    EXPECT_EQ(filfrågor.size(), tidigare) << "nothing was saved";
    EXPECT_EQ(Knapp(1)->text(), "K1");
}
