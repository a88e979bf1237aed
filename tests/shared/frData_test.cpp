// The list of remembered locators.
#include "shared/frData.h"

#include "platform/windows.h"
#include "support/Programprov.h"

class DataProv : public Programprov {
protected:
    frData& Öppna() {
        StartaLogg(1);
        platform::Recordset& minne = db().rsLokator;
        for (const auto& [signal, lokator] : {std::pair("SM5ABC", "JO89WJ"), std::pair("SM6ABC", "JO67BQ"),
                                              std::pair("LA1AA", "JO59AA"), std::pair("SM7ABC", "JO67BQ")}) {
            minne.AddNew();
            minne.Field("Signal", signal);
            minne.Field("Lokator", lokator);
            minne.Update();
        }
        frTest::instans().Meny("mnufönster_Lokator")->trigger();
        EXPECT_TRUE(Aktivera(frData::instans()));
        return frData::instans();
    }
    static QStringList Signaler(const frData& f) {
        f.dgLokator->Refresh();
        QStringList rader;
        for (int i = 0; i < f.dgLokator->model()->rowCount(); ++i)
            rader += f.dgLokator->model()->index(i, 0).data().toString();
        return rader;
    }
};

TEST_F(DataProv, TheWindowListsAllLocators) {
    const frData& f = Öppna();
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(f.windowTitle(), "Lokator (lista)");
    EXPECT_EQ(f.height(), platform::Twips(5025));
    EXPECT_EQ(Signaler(f), (QStringList{"SM5ABC", "SM6ABC", "LA1AA", "SM7ABC"}));
}

TEST_F(DataProv, CallAndLocatorCanBeSoughtAndTheSearchCleared) {
    frData& f = Öppna();
    SkrivI(f.txtS, "sm5 abc");
    EXPECT_EQ(f.txtS->text(), "SM5ABC") << "no blanks, upper case";
    QTest::mouseClick(f.cmdSökS, Qt::LeftButton);
    EXPECT_EQ(Signaler(f), QStringList{"SM5ABC"});
    SkrivI(f.txtL, "jo67 bq");
    EXPECT_EQ(f.txtL->text(), "JO67BQ");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Signaler(f), (QStringList{"SM6ABC", "SM7ABC"}));
    QTest::mouseClick(f.cmdRensa, Qt::LeftButton);
    EXPECT_EQ(Signaler(f).size(), 4);
    EXPECT_EQ(f.txtS->text() + f.txtL->text(), "");
}

TEST_F(DataProv, FirstAndLastMoveTheCursor) {
    frData& f = Öppna();
    f.cmdS->click();
    EXPECT_EQ(db().rsLokator.AbsolutePosition(), 3);
    f.cmdF->click();
    EXPECT_EQ(db().rsLokator.AbsolutePosition(), 0);
    SkrivI(f.txtS, "finnsinte");
    f.cmdSökS->click();
    f.cmdS->click();
    f.cmdF->click();
    EXPECT_EQ(db().rsLokator.AbsolutePosition(), -1) << "nothing to move to";
    f.cmdRensa->click();
    frTest::instans().Meny("mnuRedigera_TömLokator")->trigger();
    ASSERT_EQ(db().rsLokator.RecordCount(), 0);
    f.cmdS->click();
    f.cmdF->click();
    EXPECT_TRUE(db().rsLokator.IsBOF() && db().rsLokator.IsEOF());
}

TEST_F(DataProv, TheListFollowsAnUpdateAndAnEmptyingOfTheTable) {
    frData& f = Öppna();
    f.show();
    frTest::instans().Meny("mnuRedigera_TömLokator")->trigger();
    QTest::qWait(0);
    EXPECT_EQ(f.dgLokator->model()->rowCount(), 0);
    QFile ini(Fil("INI/l.ini"));
    ASSERT_TRUE(ini.open(QFile::WriteOnly));
    ini.write("OZ1AA=JO65AA\r\n");
    ini.close();
    filval.push_back(ini.fileName());
    frTest::instans().Meny("mnuRedigera_Uppdatera_Lokator")->trigger();
    meddelanden.clear();
    QTest::qWait(0);
    EXPECT_EQ(Signaler(f), QStringList{"OZ1AA"});
}

TEST_F(DataProv, AWindowOpenedWithoutATableShowsItAsSoonAsThereIsOne) {
    Öppna().close();
    frTest::instans().mnuArkiv_StängTestlogg_Click();
    frTest::instans().Meny("mnufönster_Lokator")->trigger();
    const frData& f = frData::instans();
    EXPECT_EQ(Signaler(f), QStringList());
    filval.push_back(Logg());
    frTest::instans().mnuArkiv_ÖppnaTestlogg_Click();
    QTest::qWait(0);
    EXPECT_EQ(Signaler(f), (QStringList{"SM5ABC", "SM6ABC", "LA1AA", "SM7ABC"}));
}

TEST_F(DataProv, TheSearchStaysInForceWhenTheWindowIsClosed) {
    frData& f = Öppna();
    SkrivI(f.txtS, "sm5abc");
    f.cmdSökS->click();
    QTest::mouseClick(f.cmdStäng, Qt::LeftButton);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(db().rsLokator.Filter(), "Signal = 'SM5ABC'");
}

TEST_F(DataProv, ATextThatNoFilterCanHoldIsToldAndTheListStays) {
    frData& f = Öppna();
    SkrivI(f.txtS, "o'brien");
    f.cmdSökS->click();
    EXPECT_EQ(Tag(), (Meddelande{"Sökningen kan inte göras. Kontrollera texten.", "Lokator (lista)"}));
    EXPECT_EQ(Signaler(f).size(), 4);
}

TEST_F(DataProv, AfterTheCloseMenuTheWindowShowsNothingAndDoesNoHarm) {
    frData& f = Öppna();
    frTest::instans().mnuArkiv_StängTestlogg_Click();
    QTest::qWait(0);
    EXPECT_EQ(f.dgLokator->model()->rowCount(), 0) << "without being told by hand";
    for (QPushButton* knapp : {f.cmdF, f.cmdS, f.cmdRensa, f.cmdSökS, f.cmdSökL}) knapp->click();
    EXPECT_EQ(Signaler(f), QStringList());
}
