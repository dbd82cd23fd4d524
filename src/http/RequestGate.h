// RequestGate: keeps requests away from objects that are being taken down.
//
// A request holds a pass while it may touch the daemon's objects. main closes the gate before it
// deletes the first of them: requests inside are waited for, later ones get no pass.
#pragma once

#include <condition_variable>
#include <mutex>

namespace kor::veltrano::daemons {

class RequestGate
{
public:
    // Leave to touch the daemon's objects for as long as it lives; false where there is none.
    class Pass
    {
    public:
        explicit Pass(RequestGate& gate);
        ~Pass();
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

        explicit operator bool() const { return isGranted; }

    private:
        RequestGate& owner;
        bool isGranted = false;
    };

    // Gives no more passes and returns when the last one is gone. Main thread.
    void close();

private:
    std::mutex mutex;
    std::condition_variable left;
    int inside = 0;
    bool isClosed = false;
};

} // namespace kor::veltrano::daemons
