#include "recordset_fixture.h"

namespace platform::testing {
namespace {

class RecordsetTest : public OpenLog {};

TEST_F(RecordsetTest, OpenStandsOnTheFirstStoredRow) {
    EXPECT_TRUE(log_.IsOpen());
    EXPECT_EQ(log_.RecordCount(), 4);
    EXPECT_EQ(sign(), "SM5ABC");
    EXPECT_FALSE(log_.IsBOF());
    EXPECT_FALSE(log_.IsEOF());
    EXPECT_EQ(log_.Filter(), "");
    EXPECT_EQ(log_.Sort(), "");
}

TEST_F(RecordsetTest, OpenTakesATableNameInAnyCase) {
    Recordset other;
    other.Open("testqso", connection_);
    EXPECT_EQ(other.RecordCount(), 4);
}

TEST_F(RecordsetTest, OpenRefusesWhatItCannotShow) {
    for (const char* source : {"",
                               "NOTABLE",
                               "sqlite_schema",
                               "select",
                               "select * from TESTQSO",
                               "select Signal",
                               "select Signal from",
                               "select Signal from NOTABLE",
                               "select NoColumn from TESTQSO",
                               "select [Band] from TESTQSO",
                               "select Signal from TESTQSO ORDER BY Signal",
                               "select Signal from TESTQSO, INFO",
                               "select Signal, from TESTQSO",
                               "select DISTINCT from TESTQSO",
                               "select count(Signal) from TESTQSO",
                               "select Signal from TESTQSO WHERE Signal = ''",
                               "select Signal from TESTQSO WHERE NOT Signal <> ''",
                               "select Signal from TESTQSO WHERE NOT Signal = 2",
                               "select Signal from TESTQSO WHERE NOT NoColumn = ''",
                               "select Signal from TESTQSO WHERE NOT Signal = '' AND NOT Tid = ''",
                               "delete from TESTQSO",
                               "select Signal from TESTQSO;",
                               "TESTQSO; DROP TABLE TESTQSO"}) {
        Recordset refused;
        EXPECT_THROW(refused.Open(QString::fromUtf8(source), connection_), Failure) << source;
        EXPECT_FALSE(refused.IsOpen()) << source;
    }
    EXPECT_EQ(log_.RecordCount(), 4);
}

TEST_F(RecordsetTest, OpenNeedsAnOpenConnectionAndAClosedRecordset) {
    EXPECT_THROW(log_.Open("INFO", connection_), Failure);
    Connection closed;
    Recordset other;
    EXPECT_THROW(other.Open("INFO", closed), Failure);
    other.Open("INFO", connection_);
    EXPECT_TRUE(other.IsOpen());
}

TEST_F(RecordsetTest, CloseDropsAPendingEditAndTheRecordsetCanBeOpenedAgain) {
    log_.Field("Signal", "SM0X");
    log_.Filter("Poäng = 7");
    log_.Close();
    EXPECT_FALSE(log_.IsOpen());
    EXPECT_FALSE(log_.EditPending());
    log_.Open("TESTQSO", connection_);
    EXPECT_FALSE(log_.EditPending());
    EXPECT_EQ(log_.Filter(), "");
    EXPECT_EQ(sign(), "SM5ABC");
}

TEST_F(RecordsetTest, EverythingOnAClosedRecordsetIsAFailure) {
    log_.Close();
    EXPECT_THROW(log_.Close(), Failure);
    EXPECT_THROW(log_.Requery(), Failure);
    EXPECT_THROW(log_.IsEOF(), Failure);
    EXPECT_THROW(log_.RecordCount(), Failure);
    EXPECT_THROW(log_.MoveFirst(), Failure);
    EXPECT_THROW(log_.Filter("Poäng = 2"), Failure);
    EXPECT_THROW(log_.Field("Signal"), Failure);
    EXPECT_THROW(log_.AddNew(), Failure);
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_THROW(log_.Delete(), Failure);
    EXPECT_THROW(log_.FieldNames(), Failure);
}

TEST_F(RecordsetTest, ClosingTheConnectionClosesItsRecordsets) {
    Recordset info;
    info.Open("INFO", connection_);
    connection_.Close();
    EXPECT_FALSE(log_.IsOpen());
    EXPECT_FALSE(info.IsOpen());
    EXPECT_THROW(log_.RecordCount(), Failure);
}

TEST_F(RecordsetTest, ARecordsetMayOutliveItsConnection) {
    auto connection = std::make_unique<Connection>();
    connection->Open(path_);
    Recordset info;
    info.Open("INFO", *connection);
    connection.reset();
    EXPECT_FALSE(info.IsOpen());
}

TEST_F(RecordsetTest, MovesForwardToEofAndNotBeyond) {
    QStringList seen;
    for (; !log_.IsEOF(); log_.MoveNext()) seen << sign();
    EXPECT_EQ(seen, QStringList({"SM5ABC", "oh2xyz", "LA1ÅB", "SM5ABC"}));
    EXPECT_THROW(log_.MoveNext(), Failure);
    EXPECT_TRUE(log_.IsEOF());
    log_.MovePrevious();
    EXPECT_EQ(log_.Field("Poäng").integer(), 7);
}

TEST_F(RecordsetTest, MovesBackToBofAndNotBeyond) {
    log_.MoveLast();
    QStringList seen;
    for (; !log_.IsBOF(); log_.MovePrevious()) seen << sign();
    EXPECT_EQ(seen, QStringList({"SM5ABC", "LA1ÅB", "oh2xyz", "SM5ABC"}));
    EXPECT_THROW(log_.MovePrevious(), Failure);
    EXPECT_TRUE(log_.IsBOF());
    EXPECT_FALSE(log_.IsEOF());
    log_.MoveNext();
    EXPECT_EQ(log_.Field("Poäng").integer(), 12);
}

TEST_F(RecordsetTest, WithoutVisibleRowsItIsAtBofAndEof) {
    log_.Filter("Signal = 'NONE'");
    for (const auto& move : {&Recordset::MoveFirst, &Recordset::MoveLast}) {
        (log_.*move)();
        EXPECT_TRUE(log_.IsBOF());
        EXPECT_TRUE(log_.IsEOF());
    }
    EXPECT_THROW(log_.MoveNext(), Failure);
    EXPECT_THROW(log_.MovePrevious(), Failure);
    EXPECT_THROW(log_.Field("Signal"), Failure);
    EXPECT_EQ(log_.RecordCount(), 0);
    EXPECT_EQ(log_.AbsolutePosition(), -1);
}

TEST_F(RecordsetTest, ReadingAtBofOrEofIsAFailure) {
    log_.MovePrevious();
    EXPECT_THROW(log_.Field("Signal"), Failure);
    EXPECT_THROW(log_.Field(0), Failure);
    EXPECT_THROW(log_.GetBookmark(), Failure);
    EXPECT_THROW(log_.Delete(), Failure);
    EXPECT_THROW(log_.Field("Signal", "X"), Failure);
    log_.MoveLast();
    log_.MoveNext();
    EXPECT_THROW(log_.Field("Signal"), Failure);
    EXPECT_THROW(log_.GetBookmark(), Failure);
    EXPECT_EQ(log_.AbsolutePosition(), -1);
    EXPECT_FALSE(log_.EditPending());
}

TEST_F(RecordsetTest, FieldsAreFoundByNameInAnyCaseWithTheirBlanks) {
    EXPECT_EQ(log_.FieldNames(), QStringList({"Datum", "Tid", "Signal", "Band ", "DXCC Nr", "Poäng"}));
    EXPECT_EQ(log_.FieldIndex("signal"), 2);
    EXPECT_EQ(log_.FieldIndex("BAND "), 3);
    EXPECT_EQ(log_.FieldIndex("POÄNG"), 5);
    EXPECT_EQ(log_.Field("band ").text(), "2 M");
    EXPECT_EQ(log_.Field(3).text(), "2 M");
    EXPECT_THROW(log_.FieldIndex("Band"), Failure);
    EXPECT_THROW(log_.FieldIndex(""), Failure);
    EXPECT_THROW(log_.Field("Effekt"), Failure);
    EXPECT_THROW(log_.Field(-1), Failure);
    EXPECT_THROW(log_.Field(6), Failure);
}

TEST_F(RecordsetTest, TheDeclaredTypeTellsNumbersFromTexts) {
    runSql(path_,
           "CREATE TABLE TYPES (A SMALLINT, B REAL, C VARCHAR(20), D, E DOUBLE, F NUMERIC(10,2), G DATE, "
           "H integer, I TEXT, J FLOAT, K CHARINT)");
    Recordset types;
    types.Open("TYPES", connection_);
    QString numbers;
    for (int i = 0; i < types.FieldNames().size(); ++i) {
        if (types.IsNumberField(i)) numbers += types.FieldNames()[i];
    }
    EXPECT_EQ(numbers, "ABEFHJK");
    EXPECT_THROW(types.IsNumberField(11), Failure);
}

TEST_F(RecordsetTest, SortIsStableAndIgnoresCase) {
    log_.Sort("Signal");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"0", "410", "12", "7"}));
    log_.Sort("Signal DESC");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"12", "7", "410", "0"}));
}

