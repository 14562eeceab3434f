// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/plain/AlphaTexWriter.h"

#include <optional>
#include <utility>

#include "exchange/guitarpro/ScoreNames.h"
#include "exchange/plain/SignText.h"
#include "music/NoteName.h"
#include "music/Pitch.h"
#include "platform/text/Utf8.h"

namespace korvel::exchange {

namespace {

/// Writes a score from its title to the last bar of its last voice.
class TexWriter {
 public:
  explicit TexWriter(const Score& score)
      : m_score(score), m_names(score, score.capo), m_bars(writtenBars(score)) {}

  std::string write() {
    m_text = "\\title " + quoted(platform::printable(m_score.title)) + "\n\\tempo " +
             wholeBeats(m_bars.front().tempo.value_or(m_score.tempo)) + "\n.\n\\track " +
             quoted(platform::printable(m_score.instrument)) +
             "\n\\staff {tabs}\n\\instrument 25\n\\tuning " + tuning() + "\n";
    if (m_score.capo > 0) m_text += "\\capo " + std::to_string(m_score.capo) + "\n";
    const bool hasLower = hasLowerVoice(m_bars);
    if (hasLower) m_text += "\\voice\n";
    for (const WrittenBar& bar : m_bars) writeUpper(bar);
    if (hasLower) m_text += "\\voice\n";
    if (hasLower)
      for (const WrittenBar& bar : m_bars) writeLower(bar);
    return std::move(m_text);
  }

 private:
  /// The highest string first.
  std::string tuning() const {
    std::string text;
    for (auto open = m_score.openStrings.rbegin(); open != m_score.openStrings.rend(); ++open)
      text += (text.empty() ? "" : " ") + std::string(nameOfPitchClass(pitchClass(*open))) +
              std::to_string(*open / kNotesPerOctave - 1);
    return text;
  }

  void writeUpper(const WrittenBar& bar) {
    if (bar.pickUp) m_text += "\\ac ";
    if (m_meter != bar.meter)
      m_text += "\\ts " + std::to_string(bar.meter.beats) + " " +
                std::to_string(bar.meter.beatType) + " ";
    if (!m_meter && m_score.key)
      m_text += "\\ks " + tonicOf(*m_score.key) + (m_score.key->minor ? "minor " : " ");
    if (m_meter && bar.tempo) m_text += "\\tempo " + wholeBeats(*bar.tempo) + " ";
    m_meter = bar.meter;
    for (const ScoreNote& note : bar.notes) {
      const auto name = note.first ? m_names.above(*note.event) : std::nullopt;
      writeSign(note, name);
    }
    m_text += "|\n";
  }

  void writeLower(const WrittenBar& bar) {
    for (const ScoreNote& note : bar.lower) writeSign(note, std::nullopt);
    if (bar.lower.empty()) writeSilence(unitsOf(bar));
    m_text += "|\n";
  }

  /// Rests, the longest first.
  void writeSilence(int units) {
    for (int parts = 1, length = kUnitsOfWhole; units > 0 && length > 0; parts *= 2, length /= 2)
      for (; units >= length; units -= length) m_text += "r." + std::to_string(parts) + " ";
  }

  void writeSign(const ScoreNote& note, const std::optional<std::string>& name) {
    const auto& tones = note.event->tones;
    std::string frets;
    for (const ScoreTone& tone : tones) {
      const bool isTied = !note.first || tone.tiedBefore;
      const auto string = static_cast<int>(m_score.openStrings.size()) - tone.string;
      frets += (frets.empty() ? "" : " ") +
               (isTied ? "-" : std::to_string(m_score.fretBehindCapo(tone))) + "." +
               std::to_string(string);
    }
    m_text +=
        (tones.empty() ? "r" : "(" + frets + ")") + "." + std::to_string(partsOfWhole(*note.value));
    std::string effects;
    if (note.value->dotted) effects += " d";
    if (note.tripletOf) effects += " tu 3";
    if (name && !name->empty()) effects += " ch " + quoted(*name);
    m_text += effects.empty() ? " " : " {" + effects.substr(1) + "} ";
  }

  const Score& m_score;
  guitarpro::ScoreNames m_names;
  std::vector<WrittenBar> m_bars;
  std::optional<Meter> m_meter{};  ///< The one that was written last.
  std::string m_text{};
};

}  // namespace

std::string alphaTex(const Score& score) { return TexWriter(score).write(); }

}  // namespace korvel::exchange
