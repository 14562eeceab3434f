// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/PieceText.h"

#include <sstream>

namespace korvel::test {
namespace {

double quarters(std::int64_t grains) {
  return static_cast<double>(grains) / static_cast<double>(exchange::kGrainsOfQuarter);
}

void tellLeft(std::ostream& out, const exchange::LeftCounts& all) {
  for (const auto& [what, count] : all) out << " | left " << count << ' ' << what;
}

void tellHead(std::ostream& out, const exchange::Piece& piece) {
  out << piece.title;
  if (!piece.artist.empty()) out << " by " << piece.artist;
  if (piece.key) out << " key " << piece.key->tonic << (piece.key->minor ? "m" : "");
  if (piece.swing) out << " swing " << *piece.swing;
  out << " |";
  for (const exchange::Bar& bar : piece.bars)
    out << ' ' << quarters(bar.at) << '+' << quarters(bar.length) << ' ' << bar.beats << '/'
        << bar.beatType;
  out << " |";
  for (const exchange::Tempo& tempo : piece.tempos)
    out << ' ' << quarters(tempo.at) << '=' << tempo.quartersAMinute;
  tellLeft(out, piece.left);
  out << '\n';
}

void tellTrack(std::ostream& out, const exchange::Track& track) {
  out << track.name << " p" << track.program << (track.isDrums ? " drums" : "");
  if (!track.open.empty()) {
    out << " open";
    for (const int pitch : track.open) out << ' ' << pitch;
    out << " capo " << track.capo;
  }
  out << " |";
  for (const exchange::Note& note : track.notes) {
    out << ' ' << quarters(note.at) << '+' << quarters(note.length) << ' ' << note.pitch;
    if (note.string >= 0) out << ':' << note.string << '/' << note.fret;
    if (note.velocity > 0) out << " v" << note.velocity;
  }
  if (!track.names.empty()) out << " |";
  for (const exchange::ChordName& name : track.names)
    out << ' ' << quarters(name.at) << '=' << name.text;
  tellLeft(out, track.left);
  out << '\n';
}

}  // namespace

std::string textOf(const exchange::Piece& piece) {
  std::ostringstream out;
  tellHead(out, piece);
  for (const exchange::Track& track : piece.tracks) tellTrack(out, track);
  return out.str();
}

}  // namespace korvel::test
