// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/UserError.h"

namespace korvel {

/// A std::out_of_range: what needs the chords of a song was asked of one without any.
class NoChords final : public platform::WordedAs<std::out_of_range> {
 public:
  NoChords() : WordedAs(platform::phrase("Message", "the song has no chords")) {}
};

}  // namespace korvel
