// What is sent out of TXWindow, and what comes into RXWindow and is picked from it.
#include "contest/Modemfönster.h"

#include <QTextBlock>

namespace {

/// How the first character of a text that has been sent looks, beside the last.
QList<QTextEdit::ExtraSelection> Märken(const frTest& f) { return f.TXWindow->extraSelections(); }

} // namespace

// ---- sending ------------------------------------------------------------------------------------------

TEST_F(DigitalProv, ARequestTakesOneCharacter) {
    frTest& f = StartaRTTY();
    Begär(f, "CQ", 1);
    EXPECT_EQ(motor->sänt, "C");
    motor->events.transmitRequest();
    EXPECT_EQ(motor->sänt, "CQ");
    motor->events.transmitRequest();
    EXPECT_EQ(motor->sänt, "CQ") << "an empty rest sends nothing";
    EXPECT_EQ(f.TXWindow->toPlainText(), "CQ");
}

TEST_F(DigitalProv, AnEmptyWindowSendsNothing) {
    frTest& f = StartaRTTY();
    Begär(f, "", 3);
    EXPECT_EQ(motor->sänt, "");
}

TEST_F(DigitalProv, TypingGoesOnWhileTheTextGoesOut) {
    frTest& f = StartaRTTY();
    f.TXWindow->setFocus();
    Skriv("CQ DE ");
    f.TXWindow->moveCursor(QTextCursor::Left);
    const int plats = f.TXWindow->textCursor().position();
    for (int i = 0; i < 3; ++i) motor->events.transmitRequest();
    EXPECT_EQ(f.TXWindow->textCursor().position(), plats);
    f.TXWindow->moveCursor(QTextCursor::End);
    Skriv("XX9AA");
    for (int i = 0; i < 20; ++i) motor->events.transmitRequest();
    EXPECT_EQ(motor->sänt, "CQ DE XX9AA");
    EXPECT_EQ(f.TXWindow->toPlainText(), "CQ DE XX9AA");
}

TEST_F(DigitalProv, ASelectionOfTheOperatorsStays) {
    frTest& f = StartaRTTY();
    f.TXWindow->setPlainText("ABCDEF");
    QTextCursor val = f.TXWindow->textCursor();
    val.setPosition(5);
    val.setPosition(1, QTextCursor::KeepAnchor);
    f.TXWindow->setTextCursor(val);
    for (int i = 0; i < 3; ++i) motor->events.transmitRequest();
    EXPECT_EQ(f.TXWindow->textCursor().selectedText(), "BCDE");
    EXPECT_EQ(f.TXWindow->textCursor().position(), 1);
    EXPECT_EQ(motor->sänt, "ABC");
}

TEST_F(DigitalProv, WhatHasBeenSentHasAColourOfItsOwn) {
    frTest& f = StartaRTTY();
    EXPECT_TRUE(Märken(f).isEmpty());
    Begär(f, "ABCDEF", 4);
    ASSERT_EQ(Märken(f).size(), 1);
    EXPECT_EQ(Märken(f)[0].cursor.selectedText(), "ABCD");
    EXPECT_NE(Märken(f)[0].format.foreground().color(), f.TXWindow->palette().color(QPalette::Text));
    motor->events.transmitState(0);
    EXPECT_TRUE(Märken(f).isEmpty());
}

TEST_F(DigitalProv, AMacroDuringATransmitJoinsTheEnd) {
    frTest& f = StartaRTTY();
    delat.MakroTabell[0] = {"CQ", "%TXTEST %SS"};
    Begär(f, "CQ ", 2);
    motor->läge = platform::mmvstate::Transmit;
    motor->anrop.clear();
    QTest::mouseClick(f.cmdMacro[1], Qt::LeftButton);
    for (int i = 0; i < 20; ++i) motor->events.transmitRequest();
    EXPECT_EQ(motor->sänt, "CQ TEST SK7MW");
    EXPECT_EQ(motor->anrop, QStringList("Transmit 1"));
}

TEST_F(DigitalProv, AMacroStartsAndEndsBeforeItsTextIsPlaced) {
    frTest& f = StartaRTTY();
    motor->anrop.clear();
    motor->vidAnrop = [&] { return " bredvid \"" + f.TXWindow->toPlainText() + '"'; };
    delat.MakroTabell[0] = {"CQ", "%rxCQ%tx"};
    QTest::mouseClick(f.cmdMacro[1], Qt::LeftButton);
    EXPECT_EQ(motor->anrop, (QStringList{"Transmit 1 bredvid \"\"", "EndTransmit bredvid \"\""}))
        << "whatever their order in it";
    EXPECT_EQ(f.TXWindow->toPlainText(), "CQ");
}

TEST_F(DigitalProv, StateZeroEmptiesTheWindowAndBeginsAnew) {
    frTest& f = StartaRTTY();
    Begär(f, "ABC", 3);
    f.TXWindow->insertPlainText("typed later");
    for (const int läge : {3, 1, 2, 4}) motor->events.transmitState(läge);
    EXPECT_NE(f.TXWindow->toPlainText(), "");
    motor->events.transmitState(0);
    EXPECT_EQ(f.TXWindow->toPlainText(), "");
    motor->sänt.clear();
    Begär(f, "DE", 2);
    EXPECT_EQ(motor->sänt, "DE");
}

