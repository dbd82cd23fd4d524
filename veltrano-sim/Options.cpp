#include "Options.h"

#include "ControlHelp.h"

#include <QCommandLineParser>

namespace kor::veltrano::sim {

namespace {

const QLatin1String listenName("listen");
const QLatin1String controlName("control");
const QLatin1String seedName("seed");
const QLatin1String worldName("world");
const QLatin1String recordName("record");
const QLatin1String helpName("help");

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("A simulated omnidirectional robot: the RPC server of one, in a world of "
                       "walls and obstacles."));
    parser.addOptions({
        {listenName,
         QStringLiteral("Listen for the robot's clients here; port 0 takes any free port."),
         QStringLiteral("HOST:PORT"), QStringLiteral("127.0.0.1:12080")},
        {controlName, QStringLiteral("Open the control door for tests here (default: closed)."),
         QStringLiteral("HOST:PORT")},
        {seedName, QStringLiteral("Seed of everything random, 0 or above."), QStringLiteral("N"),
         QStringLiteral("1")},
        {worldName,
         QStringLiteral("A built-in world, room or maze, or the path of a world's file."),
         QStringLiteral("WORLD"), QStringLiteral("room")},
        {recordName, QStringLiteral("Record what clients command in this file (default: nowhere)."),
         QStringLiteral("FILE")},
        {QStringList{QStringLiteral("h"), helpName}, QStringLiteral("Show this help.")},
    });
}

Options::Outcome error(const QString& text)
{
    return {std::nullopt, text + QStringLiteral("; see --help"), true};
}

Options::Outcome badAddress(const QString& name, const QString& value)
{
    return error(QStringLiteral("--%1=%2 is no address of the form HOST:PORT, as 127.0.0.1:12080")
                     .arg(name, value));
}

} // namespace

Options::Outcome Options::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(arguments)) {
        return error(parser.errorText());
    }
    if (parser.isSet(helpName)) {
        return {std::nullopt, parser.helpText() + controlHelp(), false};
    }
    if (!parser.positionalArguments().isEmpty()) {
        return error(QStringLiteral("Unexpected argument '%1'")
                         .arg(parser.positionalArguments().constFirst()));
    }
    Options options;
    const std::optional<HostPort> listen = toHostPort(parser.value(listenName));
    if (!listen) {
        return badAddress(listenName, parser.value(listenName));
    }
    options.listen = *listen;
    if (parser.isSet(controlName)) {
        options.control = toHostPort(parser.value(controlName));
        if (!options.control) {
            return badAddress(controlName, parser.value(controlName));
        }
    }
    bool isNumber = false;
    options.seed = parser.value(seedName).toULongLong(&isNumber);
    if (!isNumber) {
        return error(QStringLiteral("--seed=%1 is no whole number of 0 or above")
                         .arg(parser.value(seedName)));
    }
    options.world = parser.value(worldName);
    options.record = parser.value(recordName);
    for (const QString& name : {QString(worldName), QString(recordName)}) {
        if (parser.isSet(name) && parser.value(name).isEmpty()) {
            return error(QStringLiteral("--%1 is empty").arg(name));
        }
    }
    return {options, {}, false};
}

} // namespace kor::veltrano::sim
