#include "daemon/StartConfiguration.h"

#include "config/ConfigFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

// Runs in an empty folder of its own, with empty settings.
class StartConfigurationTest : public testing::Test
{
protected:
    StartConfigurationTest()
    {
        QDir::setCurrent(folder.path());
        current = QDir::currentPath();
        settings = ConfigFile();
    }

    ~StartConfigurationTest() override { QDir::setCurrent(oldFolder); }

    void writeFile(const QString& name, const QByteArray& text)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    const QString oldFolder = QDir::currentPath();
    QTemporaryDir folder;
    QString current;
};

TEST_F(StartConfigurationTest, TheOptionsFileIsUsedAsItStands)
{
    CommandLine line;
    line.configFile = QStringLiteral("a/b.conf");
    EXPECT_EQ(configFileName(line), "a/b.conf");
}

TEST_F(StartConfigurationTest, AFileInTheCurrentFolderIsTakenAsAnAbsoluteName)
{
    writeFile(QStringLiteral("tessarad.conf"), "");
    EXPECT_EQ(configFileName({}), current + "/tessarad.conf");
}

TEST_F(StartConfigurationTest, WithoutOneTheInstalledNameIsTakenUntested)
{
    EXPECT_EQ(configFileName({}), current + "/../etc/veltrano/tessarad.conf");
}

TEST_F(StartConfigurationTest, OptionsWinOverTheFile)
{
    settings.values = {{"Network/veltrano", "file"}, {"Network/httpserver", "file"}};
    CommandLine line;
    line.veltrano = QStringLiteral("option");
    line.httpServer = QStringLiteral("other");
    mergeIntoSettings(line);
    EXPECT_EQ(settings.value("Network/veltrano"), "option");
    EXPECT_EQ(settings.value("Network/httpserver"), "other");
}

TEST_F(StartConfigurationTest, AnEmptyOptionCountsAsNotGiven)
{
    settings.values = {{"Network/veltrano", "file"}};
    mergeIntoSettings({});
    EXPECT_EQ(settings.value("Network/veltrano"), "file");
    EXPECT_FALSE(settings.values.contains("Network/httpserver"));
}

TEST_F(StartConfigurationTest, TheResourcePathNeverComesFromTheFile)
{
    settings.values = {{"General/resourcepath", "file"}};
    mergeIntoSettings({});
    EXPECT_EQ(settings.value("General/resourcepath"), current + "/../opt/veltrano/veltranoweb");
    CommandLine line;
    line.resourcePath = QStringLiteral("/web");
    mergeIntoSettings(line);
    EXPECT_EQ(settings.value("General/resourcepath"), "/web");
}

TEST_F(StartConfigurationTest, TheFilesNameAndItsMapArePrinted)
{
    writeFile(QStringLiteral("a.conf"), "[B]\nkey=2\n[A]\nkey=1\n");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    readSettings(QStringLiteral("a.conf"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "confFile = a.conf\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\"a.conf\"\nQMap((\"A/key\", \"1\")(\"B/key\", \"2\"))\n");
}

TEST_F(StartConfigurationTest, SettingsArePrintedInKeyOrder)
{
    settings.values = {{"b/k", "2"}, {"a/k", "\u00fc"}, {"B/k", ""}};
    testing::internal::CaptureStdout();
    printSettings();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "B/k = \na/k = \xC3\xBC\nb/k = 2\n");
}

} // namespace
} // namespace kor::veltrano::daemons
