#include "config/ConfigReplace.h"

#include "config/ConfigFile.h"
#include "config/ConfigRewriter.h"
#include "daemon/Log.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>

#include <optional>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace kor::veltrano::daemons {

namespace {

#ifdef Q_OS_WIN
constexpr const char* temporaryDirectory = "c:\\temp\\";
#else
constexpr const char* temporaryDirectory = "/tmp/";
#endif

void logPaths(const char* pattern, const QString& first, const QString& second, int level)
{
    logMessage(QString::fromUtf8(pattern).arg(first, second), level);
}

void logPath(const char* pattern, const QString& path, int level)
{
    logMessage(QString::fromUtf8(pattern).arg(path), level);
}

bool isSameFile(const QString& first, const QString& second)
{
    const QString canonical = QFileInfo(first).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(second).canonicalFilePath();
}

// The text of a plain file; nothing else is opened, as a pipe would never come to an end.
std::optional<QByteArray> readFile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}

// A new file for its owner alone from the first moment on, which never follows a link that somebody
// else has put there.
bool openTemporaryFile(QFile& file)
{
#ifdef Q_OS_UNIX
    const int descriptor = open(QFile::encodeName(file.fileName()).constData(),
                                O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return descriptor >= 0
        && file.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle);
#else
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
#endif
}

// The path is told apart, since a file that was opened by its descriptor has no name.
bool writeTemporaryFile(QFile& file, const QString& path, const QByteArray& text)
{
    if (file.write(text) == text.size() && file.flush()) {
        return true;
    }
    logPath("Error writing %1", path, 0);
    return false;
}

// A copy has the mode of the temporary file: the file may hold passwords, or be read by others.
void takeOverRights(const QString& source, const QString& target)
{
#ifdef Q_OS_UNIX
    struct stat old {
    };
    const QByteArray targetName = QFile::encodeName(target);
    if (stat(QFile::encodeName(source).constData(), &old) != 0) {
        return;
    }
    if (chown(targetName.constData(), old.st_uid, old.st_gid) != 0) {
        qDebug() << "The owner of" << target << "could not be kept";
    }
    if (chmod(targetName.constData(), old.st_mode & ~mode_t(S_IFMT)) != 0) {
        qDebug() << "The mode of" << target << "could not be kept";
    }
#else
    QFile::setPermissions(target, QFile::permissions(source));
#endif
}

bool renameLogged(const QString& from, const QString& to)
{
    const bool isRenamed = QFile::rename(from, to);
    logPaths(isRenamed ? "Renamed %1 -> %2" : "Error renaming %1 -> %2", from, to,
             isRenamed ? 1 : 0);
    return isRenamed;
}

bool removeOldBackup(const QString& backup)
{
    if (!QFile::exists(backup)) {
        return true;
    }
    const bool isRemoved = QFile::remove(backup);
    logPath(isRemoved ? "Removed old backup %1" : "Error removing old backup %1", backup,
            isRemoved ? 1 : 0);
    return isRemoved;
}

void restoreBackup(const QString& path, const QString& backup)
{
    const bool isRemoved = QFile::remove(path);
    logPath(isRemoved ? "Removed %1" : "Error removing %1", path, isRemoved ? 1 : 0);
    if (isRemoved) {
        renameLogged(backup, path);
    }
}

QStringList keysOf(const QString& path)
{
    ConfigFile config;
    parseConfigFile(config, path);
    return config.values.keys();
}

// False where the file that has been put in does not have the keys, and the old one is back.
bool putIn(const QString& temporary, const QString& path, const QString& backup,
           const QStringList& keys)
{
    if (!QFile::copy(temporary, path)) {
        logPaths("Error copying %1 -> %2", temporary, path, 0);
        return true;
    }
    logPaths("Copied %1 -> %2", temporary, path, 1);
    takeOverRights(backup, path);
    if (keysOf(path) == keys) {
        logPath("Keys match between old and new version of %1", path, 1);
        return true;
    }
    logPath("Error %1 has invalid keys", path, 0);
    restoreBackup(path, backup);
    return false;
}

bool swapIn(const QString& temporary, const QString& path, std::pair<QString, QString>& restart)
{
    ConfigFile newConfig;
    parseConfigFile(newConfig, temporary);
    const QStringList oldKeys = keysOf(path);
    if (newConfig.values.keys() != oldKeys) {
        logPaths("Keys of %1 and %2 are not identical!", temporary, path, 0);
        qDebug() << newConfig.values.keys() << oldKeys;
        return false;
    }
    const QString backup = path + QLatin1String(".bak");
    if (!removeOldBackup(backup) || !renameLogged(path, backup)
        || !putIn(temporary, path, backup, oldKeys)) {
        return false;
    }
    restart = {newConfig.restartCommands, newConfig.restartName};
    return true;
}

} // namespace

QString temporaryConfigPath(const QString& path)
{
    // Taken literally, the pattern stands in no name: blanks in a name stay as they are.
    return QString::fromUtf8(temporaryDirectory)
        + QFileInfo(path).baseName().replace(QStringLiteral("/|\\\\|\\s"), QStringLiteral("_"));
}

bool replaceConfigFile(const QMap<QString, QString>& changes, const QString& path,
                       std::pair<QString, QString>& restart)
{
    const QString temporary = temporaryConfigPath(path);
    if (isSameFile(path, temporary)) {
        logPath("Error %1 is where its own new text would be written first", path, 0);
        return false;
    }
    QFile::remove(temporary);
    const std::optional<QByteArray> oldText = readFile(path);
    QFile temporaryFile(temporary);
    if (!oldText || !openTemporaryFile(temporaryFile)) {
        return false;
    }
    ConfigRewriter rewriter(changes, path);
    if (!writeTemporaryFile(temporaryFile, temporary, rewriter.rewrite(*oldText))) {
        return false;
    }
    temporaryFile.close();
    return !rewriter.hasChanged() || swapIn(temporary, path, restart);
}

} // namespace kor::veltrano::daemons
