// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/plain/AbcWriter.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <span>
#include <utility>

#include "exchange/guitarpro/ScoreNames.h"
#include "exchange/plain/SignText.h"
#include "export/score/Spelling.h"
#include "platform/text/Utf8.h"

namespace korvel::exchange {

namespace {

/// Lengths are written in eighths.
std::string lengthIn(int halfUnits) {
  constexpr int kHalfUnitsOfEighth = 2 * kUnitsOfEighth;
  int parts = kHalfUnitsOfEighth;
  while (halfUnits % 2 == 0 && parts % 2 == 0) halfUnits /= 2, parts /= 2;
  while (halfUnits % 3 == 0 && parts % 3 == 0) halfUnits /= 3, parts /= 3;
  const std::string whole = halfUnits == 1 ? "" : std::to_string(halfUnits);
  return parts == 1 ? whole : whole + "/" + std::to_string(parts);
}

/// Of a sign as it is written, in triplets longer than it sounds.
std::string lengthOfSign(const ScoreNote& note) {
  return lengthIn(note.tripletOf ? note.value->units * 3 : note.value->units * 2);
}

/// A percent sign would begin a remark, and a backslash a sign of its own.
std::string escaped(const std::string& text) {
  std::string safe;
  for (const char c : text) {
    if (c == '%' || c == '\\') safe += '\\';
    safe += c;
  }
  return safe;
}

class Abc {
 public:
  explicit Abc(const Score& score) : m_score(score), m_names(score), m_bars(writtenBars(score)) {}

  std::string write() {
    const WrittenBar& first = m_bars.front();
    m_text = "X:1\nT:" + escaped(platform::printable(m_score.title)) +
             "\nM:" + textOf(first.meter) +
             "\nL:1/8\nQ:" + tempo(first.tempo.value_or(m_score.tempo)) + "\nK:" + key() +
             " clef=treble-8\n";
    m_meter = first.meter;
    const bool hasLower = hasLowerVoice(m_bars);
    for (const WrittenBar& bar : m_bars) {
      if (hasLower) m_text += "[V:1] ";
      writeBar(bar, bar.notes, &bar == &first);
      if (!hasLower) continue;
      m_text += "[V:2] ";
      if (bar.lower.empty())
        m_text += "x" + lengthIn(2 * unitsOf(bar)) + " |\n";
      else
        writeSigns(bar.lower, false);
    }
    return std::move(m_text);
  }

 private:
  static std::string textOf(const Meter& meter) {
    return std::to_string(meter.beats) + "/" + std::to_string(meter.beatType);
  }
  static std::string tempo(double quarters) { return "1/4=" + wholeBeats(quarters); }

  std::string key() const {
    return m_score.key ? tonicOf(*m_score.key) + (m_score.key->minor ? "m" : "") : "C";
  }

  void writeBar(const WrittenBar& bar, std::span<const ScoreNote> signs, bool isFirst) {
    if (m_meter != bar.meter) m_text += "[M:" + textOf(bar.meter) + "] ";
    if (bar.tempo && !isFirst) m_text += "[Q:" + tempo(*bar.tempo) + "] ";
    m_meter = bar.meter;
    writeSigns(signs, true);
  }

  void writeSigns(std::span<const ScoreNote> signs, bool hasNames) {
    m_altered.clear();
    for (std::size_t i = 0; i < signs.size(); ++i) {
      const ScoreNote& note = signs[i];
      if (hasNames && note.first)
        if (const auto name = m_names.above(*note.event); name && !name->empty())
          m_text += quoted(*name);
      if (note.opensTriplet) m_text += "(3:2:" + std::to_string(tripletFrom(signs, i)) + " ";
      writeSign(note, hasNames);
    }
    m_text += "|\n";
  }

  /// How many signs the group has.
  static std::size_t tripletFrom(std::span<const ScoreNote> signs, std::size_t first) {
    std::size_t last = first;
    while (last + 1 < signs.size() && !signs[last].closesTriplet) ++last;
    return last - first + 1;
  }

  void writeSign(const ScoreNote& note, bool isUpper) {
    const auto& tones = note.event->tones;
    const std::string length = lengthOfSign(note);
    if (tones.empty()) {
      m_text += (isUpper ? "z" : "x") + length + " ";
      return;
    }
    m_text += "[";
    std::vector<int> written;  // what two strings sound is one note here
    for (const ScoreTone& tone : tones) {
      if (std::ranges::find(written, tone.pitch) != written.end()) continue;
      written.push_back(tone.pitch);
      m_text += pitch(tone, note) + length;
      if (!note.last || tone.tiedOn) m_text += "-";
    }
    m_text += "] ";
  }

  /// Whether an accidental counts for other octaves too, programs differ in: once there was one on
  /// a line, all notes of that name in the bar have theirs.
  std::string pitch(const ScoreTone& tone, const ScoreNote& note) {
    const auto& harmony = note.event->harmony;
    const SpelledNote spelling =
        spelled(tone.pitch, harmony ? &*harmony : nullptr, m_score.key ? &*m_score.key : nullptr);
    if (spelling.alter != keyAlter(spelling.step)) m_altered += spelling.step;
    std::string text;
    if (m_altered.find(spelling.step) != std::string::npos)
      text = spelling.alter == 0 ? "=" : spelling.alter > 0 ? "^" : "_";
    // With the guitar's clef everything is written an octave higher than it sounds.
    constexpr int kOctaveOfC = 3;
    const int up = spelling.octave - kOctaveOfC;
    if (up <= 0) return text + spelling.step + std::string(static_cast<std::size_t>(-up), ',');
    return text + static_cast<char>(std::tolower(spelling.step)) +
           std::string(static_cast<std::size_t>(up - 1), '\'');
  }

  /// Sharps come in fifths from F on, flats from B on.
  int keyAlter(char step) const {
    constexpr std::string_view kSharps = "FCGDAEB";
    const int fifths = m_score.key ? fifthsOf(*m_score.key) : 0;
    const auto place = static_cast<int>(kSharps.find(step));
    if (fifths > 0) return place < fifths ? 1 : 0;
    return static_cast<int>(kSharps.size()) - 1 - place < -fifths ? -1 : 0;
  }

  const Score& m_score;
  guitarpro::ScoreNames m_names;
  std::vector<WrittenBar> m_bars;
  std::optional<Meter> m_meter{};  ///< The one that was written last.
  std::string m_altered{};         ///< Names of notes that have had an accidental in the bar.
  std::string m_text{};
};

}  // namespace

std::string abcNotation(const Score& score) { return Abc(score).write(); }

}  // namespace korvel::exchange
