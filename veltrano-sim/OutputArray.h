// OutputArray: outputs that a client sets to 0 or 1, all at once: the digital outputs or the
// relays. They have no events: a client that has set them knows them.
#pragma once

#include "Device.h"

#include <vector>

namespace kor::veltrano::sim {

class OutputArray : public Device
{
public:
    // key is the member of the state, method the command that sets the count outputs.
    OutputArray(const QString& key, const QString& method, int count);

    // Each 0 or 1; all 0 at first.
    const std::vector<int>& values() const { return current; }

    bool command(const QString& method, const QJsonObject& params) override;
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;

private:
    const QString setMethod;
    std::vector<int> current;
};

} // namespace kor::veltrano::sim
