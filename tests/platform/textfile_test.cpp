#include "platform/textfile.h"
#include "support/ToPrint.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace platform {
namespace {

TEST(Cp1252, EveryByteSurvivesTheRoundTrip) {
    QByteArray all(256, Qt::Uninitialized);
    for (int i = 0; i < 256; ++i) all[i] = static_cast<char>(i);
    const QString text = FromCp1252(all);
    EXPECT_EQ(text.size(), 256);
    EXPECT_EQ(ToCp1252(text), all);
}

struct ByteCase {
    const char* name;
    const char* text;
    const char* bytes;
};

class Cp1252Test : public testing::TestWithParam<ByteCase> {};

TEST_P(Cp1252Test, GivesOneByteForEachUnit) {
    SCOPED_TRACE(GetParam().name);
    EXPECT_EQ(ToCp1252(T(GetParam().text)), QByteArray(GetParam().bytes));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Cp1252Test,
    testing::Values(ByteCase{"letters", "SM5ABC", "SM5ABC"},
                    ByteCase{"Swedish letters", "åäöÅÄÖ", "\xE5\xE4\xF6\xC5\xC4\xD6"},
                    ByteCase{"the degree sign", "12° / 192°", "12\xB0 / 192\xB0"},
                    ByteCase{"signs of the upper control range", "€Ž–Ÿ", "\x80\x8E\x96\x9F"},
                    ByteCase{"a letter outside", "ł", "?"},
                    ByteCase{"Greek my and the micro sign", "μµ", "?\xB5"},
                    ByteCase{"Cyrillic", "Привет", "??????"}, ByteCase{"a sign of two units", "😀", "??"},
                    ByteCase{"an accent that stands alone", "e\xCC\x81", "e?"}));

TEST(Cp1252, AnswersAQuestionMarkForEverythingOutsideThePage) {
    int inside = 0;
    for (int code = 0; code < 0x10000; ++code) {
        const QString text{QChar(static_cast<char16_t>(code))};
        const QByteArray byte = ToCp1252(text);
        ASSERT_EQ(byte.size(), 1);
        if (FromCp1252(byte) == text) {
            ++inside;
        } else {
            EXPECT_EQ(byte, "?") << code;
        }
    }
    EXPECT_EQ(inside, 256);
}

TEST(Lines, EachEndsInCarriageReturnAndLineFeed) {
    EXPECT_EQ(LinesToText({T("a"), T(""), T("b")}), T("a\r\n\r\nb\r\n"));
    EXPECT_EQ(LinesToText({}), T(""));
}

TEST(Items, AreWrittenInTheirForms) {
    EXPECT_EQ(WriteItem(T("500")), T("\"500\""));
    EXPECT_EQ(WriteItem(T("")), T("\"\""));
    EXPECT_EQ(WriteFlag(true), T("#TRUE#"));
    EXPECT_EQ(WriteFlag(false), T("#FALSE#"));
    EXPECT_EQ(PrintNumber(12), T(" 12 "));
    EXPECT_EQ(PrintNumber(0), T(" 0 "));
    EXPECT_EQ(PrintNumber(-1), T("-1 "));
}

struct ItemCase {
    const char* name;
    const char* text;
    QStringList items;
};

class ItemReaderTest : public testing::TestWithParam<ItemCase> {};

QStringList AllItems(const QString& text) {
    QStringList items;
    for (ItemReader reader(text); !reader.AtEnd();) items.append(reader.Next());
    return items;
}

TEST_P(ItemReaderTest, SplitsAtCommasAndLineEnds) {
    SCOPED_TRACE(GetParam().name);
    EXPECT_EQ(AllItems(T(GetParam().text)), GetParam().items);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ItemReaderTest,
    testing::Values(ItemCase{"an empty text holds none", "", {}},
                    ItemCase{"one without a line end", "SM5ABC=JO89", {"SM5ABC=JO89"}},
                    ItemCase{"a line end ends the item", "a\r\nb\r\n", {"a", "b"}},
                    ItemCase{"a line feed alone does too", "a\nb\n", {"a", "b"}},
                    ItemCase{"a carriage return alone does too", "a\rb", {"a", "b"}},
                    ItemCase{"a comma ends the item", "a,b", {"a", "b"}},
                    ItemCase{"a comma at the end of a line leaves an empty item", "a,\r\nb", {"a", "", "b"}},
                    ItemCase{"a blank line is an empty item", "a\r\n\r\nb", {"a", "", "b"}},
                    ItemCase{"blanks in front go, those behind stay", " \ta b \r\n", {"a b "}},
                    ItemCase{"quotes around an item are removed", "\"500\"\r\n\"None\"\r\n", {"500", "None"}},
                    ItemCase{"an empty item in quotes", "\"\"\r\n\"x\"", {"", "x"}},
                    ItemCase{"a comma inside quotes belongs to the item", "\"a,b\",c", {"a,b", "c"}},
                    ItemCase{"a line end inside quotes too", "\"a\r\nb\",c", {"a\r\nb", "c"}},
                    ItemCase{"what follows the closing quote is dropped", "\"a\" x,b", {"a", "b"}},
                    ItemCase{"a quote that is never closed goes to the end", "\"a,b\r\n", {"a,b\r\n"}},
                    ItemCase{"a quote inside an item stays", "a\"b\",c", {"a\"b\"", "c"}},
                    ItemCase{"a printed number keeps the blank behind it", " 12 \r\n", {"12 "}},
                    ItemCase{"a section head is an item", "[Calls]\r\nx=y", {"[Calls]", "x=y"}}));

TEST(ItemReader, ReadsNumbersAndFlags) {
    ItemReader reader(T(" 12 \r\n-1 \r\n\"3\"\r\n#TRUE#\r\n #false# \r\n\"#TRUE#\"\r\n"));
    EXPECT_EQ(reader.NextNumber(), 12);
    EXPECT_EQ(reader.NextNumber(), -1);
    EXPECT_EQ(reader.NextNumber(), 3);
    EXPECT_TRUE(reader.NextFlag());
    EXPECT_FALSE(reader.NextFlag());
    EXPECT_TRUE(reader.NextFlag());
    EXPECT_TRUE(reader.AtEnd());
}

TEST(ItemReader, ReadsAWholeLineAsItStands) {
    ItemReader reader(T("\"a\",b \r\n  c\r\nrest"));
    EXPECT_EQ(reader.NextLine(), T("\"a\",b "));
    EXPECT_EQ(reader.NextLine(), T("  c"));
    EXPECT_EQ(reader.NextLine(), T("rest"));
    EXPECT_TRUE(reader.AtEnd());
}

TEST(ItemReader, FailsPastTheEnd) {
    ItemReader reader(T("a"));
    reader.Next();
    EXPECT_THROW(reader.Next(), Failure);
    EXPECT_THROW(reader.NextLine(), Failure);
    EXPECT_THROW(reader.NextNumber(), Failure);
    EXPECT_THROW(reader.NextFlag(), Failure);
}

TEST(ItemReader, FailsOnWhatIsNoNumberOrNoFlag) {
    for (const char* text : {"x", "", "1 2", "#TRUE#", "1x"}) {
        EXPECT_THROW(ItemReader(T(text) + T("\r\n")).NextNumber(), Failure) << text;
    }
    for (const char* text : {"TRUE", "1", "", "#TRUE", "#SANT#"}) {
        EXPECT_THROW(ItemReader(T(text) + T("\r\n")).NextFlag(), Failure) << text;
    }
}

TEST(ItemReader, ReadsBackWhatWasWritten) {
    for (const char* text : {"", "500", "a,b", "  blanks  ", "två\r\nrader", "#TRUE#"}) {
        ItemReader reader(WriteItem(T(text)) + T("\r\n"));
        EXPECT_EQ(reader.Next(), T(text));
        EXPECT_TRUE(reader.AtEnd());
    }
    for (const qint64 number : {0, 1, -1, 255, 32767, -32768}) {
        EXPECT_EQ(ItemReader(PrintNumber(number)).NextNumber(), number);
    }
}

/// Takes so many bytes and then no more, as a full disk does.
class FailDevice : public QIODevice {
public:
    explicit FailDevice(qint64 room)
        : room_(room) {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 count) override {
        if (room_ == 0) {
            setErrorString(QStringLiteral("full"));
            return -1;
        }
        const qint64 taken = std::min(count, room_);
        room_ -= taken;
        return taken;
    }

private:
    qint64 room_;
};

TEST(TextWriter, WritesTheCodePageAndLineEnds) {
    QBuffer buffer;
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    TextWriter writer(buffer);
    writer.WriteLine(T("QSO för Åsa"));
    writer.Write(T("a"));
    writer.WriteLine();
    EXPECT_EQ(buffer.data(), QByteArray("QSO f\xF6r \xC5sa\r\na\r\n"));
}

TEST(TextWriter, FailsWhereverTheDeviceGivesOut) {
    const QStringList lines{T("CREATED-BY: x"), T(""), T("END-OF-LOG:")};
    const qint64 length = LinesToText(lines).size();
    for (qint64 room = 0; room < length; ++room) {
        FailDevice device(room);
        EXPECT_THROW(TextWriter(device).Write(LinesToText(lines)), Failure) << room;
    }
    FailDevice enough(length);
    EXPECT_NO_THROW(TextWriter(enough).Write(LinesToText(lines)));
}

TEST(TextWriter, FailsOnADeviceThatIsNotOpen) {
    QBuffer buffer;
    EXPECT_THROW(TextWriter(buffer).Write(T("a")), Failure);
}

TEST(ReadText, TakesWhatIsLeftInTheDevice) {
    QByteArray bytes(100'000, 'x');
    bytes.append("\xE5\r\n");
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    buffer.seek(99'999);
    EXPECT_EQ(ReadText(buffer), T("xå\r\n"));
    EXPECT_EQ(ReadText(buffer), T(""));
    buffer.seek(0);
    EXPECT_EQ(ReadText(buffer).size(), 100'003);
}

TEST(ReadText, FailsOnADeviceThatCannotBeRead) {
    FailDevice device(10);
    EXPECT_THROW(ReadText(device), Failure);
}

class TextFileTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir_.isValid()); }
    QString Path(const char* name) const { return dir_.filePath(T(name)); }

    static QByteArray Bytes(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir dir_;
};

TEST_F(TextFileTest, IsSavedAndLoadedUnchanged) {
    SaveTextFile(Path("å.log"), T("Åsa\r\n"));
    EXPECT_EQ(Bytes(Path("å.log")), QByteArray("\xC5sa\r\n"));
    EXPECT_EQ(LoadTextFile(Path("å.log")), T("Åsa\r\n"));
}

TEST_F(TextFileTest, ReplacesALongerFileWhole) {
    SaveTextFile(Path("a"), T("a long first text"));
    SaveTextFile(Path("a"), T("b"));
    EXPECT_EQ(Bytes(Path("a")), "b");
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(TextFileTest, FailsWhenTheFolderIsMissing) {
    EXPECT_THROW(SaveTextFile(Path("no/such/a"), T("a")), Failure);
    EXPECT_THROW(LoadTextFile(Path("no/such/a")), Failure);
}

TEST_F(TextFileTest, FailsWhenTheNameIsAFolder) {
    ASSERT_TRUE(QDir(dir_.path()).mkdir(T("folder")));
    EXPECT_THROW(SaveTextFile(Path("folder"), T("a")), Failure);
    EXPECT_THROW(LoadTextFile(Path("folder")), Failure);
}

TEST_F(TextFileTest, AnEmptyFileIsAnEmptyText) {
    SaveTextFile(Path("a"), {});
    EXPECT_TRUE(QFile::exists(Path("a")));
    EXPECT_EQ(LoadTextFile(Path("a")), T(""));
}

} // namespace
} // namespace platform
