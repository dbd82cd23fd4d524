// Events: everything the robot reports, as plain values.
//
// The socket's thread makes them of received messages; the hub keeps the last of each and queues
// them for delivery. A value's defaults are what a getter answers before the first event. Text and
// bytes are no QByteArrays, whose sharing between threads the thread sanitizer takes for a race.
#pragma once

#include "kor/veltrano/api2/LaserRangeFinderReadings.h"

#include <QByteArray>

#include <array>
#include <memory>
#include <string>
#include <variant>

namespace kor::veltrano::api2::detail {

constexpr unsigned int analogInputCount = 8;
constexpr unsigned int digitalInputCount = 8;
constexpr unsigned int distanceSensorCount = 9;
constexpr int chargerCount = 2;

struct AnalogValues {
    std::array<float, analogInputCount> volts{};
};

struct DigitalValues {
    std::array<int, digitalInputCount> values{};
};

struct Distances {
    std::array<float, distanceSensorCount> metres{};
};

struct DistanceVoltages {
    std::array<float, distanceSensorCount> volts{};
};

struct BumperState {
    bool isHit = false;
};

struct OdometryReadings {
    double x = 0;
    double y = 0;
    double phi = 0;
    float vx = 0;
    float vy = 0;
    float omega = 0;
    int sequence = 0;
};

struct PowerReadings {
    float voltage = 0;
    float current = 0;
    bool extPower = false;
    int numChargers = 0;
    std::string batteryType;
    bool batteryLow = false;
    int batteryLowShutdownCounter = 0;
};

struct ChargerInfo {
    int chargerNumber = 0;
    unsigned int time = 0;
    float batteryVoltage = 0;
    float chargingCurrent = 0;
    float bat1temp = 0;
    float bat2temp = 0;
    int stateNumber = 0;
    std::string state;
};

struct ChargerVersion {
    int chargerNumber = 0;
    int majorNumber = 0;
    int minorNumber = 0;
    int patchNumber = 0;
};

struct ChargerError {
    int chargerNumber = 0;
    unsigned int time = 0;
    std::string message;
};

struct ControllerRecord {
    std::string bytes;
};

struct FestoolRecord {
    std::string bytes;
};

// The bytes are shared by all copies, so that handing an image on costs nothing.
struct CameraImage {
    bool isJpeg = false;
    unsigned int width = 0;
    unsigned int height = 0;
    unsigned int step = 0;
    // Null only before any image.
    std::shared_ptr<const QByteArray> bytes;
};

struct Scan {
    std::shared_ptr<const LaserRangeFinderReadings> readings;
};

// The connection has come up, or has ended.
struct Connected {
};

struct Disconnected {
};

using Event =
    std::variant<AnalogValues, DigitalValues, Distances, DistanceVoltages, BumperState,
                 OdometryReadings, PowerReadings, ChargerInfo, ChargerVersion, ChargerError,
                 ControllerRecord, FestoolRecord, CameraImage, Scan, Connected, Disconnected>;

} // namespace kor::veltrano::api2::detail