TEST_F(RecordsetTest, SortGoesBySeveralColumnsAndByNumbers) {
    log_.Sort("Datum, Tid");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"12", "0", "410", "7"}));
    log_.Sort("Poäng DESC");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"410", "12", "7", "0"}));
    log_.Sort("[Band ] DESC, Poäng asc");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"0", "7", "12", "410"}));
    EXPECT_EQ(log_.Sort(), "[Band ] DESC, Poäng asc");
    log_.Sort("");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"12", "410", "0", "7"}));
}

TEST_F(RecordsetTest, SortOrdersFoldedTextsByCodeUnit) {
    runSql(path_,
           "CREATE TABLE T (A TEXT); INSERT INTO T VALUES ('b'),('Ö'),('a'),(NULL),('Å'),('ä'),('B'),(''),"
           "('10'),('9'),('abcdefgh2'),('ABCDEFGH1'),('Aþ'),('Aÿx'),('aÿ'),('őa'),('āb');");
    Recordset rows;
    rows.Open("T", connection_);
    rows.Sort("A");
    EXPECT_EQ(column(rows, "A"), QStringList({"", "", "10", "9", "a", "ABCDEFGH1", "abcdefgh2", "Aþ", "aÿ",
                                              "Aÿx", "b", "B", "ä", "Å", "Ö", "āb", "őa"}));
    EXPECT_TRUE(rows.Field("A").isNull());
}

