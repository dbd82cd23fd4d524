#include "EventParser.h"

#include "Params.h"

#include <QLatin1String>

#include <array>

namespace kor::veltrano::api2::detail {

namespace {

Event analogValues(Params& params)
{
    return AnalogValues{params.realArray<analogInputCount>(QStringLiteral("values"))};
}

Event digitalValues(Params& params)
{
    return DigitalValues{params.integerArray<digitalInputCount>(QStringLiteral("values"))};
}

Event distances(Params& params)
{
    return Distances{params.realArray<distanceSensorCount>(QStringLiteral("values"))};
}

Event distanceVoltages(Params& params)
{
    return DistanceVoltages{params.realArray<distanceSensorCount>(QStringLiteral("values"))};
}

Event bumperState(Params& params)
{
    return BumperState{params.boolean(QStringLiteral("value"))};
}

Event odometryReadings(Params& params)
{
    return OdometryReadings{
        params.number(QStringLiteral("x")),        params.number(QStringLiteral("y")),
        params.number(QStringLiteral("phi")),      params.real(QStringLiteral("vx")),
        params.real(QStringLiteral("vy")),         params.real(QStringLiteral("omega")),
        params.integer(QStringLiteral("sequence"))};
}

Event powerReadings(Params& params)
{
    return PowerReadings{params.real(QStringLiteral("voltage")),
                         params.real(QStringLiteral("current")),
                         params.boolean(QStringLiteral("ext_power")),
                         params.integer(QStringLiteral("num_chargers")),
                         params.text(QStringLiteral("batteryType")),
                         params.boolean(QStringLiteral("batteryLow")),
                         params.integer(QStringLiteral("batteryLowShutdownCounter"))};
}

int chargerNumber(Params& params)
{
    const int number = params.integer(QStringLiteral("chargerNumber"));
    if (number < 0 || number >= chargerCount) {
        params.reject();
    }
    return number;
}

Event chargerInfo(Params& params)
{
    return ChargerInfo{chargerNumber(params),
                       params.natural(QStringLiteral("time")),
                       params.real(QStringLiteral("batteryVoltage")),
                       params.real(QStringLiteral("chargingCurrent")),
                       params.real(QStringLiteral("bat1temp")),
                       params.real(QStringLiteral("bat2temp")),
                       params.integer(QStringLiteral("state_number")),
                       params.text(QStringLiteral("state"))};
}

Event chargerVersion(Params& params)
{
    return ChargerVersion{chargerNumber(params), params.integer(QStringLiteral("major")),
                          params.integer(QStringLiteral("minor")),
                          params.integer(QStringLiteral("patch"))};
}

Event chargerError(Params& params)
{
    return ChargerError{chargerNumber(params), params.natural(QStringLiteral("time")),
                        params.text(QStringLiteral("message"))};
}

Event controllerRecord(Params& params)
{
    return ControllerRecord{params.base64(QStringLiteral("data")).toStdString()};
}

Event festoolRecord(Params& params)
{
    return FestoolRecord{params.base64(QStringLiteral("data")).toStdString()};
}

Event cameraImage(Params& params)
{
    const std::string format = params.text(QStringLiteral("format"));
    if (format != "jpeg" && format != "raw") {
        params.reject();
    }
    return CameraImage{format == "jpeg", params.natural(QStringLiteral("width")),
                       params.natural(QStringLiteral("height")),
                       params.natural(QStringLiteral("step")),
                       std::make_shared<const QByteArray>(params.base64(QStringLiteral("data")))};
}

Event scan(Params& params)
{
    LaserRangeFinderReadings readings;
    readings.seq = params.integer(QStringLiteral("seq"));
    readings.stamp = params.integer(QStringLiteral("stamp"));
    readings.angle_min = params.real(QStringLiteral("angle_min"));
    readings.angle_max = params.real(QStringLiteral("angle_max"));
    readings.angle_increment = params.real(QStringLiteral("angle_increment"));
    readings.time_increment = params.real(QStringLiteral("time_increment"));
    readings.scan_time = params.real(QStringLiteral("scan_time"));
    readings.range_min = params.real(QStringLiteral("range_min"));
    readings.range_max = params.real(QStringLiteral("range_max"));
    readings.ranges = params.reals(QStringLiteral("ranges"));
    readings.intensities = params.reals(QStringLiteral("intensities"));
    return Scan{std::make_shared<const LaserRangeFinderReadings>(std::move(readings))};
}

struct Row {
    const char* method;
    Event (*parse)(Params& params);
};

// A plain array needs no destruction, so the socket's thread may use it to the process's end.
constexpr std::array rows{
    Row{"analogInputArray.valuesChanged", analogValues},
    Row{"digitalInputArray.valuesChanged", digitalValues},
    Row{"distanceSensorArray.distancesChanged", distances},
    Row{"distanceSensorArray.voltagesChanged", distanceVoltages},
    Row{"bumper.changed", bumperState},
    Row{"odometry.readings", odometryReadings},
    Row{"powerManagement.readings", powerReadings},
    Row{"charger.infoChanged", chargerInfo},
    Row{"charger.versionChanged", chargerVersion},
    Row{"charger.errorChanged", chargerError},
    Row{"controllerInfo.infoChanged", controllerRecord},
    Row{"festoolCharger.infoChanged", festoolRecord},
    Row{"camera.imageReceived", cameraImage},
    Row{"laserRangeFinder.scan", scan},
};

} // namespace

std::optional<Event> parseEvent(const QString& method, const QJsonObject& members)
{
    for (const Row& row : rows) {
        if (method == QLatin1String(row.method)) {
            Params params(members);
            Event event = row.parse(params);
            return params.isFit() ? std::optional<Event>(std::move(event)) : std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace kor::veltrano::api2::detail
