// The bodies that switch outputs and relays: JSON arrays of one entry an output.
#pragma once

#include <QByteArray>
#include <QJsonValue>

#include <functional>

namespace kor::veltrano::daemons {

// True for true, a number above 0, and the words "true" and "yes" in any case; false for all else.
bool jsonToBool(const QJsonValue& value);

// What an array of outputs expects.
struct SwitchFormat {
    int count;
    // How the error message names that count.
    const char* countText;
};

// Takes the body apart and hands format.count integers of 0 or 1 to setValues. A body that is no
// JSON is logged and gives true, an array of another length is logged and gives false; neither
// calls setValues. An object counts as an empty array. Any thread.
bool applySwitches(const QByteArray& body, const SwitchFormat& format,
                   const std::function<void(const int* values, unsigned int count)>& setValues);

} // namespace kor::veltrano::daemons
