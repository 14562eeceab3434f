// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "export/score/Score.h"

namespace korvel::platform {
class XmlWriter;
}

namespace korvel {

struct ScoreNote;
struct SpelledNote;
struct WrittenBar;

/// Writes a score as a MusicXML 4.0 partwise document that notation programs read: one staff of
/// tablature, chord names where they change, every bar filled exactly. The rests of a lower voice
/// are there, but not printed.
class ScoreWriter {
 public:
  explicit ScoreWriter(const Score& score);
  ScoreWriter(const ScoreWriter&) = delete;
  ScoreWriter& operator=(const ScoreWriter&) = delete;
  ~ScoreWriter();

  /// The whole document in UTF-8; to be called once.
  std::string write();

 private:
  /// The first one is written above, the second one below.
  enum class Voice { upper = 1, lower = 2 };

  // These write the parts of the document, from the outside to the inside, in the order of the
  // format.
  void writeHead();
  void writePartList();
  void writePart();
  void writeBar(const WrittenBar& bar);
  void writeAttributes(const Meter& meter);
  void writeKey();
  void writeStaff();
  void writeTempo(double tempo);
  /// A tempo that is played, but not printed.
  void writeTempoChange(double tempo);
  void writeSound(double tempo);
  void writeSwing();
  void writeLower(const WrittenBar& bar);
  void writeHarmony(const ScoreEvent& event);
  void writeSign(const ScoreNote& note);
  void writeNote(const ScoreNote& note, const ScoreTone* tone, bool first);
  /// One for each end at which the tone of the sign is tied to another.
  void writeTies(const char* name, const ScoreNote& note, const ScoreTone& tone);
  void writePitch(const SpelledNote& pitch);
  void writeValue(const ScoreNote& note);
  void writeNotations(const ScoreNote& note, const ScoreTone* tone, bool first);
  void writeTriplet(const char* type);
  /// The words that begin before an event ends that is struck, and those of rests before it.
  void writeWords(const ScoreNote& note, const ScoreTone& tone);
  SpelledNote spelledIn(int pitch, const std::optional<ScoreHarmony>& harmony) const;

  const Score& m_score;
  std::unique_ptr<platform::XmlWriter> m_xml;
  int m_unitsOfDivision = 1;
  int m_bar = 0;
  int m_beginOfBar = 0;     ///< In units from the first bar line.
  int m_unit = 0;           ///< Where the sign begins that is written.
  std::size_t m_words = 0;  ///< Of the score's, which were written.
  bool m_isInWord = false;  ///< The last syllable ended with a hyphen.
  Voice m_voice = Voice::upper;
  std::optional<Meter> m_meter;           ///< The one that was written last.
  std::optional<ScoreHarmony> m_harmony;  ///< Likewise.
};

}  // namespace korvel
