#include "programs/ServiceList.h"

#include "config/ConfigFile.h"
#include "support/Json.h"
#include "support/ShortCommand.h"
#include "support/SystemPaths.h"

#include <QFile>
#include <QTextStream>

namespace kor::veltrano::daemons {

namespace {

struct Group {
    // What the script calls it, and what the browser shows.
    const char* argument;
    const char* name;
    bool hasTemplates;
};

constexpr Group groups[] = {
    {"veltrano-daemons", "veltrano-daemons", true},
    {"veltrano-smartsoft-master", "smartsoft-master", false},
    {"veltrano-smartsoft-slave", "smartsoft-slave", false},
};

bool isTemplate(const QString& name)
{
    return name.endsWith(QLatin1Char('@'));
}

bool isInstance(const QString& name)
{
    return name.contains(QLatin1Char('@')) && !isTemplate(name);
}

// A link in the place of the unit's own file is the mark that it is deactivated. A name with a zero
// in it names no file, and Qt would complain of every one.
bool isActivated(const QString& name)
{
    if (name.contains(QChar(u'\0'))) {
        return true;
    }
    const QString unit =
        QString::fromUtf8(unitDirectory) + QLatin1Char('/') + name + QLatin1String(".service");
    return QFile::symLinkTarget(unit).isEmpty();
}

void appendInstances(const QString& templateName, const ServiceStateMap& states,
                     QJsonArray& entries, int& nextId)
{
    for (auto state = states.cbegin(); state != states.cend(); ++state) {
        if (state.key().startsWith(templateName)) {
            entries.append(createServiceEntry(state.key(), states, nextId));
        }
    }
}

} // namespace

QStringList listServices(const QString& group)
{
    const CommandOutput output =
        runShortCommand(settings.value(QStringLiteral("Scripts/listservices")), {group});
    QStringList services;
    if (!output.isFinished) {
        return services;
    }
    QTextStream text(output.standardOutput);
    QString line;
    while (text.readLineInto(&line)) {
        if (!line.isEmpty()) {
            services.append(line);
        }
    }
    return services;
}

QJsonObject createServiceEntry(const QString& name, const ServiceStateMap& states, int& nextId)
{
    const ServiceState state = states.value(name);
    QJsonObject entry{
        {QStringLiteral("name"), name},       {QStringLiteral("id"), nextId++},
        {QStringLiteral("load"), state.load}, {QStringLiteral("active"), state.active},
        {QStringLiteral("sub"), state.sub},
    };
    if (!isInstance(name)) {
        entry[QLatin1String("activation")] =
            isActivated(name) ? QStringLiteral("true") : QStringLiteral("false");
    }
    return entry;
}

QByteArray createServiceData()
{
    const ServiceStateMap states = readServiceStates();
    QJsonArray tree;
    int nextId = 1;
    for (const Group& group : groups) {
        QJsonArray entries;
        const QStringList services = listServices(QString::fromLatin1(group.argument));
        for (const QString& service : services) {
            entries.append(createServiceEntry(service, states, nextId));
            if (group.hasTemplates && isTemplate(service)) {
                appendInstances(service, states, entries, nextId);
            }
        }
        if (!services.isEmpty()) {
            tree.append(QJsonObject{{QStringLiteral("name"), QString::fromLatin1(group.name)},
                                    {QStringLiteral("_children"), entries}});
        }
    }
    return renderJson(tree);
}

} // namespace kor::veltrano::daemons