TEST_F(RecordsetTest, NullSortsFirstAndLastWhenDescending) {
    runSql(path_, "INSERT INTO TESTQSO (Signal) VALUES ('NULL')");
    log_.Requery();
    log_.Sort("Poäng");
    EXPECT_EQ(sign(), "NULL");
    log_.Sort("Poäng DESC");
    log_.MoveLast();
    EXPECT_EQ(sign(), "NULL");
}

TEST_F(RecordsetTest, AMalformedSortIsAFailureAndTheSortThatWasSetStays) {
    log_.Sort("Poäng DESC");
    for (const char* sort : {"NoColumn", "Band", "Datum,", ", Tid", "Datum Tid", "Datum DESC ASC",
                             "Poäng DOWN", "[Band ", "'Datum'", "Datum, Tid = 'x'", "(Datum)", "2"}) {
        EXPECT_THROW(log_.Sort(QString::fromUtf8(sort)), Failure) << sort;
    }
    EXPECT_EQ(log_.Sort(), "Poäng DESC");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"410", "12", "7", "0"}));
}

TEST_F(RecordsetTest, SettingFilterOrSortAndClearingThemGoesToTheFirstRow) {
    const auto fromLast = [this](auto set) {
        log_.MoveLast();
        set();
        return log_.Field("Poäng").integer();
    };
    EXPECT_EQ(fromLast([this] { log_.Sort("Poäng"); }), 0);
    EXPECT_EQ(fromLast([this] { log_.Filter("Signal = 'SM5ABC'"); }), 7);
    EXPECT_EQ(fromLast([this] { log_.Filter(""); }), 0);
    EXPECT_EQ(fromLast([this] { log_.Sort(""); }), 12);
}