TEST_F(DigitalProv, ALineEndIsCarriageReturnAndLineFeed) {
    frTest& f = StartaRTTY();
    f.TXWindow->setFocus();
    Skriv("A");
    Tryck(Qt::Key_Return);
    Skriv("B");
    Tryck(Qt::Key_Return, Qt::ShiftModifier);
    for (int i = 0; i < 9; ++i) motor->events.transmitRequest();
    EXPECT_EQ(motor->sänt, "A\r\nB\r\n");
}

TEST_F(DigitalProv, EnterIsALineEndWhereTheOperatorWritesAndSavesTheContactWhereHeReads) {
    frTest& f = StartaRTTY();
    SkrivI(f.txtSignal, "SM5ABC");
    f.TXWindow->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(db().rsTESTQSO.RecordCount(), 0);
    f.RXWindow->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(db().rsTESTQSO.RecordCount(), 1);
    EXPECT_EQ(f.RXWindow->toPlainText(), "");
}

TEST_F(DigitalProv, EscapeInATextWindowClearsTheContactAndNoText) {
    frTest& f = StartaRTTY();
    Mottag("CQ DE SM5ABC");
    for (QWidget* fönster : {static_cast<QWidget*>(f.TXWindow), static_cast<QWidget*>(f.RXWindow)}) {
        SkrivI(f.TXWindow, "A");
        SkrivI(f.txtSignal, "SM5ABC");
        fönster->setFocus();
        motor->läge = 1;
        motor->anrop.clear();
        Tryck(Qt::Key_Escape);
        EXPECT_EQ(f.txtSignal->text(), "") << fönster->objectName().toStdString();
        EXPECT_TRUE(HarFokus(f.txtSignal));
    }
    EXPECT_EQ(f.TXWindow->toPlainText(), "AA");
    EXPECT_EQ(f.RXWindow->toPlainText(), "CQ DE SM5ABC");
    EXPECT_EQ(motor->anrop, QStringList()) << "and the radio stays on the air";
}

TEST_F(DigitalProv, TabLeadsFromATextWindowBackToTheCall) {
    frTest& f = StartaRTTY();
    for (QWidget* fönster : {static_cast<QWidget*>(f.TXWindow), static_cast<QWidget*>(f.RXWindow)})
        for (const Qt::Key tangent : {Qt::Key_Tab, Qt::Key_Backtab}) {
            fönster->setFocus();
            Tryck(tangent);
            EXPECT_TRUE(HarFokus(f.txtSignal));
        }
}

// ---- receiving ----------------------------------------------------------------------------------------

TEST_F(DigitalProv, ABackspaceRemovesTheLastCharacter) {
    const frTest& f = StartaRTTY();
    Mottag("AB\bC");
    EXPECT_EQ(f.RXWindow->toPlainText(), "AC");
    Mottag("\b\b\b\bD");
    EXPECT_EQ(f.RXWindow->toPlainText(), "D") << "of nothing nothing is removed";
}

TEST_F(DigitalProv, LineFeedsAreDroppedAndACarriageReturnEndsTheLine) {
    const frTest& f = StartaRTTY();
    Mottag("A\r\nB\nC\rD");
    EXPECT_EQ(f.RXWindow->toPlainText(), "A\nBC\nD");
    Mottag("\b\bE");
    EXPECT_EQ(f.RXWindow->toPlainText(), "A\nBCE") << "a line end is removed whole";
}

TEST_F(DigitalProv, ControlCharactersOutOfTheNoiseAreDropped) {
    const frTest& f = StartaRTTY();
    for (int kod = 0; kod < 256; ++kod) {
        const QChar tecken(kod);
        if (kod != '\b' && kod != '\r') motor->events.received(0, tecken);
    }
    const QString text = f.RXWindow->toPlainText();
    EXPECT_EQ(text.size(), 1 + 95 + 96);
    EXPECT_TRUE(text.startsWith("\t !") && text.endsWith(T("þÿ")));
}

TEST_F(DigitalProv, OtherChannelsAreDropped) {
    const frTest& f = StartaRTTY();
    Mottag("A");
    for (const int kanal : {1, 2, -1})
        for (const QChar tecken : QString("X\b\r")) motor->events.received(kanal, tecken);
    EXPECT_EQ(f.RXWindow->toPlainText(), "A");
}

TEST_F(DigitalProv, TextGoesToTheEndWhereverTheCaretIsAndIsNotBold) {
    const frTest& f = StartaRTTY();
    Mottag("AB");
    f.RXWindow->moveCursor(QTextCursor::Start);
    QFont fet = f.RXWindow->font();
    fet.setBold(true);
    f.RXWindow->setFont(fet);
    Mottag("C");
    EXPECT_EQ(f.RXWindow->toPlainText(), "ABC");
    const QTextCursor markör = f.RXWindow->textCursor();
    EXPECT_TRUE(markör.atEnd());
    EXPECT_EQ(markör.charFormat().fontWeight(), static_cast<int>(QFont::Normal));
    f.RXWindow->moveCursor(QTextCursor::Start);
    Mottag("\b");
    EXPECT_EQ(f.RXWindow->toPlainText(), "AB");
}

