// Noise that is the same for the same seed on every machine. Free functions.
//
// Each number belongs to a seed and an index and is drawn without those before it, so that who
// listens to a device, and when, changes nothing for the others.
#pragma once

#include <QtGlobal>

namespace kor::veltrano::sim {

// A number from 0 up to, but without, 1.
double scattered(quint64 seed, quint64 index);
// A number of the normal distribution around 0 with a standard deviation of 1, at most 9 away.
double scatteredNormally(quint64 seed, quint64 index);

} // namespace kor::veltrano::sim
