#include "DigitalInputs.h"

#include "OutputArray.h"

#include <QJsonArray>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

class DigitalInputsTest : public testing::Test
{
protected:
    void setOutputs(const QJsonArray& values)
    {
        ASSERT_TRUE(outputs.command(QStringLiteral("set"), {{QStringLiteral("values"), values}}));
    }

    OutputArray outputs{QStringLiteral("digitalOutputs"), QStringLiteral("set"), 8};
    DigitalInputs inputs{outputs};
    const QString key = QStringLiteral("digitalInputs");
};

} // namespace

TEST_F(DigitalInputsTest, FollowTheOutputsAndTellItOnce)
{
    setOutputs({1, 0, 1, 0, 0, 0, 0, 1});
    inputs.step(0.01);
    ASSERT_TRUE(inputs.hasNews());
    const std::vector<Event> news = inputs.takeNews();
    ASSERT_EQ(news.size(), 1U);
    EXPECT_EQ(news[0].method.toStdString(), "digitalInputArray.valuesChanged");
    EXPECT_EQ(news[0].params["values"].toArray(), (QJsonArray{1, 0, 1, 0, 0, 0, 0, 1}));
    inputs.step(0.01);
    EXPECT_FALSE(inputs.hasNews());
}

TEST_F(DigitalInputsTest, AreHeldWhateverTheOutputsDo)
{
    inputs.prepare(key, QJsonArray{5, -1, 0, 0, 0, 0, 0, 0}).apply();
    EXPECT_TRUE(inputs.hasNews());
    inputs.dropNews();
    setOutputs({1, 1, 1, 1, 1, 1, 1, 1});
    inputs.step(0.01);
    EXPECT_FALSE(inputs.hasNews());
    EXPECT_EQ(inputs.values()[0], 5);
    inputs.release();
    EXPECT_TRUE(inputs.hasNews());
    EXPECT_EQ(inputs.values(), outputs.values());
}

TEST_F(DigitalInputsTest, TakeNothingButEightWholeNumbers)
{
    EXPECT_EQ(inputs.prepare(key, QJsonArray{1}).reason().toStdString(),
              "digitalInputs must be an array of 8 whole numbers");
    EXPECT_FALSE(inputs.prepare(key, QJsonArray{0.5, 0, 0, 0, 0, 0, 0, 0}).isAccepted());
    EXPECT_FALSE(inputs.prepare(key, QJsonArray{3e9, 0, 0, 0, 0, 0, 0, 0}).isAccepted());
}
