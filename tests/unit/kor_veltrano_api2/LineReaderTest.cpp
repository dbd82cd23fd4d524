#include "rpc/LineReader.h"

#include <gtest/gtest.h>

#include <vector>

using kor::veltrano::rpc::LineReader;

namespace {

std::vector<QByteArray> linesOf(LineReader* reader, const QByteArray& bytes)
{
    reader->append(bytes);
    std::vector<QByteArray> lines;
    while (const auto line = reader->takeLine()) {
        lines.push_back(*line);
    }
    return lines;
}

using Lines = std::vector<QByteArray>;

TEST(LineReader, GivesEachLineOfOnePieceWithoutItsLineFeed)
{
    LineReader reader;
    EXPECT_EQ(linesOf(&reader, "one\ntwo\nthree\n"), (Lines{"one", "two", "three"}));
}

TEST(LineReader, PutsALineTogetherThatArrivesByteByByte)
{
    LineReader reader;
    const QByteArray bytes = "{\"a\":1}\n{\"b\":2}\n";
    Lines lines;
    for (const char byte : bytes) {
        for (const QByteArray& line : linesOf(&reader, QByteArray(1, byte))) {
            lines.push_back(line);
        }
    }
    EXPECT_EQ(lines, (Lines{"{\"a\":1}", "{\"b\":2}"}));
}

TEST(LineReader, KeepsAnUnfinishedLineUntilItsLineFeedArrives)
{
    LineReader reader;
    EXPECT_EQ(linesOf(&reader, "whole\nha"), Lines{"whole"});
    EXPECT_EQ(linesOf(&reader, "lf"), Lines{});
    EXPECT_EQ(linesOf(&reader, "\n"), Lines{"half"});
}

TEST(LineReader, SkipsEmptyLines)
{
    LineReader reader;
    EXPECT_EQ(linesOf(&reader, "\n\none\n\n\ntwo\n\n"), (Lines{"one", "two"}));
}

TEST(LineReader, TakesACarriageReturnForPartOfTheLine)
{
    LineReader reader;
    EXPECT_EQ(linesOf(&reader, "{}\r\n"), Lines{"{}\r"});
}

TEST(LineReader, KeepsNulBytes)
{
    LineReader reader;
    const QByteArray line("a\0b", 3);
    EXPECT_EQ(linesOf(&reader, line + '\n'), Lines{line});
}

TEST(LineReader, TakesALineOfExactlyTheLimit)
{
    LineReader reader;
    const QByteArray line(LineReader::maxLineBytes, 'x');
    EXPECT_EQ(linesOf(&reader, line + "\nnext\n"), (Lines{line, "next"}));
    EXPECT_FALSE(reader.isOverlong());
}

TEST(LineReader, RefusesALineOfOneByteMoreThanTheLimit)
{
    LineReader reader;
    EXPECT_EQ(linesOf(&reader, QByteArray(LineReader::maxLineBytes + 1, 'x') + '\n'), Lines{});
    EXPECT_TRUE(reader.isOverlong());
}

TEST(LineReader, RefusesAnUnfinishedLineAsSoonAsItIsTooLong)
{
    LineReader reader;
    EXPECT_EQ(linesOf(&reader, QByteArray(LineReader::maxLineBytes, 'x')), Lines{});
    EXPECT_FALSE(reader.isOverlong());
    EXPECT_EQ(linesOf(&reader, "x"), Lines{});
    EXPECT_TRUE(reader.isOverlong());
}

TEST(LineReader, GivesTheLinesBeforeAnOverlongOneAndNoneAfterIt)
{
    LineReader reader;
    const QByteArray overlong(LineReader::maxLineBytes + 1, 'x');
    EXPECT_EQ(linesOf(&reader, "before\n" + overlong + "\nafter\n"), Lines{"before"});
    EXPECT_TRUE(reader.isOverlong());
    EXPECT_EQ(linesOf(&reader, "later\n"), Lines{});
}

TEST(LineReader, StartsAnewAfterClear)
{
    LineReader reader;
    linesOf(&reader, QByteArray(LineReader::maxLineBytes + 1, 'x'));
    reader.clear();
    EXPECT_FALSE(reader.isOverlong());
    EXPECT_EQ(linesOf(&reader, "one\n"), Lines{"one"});
}

TEST(LineReader, DoesNotKeepHoldOfTheCallersBytes)
{
    LineReader reader;
    QByteArray bytes("ha");
    reader.append(QByteArray::fromRawData(bytes.data(), bytes.size()));
    bytes.fill('x');
    EXPECT_EQ(linesOf(&reader, "lf\n"), Lines{"half"});
}

TEST(LineReader, TakesManyShortLinesOfALargePieceInLinearTime)
{
    LineReader reader;
    QByteArray bytes;
    for (int i = 0; i < 500'000; ++i) {
        bytes += "{\"n\":1}\n";
    }
    EXPECT_EQ(linesOf(&reader, bytes).size(), 500'000U);
}

} // namespace
