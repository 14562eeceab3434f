// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>

namespace korvel {

class QBFFTGuitar;

/// The transformed spectrum of up to 16384 samples; a shorter block ends in silence.
std::shared_ptr<QBFFTGuitar> spectrumOf(std::span<const std::int16_t> samples,
                                        std::int64_t timestamp);

}  // namespace korvel
