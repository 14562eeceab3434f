// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/musicxml/CompressedMusicXml.h"

#include <array>
#include <optional>
#include <utility>

#include "exchange/musicxml/MusicXmlReader.h"
#include "platform/files/ZipArchive.h"
#include "platform/text/UserError.h"
#include "platform/text/XmlDocument.h"

namespace korvel::exchange {

namespace {

constexpr std::string_view kContainer = "META-INF/container.xml";
constexpr std::string_view kScoreName = "score.musicxml";

/// The first file that the container names is the score, others may be pictures of it.
std::string scoreNamedIn(std::string_view container) {
  const platform::XmlDocument xml(container);
  const auto first = xml.root().child("rootfiles").child("rootfile");
  return std::string(first.attribute("full-path"));
}

/// Where the container is left out, what looks like a score.
std::string scoreAmong(const std::vector<std::string>& names) {
  for (const std::string& name : names)
    if (!name.starts_with("META-INF/") && (name.ends_with(".xml") || name.ends_with(".musicxml")))
      return name;
  return {};
}

}  // namespace

Piece readCompressedMusicXml(std::string_view file) {
  platform::ZipArchive archive(file, {.bytesOfEntry = platform::XmlDocument::kMostBytes});
  const auto container = archive.read(kContainer);
  const std::string name = container ? scoreNamedIn(*container) : scoreAmong(archive.names());
  const auto score = archive.read(name);
  if (!score)
    throw platform::UserError(platform::phrase("Exchange", "there is no score in its archive"));
  return readMusicXml(*score);
}

std::string compressedMusicXml(std::string document) {
  const std::string container =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<container>\n<rootfiles>\n<rootfile "
      "full-path=\"" +
      std::string(kScoreName) +
      "\" media-type=\"application/vnd.recordare.musicxml+xml\"/>\n</rootfiles>\n</container>\n";
  // The type of the file comes first, for those who look at its first bytes only.
  const std::array<platform::ZipEntry, 3> entries{{
      {"mimetype", "application/vnd.recordare.musicxml", true},
      {std::string(kContainer), container},
      {std::string(kScoreName), std::move(document)},
  }};
  return platform::zipped(entries);
}

}  // namespace korvel::exchange
