#include "access/ReadRows.h"

#include "access/AccessManager.h"
#include "config/ConfigTree.h"
#include "network/EthConfigure.h"
#include "network/WlanConfigure.h"
#include "programs/ProgramStore.h"
#include "programs/ServiceControl.h"
#include "programs/ServiceList.h"
#include "robot/MyAnalogInputArray.h"
#include "robot/MyBumper.h"
#include "robot/MyCharger.h"
#include "robot/MyControllerInfo.h"
#include "robot/MyDigitalInputArray.h"
#include "robot/MyDistanceSensorArray.h"
#include "robot/MyFestoolCharger.h"
#include "robot/MyLaserRangeFinder.h"
#include "robot/MyOdometry.h"
#include "robot/MyPowerManagement.h"
#include "support/Json.h"

namespace kor::veltrano::daemons {

namespace {

QByteArray createUserRoleData(const QString& sid)
{
    return renderJson(QJsonObject{{QStringLiteral("role"), roleName(accessManager->role(sid))}});
}

// Every occurrence goes, not only the leading one.
QString serviceName(const QString& path)
{
    return QString(path).remove(QStringLiteral("/data/servicestatus/"));
}

bool matches(const QString& path, QLatin1String rowPath)
{
    return rowPath.endsWith(QLatin1Char('/')) ? path.startsWith(rowPath) : path == rowPath;
}

} // namespace

const std::vector<ReadRow>& readRows()
{
    // clang-format off
    static const std::vector<ReadRow> rows = {
        {"/data/config", Access::ExactlyAdmin, [](const Request&) { return createConfigData(); }},
        {"/data/program", Access::Anyone, [](const Request&) { return programList(); }},
        {"/data/globalvars", Access::Anyone, [](const Request&) { return globalVarList(); }},
        {"/data/lumviewout", Access::Anyone, [](const Request&) { return programOutputList(); }},
        {"/data/ethinfo", Access::Anyone, [](const Request&) { return createEthInfoData(); }},
        {"/data/wlaninfo", Access::Anyone, [](const Request&) { return createWlanInfoData(); }},
        {"/data/ethconfig", Access::Anyone, [](const Request&) { return createEthConfigData(); }},
        {"/data/ethconfigresult", Access::Anyone, [](const Request&) { return ethConfigure->resultData(); }},
        {"/data/wlanconfig", Access::OperatorOrHigher, [](const Request&) { return createWlanConfigData(); }},
        {"/data/wlanconfigresult", Access::Anyone, [](const Request&) { return wlanConfigure->resultData(); }},
        {"/data/wlanhwfound", Access::Anyone, [](const Request&) { return createWlanHardwareData(); }},
        {"/data/festoolcharger", Access::Anyone, [](const Request&) { return festoolCharger->data(); }},
        {"/data/powermanagement", Access::Anyone, [](const Request&) { return powerManagement->data(); }},
        {"/data/charger0", Access::Anyone, [](const Request&) { return charger0->data(); }},
        {"/data/charger1", Access::Anyone, [](const Request&) { return charger1->data(); }},
        {"/data/controllerinfo", Access::Anyone, [](const Request&) { return controllerInfo->data(); }},
        {"/data/services", Access::Anyone, [](const Request&) { return createServiceData(); }},
        {"/data/servicestatus/", Access::Anyone, [](const Request& request) { return createServiceStatusData(serviceName(request.path)); }},
        {"/data/analoginputarray", Access::Anyone, [](const Request&) { return createAnalogInputArrayData(); }},
        {"/data/digitalinputarray", Access::Anyone, [](const Request&) { return createDigitalInputArrayData(); }},
        {"/data/distancesensorarray", Access::Anyone, [](const Request&) { return createDistanceSensorArrayData(); }},
        {"/data/scan0", Access::Anyone, [](const Request&) { return MyLaserRangeFinder::acquire()->data(); }},
        {"/data/bumper", Access::Anyone, [](const Request&) { return createBumperData(); }},
        {"/data/odometry", Access::Anyone, [](const Request&) { return odometry->data(); }},
        {"/data/userrole", Access::Anyone, [](const Request& request) { return createUserRoleData(request.sid()); }},
    };
    // clang-format on
    return rows;
}

std::optional<QByteArray> answerRead(const Request& request)
{
    for (const ReadRow& row : readRows()) {
        if (matches(request.path, QLatin1String(row.path)) && request.isGranted(row.access)) {
            return row.answer(request);
        }
    }
    return std::nullopt;
}

} // namespace kor::veltrano::daemons
