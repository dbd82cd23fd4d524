#include "config/ConfigFileParser.h"

#include "config/ConfigLine.h"

#include <QRegExp>

namespace kor::veltrano::daemons {

namespace {

bool isDirective(const QString& line, QLatin1String directive)
{
    return isComment(line) && line.midRef(1).startsWith(directive);
}

// All that is left of a directive's line once its words are gone, wherever they stand in it.
QString withoutDirective(const QString& line, QLatin1String directive)
{
    return QString(line).remove(QRegExp(QLatin1String("(#|;)") + directive)).trimmed();
}

} // namespace

ConfigFileParser::ConfigFileParser(QTextStream& textStream, const QString& absolutePath,
                                   ConfigFile& configFile)
    : text(textStream), result(configFile)
{
    pending.file = absolutePath;
}

void ConfigFileParser::parse()
{
    do {
        readLine();
        if (line == QLatin1String("#@restart command begin")
            || line == QLatin1String(";@restart command begin")) {
            readRestartBlock();
        }
        if (isDirective(line, QLatin1String("@web"))) {
            readWebDirective();
        } else if (!isComment(line) && !line.isEmpty()) {
            readSectionOrKey();
        }
    } while (!line.isNull());
}

void ConfigFileParser::readLine()
{
    line = text.readLine();
    // Whether the trimmed form of a blank line is null must not decide where the text ends.
    if (!line.isNull()) {
        line = line.trimmed();
        if (line.isNull()) {
            line = QLatin1String("");
        }
    }
}

void ConfigFileParser::readRestartBlock()
{
    // Only '#' keeps a block going, although ';' starts one as well: that is the format.
    for (readLine(); line.startsWith(QLatin1Char('#')); readLine()) {
        if (isDirective(line, QLatin1String("@name"))) {
            result.restartName = withoutDirective(line, QLatin1String("@name"));
        } else if (isDirective(line, QLatin1String("@cmd"))) {
            result.restartCommands += withoutDirective(line, QLatin1String("@cmd"));
            result.restartCommands += QLatin1Char('\n');
        }
    }
}

void ConfigFileParser::readWebDirective()
{
    const QStringList tokens = line.split(QRegExp(QStringLiteral("\\s")), Qt::SkipEmptyParts);
    const QString kind = tokens.value(1);
    pending.type = 0;
    pending.params.clear();
    if (kind == QLatin1String("selection")) {
        pending.type = 1;
    } else if (kind == QLatin1String("fileselection")) {
        pending.type = 2;
    }
    if (pending.type != 0) {
        pending.params = tokens.mid(2);
    }
    isPending = true;
}

void ConfigFileParser::readSectionOrKey()
{
    const int separator = separatorPosition(line);
    if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
        section = line.mid(1, line.size() - 2);
    } else if (separator >= 0) {
        const QString key = line.left(separator);
        const QString value = line.mid(separator + 1);
        result.values.insert(section + QLatin1Char('/') + key, value);
        if (isPending) {
            pending.group = section;
            pending.name = key;
            pending.value = value;
            result.entries.append(pending);
        }
    }
    isPending = false;
}

} // namespace kor::veltrano::daemons
