#include "access/WriteRows.h"

#include "access/AccessManager.h"
#include "config/ConfigWrite.h"
#include "config/DaemonRestart.h"
#include "network/EthConfigure.h"
#include "network/WlanConfigure.h"
#include "programs/ProgramStore.h"
#include "programs/ProgramUpload.h"
#include "programs/ServiceControl.h"
#include "robot/MyDigitalOutputArray.h"
#include "robot/MyOmniDrive.h"
#include "robot/MyRelayArray.h"

namespace kor::veltrano::daemons {

namespace {

using Body = const QByteArray&;
using Result = QByteArray&;

} // namespace

const std::vector<WriteRow>& writeRows()
{
    // clang-format off
    static const std::vector<WriteRow> rows = {
        {"/data/login", Access::Anyone, [](const Request& request, Body body, Result result) { return accessManager->setData(body, request.parameters, result); }},
        {"/data/config", Access::ExactlyAdmin, [](const Request&, Body body, Result result) { return writeConfigData(body, result); }},
        {"/data/restartdaemons", Access::ExactlyAdmin, [](const Request&, Body body, Result result) { return restartDaemons(body, result); }},
        {"/data/renameprogram", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return renamePrograms(body); }},
        {"/data/startStopProgram", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return startStopProgram(body); }},
        {"/data/remove", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return removeProgram(body); }},
        {"/data/ethconfig", Access::ExactlyAdmin, [](const Request&, Body body, Result) { return writeEthConfigData(body); }},
        {"/data/wlanconfig", Access::ExactlyAdmin, [](const Request&, Body body, Result) { return writeWlanConfigData(body); }},
        {"/data/omnidrive", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return omniDrive->armAndSetData(body); }},
        {"/data/digitaloutputarray", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return digitalOutputArray->setData(body); }},
        {"/data/relayarray", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return relayArray->setData(body); }},
        {"/data/startService", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return startService(body); }},
        {"/data/stopService", Access::OperatorOrHigher, [](const Request&, Body body, Result) { return stopService(body); }},
        {"/data/activateService", Access::ExactlyAdmin, [](const Request&, Body body, Result) { return activateService(body); }},
        {"/data/deactivateService", Access::ExactlyAdmin, [](const Request&, Body body, Result) { return deactivateService(body); }},
        {"/data/uploadProgram", Access::OperatorOrHigher, [](const Request&, Body body, Result result) { return uploadProgram(body, result); }},
    };
    // clang-format on
    return rows;
}

std::optional<bool> applyWrite(const Request& request, const QByteArray& body, QByteArray& result)
{
    for (const WriteRow& row : writeRows()) {
        if (request.path == QLatin1String(row.path) && request.isGranted(row.access)) {
            return row.target(request, body, result);
        }
    }
    return std::nullopt;
}

} // namespace kor::veltrano::daemons
