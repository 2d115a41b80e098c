#include <fakes/InMemoryUserDefaults.h>
#include <linux/userdefaults/JsonUserDefaults.h>

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

namespace vantrel {
namespace {

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

class JsonUserDefaultsTest : public testing::Test {
protected:
    void writeFile(const QByteArray &text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QByteArray fileText() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    QJsonObject fileObject() const { return QJsonDocument::fromJson(fileText()).object(); }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
};

const QString key = QStringLiteral("Vantrel.key");

TEST_F(JsonUserDefaultsTest, IsEmptyWithoutAFileAndMakesNone) {
    const JsonUserDefaults defaults(path);
    EXPECT_FALSE(defaults.hasObject(key));
    EXPECT_EQ(defaults.integer(key), 0);
    EXPECT_FALSE(defaults.boolean(key));
    EXPECT_EQ(defaults.string(key), std::nullopt);
    EXPECT_EQ(defaults.stringArray(key), std::nullopt);
    EXPECT_EQ(defaults.integerArray(key), std::nullopt);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(JsonUserDefaultsTest, GivesBackEveryKindOfValueAfterALoad) {
    {
        JsonUserDefaults defaults(path);
        defaults.setInteger(QStringLiteral("integer"), -42);
        defaults.setBoolean(QStringLiteral("boolean"), true);
        defaults.setString(QStringLiteral("string"), QStringLiteral("Zoë “x” 会議 \u0001\n"));
        defaults.setStringArray(QStringLiteral("strings"),
                                {QStringLiteral("b"), QString(), QStringLiteral("a")});
        defaults.setIntegerArray(QStringLiteral("integers"), {7, lowest, highest});
        defaults.setStringArray(QStringLiteral("empty"), {});
    }
    const JsonUserDefaults defaults(path);
    EXPECT_EQ(defaults.integer(QStringLiteral("integer")), -42);
    EXPECT_TRUE(defaults.boolean(QStringLiteral("boolean")));
    EXPECT_EQ(defaults.string(QStringLiteral("string")), QStringLiteral("Zoë “x” 会議 \u0001\n"));
    EXPECT_EQ(defaults.stringArray(QStringLiteral("strings")),
              (QStringList{QStringLiteral("b"), QString(), QStringLiteral("a")}));
    EXPECT_EQ(defaults.integerArray(QStringLiteral("integers")),
              (std::vector<std::int64_t>{7, lowest, highest}));
    EXPECT_EQ(defaults.stringArray(QStringLiteral("empty")), QStringList());
    EXPECT_EQ(defaults.integerArray(QStringLiteral("empty")), std::vector<std::int64_t>());
}

class WholeNumberTest : public JsonUserDefaultsTest,
                        public testing::WithParamInterface<std::int64_t> {};

TEST_P(WholeNumberTest, SurvivesTheFileExactly) {
    JsonUserDefaults(path).setInteger(key, GetParam());
    EXPECT_EQ(JsonUserDefaults(path).integer(key), GetParam());
    EXPECT_TRUE(fileText().contains(QByteArray::number(static_cast<qlonglong>(GetParam()))));
}

INSTANTIATE_TEST_SUITE_P(Values, WholeNumberTest,
                         testing::Values(0, 1, -1, 9007199254740991, 9007199254740993,
                                         -9007199254740993, highest - 1, highest, lowest));

struct ReadingCase {
    const char *json;
    std::int64_t integer;
    bool boolean;
};

class ReadingTest : public JsonUserDefaultsTest, public testing::WithParamInterface<ReadingCase> {};

TEST_P(ReadingTest, TurnsWhatIsStoredIntoNumberAndTruthValue) {
    writeFile(QByteArray("{\"Vantrel.key\": ") + GetParam().json + "}");
    const JsonUserDefaults defaults(path);
    EXPECT_TRUE(defaults.hasObject(key));
    EXPECT_EQ(defaults.integer(key), GetParam().integer);
    EXPECT_EQ(defaults.boolean(key), GetParam().boolean);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ReadingTest,
    testing::Values(ReadingCase{"0", 0, false}, ReadingCase{"1", 1, true},
                    ReadingCase{"-3", -3, true}, ReadingCase{"1.0", 1, true},
                    ReadingCase{"2.9", 2, true}, ReadingCase{"-2.9", -2, true},
                    ReadingCase{"0.5", 0, true}, ReadingCase{"true", 1, true},
                    ReadingCase{"false", 0, false}, ReadingCase{"null", 0, false},
                    ReadingCase{"\"abc\"", 0, false}, ReadingCase{"\"12\"", 0, false},
                    ReadingCase{"\"true\"", 0, false}, ReadingCase{"[1]", 0, false},
                    ReadingCase{"{\"a\": 1}", 0, false}, ReadingCase{"1e300", highest, true},
                    ReadingCase{"-1e300", lowest, true},
                    ReadingCase{"9223372036854775808", highest, true}));

/// What rooms are tested on in place of the file reads everything just as the file does.
class StandInTest : public JsonUserDefaultsTest,
                    public testing::WithParamInterface<const char *> {};

TEST_P(StandInTest, ReadsAsTheFileDoes) {
    writeFile(QByteArray("{\"Vantrel.key\": ") + GetParam() + "}");
    const JsonUserDefaults real(path);
    fakes::InMemoryUserDefaults standIn;
    standIn.objects[key] = fileObject().value(key);
    EXPECT_EQ(standIn.hasObject(key), real.hasObject(key));
    EXPECT_EQ(standIn.integer(key), real.integer(key));
    EXPECT_EQ(standIn.boolean(key), real.boolean(key));
    EXPECT_EQ(standIn.string(key), real.string(key));
    EXPECT_EQ(standIn.stringArray(key), real.stringArray(key));
    EXPECT_EQ(standIn.integerArray(key), real.integerArray(key));
}

INSTANTIATE_TEST_SUITE_P(Values, StandInTest,
                         testing::Values("0", "1", "-2.9", "0.5", "1e300", "-1e300",
                                         "9223372036854775807", "-9223372036854775808",
                                         "9223372036854775808", "9007199254740993", "true", "false",
                                         "null", "\"\"", "\"12\"", "{}", "[]", "[1, 2]", "[1, 2.5]",
                                         "[1e30]", "[true]", "[\"a\"]", "[\"a\", 1]",
                                         "[9223372036854775807]"));

struct ArrayCase {
    const char *json;
    bool isStrings;
    bool isIntegers;
};

class ArrayTest : public JsonUserDefaultsTest, public testing::WithParamInterface<ArrayCase> {};

TEST_P(ArrayTest, TakesOneKindOfElementOnly) {
    writeFile(QByteArray("{\"Vantrel.key\": ") + GetParam().json + "}");
    const JsonUserDefaults defaults(path);
    EXPECT_EQ(defaults.stringArray(key).has_value(), GetParam().isStrings);
    EXPECT_EQ(defaults.integerArray(key).has_value(), GetParam().isIntegers);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ArrayTest,
    testing::Values(ArrayCase{"[]", true, true}, ArrayCase{"[\"a\", \"b\"]", true, false},
                    ArrayCase{"[1, 2.0]", false, true}, ArrayCase{"[2, \"x\", 4]", false, false},
                    ArrayCase{"[\"a\", 1]", false, false}, ArrayCase{"[1, 2.5]", false, false},
                    ArrayCase{"[1, true]", false, false}, ArrayCase{"[1, null]", false, false},
                    ArrayCase{"[1e30]", false, false}, ArrayCase{"[[1]]", false, false},
                    ArrayCase{"\"a\"", false, false}, ArrayCase{"1", false, false},
                    ArrayCase{"{}", false, false}));

TEST_F(JsonUserDefaultsTest, ReadsAStringOnlyWhereOneStands) {
    writeFile(R"({"a": "", "b": 1, "c": null, "d": ["x"]})");
    const JsonUserDefaults defaults(path);
    EXPECT_EQ(defaults.string(QStringLiteral("a")), QString());
    EXPECT_EQ(defaults.string(QStringLiteral("b")), std::nullopt);
    EXPECT_EQ(defaults.string(QStringLiteral("c")), std::nullopt);
    EXPECT_EQ(defaults.string(QStringLiteral("d")), std::nullopt);
}

TEST_F(JsonUserDefaultsTest, WritesEachChangeThroughAtOnce) {
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, 1);
    EXPECT_EQ(fileObject(), (QJsonObject{{key, 1}}));
    defaults.setString(key, QStringLiteral("one"));
    EXPECT_EQ(fileObject(), (QJsonObject{{key, QStringLiteral("one")}}));
    defaults.removeObject(key);
    EXPECT_EQ(fileObject(), QJsonObject());
    EXPECT_FALSE(defaults.hasObject(key));
}

TEST_F(JsonUserDefaultsTest, KeepsWhatItDoesNotKnow) {
    writeFile(R"({"Other.deep": {"list": [1, 2.5, {"x": null}], "big": 9223372036854775807},
                  "Vantrel.key": 1, "Vantrel.later": "kept"})");
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, 2);
    const QByteArray text = fileText();
    EXPECT_TRUE(text.contains("9223372036854775807"));
    EXPECT_TRUE(text.contains("2.5"));
    EXPECT_EQ(fileObject().value(QStringLiteral("Vantrel.later")).toString(),
              QStringLiteral("kept"));
    EXPECT_EQ(fileObject().size(), 3);
}

TEST_F(JsonUserDefaultsTest, DoesNotWriteWhatIsOnTheDiskAlready) {
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, 1);
    ASSERT_TRUE(QFile::remove(path));
    defaults.setInteger(key, 1);
    defaults.removeObject(QStringLiteral("Vantrel.missing"));
    EXPECT_FALSE(QFile::exists(path));
    defaults.setInteger(key, 2);
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(JsonUserDefaultsTest, TellsABooleanFromANumber) {
    JsonUserDefaults defaults(path);
    defaults.setInteger(key, 1);
    defaults.setBoolean(key, true);
    EXPECT_EQ(fileObject(), (QJsonObject{{key, true}}));
}

TEST_F(JsonUserDefaultsTest, LiesInTheUsersFolderForSettings) {
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    EXPECT_EQ(JsonUserDefaults::defaultPath(),
              folder.filePath(QStringLiteral("Vantrel/settings.json")));
    if (before.isNull())
        qunsetenv("XDG_CONFIG_HOME");
    else
        qputenv("XDG_CONFIG_HOME", before);
}

} // namespace
} // namespace vantrel
