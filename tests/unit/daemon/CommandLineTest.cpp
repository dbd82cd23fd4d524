#include "daemon/CommandLine.h"

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

CommandLine parsed(const QStringList& arguments)
{
    const auto line = parseCommandLine(arguments);
    EXPECT_TRUE(line) << qPrintable(arguments.join(QLatin1Char(' ')));
    return line.value_or(CommandLine());
}

TEST(CommandLineTest, NoArgumentsLeaveEverythingAtItsStart)
{
    const CommandLine line = parsed({});
    EXPECT_EQ(line.verbosity, 0);
    EXPECT_FALSE(line.isDaemon);
    EXPECT_TRUE(line.httpServer.isEmpty());
    EXPECT_TRUE(line.configFile.isEmpty());
    EXPECT_TRUE(line.resourcePath.isEmpty());
    EXPECT_TRUE(line.veltrano.isEmpty());
}

TEST(CommandLineTest, VerbosityIsAPrefixMatchAndTheLastOneWins)
{
    EXPECT_EQ(parsed({"-v"}).verbosity, 1);
    EXPECT_EQ(parsed({"-vv"}).verbosity, 2);
    EXPECT_EQ(parsed({"-vvv"}).verbosity, 3);
    EXPECT_EQ(parsed({"-vvvv"}).verbosity, 3);
    EXPECT_EQ(parsed({"-verbose"}).verbosity, 1);
    EXPECT_EQ(parsed({"-vvv", "-v"}).verbosity, 1);
    EXPECT_EQ(parsed({"-v", "-vvv"}).verbosity, 3);
}

TEST(CommandLineTest, TheRobotsAddressIsNoVerbosity)
{
    const CommandLine line = parsed({"-vv", "-veltrano=robot:1"});
    EXPECT_EQ(line.verbosity, 2);
    EXPECT_EQ(line.veltrano, "robot:1");
    EXPECT_EQ(parsed({"-veltrano"}).verbosity, 1);
}

TEST(CommandLineTest, TheDaemonFlagIsAnExactMatch)
{
    EXPECT_TRUE(parsed({"-daemon"}).isDaemon);
    EXPECT_FALSE(parseCommandLine({"-daemonize"}));
}

TEST(CommandLineTest, ValuesAreTaken)
{
    const CommandLine line =
        parsed({"-httpserver=0.0.0.0:1", "-resourcepath=/web", "-conf=/etc/x.conf"});
    EXPECT_EQ(line.httpServer, "0.0.0.0:1");
    EXPECT_EQ(line.resourcePath, "/web");
    EXPECT_EQ(line.configFile, "/etc/x.conf");
}

TEST(CommandLineTest, EveryOccurrenceOfTheOptionTextIsRemoved)
{
    EXPECT_EQ(parsed({"-httpserver=-httpserver=x"}).httpServer, "x");
    EXPECT_EQ(parsed({"-conf=a-conf=b"}).configFile, "ab");
    EXPECT_EQ(parsed({"-conf=a-CONF=b"}).configFile, "a-CONF=b");
}

TEST(CommandLineTest, AnythingElseAsksForTheUsage)
{
    EXPECT_FALSE(parseCommandLine({""}));
    EXPECT_FALSE(parseCommandLine({"--help"}));
    EXPECT_FALSE(parseCommandLine({"-v", "-conf=x", "file"}));
    EXPECT_FALSE(parseCommandLine({"-httpserver"}));
}

TEST(CommandLineTest, ArgumentsAreReadAsUtf8)
{
    char program[] = "tessarad";
    char option[] = "-conf=\xC3\xBC.conf";
    char* arguments[] = {program, option, nullptr};
    EXPECT_EQ(argumentsOf(2, arguments), QStringList{QStringLiteral("-conf=\u00fc.conf")});
}

TEST(CommandLineTest, TheUsageIsPrintedToTheLetter)
{
    testing::internal::CaptureStdout();
    printUsage();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "tessarad version 20190319\n"
              "tessarad [OPTIONS]\n"
              "options:\n"
              "-v         : verbose\n"
              "-vv        : more verbose\n"
              "-vvv       : more and more verbose\n"
              "-veltrano=address  : RPC server address (default 127.0.0.1:12080)\n"
              "-daemon    : run as daemon\n"
              "-httpserver=XXXX:YYYY : listen at address XXXX at port XXXX "
              "(default is 0.0.0.0:8080)\n"
              "-resourcepath=XXXX  : where to find the resources\n"
              "-conf=XXXX : where to find the configuration file "
              "(default /etc/veltrano/tessarad.conf)\n");
}

} // namespace
} // namespace kor::veltrano::daemons
