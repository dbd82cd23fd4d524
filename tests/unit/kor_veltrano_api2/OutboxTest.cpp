#include "Outbox.h"

#include <gtest/gtest.h>

using kor::veltrano::api2::detail::Outbox;

namespace {

TEST(Outbox, TakesNothingBeforeAConnectionStarts)
{
    Outbox outbox;
    EXPECT_FALSE(outbox.add("early\n"));
    EXPECT_TRUE(outbox.take().empty());
}

TEST(Outbox, GivesLinesInOrderAndOnce)
{
    Outbox outbox;
    outbox.start();
    EXPECT_TRUE(outbox.isEmpty());
    EXPECT_TRUE(outbox.add("one\n"));
    EXPECT_TRUE(outbox.add("two\n"));
    EXPECT_FALSE(outbox.isEmpty());
    EXPECT_EQ(outbox.take(), "one\ntwo\n");
    EXPECT_TRUE(outbox.isEmpty());
    EXPECT_TRUE(outbox.take().empty());
}

TEST(Outbox, DropsWhatIsAddedAfterTheEndButStillGivesWhatCameBefore)
{
    Outbox outbox;
    outbox.start();
    outbox.add("before\n");
    outbox.close();
    EXPECT_FALSE(outbox.add("after\n"));
    EXPECT_EQ(outbox.take(), "before\n");
}

TEST(Outbox, ForgetsTheLinesOfTheConnectionBefore)
{
    Outbox outbox;
    outbox.start();
    outbox.add("old\n");
    outbox.close();
    outbox.start();
    EXPECT_TRUE(outbox.take().empty());
}

TEST(Outbox, ClosesWhenALineExceedsItsLimit)
{
    Outbox outbox;
    outbox.start();
    EXPECT_TRUE(outbox.add(QByteArray(static_cast<int>(Outbox::maxBytes), 'x')));
    EXPECT_TRUE(outbox.isOpen());
    EXPECT_FALSE(outbox.add("x"));
    EXPECT_FALSE(outbox.isOpen());
    EXPECT_TRUE(outbox.take().empty());
}

} // namespace
