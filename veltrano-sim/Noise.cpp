#include "Noise.h"

#include <cmath>

namespace kor::veltrano::sim {

double scattered(quint64 seed, quint64 index)
{
    quint64 bits = seed + (index + 1) * Q_UINT64_C(0x9e3779b97f4a7c15);
    bits = (bits ^ (bits >> 30)) * Q_UINT64_C(0xbf58476d1ce4e5b9);
    bits = (bits ^ (bits >> 27)) * Q_UINT64_C(0x94d049bb133111eb);
    bits ^= bits >> 31;
    return static_cast<double>(bits >> 11) * 0x1p-53;
}

double scatteredNormally(quint64 seed, quint64 index)
{
    // The logarithm's argument is above 0.
    const double radius = std::sqrt(-2 * std::log(1 - scattered(seed, 2 * index)));
    return radius * std::cos(2 * M_PI * scattered(seed, 2 * index + 1));
}

} // namespace kor::veltrano::sim
