// LogFixture: gives each test a log of its own in a temporary folder, and its lines.
#pragma once

#include "daemon/MyLogHandler.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace kor::veltrano::daemons {

class LogFixture : public testing::Test
{
protected:
    LogFixture() { openLog(0); }

    // A new log of the given verbosity in the place of the old one; its console stays silent.
    void openLog(int verbosity)
    {
        logObject.reset();
        logObject = std::make_unique<MyLogHandler>(logFile(), verbosity, true);
    }

    QString logFile() const { return folder.filePath(QStringLiteral("log.txt")); }

    QByteArray logBytes() const
    {
        QFile file(logFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The messages without their time stamps, also those that other threads have posted.
    QStringList logLines() const
    {
        QCoreApplication::sendPostedEvents(logObject.get(), Log::LogEvent::eventType);
        QStringList lines;
        const QString text = QString::fromLatin1(logBytes());
        for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            lines.append(line.section(QStringLiteral(" | "), 1));
        }
        return lines;
    }

    QTemporaryDir folder;
    std::unique_ptr<MyLogHandler> logObject;
};

} // namespace kor::veltrano::daemons