TEST_F(RecordsetTest, FilterAndSortHoldTogether) {
    log_.Sort("Poäng DESC");
    log_.Filter("[Band ] = '2 m'");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"410", "12"}));
    log_.Sort("Tid DESC");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"410", "12"}));
    log_.Filter("Poäng < 400");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"7", "0", "12"}));
}

TEST_F(RecordsetTest, ABookmarkStaysValidThroughFilterSortAndRequery) {
    log_.MoveNext();
    const Bookmark mark = log_.GetBookmark();
    EXPECT_TRUE(mark.isValid());
    log_.Sort("Poäng");
    log_.Filter("Signal = 'SM5ABC'");
    log_.SetBookmark(mark);
    EXPECT_EQ(sign(), "oh2xyz");
    log_.Filter("");
    log_.Requery();
    log_.SetBookmark(mark);
    EXPECT_EQ(sign(), "oh2xyz");
    EXPECT_EQ(log_.GetBookmark(), mark);
    EXPECT_EQ(log_.AbsolutePosition(), 3);
}

TEST_F(RecordsetTest, ABookmarkToARowThatTheFilterHidesMakesItCurrentAllTheSame) {
    log_.MoveNext();
    const Bookmark mark = log_.GetBookmark();
    log_.Filter("Signal = 'SM5ABC'");
    log_.SetBookmark(mark);
    EXPECT_EQ(log_.AbsolutePosition(), -1);
    EXPECT_FALSE(log_.IsBOF());
    EXPECT_FALSE(log_.IsEOF());
    EXPECT_EQ(log_.RecordCount(), 2);
    log_.MoveNext();
    EXPECT_EQ(log_.Field("Poäng").integer(), 7);
    log_.SetBookmark(mark);
    log_.MovePrevious();
    EXPECT_EQ(log_.Field("Poäng").integer(), 12);
}

TEST_F(RecordsetTest, ABookmarkToADeletedRowIsAFailureAndNeverNamesAnotherRow) {
    log_.MoveLast();
    for (int i = 0; i < 2; ++i) {
        const Bookmark mark = log_.GetBookmark();
        log_.Delete();
        EXPECT_THROW(log_.SetBookmark(mark), Failure);
        add(log_, "SM0NEW");
        EXPECT_THROW(log_.SetBookmark(mark), Failure);
        EXPECT_EQ(sign(), "SM0NEW");
    }
    EXPECT_THROW(log_.SetBookmark(Bookmark()), Failure);
}

TEST_F(RecordsetTest, ABookmarkWorksForAnyRowId) {
    runSql(path_, "CREATE TABLE T (A TEXT); INSERT INTO T (rowid, A) VALUES (0,'zero'),(-5,'minus'),"
                  "(9000000000000000000,'large');");
    Recordset rows;
    rows.Open("T", connection_);
    for (const char* text : {"minus", "zero", "large"}) {
        rows.Find(QStringLiteral("A = '%1'").arg(text));
        const Bookmark mark = rows.GetBookmark();
        EXPECT_TRUE(mark.isValid());
        rows.MoveFirst();
        rows.SetBookmark(mark);
        EXPECT_EQ(rows.Field("A").text(), text);
    }
}

TEST_F(RecordsetTest, AbsolutePositionCountsTheVisibleRowsInOrder) {
    log_.Sort("Poäng");
    EXPECT_EQ(log_.AbsolutePosition(), 0);
    log_.AbsolutePosition(2);
    EXPECT_EQ(log_.Field("Poäng").integer(), 12);
    EXPECT_EQ(log_.AbsolutePosition(), 2);
    log_.MoveNext();
    EXPECT_EQ(log_.AbsolutePosition(), 3);
    EXPECT_THROW(log_.AbsolutePosition(4), Failure);
    EXPECT_THROW(log_.AbsolutePosition(-1), Failure);
    EXPECT_EQ(log_.AbsolutePosition(), 3);
}

