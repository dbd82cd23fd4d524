#include "Params.h"

#include <QJsonArray>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

const QString name = QStringLiteral("n");

Params with(const QJsonValue& value)
{
    return Params({{name, value}});
}

} // namespace

TEST(ParamsTest, GiveWhatIsThere)
{
    EXPECT_EQ(with(5).integer(name, 0, 10), 5);
    EXPECT_EQ(Params({}).integer(name, 0, 10, 7), 7);
    EXPECT_DOUBLE_EQ(with(0.5).number(name, 0, 1), 0.5);
    EXPECT_TRUE(with(true).flag(name));
    EXPECT_EQ(with(QJsonArray{QStringLiteral("a")}).texts(name), QStringList{QStringLiteral("a")});
    EXPECT_TRUE(Params({}).texts(name).isEmpty());
}

TEST(ParamsTest, NameTheFirstMemberThatDoesNotFit)
{
    Params missing({});
    missing.integer(name, 0, 10);
    EXPECT_EQ(missing.error().toStdString(), "n is missing");
    Params large = with(11);
    large.integer(name, 0, 10);
    large.fail(QStringLiteral("later"));
    EXPECT_EQ(large.error().toStdString(), "n must be a whole number from 0 to 10");
    Params half = with(0.5);
    half.integer(name, 0, 10, 3);
    EXPECT_EQ(half.error().toStdString(), "n must be a whole number from 0 to 10");
    Params text = with(QStringLiteral("1"));
    text.number(name, 0, 1);
    EXPECT_EQ(text.error().toStdString(), "n must be a number from 0 to 1");
    Params number = with(1);
    number.flag(name);
    EXPECT_EQ(number.error().toStdString(), "n must be true or false");
    Params mixed = with(QJsonArray{QStringLiteral("a"), 1});
    mixed.texts(name);
    EXPECT_EQ(mixed.error().toStdString(), "n must be an array of texts");
}

TEST(ParamsTest, NameAMemberThatNobodyHasAskedFor)
{
    Params params({{name, 1}, {QStringLiteral("typo"), 1}});
    params.integer(name, 0, 1);
    EXPECT_EQ(params.error().toStdString(), "typo is unknown here");
}
