// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"
#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kSizeOfSingleTone = 7;  // wider than anything that a hand can hold
constexpr int kBeyondAnyDuration = 1000;

}  // namespace

int QBHold::sizeOfHold() const {
  return tones().size() == 1 ? kSizeOfSingleTone : m_maxFret - m_minFret;
}

bool QBHold::equals(QBHold& other) {
  return std::ranges::all_of(tones().snapshot(), [&](const auto& tone) {
    return other.findTone(tone->string(), tone->fret()) != nullptr;
  });
}

int QBHold::minimumDuration() const {
  int least = kBeyondAnyDuration;
  for (const QBTone* tone : tones())
    if (tone->isActive()) least = std::min(least, tone->dur());
  return least == kBeyondAnyDuration ? 0 : least;
}

int QBHold::maximumDuration() const {
  int greatest = 0;
  for (const QBTone* tone : tones())
    if (tone->isActive()) greatest = std::max(greatest, tone->dur());
  return greatest;
}

bool QBHold::isEmpty() const {
  for (const QBTone* tone : tones())
    if (tone->isActive()) return false;
  return true;
}

// The first call answers true for every unbroken run of fretted strings; only a run with three
// strings at the lowest fret is remembered as a barre, so that later calls answer false for the
// others. Ranking of fingerings relies on this.
bool QBHold::isBarre() {
  if (m_isBarre != Barre::unknown) return m_isBarre == Barre::yes;
  m_isBarre = Barre::no;
  int atMinimum = 0;
  int elsewhere = 0;
  bool gap = false;
  for (int string = kStrings - 1; string >= 0; --string) {
    const QBTone* tone = findToneFrom(string, m_minFret);
    if (tone && gap) return false;
    if (!tone)
      gap = true;
    else
      ++(tone->fret() == m_minFret ? atMinimum : elsewhere);
  }
  if (elsewhere <= 2 && atMinimum >= 3) m_isBarre = Barre::yes;
  return true;
}

bool QBHold::isPlayable() {
  const bool barre = isBarre();
  const int span = sizeOfHold();
  if (barre) return span <= 3;
  if (span > 2) return false;
  int fretted = 0;
  for (const QBTone* tone : tones())
    if (tone->fret() > 0) ++fretted;
  return fretted < 5;
}

// ---- texts

std::string QBHold::tonesAsString() const {
  const OpenStrings strings = openStringsOf(*this);
  std::string text;
  for (int string = 0; string < kStrings; ++string)
    if (const QBTone* tone = findToneByString(string))
      text += std::to_string(pitchClass(strings.note(string, tone->fret()))) + ',';
  return text;
}

std::string QBHold::toString() const {
  std::string text;
  for (int string = kStrings - 1; string >= 0; --string) {
    const QBTone* tone = findToneByString(string);
    text += tone ? tone->toString() : "-\r\n";
  }
  return text;
}

std::string QBHold::toStringClean() const {
  std::string text;
  for (int string = kStrings - 1; string >= 0; --string) {
    const QBTone* tone = findToneByString(string);
    text += tone ? tone->toStringClean() : "-";
  }
  return text;
}

}  // namespace korvel
