// Random sequences of operations on several cursors of one file, each step compared with a model that is as
// plain as can be: it keeps whole tables, filters and sorts them anew each time, and has no index.
#include "recordset_fixture.h"

#include <algorithm>
#include <functional>
#include <map>
#include <random>

namespace platform::testing {
namespace {

constexpr int kColumns = 4;
const std::array<const char*, kColumns> kNames = {"Text", "Band ", "Poäng", "Nr"};
const std::array<const char*, kColumns> kWritten = {"Text", "[Band ]", "Poäng", "Nr"};
bool isNumberColumn(int column) { return column == 2; }

using Fields = std::array<Value, kColumns>;
/// Rows by their id, which is the order in which they are stored.
using Table = std::map<qint64, Fields>;
using Predicate = std::function<bool(const Fields&)>;

int sign(double difference) { return difference < 0 ? -1 : difference > 0 ? 1 : 0; }

std::optional<double> numberOf(const QString& text) {
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

/// Order of two values for a sort: null, then by number or folded text.
int compareValues(const Value& a, const Value& b) {
    if (a.isNull() || b.isNull()) return int{!a.isNull()} - int{!b.isNull()};
    if (a.kind() == Value::Kind::Number) return sign(a.number() - b.number());
    return a.text().toCaseFolded().compare(b.text().toCaseFolded());
}

struct Choice {
    QString text;
    Predicate predicate;
};

class Random {
public:
    explicit Random(unsigned seed)
        : engine_(seed) {}
    int below(int n) { return static_cast<int>(engine_() % static_cast<unsigned>(n)); }
    bool oneIn(int n) { return below(n) == 0; }
    template <class T>
    const T& of(const std::vector<T>& choices) {
        return choices[static_cast<size_t>(below(static_cast<int>(choices.size())))];
    }

private:
    std::mt19937 engine_;
};

Value randomValue(Random& random, int column) {
    if (random.oneIn(12)) return Value();
    static const std::vector<Value> numbers = {-1, 0, 1, 2, 2.5, 10, 410};
    static const std::vector<Value> bands = {"2 M", "70 CM", "", "2 m"};
    static const std::vector<Value> serials = {"1", "01", "10", "x", "", "2.0"};
    static const std::vector<Value> texts = {"SM5ABC", "sm5abc", "SM5ABD", "SM5", "LA1ÅB",
                                             "la1åb",  "",       "OH2",    "Ö",   "5"};
    const std::array<const std::vector<Value>*, kColumns> choices = {&texts, &bands, &numbers, &serials};
    return random.of(*choices[static_cast<size_t>(column)]);
}

Choice randomComparison(Random& random) {
    static const std::vector<const char*> signs = {"=", "=", "=", "<>", "<", ">", "<=", ">="};
    const int column = random.below(kColumns);
    const auto index = static_cast<size_t>(column);
    const QString name = T(kWritten[index]);
    const QString literal = randomValue(random, column).text();
    if (random.oneIn(4)) {
        const QString begin = literal.left(random.below(4));
        return {name + " LIKE '" + begin + "*'", [=](const Fields& fields) {
                    const Value& value = fields[index];
                    return !value.isNull() && value.text().toCaseFolded().startsWith(begin.toCaseFolded());
                }};
    }
    const QString signText = random.of(signs);
    const auto holds = [signText](int order) {
        return (order == 0 && signText.contains('=')) || (order < 0 && signText.contains('<')) ||
               (order > 0 && signText.contains('>'));
    };
    const auto number = numberOf(literal);
    const bool isBare = number && random.oneIn(2);
    const QString text = name + ' ' + signText + (isBare ? ' ' + literal : " '" + literal + '\'');
    return {text, [=](const Fields& fields) {
                const Value& value = fields[index];
                if (value.isNull()) return false;
                if (!isBare && !isNumberColumn(column)) {
                    return holds(value.text().toCaseFolded().compare(literal.toCaseFolded()));
                }
                const auto left = numberOf(value.text());
                if (!left || !number) return signText == "<>";
                return holds(sign(*left - *number));
            }};
}

Choice randomFilter(Random& random, int depth = 0) {
    if (depth == 3 || random.oneIn(2)) return randomComparison(random);
    const bool isAnd = !random.oneIn(3);
    const Choice a = randomFilter(random, depth + 1);
    const Choice b = randomFilter(random, depth + 1);
    return {'(' + a.text + ')' + (isAnd ? " AND " : " OR ") + '(' + b.text + ')', [=](const Fields& fields) {
                return isAnd ? a.predicate(fields) && b.predicate(fields)
                             : a.predicate(fields) || b.predicate(fields);
            }};
}

/// A conjunction without brackets, the form that the indexes serve.
Choice randomConjunction(Random& random) {
    Choice all = randomComparison(random);
    for (int i = random.below(4); i > 0; --i) {
        const Choice next = randomComparison(random);
        all = {all.text + " AND " + next.text,
               [=](const Fields& fields) { return all.predicate(fields) && next.predicate(fields); }};
    }
    return all;
}

struct SortColumn {
    size_t column;
    bool isDescending;
};

/// What one cursor should show, worked out from scratch.
class Model {
public:
    Table rows;
    Predicate filter;
    std::vector<qint64> kept;
    std::vector<SortColumn> sort;

    std::vector<qint64> visible() const {
        std::vector<qint64> ids;
        for (const auto& [id, fields] : rows) {
            if (!filter || filter(fields) || std::find(kept.begin(), kept.end(), id) != kept.end())
                ids.push_back(id);
        }
        std::stable_sort(ids.begin(), ids.end(), [this](qint64 a, qint64 b) { return isBefore(a, b); });
        return ids;
    }

    /// The visible row behind the one with these fields and id, which need not be visible itself.
    qsizetype successor(qint64 id, const Fields& fields) const {
        Model with = *this;
        with.rows[id] = fields;
        with.kept.push_back(id);
        const std::vector<qint64> all = with.visible();
        return std::find(all.begin(), all.end(), id) - all.begin();
    }

private:
    bool isBefore(qint64 a, qint64 b) const {
        for (const SortColumn& key : sort) {
            const int order = compareValues(rows.at(a)[key.column], rows.at(b)[key.column]);
            if (order != 0) return key.isDescending ? order > 0 : order < 0;
        }
        return false;
    }
};

class ModelTest : public LogFile, public ::testing::WithParamInterface<int> {
protected:
    struct Cursor {
        Recordset rows;
        Model model;
        /// Place of the current row, or the id of one that the filter hides; at the count it is EOF.
        qsizetype place = 0;
        std::optional<qint64> hidden;
    };

    void SetUp() override {
        LogFile::SetUp();
        runSql(path_, "CREATE TABLE T (Text TEXT, \"Band \" TEXT, \"Poäng\" INTEGER, Nr TEXT)");
        ASSERT_EQ(sqlite3_open(path_.toUtf8().constData(), &other_), SQLITE_OK);
        sqlite3_exec(other_, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
        for (int i = 0; i < 30; ++i) insertFromOutside();
        for (Cursor& cursor : cursors_) {
            cursor.rows.Open("T", connection_);
            cursor.model.rows = stored_;
        }
        select_.Open("select Poäng, [Band ] from T WHERE NOT Text = 'sm5abc'", connection_);
        distinct_.Open("select DISTINCT Text from T WHERE NOT Text = ''", connection_);
    }
    void TearDown() override { sqlite3_close(other_); }

    void insertFromOutside() {
        Fields fields;
        for (int i = 0; i < kColumns; ++i) fields[static_cast<size_t>(i)] = randomValue(random_, i);
        outside("INSERT INTO T VALUES (?,?,?,?)", fields);
        stored_[sqlite3_last_insert_rowid(other_)] = fields;
    }
    void changeFromOutside() {
        if (stored_.empty()) return insertFromOutside();
        auto row = std::next(stored_.begin(), random_.below(static_cast<int>(stored_.size())));
        const QByteArray where = " WHERE rowid=" + QByteArray::number(row->first);
        if (random_.oneIn(2)) {
            outside("DELETE FROM T" + where, {});
            stored_.erase(row);
            return;
        }
        Fields fields;
        for (int i = 0; i < kColumns; ++i) fields[static_cast<size_t>(i)] = randomValue(random_, i);
        outside("UPDATE T SET Text=?, \"Band \"=?, \"Poäng\"=?, Nr=?" + where, fields);
        row->second = fields;
    }
    void outside(const QByteArray& sql, const Fields& fields) {
        sqlite3_stmt* statement = nullptr;
        ASSERT_EQ(sqlite3_prepare_v2(other_, sql.constData(), -1, &statement, nullptr), SQLITE_OK);
        for (int i = 0; i < sqlite3_bind_parameter_count(statement); ++i) {
            const Value& value = fields[static_cast<size_t>(i)];
            if (value.kind() == Value::Kind::Number) sqlite3_bind_double(statement, i + 1, value.number());
            if (value.kind() != Value::Kind::Text) continue;
            sqlite3_bind_text(statement, i + 1, value.text().toUtf8().constData(), -1, SQLITE_TRANSIENT);
        }
        ASSERT_EQ(sqlite3_step(statement), SQLITE_DONE) << sqlite3_errmsg(other_);
        sqlite3_finalize(statement);
    }

    std::optional<qint64> currentId(const Cursor& cursor) const {
        if (cursor.hidden) return cursor.hidden;
        const std::vector<qint64> visible = cursor.model.visible();
        if (cursor.place < 0 || cursor.place >= static_cast<qsizetype>(visible.size())) return std::nullopt;
        return visible[static_cast<size_t>(cursor.place)];
    }
    static void goTo(Cursor& cursor, qint64 id) {
        const std::vector<qint64> visible = cursor.model.visible();
        const auto at = std::find(visible.begin(), visible.end(), id);
        cursor.place = at - visible.begin();
        cursor.hidden = at == visible.end() ? std::optional(id) : std::nullopt;
    }
    static void goToPlace(Cursor& cursor, qsizetype place) {
        cursor.place = place;
        cursor.hidden.reset();
    }

    void setFilter(Cursor& cursor) {
        const Choice filter = random_.oneIn(4)   ? Choice{}
                              : random_.oneIn(3) ? randomFilter(random_)
                                                 : randomConjunction(random_);
        log_ += "Filter " + filter.text + '\n';
        cursor.model.filter = filter.predicate;
        cursor.model.kept.clear();
        cursor.rows.Filter(filter.text);
        goToPlace(cursor, 0);
    }
    void setSort(Cursor& cursor) {
        QStringList parts;
        cursor.model.sort.clear();
        for (int i = random_.below(4); i > 0; --i) {
            const SortColumn key{static_cast<size_t>(random_.below(kColumns)), random_.oneIn(2)};
            cursor.model.sort.push_back(key);
            parts << T(kWritten[key.column]) + (key.isDescending ? " DESC" : "");
        }
        log_ += "Sort " + parts.join(", ") + '\n';
        cursor.rows.Sort(parts.join(", "));
        goToPlace(cursor, 0);
    }
    void requery(Cursor& cursor) {
        log_ += "Requery\n";
        cursor.model.rows = stored_;
        cursor.model.kept.clear();
        cursor.rows.Requery();
        goToPlace(cursor, 0);
    }
    void move(Cursor& cursor) {
        const qsizetype count = cursor.rows.RecordCount();
        switch (random_.below(4)) {
        case 0:
            cursor.rows.MoveLast();
            goToPlace(cursor, std::max<qsizetype>(count - 1, 0));
            break;
        case 1:
            if (cursor.rows.IsEOF()) break;
            cursor.rows.MoveNext();
            stepOn(cursor);
            break;
        case 2:
            if (count == 0) break;
            goToPlace(cursor, random_.below(static_cast<int>(count)));
            cursor.rows.AbsolutePosition(cursor.place);
            break;
        default: find(cursor);
        }
    }
    void stepOn(Cursor& cursor) {
        if (cursor.hidden) {
            goToPlace(cursor, cursor.model.successor(*cursor.hidden, cursor.model.rows.at(*cursor.hidden)));
        } else {
            ++cursor.place;
        }
    }
    void find(Cursor& cursor) {
        const Choice wanted = randomComparison(random_);
        log_ += "Find " + wanted.text + '\n';
        cursor.rows.Find(wanted.text);
        const auto id = currentId(cursor);
        if (id && wanted.predicate(cursor.model.rows.at(*id))) return;
        const std::vector<qint64> visible = cursor.model.visible();
        if (cursor.hidden) stepOn(cursor);
        while (cursor.place < static_cast<qsizetype>(visible.size()) &&
               !wanted.predicate(cursor.model.rows.at(visible[static_cast<size_t>(cursor.place)]))) {
            ++cursor.place;
        }
    }
    void takeBookmark(Cursor& cursor) {
        if (!marked_.isValid() || random_.oneIn(3)) {
            const auto id = currentId(cursor);
            if (!id) return;
            marked_ = cursor.rows.GetBookmark();
            markedId_ = *id;
        }
        log_ += "SetBookmark\n";
        if (cursor.model.rows.count(markedId_)) {
            cursor.rows.SetBookmark(marked_);
            goTo(cursor, markedId_);
        } else {
            EXPECT_THROW(cursor.rows.SetBookmark(marked_), Failure);
        }
    }

    void addRow(Cursor& cursor) {
        Fields fields;
        cursor.rows.AddNew();
        for (int i = 0; i < kColumns; ++i) {
            fields[static_cast<size_t>(i)] = randomValue(random_, i);
            cursor.rows.Field(T(kNames[static_cast<size_t>(i)]), fields[static_cast<size_t>(i)]);
        }
        cursor.rows.Update();
        const qint64 id = sqlValue(path_, "SELECT max(rowid) FROM T").toLongLong();
        log_ += QStringLiteral("AddNew %1\n").arg(id);
        stored_[id] = fields;
        cursor.model.rows[id] = fields;
        keep(cursor, id);
        goTo(cursor, id);
    }
    void changeRow(Cursor& cursor) {
        const auto id = currentId(cursor);
        if (!id) return;
        Fields fields = cursor.model.rows.at(*id);
        for (int i = random_.below(3); i >= 0; --i) {
            const int column = random_.below(kColumns);
            fields[static_cast<size_t>(column)] = randomValue(random_, column);
            cursor.rows.Field(T(kNames[static_cast<size_t>(column)]), fields[static_cast<size_t>(column)]);
        }
        log_ += QStringLiteral("Update %1\n").arg(*id);
        if (fields == cursor.model.rows.at(*id)) return cursor.rows.Update();
        if (hasConflict(cursor, *id)) {
            EXPECT_THROW(cursor.rows.Update(), Failure);
            return readAgain(cursor, *id);
        }
        cursor.rows.Update();
        stored_[*id] = fields;
        cursor.model.rows[*id] = fields;
        keep(cursor, *id);
        goTo(cursor, *id);
    }
    void deleteRow(Cursor& cursor) {
        const auto id = currentId(cursor);
        if (!id) return;
        log_ += QStringLiteral("Delete %1\n").arg(*id);
        if (hasConflict(cursor, *id)) {
            EXPECT_THROW(cursor.rows.Delete(), Failure);
            return readAgain(cursor, *id);
        }
        cursor.rows.Delete();
        stored_.erase(*id);
        dropRow(cursor, *id);
    }
    bool hasConflict(const Cursor& cursor, qint64 id) const {
        const auto stored = stored_.find(id);
        return stored == stored_.end() || stored->second != cursor.model.rows.at(id);
    }
    void readAgain(Cursor& cursor, qint64 id) {
        const auto stored = stored_.find(id);
        if (stored == stored_.end()) return dropRow(cursor, id);
        const bool wasVisible = !cursor.hidden;
        cursor.model.rows[id] = stored->second;
        if (wasVisible) keep(cursor, id);
        goTo(cursor, id);
    }
    static void dropRow(Cursor& cursor, qint64 id) {
        const Fields fields = cursor.model.rows.at(id);
        cursor.model.rows.erase(id);
        goToPlace(cursor, cursor.model.successor(id, fields));
    }
    static void keep(Cursor& cursor, qint64 id) {
        // A row that meets the filter now and is edited out of it later is kept as well.
        cursor.model.kept.push_back(id);
    }

    void step() {
        Cursor& cursor = cursors_[static_cast<size_t>(random_.below(2))];
        log_ += &cursor == &cursors_[0] ? "A " : "B ";
        switch (random_.below(12)) {
        case 0:
        case 1: setFilter(cursor); break;
        case 2: setSort(cursor); break;
        case 3: requery(cursor); break;
        case 4:
        case 5: move(cursor); break;
        case 6: takeBookmark(cursor); break;
        case 7:
        case 8: addRow(cursor); break;
        case 9: changeRow(cursor); break;
        case 10: deleteRow(cursor); break;
        default:
            log_ += "outside\n";
            if (random_.oneIn(6)) insertFromOutside();
            if (random_.oneIn(3)) changeFromOutside();
        }
    }

    void check(const Cursor& cursor) {
        const std::vector<qint64> visible = cursor.model.visible();
        ASSERT_EQ(cursor.rows.RecordCount(), static_cast<qsizetype>(visible.size()));
        // Reading rows puts them in order; half of the time that is left for later.
        if (random_.oneIn(2)) return;
        for (size_t row = 0; row < visible.size(); ++row) {
            for (int i = 0; i < kColumns; ++i) {
                ASSERT_EQ(cursor.rows.At(static_cast<qsizetype>(row), i),
                          cursor.model.rows.at(visible[row])[static_cast<size_t>(i)])
                    << "row " << row << " column " << i;
            }
        }
        const auto id = currentId(cursor);
        ASSERT_EQ(cursor.rows.IsEOF(), !id);
        ASSERT_EQ(cursor.rows.AbsolutePosition(), id && !cursor.hidden ? cursor.place : -1);
        if (id) {
            ASSERT_EQ(cursor.rows.Field("Text"), cursor.model.rows.at(*id)[0]);
        }
        checkSum(cursor);
    }
    static void checkSum(const Cursor& cursor) {
        double sum = 0;
        bool hasNull = false;
        for (const auto& [id, fields] : cursor.model.rows) {
            hasNull = hasNull || fields[2].isNull();
            if (!fields[2].isNull()) sum += fields[2].number();
        }
        if (hasNull) {
            EXPECT_THROW(cursor.rows.Sum("Poäng"), Failure);
        } else {
            EXPECT_EQ(cursor.rows.Sum("Poäng"), sum);
        }
    }
    void checkSelects() {
        select_.Requery();
        distinct_.Requery();
        QStringList points;
        std::map<QString, QString> texts;
        for (const auto& [id, fields] : stored_) {
            const QString folded = fields[0].text().toCaseFolded();
            if (!fields[0].isNull() && folded != "sm5abc") points << fields[2].text();
            if (fields[0].text().isEmpty()) continue;
            const auto known = texts.try_emplace(folded, fields[0].text()).first;
            known->second = std::min(known->second, fields[0].text());
        }
        ASSERT_EQ(column(select_, "Poäng"), points);
        QStringList distinct;
        for (const auto& [folded, text] : texts) distinct << text;
        ASSERT_EQ(column(distinct_, "Text"), distinct);
    }

    Random random_{static_cast<unsigned>(GetParam())};
    sqlite3* other_ = nullptr;
    Table stored_;
    std::array<Cursor, 2> cursors_;
    Recordset select_;
    Recordset distinct_;
    Bookmark marked_;
    qint64 markedId_ = 0;
    QString log_;
};

TEST_P(ModelTest, ShowsWhatThePlainModelShows) {
    for (int i = 0; i < 1500; ++i) {
        ASSERT_NO_FATAL_FAILURE(step()) << log_.toStdString();
        for (const Cursor& cursor : cursors_) ASSERT_NO_FATAL_FAILURE(check(cursor)) << log_.toStdString();
        if (random_.oneIn(8)) {
            ASSERT_NO_FATAL_FAILURE(checkSelects()) << log_.toStdString();
        }
        ASSERT_FALSE(HasFailure()) << log_.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ModelTest, ::testing::Range(1, 9));

} // namespace
} // namespace platform::testing
