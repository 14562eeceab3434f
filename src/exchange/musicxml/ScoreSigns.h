// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "exchange/WrittenScore.h"
#include "platform/text/XmlDocument.h"

namespace korvel::exchange {

/// Reads what stands in a part of a MusicXML score and counts for all of them: time signatures,
/// keys, tempos, swing, repeats and jumps.
class ScoreSigns {
 public:
  using Element = platform::XmlDocument::Element;

  /// The score must outlive this.
  explicit ScoreSigns(WrittenScore& score) : m_score(score) {}

  /// The score has a bar for the next measure from then on.
  void beginMeasure(const Element& measure);
  /// length: as far as anything is written, in grains.
  void endMeasure(std::int64_t length);

  void readTime(const Element& time);
  void readKey(const Element& key);
  /// at: in grains from the bar line.
  void readDirection(const Element& direction, std::int64_t at);
  void readSound(const Element& sound, std::int64_t at, const std::string& words = {});
  void readBarline(const Element& barline);

  /// What notes are struck with that say nothing themselves; 0 where the file does not tell.
  int velocity() const { return m_velocity; }
  /// In the same words, what MusicXML says in hundredths of a usual forte; 0 for what it cannot be.
  static int velocityOf(double percent);

 private:
  void readEnding(const Element& ending);
  void readJump(const Element& sound, const std::string& words);
  void readMetronome(const Element& metronome, std::int64_t at);
  void readSwing(const Element& swing);
  void addTempo(std::int64_t at, double quartersAMinute);
  CommonBar& bar() { return m_score.bars[m_next - 1]; }

  WrittenScore& m_score;
  std::size_t m_next = 0;  ///< The bar after the one that is read.
  unsigned m_endings = 0;  ///< Those that the measure is in.
  bool m_endingStops = false;
  int m_velocity = 0;
};

/// A repeat with endings is played as often as these say, whatever it says itself; a jump goes as
/// far as the signs of the piece let it. To be called once, after all parts are read.
void settleSigns(WrittenScore& score);

}  // namespace korvel::exchange
