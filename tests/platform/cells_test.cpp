#include "platform/cells.h"
#include "support/ToPrint.h"

#include <algorithm>
#include <random>
#include <set>

namespace platform {
namespace {

TEST(CellPoolTest, EqualValuesAreOneCell) {
    CellPool pool;
    EXPECT_EQ(pool.text(u"SM5ABC"), pool.text(u"SM5ABC"));
    EXPECT_NE(pool.text(u"SM5ABC"), pool.text(u"sm5abc"));
    EXPECT_EQ(pool.number(2), pool.cell(Value(2.0)));
    EXPECT_EQ(pool.number(0.0), pool.number(-0.0));
    EXPECT_NE(pool.number(2), pool.text(u"2"));
    EXPECT_EQ(pool.cell(Value()), pool.null());
    EXPECT_EQ(pool.text(QStringView()), pool.emptyText());
    EXPECT_NE(pool.null(), pool.emptyText());
}

TEST(CellPoolTest, SpellingsThatCompareEqualHaveOneKey) {
    CellPool pool;
    EXPECT_EQ(&pool.text(T("Åland"))->key(), &pool.text(T("åLAND"))->key());
    EXPECT_EQ(&pool.text(u"SM5ABC")->key(), pool.textKey("sm5ABC").get());
    EXPECT_EQ(&pool.number(7)->key(), pool.numberKey(7).get());
    EXPECT_NE(&pool.number(7)->key(), &pool.text(u"7")->key());
}

TEST(CellPoolTest, ATextThatIsANumberTellsItsNumber) {
    CellPool pool;
    EXPECT_TRUE(pool.text(u"05")->key().isNumeric);
    EXPECT_EQ(pool.text(u"05")->key().number, 5);
    EXPECT_FALSE(pool.text(u"x5")->key().isNumeric);
    EXPECT_FALSE(pool.emptyText()->key().isNumeric);
    EXPECT_FALSE(pool.null()->key().isNumeric);
}

TEST(CellPoolTest, ValuesGoWithTheLastRowThatHoldsThem) {
    CellPool pool;
    const size_t before = pool.size();
    std::vector<CellRef> cells = {pool.text(u"one"), pool.number(12), pool.text(u"one"), pool.null()};
    RowRef row = Row::make(1, cells);
    RowRef shared = row;
    cells.clear();
    EXPECT_EQ(pool.size(), before + 2);
    row = RowRef();
    EXPECT_EQ(shared->cell(2)->value, Value("one"));
    EXPECT_EQ(pool.size(), before + 2);
    shared = RowRef();
    EXPECT_EQ(pool.size(), before);
}

TEST(CellPoolTest, ValuesOutliveForgetAll) {
    CellPool pool;
    const CellRef cell = pool.text(u"SM5ABC");
    const Key& key = cell->key();
    pool.forgetAll();
    EXPECT_EQ(cell->value, Value("SM5ABC"));
    EXPECT_EQ(key.text, "sm5abc");
}

TEST(RowTest, HasCellsComparesCellByCell) {
    CellPool pool;
    std::vector<CellRef> cells = {pool.text(u"a"), pool.number(1)};
    const std::vector<CellRef> same = cells;
    const RowRef row = Row::make(1, cells);
    EXPECT_TRUE(row->hasCells(same));
    EXPECT_FALSE(row->hasCells(std::vector<CellRef>{pool.text(u"A"), pool.number(1)}));
    EXPECT_FALSE(row->hasCells(std::vector<CellRef>{pool.text(u"a")}));
}

TEST(SortKeysTest, SortsAsTheComparisonDoes) {
    CellPool pool;
    std::mt19937 random(7);
    // Letters on both sides of one byte, so that the shortened form of the keys is put to the test.
    const QString letters = QStringLiteral("aAbÿþĀāő0 ") + QChar(0);
    std::vector<CellRef> cells = {pool.null()};
    for (int i = 0; i < 2000; ++i) {
        QString text;
        for (unsigned length = random() % 10; length > 0; --length)
            text += letters[static_cast<int>(random() % 11)];
        cells.push_back(pool.text(text));
        cells.push_back(pool.number(static_cast<double>(random() % 200) / 4 - 25));
    }
    std::set<const Key*> different;
    for (const CellRef& cell : cells) different.insert(&cell->key());
    std::vector<const Key*> keys(different.begin(), different.end());
    sortKeys(keys);
    EXPECT_EQ(keys.front()->kind, Value::Kind::Null);
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end(),
                               [](const Key* a, const Key* b) { return compareKeys(*a, *b) < 0; }));
}

TEST(PointerTableTest, HoldsWhatASetHolds) {
    // Few different hashes, so that the searches run into each other and round the end.
    std::mt19937 random(11);
    std::vector<int> objects(300);
    const auto hash = [&](const int* object) { return static_cast<size_t>(object - objects.data()) % 37; };
    PointerTable<int> table;
    std::set<int*> expected;
    for (int i = 0; i < 20000; ++i) {
        int* object = &objects[random() % objects.size()];
        if (expected.insert(object).second) {
            table.insert(hash(object), object);
        } else {
            expected.erase(object);
            table.erase(hash(object), object);
        }
        ASSERT_EQ(table.size(), expected.size());
        int* probe = &objects[random() % objects.size()];
        int* found = table.find(hash(probe), [probe](const int& other) { return &other == probe; });
        ASSERT_EQ(found, expected.count(probe) ? probe : nullptr);
    }
    std::set<int*> seen;
    table.forEach([&seen](int& object) { seen.insert(&object); });
    EXPECT_EQ(seen, expected);
}

TEST(PointerTableTest, ErasingWhatIsNotThereDoesNothing) {
    PointerTable<int> table;
    int one = 1;
    int two = 2;
    table.erase(5, &one);
    table.insert(5, &one);
    table.erase(5, &two);
    EXPECT_EQ(table.size(), 1U);
    table.clear();
    EXPECT_EQ(table.find(5, [](const int&) { return true; }), nullptr);
}

} // namespace
} // namespace platform
