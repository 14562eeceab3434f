// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

/// A tone of a song as it is: the index of its chord in `allChords`, and its string, 0 the
/// lowest.
struct ToneIndex {
  int chord;
  int string;
  bool operator==(const ToneIndex&) const = default;
};

}  // namespace korvel
