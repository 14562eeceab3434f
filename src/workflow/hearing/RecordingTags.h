// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace korvel {

/// What the tags of a recording call it; none for a tag that is missing or blank. In one line, as a
/// line break in a title would shift the rows of a tablature.
struct RecordingTags {
  /// Of a file that cannot be read as media there are none.
  explicit RecordingTags(const std::string& file);

  std::optional<std::string> title;
  std::optional<std::string> artist;
};

}  // namespace korvel
