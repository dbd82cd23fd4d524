#include "robot/Switches.h"

#include "support/LogFixture.h"

#include <QJsonArray>
#include <QJsonObject>

#include <optional>
#include <vector>

namespace kor::veltrano::daemons {
namespace {

TEST(JsonToBoolTest, ReadsNumbersAndWordsAsWellAsBooleans)
{
    for (const QJsonValue& value : {QJsonValue(true), QJsonValue(1), QJsonValue(0.5),
                                    QJsonValue("true"), QJsonValue("YES"), QJsonValue("Yes")}) {
        EXPECT_TRUE(jsonToBool(value)) << qPrintable(value.toVariant().toString());
    }
    for (const QJsonValue& value :
         {QJsonValue(false), QJsonValue(0), QJsonValue(-1), QJsonValue("1"), QJsonValue("on"),
          QJsonValue(" true"), QJsonValue(""), QJsonValue(QJsonArray{1}),
          QJsonValue(QJsonObject{{"a", true}}), QJsonValue(QJsonValue::Null),
          QJsonValue(QJsonValue::Undefined)}) {
        EXPECT_FALSE(jsonToBool(value)) << qPrintable(value.toVariant().toString());
    }
}

class SwitchesTest : public LogFixture
{
protected:
    bool apply(const QByteArray& body, const SwitchFormat& format = {8, "8"})
    {
        return applySwitches(body, format, [this](const int* values, unsigned int count) {
            set = std::vector<int>(values, values + count);
        });
    }

    // What was set; nothing where nothing was.
    std::optional<std::vector<int>> set;
};

TEST_F(SwitchesTest, EveryEntryBecomesZeroOrOneInItsPlace)
{
    EXPECT_TRUE(apply("[1,0,1,0,1,0,1,0]"));
    EXPECT_EQ(set, (std::vector<int>{1, 0, 1, 0, 1, 0, 1, 0}));
    EXPECT_TRUE(apply("[true, \"yes\"]", {2, "two"}));
    EXPECT_EQ(set, (std::vector<int>{1, 1}));
    EXPECT_TRUE(logLines().isEmpty());
}

TEST_F(SwitchesTest, AnotherLengthIsRefusedAndSetsNothing)
{
    for (const char* body :
         {"[1,1,1,1,1,1,1]", "[1,1,1,1,1,1,1,1,1]", "[]", "{}", "{\"a\":[1,1,1,1,1,1,1,1]}"}) {
        EXPECT_FALSE(apply(body)) << body;
    }
    EXPECT_FALSE(set);
    EXPECT_EQ(logLines().size(), 5);
    EXPECT_EQ(logLines().last(), "Error: MyRelayArray::setData - Expected array with 8 entries");
}

TEST_F(SwitchesTest, TheCountIsNamedAsTheArrayNamesIt)
{
    EXPECT_FALSE(apply("[1]", {2, "two"}));
    EXPECT_EQ(logLines(),
              QStringList("Error: MyRelayArray::setData - Expected array with two entries"));
}

TEST_F(SwitchesTest, ABodyThatIsNoJsonIsAcceptedAndSetsNothing)
{
    for (const char* body : {"", "yes", "5", "[1,", "null"}) {
        EXPECT_TRUE(apply(body)) << body;
    }
    EXPECT_FALSE(set);
    EXPECT_EQ(logLines().size(), 5);
    EXPECT_EQ(logLines().first(), "Error: MyRelayArray::setData - Invalid JSON: illegal value");
}

} // namespace
} // namespace kor::veltrano::daemons