TEST_F(DigitalProv, TheWindowKeepsTheLatestLinesAndShowsThem) {
    const frTest& f = StartaRTTY();
    QString rader;
    for (int i = 0; i < 5200; ++i) rader += QString("%1\r").arg(i);
    Mottag(rader + "SLUT");
    EXPECT_EQ(f.RXWindow->document()->blockCount(), 5000);
    EXPECT_TRUE(f.RXWindow->toPlainText().endsWith("5199\nSLUT"));
    EXPECT_TRUE(f.RXWindow->toPlainText().startsWith("201\n"));
    EXPECT_TRUE(f.RXWindow->viewport()->rect().contains(f.RXWindow->cursorRect())) << "the last line is seen";
}

TEST_F(DigitalProv, NobodyTypesIntoWhatWasReceived) {
    const frTest& f = StartaRTTY();
    Mottag("CQ");
    f.RXWindow->setFocus();
    Skriv("X");
    EXPECT_EQ(f.RXWindow->toPlainText(), "CQ");
}

// ---- picking from the text ----------------------------------------------------------------------------

namespace {

class PlockProv : public DigitalProv {
protected:
    /// Double-clicks on a character of the last line, at its left edge or its middle.
    static void Dubbelklicka(int tecken, bool mitt = true) {
        platform::TextView& fönster = *frTest::instans().RXWindow;
        const QTextBlock rad = fönster.document()->lastBlock();
        QTextCursor markör(fönster.document());
        markör.setPosition(rad.position() + tecken);
        QPoint plats = fönster.cursorRect(markör).center();
        if (mitt) plats.rx() += fönster.fontMetrics().averageCharWidth() / 4;
        QTest::mouseDClick(fönster.viewport(), Qt::LeftButton, Qt::NoModifier, plats);
        QTest::mouseRelease(fönster.viewport(), Qt::LeftButton, Qt::NoModifier, plats);
    }
    /// What a double click on that character puts into an empty call field.
    static QString Plockat(int tecken, bool mitt = true) {
        frTest::instans().txtSignal->clear();
        Dubbelklicka(tecken, mitt);
        return frTest::instans().txtSignal->text();
    }
};

} // namespace

TEST_F(PlockProv, ACallGoesToTheCallFieldAndTheNextWordToTheNumber) {
    const frTest& f = StartaRTTY();
    Mottag("CQ TEST\rSM5ABC 599");
    Dubbelklicka(2);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_TRUE(HarFokus(f.txtSignal));
    EXPECT_EQ(f.txtSignal->selectedText(), "SM5ABC") << "whoever types over it corrects it";
    f.RXWindow->setFocus();
    Dubbelklicka(8);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.txtLöpnrM->text(), "599");
    EXPECT_TRUE(HarFokus(f.txtSignal));
    Dubbelklicka(2);
    EXPECT_EQ(f.txtLöpnrM->text(), "SM5ABC") << "the word is not checked";
}

TEST_F(PlockProv, TheWordReachesFromBlankToBlank) {
    StartaRTTY();
    Mottag("XX9AA/P -10 ok");
    for (const int tecken : {0, 3, 5, 6}) EXPECT_EQ(Plockat(tecken), "XX9AA/P") << tecken;
    for (const int tecken : {8, 9, 10}) EXPECT_EQ(Plockat(tecken), "-10") << tecken;
    EXPECT_EQ(Plockat(0, false), "XX9AA/P") << "at the edge of the line";
    EXPECT_EQ(Plockat(13), "OK");
    EXPECT_EQ(Plockat(14), "OK") << "behind the end of the line";
}

TEST_F(PlockProv, AnApostropheOutOfTheNoiseDoesNotEndTheProgram) {
    StartaRTTY();
    Mottag("SM'5ABC '");
    EXPECT_EQ(Plockat(1), "SM5ABC");
    EXPECT_EQ(Plockat(8), "");
}

TEST_F(PlockProv, AmongBlanksThereIsNoWordAndTheFocusGoesAllTheSame) {
    const frTest& f = StartaRTTY();
    Mottag("A     B");
    EXPECT_EQ(Plockat(3), "");
    EXPECT_TRUE(HarFokus(f.txtSignal));
    EXPECT_EQ(f.txtLöpnrM->text(), "");
    Mottag("\r");
    f.txtNamn->setFocus();
    EXPECT_EQ(Plockat(0), "") << "an empty line";
    EXPECT_TRUE(HarFokus(f.txtSignal));
}

TEST_F(PlockProv, WhatComesMeanwhileDoesNotMoveThePick) {
    const frTest& f = StartaRTTY();
    Mottag("SM5ABC 599 ");
    f.RXWindow->setFocus();
    QTest::mouseClick(f.RXWindow->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 8));
    Mottag("TEST");
    Dubbelklicka(2);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
}
