// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/RecordingTags.h"

#include "platform/media/MediaAsset.h"
#include "platform/text/Utf8.h"

namespace korvel {
namespace {

std::optional<std::string> named(const std::string& tag) {
  const std::string line = platform::printable(tag);
  const std::size_t first = line.find_first_not_of(' ');
  if (first == std::string::npos) return std::nullopt;
  return line.substr(first, line.find_last_not_of(' ') + 1 - first);
}

}  // namespace

RecordingTags::RecordingTags(const std::string& file) {
  const platform::MediaAsset asset(file);
  title = named(asset.title());
  artist = named(asset.artist());
}

}  // namespace korvel
