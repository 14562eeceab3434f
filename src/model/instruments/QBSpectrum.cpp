// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBSpectrum.h"

#include "model/instruments/PlaceKey.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBString.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "music/Pitch.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {
namespace {

constexpr int kFewestHits = 3;

}  // namespace

platform::EntityDescription QBSpectrum::describe() {
  return platform::EntityBuilder<QBSpectrum>("QBSpectrum")
      .attribute<&QBSpectrum::m_calibrated>("calibrated")
      .toOne<&QBSpectrum::m_instrument>("instrument", "QBInstrument", "spectrums")
      .toOne<&QBSpectrum::m_string>("string", "QBString")
      .toMany<&QBSpectrum::m_overtones>("overtones", "QBOvertone", "spectrum",
                                        platform::Loading::allOwners)
      .build();
}

QBSpectrum::QBSpectrum() = default;

QBSpectrum::~QBSpectrum() = default;

QBInstrument* QBSpectrum::instrument() const { return target(m_instrument); }

void QBSpectrum::setInstrument(QBInstrument* value) { relate(m_instrument, value); }

QBString* QBSpectrum::string() const { return target(m_string); }

void QBSpectrum::setString(QBString* value) { relate(m_string, value); }

platform::Members<QBOvertone> QBSpectrum::overtones() const { return members(m_overtones); }

void QBSpectrum::forgetCaches() {
  m_sorted.reset();
  if (QBInstrument* owner = instrument()) owner->forgetCaches();
}

const std::map<std::string, platform::Ref<QBOvertone>>& QBSpectrum::readSortedTones() {
  if (!m_sorted) {
    m_sorted.emplace();
    for (QBOvertone* overtone : overtones())
      m_sorted->insert_or_assign(keyOf(overtone->string(), overtone->fret()), overtone);
  }
  return *m_sorted;
}

QBOvertone* QBSpectrum::findOvertone(int string, int fret) {
  const auto& index = readSortedTones();
  const auto found = index.find(keyOf(string, fret));
  return found == index.end() ? nullptr : found->second.get();
}

QBOvertone* QBSpectrum::addOvertone(int string, int fret, int note, int offset, double frequency,
                                    double amp) {
  readSortedTones();
  QBOvertone* overtone =
      QBTabMgr::of(*this).createOvertone(this, string, fret, note, offset, frequency, amp);
  m_sorted->insert_or_assign(keyOf(string, fret), overtone);
  return overtone;
}

void QBSpectrum::deleteOvertone(QBOvertone* overtone) {
  QBTabMgr::of(*this).deleteOvertone(overtone);
  m_sorted.reset();  // Another overtone of the same position may show again.
}

void QBSpectrum::cleanupTones() {
  for (const auto& overtone : overtones().snapshot())
    if (overtone->hits() < kFewestHits) deleteOvertone(overtone);
}

void QBSpectrum::computeOffsets(const OpenStrings& strings) {
  const QBString* played = string();
  const int base = strings.note(played ? played->order() : 0);
  for (QBOvertone* overtone : overtones()) {
    if (overtone->string() < 0 || overtone->string() >= kStrings) continue;  // no such string
    overtone->setOffset(addNotes(strings.note(overtone->string(), overtone->fret()), -base));
  }
}

}  // namespace korvel