TEST_F(RecordsetTest, AtShowsAnyVisibleFieldWithoutMovingTheCursor) {
    log_.Sort("Poäng");
    log_.Filter("Poäng > 5");
    log_.MoveLast();
    EXPECT_EQ(log_.At(0, 5).integer(), 7);
    EXPECT_EQ(log_.At(1, 3).text(), "2 M");
    EXPECT_EQ(log_.Field("Poäng").integer(), 410);
    EXPECT_THROW(log_.At(3, 0), Failure);
    EXPECT_THROW(log_.At(-1, 0), Failure);
    EXPECT_THROW(log_.At(0, 6), Failure);
}

TEST_F(RecordsetTest, SumAddsAllRowsWhateverTheFilter) {
    EXPECT_EQ(log_.Sum("Poäng"), 429);
    log_.Filter("Signal = 'oh2xyz'");
    EXPECT_EQ(log_.Sum("poäng"), 429);
    add(log_, "SM0NEW", 71);
    EXPECT_EQ(log_.Sum("Poäng"), 500);
    log_.Field("Poäng", 70.5);
    log_.Update();
    EXPECT_EQ(log_.Sum("Poäng"), 499.5);
    log_.Delete();
    EXPECT_EQ(log_.Sum("Poäng"), 429);
}

TEST_F(RecordsetTest, SumOfAnEmptyTableIsZero) {
    runSql(path_, "DELETE FROM TESTQSO");
    log_.Requery();
    EXPECT_EQ(log_.Sum("Poäng"), 0);
}

TEST_F(RecordsetTest, SumFailsOnNullOrATextUntilThatRowIsGone) {
    EXPECT_EQ(log_.Sum("Poäng"), 429);
    log_.AddNew();
    log_.Update();
    EXPECT_THROW(log_.Sum("Poäng"), Failure);
    log_.Delete();
    EXPECT_EQ(log_.Sum("Poäng"), 429);
    runSql(path_, "INSERT INTO TESTQSO (\"Poäng\") VALUES ('tolv')");
    log_.Requery();
    EXPECT_THROW(log_.Sum("Poäng"), Failure);
}

TEST_F(RecordsetTest, SumNeedsANumberColumn) {
    EXPECT_THROW(log_.Sum("Signal"), Failure);
    EXPECT_THROW(log_.Sum("NoColumn"), Failure);
}

TEST_F(RecordsetTest, SumOfFractionsLeavesNothingBehind) {
    for (int i = 0; i < 10; ++i) {
        log_.AddNew();
        log_.Field("Poäng", 0.1);
        log_.Update();
        EXPECT_NE(log_.Sum("Poäng"), 429);
        log_.Delete();
        EXPECT_EQ(log_.Sum("Poäng"), 429);
    }
}

