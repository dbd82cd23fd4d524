// SettingsFixture: gives each test settings of its own, and files and scripts that they name.
#pragma once

#include "config/ConfigFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {

class SettingsFixture : public testing::Test
{
protected:
    ~SettingsFixture() override { settings = ConfigFile(); }

    static void set(const QString& key, const QString& value) { settings.values[key] = value; }

    QString pathOf(const QString& name) const { return folder.filePath(name); }

    // Lets a setting name a file of this text.
    void setFile(const QString& key, const QByteArray& text) const
    {
        const QString path = pathOf(QString(key).replace('/', '-'));
        write(path, text);
        set(key, path);
    }

    // Lets a setting name a shell script.
    void setScript(const QString& key, const QByteArray& commands) const
    {
        const QString path = pathOf(QString(key).replace('/', '-'));
        writeScript(path, commands);
        set(key, path);
    }

    static void writeScript(const QString& path, const QByteArray& commands)
    {
        write(path, "#!/bin/sh\n" + commands + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    static void write(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
        ASSERT_EQ(file.write(text), text.size());
    }

    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QTemporaryDir folder;
};

} // namespace kor::veltrano::daemons
