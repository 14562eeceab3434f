// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBTuning.h"

#include <algorithm>

#include "model/book/QBHarmony.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBString.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/ConcertPitch.h"
#include "music/Pitch.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {
namespace {

struct OpenString {
  int note;
  float hertz;
};

using SixStrings = OpenString[kStrings];

constexpr SixStrings kStandard = {{4, 82.41F}, {9, 110.0F},   {2, 146.83F},
                                  {7, 196.0F}, {11, 246.94F}, {4, 329.62F}};
constexpr SixStrings kDropD = {{2, 73.41F}, {9, 110.0F},   {2, 146.83F},
                               {7, 196.0F}, {11, 246.94F}, {4, 329.62F}};
// The lowest string stands an octave below the other tunings' range.
constexpr SixStrings kOpenG = {{7, 49.0F},  {11, 123.47F}, {2, 146.83F},
                               {7, 196.0F}, {11, 246.94F}, {2, 293.65F}};

void createStrings(QBTuning& tuning, const SixStrings& strings) {
  int order = 0;
  for (const OpenString& open : strings)
    QBTabMgr::of(tuning).createString(&tuning, open.note, order++, open.hertz);
}

/// A store may say anything.
bool isHeard(double hertz) { return hertz >= 10 && hertz <= 10000; }

bool isOnNeck(int string) { return string >= 0 && string < kStrings; }

/// Half a semitone below the open string; the quotient is rounded before the rest is computed.
float lowerBound(QBString& string) {
  const float open = string.computeFrequency(0);
  const auto below = static_cast<float>(static_cast<double>(open) / kSemitoneExact);
  return open - (open - below) * 0.5F;
}

}  // namespace

platform::EntityDescription QBTuning::describe() {
  return platform::EntityBuilder<QBTuning>("QBTuning")
      .root()
      .attribute<&QBTuning::m_descr>("descr")
      .attribute<&QBTuning::m_order>("order")
      .attribute<&QBTuning::m_selected>("selected")
      .toMany<&QBTuning::m_strings>("strings", "QBString", "tuning", platform::Loading::allOwners)
      .toMany<&QBTuning::m_songs>("songs", "QBSong", "tuning")
      .toMany<&QBTuning::m_instruments>("instruments", "QBInstrument", "tuning",
                                        platform::Loading::allOwners)
      .build();
}

QBTuning::QBTuning() = default;

QBTuning::~QBTuning() = default;

platform::Members<QBString> QBTuning::strings() const { return members(m_strings); }

platform::Members<QBSong> QBTuning::songs() const { return members(m_songs); }

platform::Members<QBInstrument> QBTuning::instruments() const { return members(m_instruments); }

const std::vector<platform::Ref<QBString>>& QBTuning::allTones() {
  if (!sortedTones) {
    sortedTones = strings().snapshot();
    std::ranges::stable_sort(*sortedTones, {}, [](const auto& string) { return string->order(); });
  }
  return *sortedTones;
}

QBString* QBTuning::findStringByPosition(int position) {
  return allTones().at(static_cast<std::size_t>(position));
}

float QBTuning::computeFrequency(int position, int fret) {
  return findStringByPosition(position)->computeFrequency(fret);
}

float QBTuning::computeLowerDistance(int position, int fret) {
  const float f = computeFrequency(position, fret);
  return (f - f / kSemitone) * 0.5F;
}

float QBTuning::computeUpperDistance(int position, int fret) {
  const float f = computeFrequency(position, fret);
  return (kSemitone * f - f) * 0.5F;
}

bool QBTuning::isBaseTone(int position, float frequency) {
  QBString& string = *findStringByPosition(position);
  const float open = string.computeFrequency(0);
  const float upper = open + (string.computeFrequency(1) - open) * 0.5F;
  return lowerBound(string) <= frequency && frequency <= upper;
}

QBString* QBTuning::findStringByFrequency(float frequency) {
  const auto& all = allTones();
  for (std::size_t i = 0; i + 1 < all.size(); ++i)
    if (frequency <= all[i + 1]->computeFrequency(0) && frequency >= lowerBound(*all[i]))
      return all[i];
  // Below the lowest string's band too: the highest string is the answer for "nowhere".
  return all.at(all.size() - 1);
}

const OpenStrings& QBTuning::openStrings() {
  if (m_openStrings) return *m_openStrings;
  OpenPitches pitches = kStandardPitches;
  for (const QBString* string : strings())
    if (isOnNeck(string->order()) && isHeard(string->frequency()))
      pitches.at(static_cast<std::size_t>(string->order())) = noteOfHertz(string->frequency());
  return m_openStrings.emplace(pitches);
}

int QBTuning::largeToneOfString(int position) {
  return findStringByPosition(position)->largeToneOfString();
}

int QBTuning::noteOfString(int position) { return findStringByPosition(position)->noteOfString(); }

std::vector<std::string> QBTuning::stringNames() {
  std::vector<std::string> names;
  const auto& all = allTones();
  for (auto string = all.rbegin(); string != all.rend(); ++string)
    names.push_back(QBHarmony::noteAsString((*string)->baseTone()).value_or(""));
  return names;
}

const std::string& QBTuning::toString() {
  if (!m_tuneStr) {
    m_tuneStr.emplace();
    for (const std::string& name : stringNames()) *m_tuneStr += name;
  }
  return *m_tuneStr;
}

void QBTuning::createStandardStrings() { createStrings(*this, kStandard); }

void QBTuning::createDropDStrings() { createStrings(*this, kDropD); }

void QBTuning::createOpenGStrings() { createStrings(*this, kOpenG); }

void QBTuning::forgetCaches() {
  sortedTones.reset();
  m_openStrings.reset();
  m_tuneStr.reset();
}

}  // namespace korvel
