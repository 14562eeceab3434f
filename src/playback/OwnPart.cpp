// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/OwnPart.h"

#include <cstdlib>
#include <optional>

#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"

namespace korvel {
namespace {

Tones soundingHighestFirst(const QBChord& chord) {
  Tones tones = highestFirst(chord);
  std::erase_if(tones, [](const auto& tone) { return !tone->isActive(); });
  return tones;
}

/// Where melody and bass are, as absolute notes.
struct OuterLines {
  int melody;
  int bass;

  bool isBass(int note) const { return std::abs(note - bass) < std::abs(note - melody); }
};

/// Goes through the chords of a song and tells their voices apart.
class VoiceFollower {
 public:
  explicit VoiceFollower(const std::vector<platform::Ref<QBChord>>& chords) {
    for (std::size_t i = 0; i < chords.size() && !m_lines; ++i) follow(*chords[i]);
  }

  void follow(const QBChord& chord) {
    m_tones = soundingHighestFirst(chord);
    m_melody = m_bass = nullptr;
    if (m_tones.empty()) return;
    m_melody = m_tones.front();
    m_bass = m_tones.back();
    m_tones.size() == 1 ? followLone(largeToneOf(*m_melody)) : followOuter();
  }

  std::vector<const QBTone*> tonesOf(OwnVoice voice) const {
    std::vector<const QBTone*> own;
    for (const auto& tone : m_tones)
      if (voice == OwnVoice::allButMelody && tone != m_melody) own.push_back(tone.get());
    if (voice == OwnVoice::allButMelody) return own;
    if (const QBTone* tone = toneOf(voice)) own.push_back(tone);
    return own;
  }

 private:
  void followOuter() { m_lines = OuterLines{largeToneOf(*m_melody), largeToneOf(*m_bass)}; }

  void followLone(int note) {
    if (!m_lines) return;
    const bool isBass = m_lines->isBass(note);
    (isBass ? m_lines->bass : m_lines->melody) = note;
    (isBass ? m_melody : m_bass) = nullptr;
  }

  const QBTone* toneOf(OwnVoice voice) const {
    if (voice == OwnVoice::melody) return m_melody;
    if (voice == OwnVoice::bass) return m_bass;
    const auto index = static_cast<std::size_t>(voice) - static_cast<std::size_t>(OwnVoice::melody);
    return index < m_tones.size() ? m_tones[index].get() : nullptr;
  }

  std::optional<OuterLines> m_lines;  ///< None before a chord of several tones.
  Tones m_tones;
  const QBTone* m_melody = nullptr;
  const QBTone* m_bass = nullptr;
};

bool isOnOneOf(unsigned strings, const QBTone& tone) {
  return (strings & (1U << static_cast<unsigned>(kStrings - tone.string()))) != 0;
}

}  // namespace

OwnTones tonesOfPart(const std::vector<platform::Ref<QBChord>>& chords, const OwnPart& part) {
  OwnTones own;
  if (part.strings != 0)
    for (const auto& chord : chords)
      for (const auto& tone : tonesOf(*chord))
        if (isOnOneOf(part.strings, *tone)) own.insert(tone.get());
  if (part.voice == OwnVoice::none) return own;
  VoiceFollower voices(chords);
  for (const auto& chord : chords) {
    voices.follow(*chord);
    for (const QBTone* tone : voices.tonesOf(part.voice)) own.insert(tone);
  }
  return own;
}

}  // namespace korvel
