// Subscription: the objects that may be bound to the connection for one device's heavy data, and
// what the server has been told of it.
//
// The server sends as long as at least one object is bound to the connection that is up. A plain
// value inside the hub, which guards it and the bindings with its lock.
#pragma once

#include <QString>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace kor::veltrano::api2::detail {

struct Binding {
    // The handle of a Com, or 0 while detached.
    int com = 0;
    // What had arrived before the object was bound is none of its business.
    std::uint64_t boundAfter = 0;
};

template<class Bound>
class Subscription
{
public:
    void add(Bound* binding) { bindings.push_back(binding); }
    void remove(Bound* binding)
    {
        bindings.erase(std::remove(bindings.begin(), bindings.end(), binding), bindings.end());
    }

    // The objects bound to the given Com.
    std::vector<Bound*> boundTo(int com) const
    {
        std::vector<Bound*> result;
        std::copy_if(bindings.begin(), bindings.end(), std::back_inserter(result),
                     [com](const Bound* binding) { return com != 0 && binding->com == com; });
        return result;
    }

    // Compares what is wanted with what the server knows, com being the one whose connection is up,
    // or 0. True where the server has to be told the new wish, isSubscribed().
    bool update(int com)
    {
        const bool isWanted = !boundTo(com).empty();
        const bool isNews = isWanted != subscribed && com != 0;
        subscribed = isWanted;
        return isNews;
    }
    bool isSubscribed() const { return subscribed; }

private:
    std::vector<Bound*> bindings;
    bool subscribed = false;
};

} // namespace kor::veltrano::api2::detail
