#include "daemon/Instances.h"

#include "access/AccessManager.h"
#include "config/ConfigFile.h"
#include "daemon/MyLogHandler.h"
#include "http/Listener.h"
#include "http/handler.h"
#include "network/EthConfigure.h"
#include "network/WlanConfigure.h"
#include "robot/MyAnalogInputArray.h"
#include "robot/MyBumper.h"
#include "robot/MyCamera.h"
#include "robot/MyCharger.h"
#include "robot/MyCom.h"
#include "robot/MyControllerInfo.h"
#include "robot/MyDigitalInputArray.h"
#include "robot/MyDigitalOutputArray.h"
#include "robot/MyDistanceSensorArray.h"
#include "robot/MyFestoolCharger.h"
#include "robot/MyLaserRangeFinder.h"
#include "robot/MyOdometry.h"
#include "robot/MyOmniDrive.h"
#include "robot/MyPowerManagement.h"
#include "robot/MyRelayArray.h"

#include <QCoreApplication>

#include <utility>

namespace kor::veltrano::daemons {

// These two stand together because static destruction runs backwards: the handler and what belongs
// to it go first, and still find the settings.
ConfigFile settings;
std::unique_ptr<handler> listenerHandler;

namespace {

// Cleared first: nobody may find an object that is being deleted.
template<typename Object>
void deleteAndClear(Object*& pointer)
{
    delete std::exchange(pointer, nullptr);
}

void connectToRobot()
{
    com = new MyCom;
    com->setAutoReconnectEnabled(true);
    com->setAddress(settings.value(QStringLiteral("Network/veltrano")).toLatin1().constData());
    com->connectToServer(false);
}

void buildDevices()
{
    camera = new MyCamera;
    bumper = new MyBumper;
    festoolCharger = new MyFestoolCharger;
    wlanConfigure = new WlanConfigure;
    ethConfigure = new EthConfigure;
    omniDrive = new MyOmniDrive;
    powerManagement = new MyPowerManagement;
    charger0 = new MyCharger(0);
    charger1 = new MyCharger(1);
    controllerInfo = new MyControllerInfo;
    analogInputArray = new MyAnalogInputArray;
    digitalInputArray = new MyDigitalInputArray;
    digitalOutputArray = new MyDigitalOutputArray;
    relayArray = new MyRelayArray;
    laserRangeFinder = new MyLaserRangeFinder;
    distanceSensorArray = new MyDistanceSensorArray;
    odometry = new MyOdometry;
}

void takeDownDevices()
{
    deleteAndClear(odometry);
    deleteAndClear(distanceSensorArray);
    deleteAndClear(laserRangeFinder);
    deleteAndClear(analogInputArray);
    deleteAndClear(digitalInputArray);
    deleteAndClear(digitalOutputArray);
    deleteAndClear(relayArray);
    deleteAndClear(controllerInfo);
    deleteAndClear(charger0);
    deleteAndClear(charger1);
    deleteAndClear(powerManagement);
    deleteAndClear(omniDrive);
    // No request comes in any more that could follow these two pointers.
    delete ethConfigure;
    delete wlanConfigure;
    deleteAndClear(festoolCharger);
    deleteAndClear(bumper);
    deleteAndClear(camera);
    deleteAndClear(com);
}

// What other threads have logged until now still waits in the event queue.
void takeDownLog()
{
    QCoreApplication::sendPostedEvents(logHandler, Log::LogEvent::eventType);
    deleteAndClear(logHandler);
}

} // namespace

void buildInstances(const CommandLine& commandLine)
{
    logHandler = new MyLogHandler(QStringLiteral("tessarad_log.txt"), commandLine.verbosity,
                                  commandLine.isDaemon);
    accessManager = new AccessManager;
    connectToRobot();
    buildDevices();
}

void takeDownInstances()
{
    refuseRequests();
    takeDownDevices();
    closeListener();
    deleteAndClear(accessManager);
    takeDownLog();
}

} // namespace kor::veltrano::daemons
