// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/SongFiles.h"

#include <algorithm>
#include <cctype>

#include "export/MidiFile.h"
#include "export/SongMidi.h"
#include "export/score/SongScore.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "platform/files/Files.h"
#include "tab/text/SongDrawing.h"
#include "workflow/exporting/ScoreFile.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

/// Bytes; file systems take 255 with the ending and a number.
constexpr std::size_t kLongestName = 200;

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::string shortened(std::string name) {
  if (name.size() <= kLongestName) return name;
  std::size_t end = kLongestName;
  while (end > 0 && isContinuation(name[end])) --end;
  return name.substr(0, end);
}

}  // namespace

std::string_view extensionOf(SongFormat format) {
  if (format == SongFormat::musicXml) return ".musicxml";
  if (format == SongFormat::compressedMusicXml) return ".mxl";
  if (format == SongFormat::guitarPro5) return ".gp5";
  if (format == SongFormat::guitarPro7) return ".gp";
  if (format == SongFormat::alphaTex) return ".alphatex";
  if (format == SongFormat::abc) return ".abc";
  return format == SongFormat::midi ? ".mid" : ".txt";
}

std::string fileNameOf(const std::string& title) {
  std::string name = shortened(title);
  const auto isForbidden = [](char c) {
    return c == '/' || std::iscntrl(static_cast<unsigned char>(c));
  };
  std::ranges::replace_if(name, isForbidden, '_');
  return name.empty() || name.starts_with('.') ? "_" + name : name;
}

std::string songFile(QBSong& song, SongFormat format, const std::optional<Meter>& meter) {
  if (song.allChords().empty())
    throw EditRefused(
        platform::phrase("Message", "%1: the song has no chords, so there is nothing to export"),
        song.title());
  if (format == SongFormat::musicXml) return musicXmlOf(scoreOf(song, meter));
  if (format == SongFormat::compressedMusicXml) return compressedMusicXmlOf(scoreOf(song, meter));
  if (format == SongFormat::guitarPro5) return guitarPro5Of(scoreOf(song, meter));
  if (format == SongFormat::guitarPro7) return guitarPro7Of(scoreOf(song, meter));
  if (format == SongFormat::alphaTex) return alphaTexOf(scoreOf(song, meter));
  if (format == SongFormat::abc) return abcOf(scoreOf(song, meter));
  if (format == SongFormat::midi) return midiFile(midiOf(song, meter));
  return toStringForExport(song);
}

void exportSong(QBSong& song, SongFormat format, const fs::path& file,
                const std::optional<Meter>& meter) {
  platform::writeAtomically(file, songFile(song, format, meter));
  QBSession::session().addToLog(platform::UserText::verbatim(file.string()));
}

}  // namespace korvel
