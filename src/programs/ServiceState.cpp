#include "programs/ServiceState.h"

#include "config/ConfigFile.h"
#include "support/ShortCommand.h"

#include <QRegExp>
#include <QTextStream>

namespace kor::veltrano::daemons {

ServiceStateMap readServiceStates()
{
    ServiceStateMap states;
    const CommandOutput output =
        runShortCommand(settings.value(QStringLiteral("Scripts/servicestate")), {});
    if (!output.isFinished) {
        return states;
    }
    const QRegExp blanks(QStringLiteral("\\s+"));
    constexpr int columns = 5;
    QTextStream text(output.standardOutput);
    QString line;
    while (text.readLineInto(&line)) {
        QStringList parts = line.split(blanks, Qt::KeepEmptyParts);
        // The marker in front of a unit, or nothing where the line begins with blanks.
        if (parts.size() == columns + 1) {
            parts.removeFirst();
        }
        if (parts.size() == columns) {
            const QString name = parts.first().remove(QStringLiteral(".service"));
            states.insert(name, {name, parts.at(1), parts.at(2), parts.at(3), parts.at(4)});
        }
    }
    return states;
}

} // namespace kor::veltrano::daemons
