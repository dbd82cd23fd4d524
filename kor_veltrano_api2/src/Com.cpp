#include "kor/veltrano/api2/Com.h"

#include "Delivery.h"
#include "Library.h"

namespace kor::veltrano::api2 {

namespace {

// A process that ends without shutdown() must not tear down the ground under a running thread.
struct ThreadEnder {
    ~ThreadEnder() { detail::library().link.shutdownForGood(); }
};

} // namespace

Com::Com() : comId(detail::library().link.addCom())
{
    detail::library().roster.add(this);
}

Com::~Com()
{
    detail::library().roster.remove(this);
    detail::library().link.removeCom(comId.number());
}

void Com::errorEvent(const char*) { }

void Com::connectedEvent() { }

void Com::disconnectedEvent() { }

void Com::logEvent(const char*, int) { }

void Com::setAddress(const char* address)
{
    detail::library().link.setAddress(comId.number(), address != nullptr ? address : "");
}

void Com::setAutoReconnectEnabled(bool enable)
{
    detail::library().link.setAutoReconnectEnabled(comId.number(), enable);
}

void Com::connectToServer(bool isBlocking)
{
    static const ThreadEnder atExit;
    detail::library().link.connectToServer(comId.number(), isBlocking);
}

ComId Com::id() const
{
    return comId;
}

void Com::processEvents()
{
    detail::Delivery::run(detail::library());
}

} // namespace kor::veltrano::api2
