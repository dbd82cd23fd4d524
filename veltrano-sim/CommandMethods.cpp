#include "CommandMethods.h"

#include "CommandLog.h"
#include "ControlMethods.h"

namespace kor::veltrano::sim {

namespace {

// The largest whole number up to which JSON counts exactly.
constexpr qint64 largestIndex = Q_INT64_C(1) << 53;

ControlReply list(Params& params, const CommandLog& log)
{
    const qint64 since = params.integer(QStringLiteral("since"), 0, largestIndex, 0);
    if (!params.error().isEmpty()) {
        return ControlMethods::badParams(params.error());
    }
    return ControlReply::ok(log.list(since));
}

ControlReply clear(Params& params, CommandLog& log)
{
    if (!params.error().isEmpty()) {
        return ControlMethods::badParams(params.error());
    }
    log.clear();
    return ControlReply::ok();
}

} // namespace

void addCommandMethods(ControlMethods& methods, CommandLog& log)
{
    methods.add(QStringLiteral("commands.list"),
                [&log](Params& params) { return list(params, log); });
    methods.add(QStringLiteral("commands.clear"),
                [&log](Params& params) { return clear(params, log); });
}

} // namespace kor::veltrano::sim
