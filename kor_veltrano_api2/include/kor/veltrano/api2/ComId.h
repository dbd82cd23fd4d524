// ComId: the handle of a connection to the robot's RPC server.
//
// A plain value. ComId::null() stands for no connection: a device that is bound to it is detached.
// Handles are equal when their numbers are.
#pragma once

namespace kor::veltrano::api2 {

class ComId
{
public:
    ComId() = default;
    explicit ComId(int number) : handle(number) { }

    static ComId null() { return ComId(); }

    int number() const { return handle; }

    friend bool operator==(ComId a, ComId b) { return a.handle == b.handle; }
    friend bool operator!=(ComId a, ComId b) { return a.handle != b.handle; }

private:
    int handle = 0;
};

} // namespace kor::veltrano::api2