TEST_F(RecordsetTest, AFileWrittenByHandMayHoldNullsAndOddValues) {
    runSql(
        path_,
        "CREATE TABLE T (A, N INTEGER); INSERT INTO T VALUES (12, '34'), (1.5, 'abc'), (x'5330', x'3132'), "
        "(NULL, NULL), (2.0, 1e300), (x'FF', 9007199254740993);");
    Recordset rows;
    rows.Open("T", connection_);
    EXPECT_EQ(column(rows, "A"),
              QStringList({"12", "1.5", "S0", "", "2", QString(QChar::ReplacementCharacter)}));
    EXPECT_EQ(rows.Field("A"), Value("12"));
    EXPECT_EQ(rows.Field("N"), Value(34));
    rows.MoveNext();
    EXPECT_EQ(rows.Field("N"), Value("abc"));
    EXPECT_THROW(rows.Field("N").number(), Failure);
    rows.MoveNext();
    EXPECT_EQ(rows.Field("N"), Value(12));
    rows.MoveNext();
    EXPECT_TRUE(rows.Field("A").isNull());
    EXPECT_TRUE(rows.Field("N").isNull());
    rows.Filter("N = 12");
    EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_F(RecordsetTest, LongAndForeignTextsComeBackAsTheyWere) {
    const QString text = QString(3000, u'ö') + QStringLiteral(" 日本 \U0001F4FB ") + QChar(0) + "end";
    log_.Field("Signal", text);
    log_.Update();
    Recordset other;
    other.Open("TESTQSO", connection_);
    EXPECT_EQ(other.Field("Signal").text(), text);
    Connection fresh;
    fresh.Open(path_);
    Recordset again;
    again.Open("TESTQSO", fresh);
    EXPECT_EQ(again.Field("Signal").text(), text);
}

TEST_F(RecordsetTest, AColumnMayBeCalledAsTheRowId) {
    runSql(path_, "CREATE TABLE T (rowid TEXT, oid TEXT); INSERT INTO T VALUES ('a','b'),('a','b')");
    Recordset rows;
    rows.Open("T", connection_);
    rows.MoveLast();
    rows.Field("rowid", "c");
    rows.Update();
    EXPECT_EQ(sqlValue(path_, "SELECT group_concat(rowid) FROM T"), "a,c");
}

TEST_F(RecordsetTest, TheListenerHearsOfEveryChange) {
    int heard = 0;
    log_.OnChanged([&heard] { ++heard; });
    const auto hears = [&heard](const auto& operation) {
        const int before = heard;
        operation();
        return heard - before;
    };
    EXPECT_EQ(hears([this] { log_.MoveNext(); }), 1);
    EXPECT_EQ(hears([this] { log_.MovePrevious(); }), 1);
    EXPECT_EQ(hears([this] { log_.MoveLast(); }), 1);
    EXPECT_EQ(hears([this] { log_.MoveFirst(); }), 1);
    EXPECT_EQ(hears([this] { log_.Find("Poäng = 7"); }), 1);
    EXPECT_EQ(hears([this] { log_.AbsolutePosition(1); }), 1);
    EXPECT_EQ(hears([this] { log_.SetBookmark(log_.GetBookmark()); }), 1);
    EXPECT_EQ(hears([this] { log_.Filter("Poäng > 5"); }), 1);
    EXPECT_EQ(hears([this] { log_.Sort("Poäng"); }), 1);
    EXPECT_EQ(hears([this] { log_.Requery(); }), 1);
    EXPECT_EQ(hears([this] { log_.AddNew(); }), 1);
    EXPECT_EQ(hears([this] { log_.CancelUpdate(); }), 1);
    EXPECT_EQ(hears([this] { log_.Delete(); }), 1);
    EXPECT_EQ(hears([this] {
                  log_.Field("Signal", "X");
                  log_.Update();
              }),
              1);
    EXPECT_EQ(hears([this] { log_.RecordCount(); }), 0);
    log_.OnChanged({});
    EXPECT_EQ(hears([this] { log_.MoveFirst(); }), 0);
}

TEST_F(RecordsetTest, TheListenerHearsOfAPendingRowThatAnotherEditWrites) {
    log_.AddNew();
    log_.Field("Signal", "NEW");
    log_.MoveFirst();
    qsizetype rows = 0;
    log_.OnChanged([&] { rows = log_.RecordCount(); });
    log_.Field("Signal", "X");
    EXPECT_EQ(rows, 5);
    rows = 0;
    log_.Field("Signal", "Y");
    EXPECT_EQ(rows, 0) << "a value alone is no change of what is visible";
}

TEST_F(RecordsetTest, TheListenerMayMoveTheCursorAndReplaceItself) {
    int heard = 0;
    log_.OnChanged([&] {
        ++heard;
        log_.MoveLast();
        log_.OnChanged([&heard] { heard += 100; });
    });
    log_.Filter("");
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(log_.AbsolutePosition(), 3);
    log_.MoveFirst();
    EXPECT_EQ(heard, 101);
}

TEST_F(RecordsetTest, TheListenerHearsOfARowThatAConflictReadAgain) {
    Recordset other;
    other.Open("TESTQSO", connection_);
    other.Field("Signal", "OTHER");
    other.Update();
    QString shown;
    log_.OnChanged([&] { shown = sign(); });
    log_.Field("Signal", "MINE");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_EQ(shown, "OTHER");
}

} // namespace
} // namespace platform::testing
