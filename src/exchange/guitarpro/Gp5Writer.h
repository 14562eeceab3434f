// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "exchange/guitarpro/NumberedSigns.h"
#include "exchange/guitarpro/ScoreNames.h"
#include "export/score/NoteValues.h"
#include "export/score/Score.h"

namespace korvel::exchange::guitarpro {

/// Writes a score as a file of Guitar Pro 5.10: one track, bars as they are, ties, triplets, two
/// voices, names of chords, tempi in whole quarters a minute. A pick-up is a whole bar that begins
/// with rests.
class Gp5Writer {
 public:
  /// At most seven strings. The score must outlive this.
  explicit Gp5Writer(const Score& score);

  /// The whole file; to be called once.
  std::string write();

 private:
  /// What stands above the beats of a bar, by the units that they begin at.
  using NamesOfBar = std::map<int, std::string>;

  // These write the parts of the file in the order of the format.
  void writeInformation();
  void writePage();
  void writeTempo();
  void writeChannels();
  void writeBarHeads(std::span<const WrittenBar> bars);
  void writeBarHead(const WrittenBar& bar);
  void writeTrack();
  void writeBar(const WrittenBar& bar);
  void writeVoice(std::span<const ScoreNote> notes, std::optional<double> tempo,
                  const NamesOfBar& names);
  void writeBeat(const NumberedSign& beat, std::optional<double> tempo, const std::string* name);
  void writeChord(const std::string& name, const ScoreEvent& event);
  void writeMix(double tempo);
  void writeNotes(const ScoreNote& note);
  NamesOfBar namesOf(const WrittenBar& bar);

  void byte(int value) { m_out += static_cast<char>(value); }
  void bytes(std::size_t count, int value) { m_out.append(count, static_cast<char>(value)); }
  void number(int value);
  /// In a field of so many bytes behind its length.
  void text(std::string_view value, std::size_t room);
  void sizedText(std::string_view value);

  const Score& m_score;
  ScoreNames m_names;
  std::optional<Meter> m_meter;  ///< The one that was written last.
  bool m_isFirstBar = true;
  std::string m_out;
};

}  // namespace korvel::exchange::guitarpro
