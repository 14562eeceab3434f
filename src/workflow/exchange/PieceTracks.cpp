// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceTracks.h"

#include <algorithm>
#include <charconv>

#include "exchange/Piece.h"
#include "music/Neck.h"
#include "platform/text/UserError.h"
#include "platform/text/Utf8.h"

namespace korvel {
namespace {

using exchange::Piece;
using exchange::Track;
using platform::phrase;
using platform::UserError;

bool plays(const Track& track) { return !track.notes.empty() && !track.isDrums; }
bool isPlayedGuitar(const Track& track) { return plays(track) && track.isGuitar(); }

/// How much speaks for a track that nobody asked for.
std::size_t notesToPlay(const Track& track) { return plays(track) ? track.notes.size() : 0; }

std::optional<std::size_t> ofNumber(const Piece& piece, const std::string& wish) {
  std::size_t number = 0;
  const char* end = wish.data() + wish.size();
  const auto [rest, error] = std::from_chars(wish.data(), end, number);
  if (error != std::errc() || rest != end || number < 1 || number > piece.tracks.size()) return {};
  return number - 1;
}

std::optional<std::size_t> ofName(const Piece& piece, const std::string& wish) {
  const auto found = std::ranges::find(piece.tracks, wish, &Track::name);
  if (found == piece.tracks.end()) return {};
  return static_cast<std::size_t>(found - piece.tracks.begin());
}

std::string namesOfTracks(const Piece& piece) {
  std::string names;
  for (std::size_t i = 0; i < piece.tracks.size(); ++i)
    names += (i == 0 ? "" : ", ") + numberedName(piece, i);
  return names;
}

std::size_t wishedTrack(const Piece& piece, const std::string& wish) {
  std::optional<std::size_t> track = ofNumber(piece, wish);
  if (!track) track = ofName(piece, wish);
  if (!track)
    throw UserError(phrase("Exchange", "has no track \"%1\"; it has %2"), wish,
                    namesOfTracks(piece));
  if (piece.tracks[*track].isDrums)
    throw UserError(phrase("Exchange", "track %1 is played by drums; choose another one"),
                    numberedName(piece, *track));
  if (piece.tracks[*track].notes.empty())
    throw UserError(phrase("Exchange", "track %1 has no notes; choose another one"),
                    numberedName(piece, *track));
  return *track;
}

}  // namespace

std::size_t chosenTrack(const Piece& piece, const std::optional<std::string>& wish) {
  if (wish) return wishedTrack(piece, *wish);
  auto track = std::ranges::find_if(piece.tracks, isPlayedGuitar);
  if (track == piece.tracks.end()) track = std::ranges::max_element(piece.tracks, {}, notesToPlay);
  if (track == piece.tracks.end() || !plays(*track))
    throw UserError(phrase("Exchange", "has no notes that a guitar could play"));
  return static_cast<std::size_t>(track - piece.tracks.begin());
}

std::size_t countOfGuitars(const Piece& piece) {
  return static_cast<std::size_t>(std::ranges::count_if(piece.tracks, isPlayedGuitar));
}

bool isForSixStrings(const Track& track) {
  return track.open.empty() || track.open.size() == kStrings;
}

std::string numberedName(const Piece& piece, std::size_t track) {
  const std::string name = platform::printable(piece.tracks[track].name);
  return std::to_string(track + 1) + (name.empty() ? "" : " " + name);
}

std::vector<platform::UserText> linesOfTracks(const Piece& piece) {
  std::vector<platform::UserText> lines;
  for (std::size_t i = 0; i < piece.tracks.size(); ++i) {
    const Track& track = piece.tracks[i];
    const std::string name = numberedName(piece, i);
    const std::size_t notes = track.notes.size();
    if (track.isDrums)
      lines.emplace_back(phrase("Exchange", "%1: drums"), name);
    else if (!track.open.empty())
      lines.emplace_back(phrase("Exchange", "%1: %2 strings, %3 notes"), name, track.open.size(),
                         notes);
    else
      lines.emplace_back(phrase("Exchange", "%1: %2 notes"), name, notes);
  }
  return lines;
}

}  // namespace korvel
