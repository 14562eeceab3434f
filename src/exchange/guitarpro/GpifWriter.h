// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "exchange/guitarpro/ScoreNames.h"
#include "export/score/NoteValues.h"
#include "export/score/Score.h"

namespace korvel::platform {
class XmlWriter;
}

namespace korvel::exchange::guitarpro {

/// Writes a score as the XML of version 7, "score.gpif": one track with bars as they are, a
/// pick-up, ties, triplets, two voices, names of chords, tempi.
class GpifWriter {
 public:
  /// The score must outlive this.
  explicit GpifWriter(const Score& score);
  GpifWriter(const GpifWriter&) = delete;
  GpifWriter& operator=(const GpifWriter&) = delete;
  ~GpifWriter();

  /// The whole document in UTF-8; to be called once.
  std::string write();

 private:
  /// What lengths are written with: a sign, its dot, and whether it is in a triplet.
  using Rhythm = std::tuple<std::string, bool, bool>;
  struct Head {
    const ScoreTone* tone;
    bool isTiedBefore;
    bool isTiedOn;
  };
  struct Beat {
    std::size_t rhythm;
    std::optional<std::size_t> chord;
    std::vector<Head> heads;
  };
  struct Diagram {
    std::string name;
    const ScoreEvent* event;  ///< The first one that it stands above.
  };
  using Voice = std::vector<Beat>;
  using Bar = std::vector<Voice>;

  // These gather what the lists of the document hold.
  void gather(const WrittenBar& bar);
  Voice voiceOf(const std::vector<ScoreNote>& notes, bool isUpper);
  std::size_t rhythmOf(const ScoreNote& note);
  std::size_t diagramOf(const std::string& name, const ScoreEvent& event);

  // These write the parts of the document, from the outside to the inside.
  void writeHead();
  void writeMasterTrack(const std::vector<WrittenBar>& bars);
  void writeTempo(std::size_t bar, double tempo);
  void writeTrack();
  void writeSound();
  void writeStaff();
  void writeDiagrams();
  void writeDiagram(std::size_t id, const Diagram& diagram);
  void writeMasterBars(const std::vector<WrittenBar>& bars);
  void writeBars();
  void writeVoices();
  void writeBeats();
  void writeNotes();
  void writeNote(std::size_t id, const Head& head);
  void writePitch(const char* name, int pitch);
  void writeRhythms();
  void writeNumber(const char* property, const char* element, int number);

  const Score& m_score;
  std::unique_ptr<platform::XmlWriter> m_xml;
  ScoreNames m_names;
  std::vector<Bar> m_bars;
  std::vector<Diagram> m_diagrams;
  std::vector<Rhythm> m_rhythms;
};

}  // namespace korvel::exchange::guitarpro
