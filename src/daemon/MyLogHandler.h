// MyLogHandler: the log that the daemon really creates; a place for what a program adds to Log.
#pragma once

#include "daemon/Log.h"

namespace kor::veltrano::daemons {

class MyLogHandler : public Log
{
public:
    using Log::Log;
    ~MyLogHandler() override;
};

// Built and deleted by main; points to the same object as Log::instance.
extern MyLogHandler* logHandler;

} // namespace kor::veltrano::daemons
