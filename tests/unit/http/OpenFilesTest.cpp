#include "http/OpenFiles.h"

#include <gtest/gtest.h>

#include <future>
#include <optional>

namespace kor::veltrano::daemons {
namespace {

using namespace std::chrono_literals;

TEST(OpenFilesTest, WithoutFilesNobodyWaits)
{
    OpenFiles files;
    EXPECT_TRUE(files.waitUntilNone(0ms));
}

TEST(OpenFilesTest, TheWaitIsBounded)
{
    OpenFiles files;
    const OpenFiles::Entry entry(files);
    EXPECT_FALSE(files.waitUntilNone(1ms));
}

TEST(OpenFilesTest, TheWaitEndsWithTheLastFile)
{
    OpenFiles files;
    std::optional<OpenFiles::Entry> first(std::in_place, files);
    std::optional<OpenFiles::Entry> second(std::in_place, files);
    auto waiting = std::async(std::launch::async, [&files] { return files.waitUntilNone(10s); });
    first.reset();
    EXPECT_EQ(waiting.wait_for(20ms), std::future_status::timeout);
    second.reset();
    EXPECT_TRUE(waiting.get());
}

} // namespace
} // namespace kor::veltrano::daemons
