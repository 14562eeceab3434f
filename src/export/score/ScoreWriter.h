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
/// tablature, chord names where they change, every bar filled exactly.
class ScoreWriter {
 public:
  explicit ScoreWriter(const Score& score);
  ScoreWriter(const ScoreWriter&) = delete;
  ScoreWriter& operator=(const ScoreWriter&) = delete;
  ~ScoreWriter();

  /// The whole document in UTF-8; to be called once.
  std::string write();

 private:
  // These write the parts of the document, from the outside to the inside, in the order of the
  // format.
  void writeHead();
  void writePartList();
  void writeBar(const WrittenBar& bar);
  void writeAttributes(const Meter& meter);
  void writeStaff();
  void writeTempo();
  void writeHarmony(const ScoreEvent& event);
  void writeSign(const ScoreNote& note);
  void writeNote(const ScoreNote& note, const ScoreTone* tone, bool first);
  /// One for each end at which the sign is tied to another.
  void writeTies(const char* name, const ScoreNote& note);
  void writePitch(const SpelledNote& pitch);
  void writeValue(const ScoreNote& note);
  void writeNotations(const ScoreNote& note, const ScoreTone& tone);

  const Score& m_score;
  std::unique_ptr<platform::XmlWriter> m_xml;
  int m_bar = 0;
  std::optional<Meter> m_meter;           ///< The one that was written last.
  std::optional<ScoreHarmony> m_harmony;  ///< Likewise.
};

}  // namespace korvel
