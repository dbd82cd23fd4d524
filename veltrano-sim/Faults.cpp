#include "Faults.h"

namespace kor::veltrano::sim {

QJsonObject Faults::show() const
{
    return {{QStringLiteral("delayMs"), delayMs},
            {QStringLiteral("loseProbability"), loseProbability},
            {QStringLiteral("isMuted"), isMuted},
            {QStringLiteral("protocol"), protocol}};
}

bool Faults::losesEvent()
{
    if (loseProbability <= 0) {
        return false;
    }
    // The top 53 bits as a number below 1, so that a probability of 1 loses everything.
    return static_cast<double>(random() >> 11) * 0x1p-53 < loseProbability;
}

} // namespace kor::veltrano::sim
