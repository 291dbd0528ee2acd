// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/Corpus.h"
#include "lyrics/Growth.h"

#include <cstddef>

/// The model's costs as ratios to yardsticks of the same run. Figures of one machine mean little; the ratios
/// hold on most.
namespace model {

/// \param growth  is told what each operation took; null for nobody
void printRatios(std::size_t lines, corpus::Times times, Growth *growth);
void printMemory(std::size_t lines, corpus::Times times);

} // namespace model
