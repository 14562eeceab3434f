// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace korvel {

/// How an import hears a recording.
enum class ImportDetection : std::uint8_t {
  classic,  ///< Block by block, each tone confirmed by the instrument's spectra.
  precise,  ///< As a whole, note by note, fingered as a hand would play it.
};

}  // namespace korvel
