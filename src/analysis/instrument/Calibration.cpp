// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/Calibration.h"

#include <algorithm>
#include <cmath>

#include "analysis/spectrum/QBFFTGuitar.h"
#include "analysis/spectrum/QBFrequencyMatrix.h"
#include "analysis/spectrum/SampleBuffer.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/ConcertPitch.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kLastFret = 12;
constexpr int kFewestBlocks = 3;
constexpr float kFullVolume = 1.0F;

struct Position {
  int string;
  int fret;
};

int midiOf(QBTuning& tuning, const Position& position) {
  return tuning.openStrings().note(position.string, position.fret) + kMidiOfLargeTone0;
}

Position positionIn(const QBFloatMatrix& place) {
  return {static_cast<int>(place.getFloat(2, 0)), static_cast<int>(place.getFloat(1, 0))};
}

/// Where the detection puts a note that lies `offset` above an open string; beyond its range, the
/// fret that the string would need.
Position detectedPosition(QBTuning& tuning, int string, int offset) {
  const Position own{string, offset};
  const float open = tuning.computeFrequency(string, 0);
  const float frequency = open * std::exp2(static_cast<float>(offset) / kNotesPerOctave);
  const auto place = QBFrequencyMatrix::infoByFrequencyComputed(frequency, &tuning);
  if (!place) return own;
  const Position found = positionIn(*place);
  return midiOf(tuning, found) == midiOf(tuning, own) ? found : own;
}

bool reaches(QBTuning& tuning, int string, int midi) {
  const int fret = midi - midiOf(tuning, {string, 0});
  return fret >= 0 && fret <= kLastFret;
}

/// The next mean of values of which this is the last and n-th.
double mean(double before, double value, int n) { return before + (value - before) / n; }

}  // namespace

Calibration::Calibration(QBTuning& tuning) : m_tuning(&tuning) {}

Calibration::~Calibration() = default;

QBTuning* Calibration::tuning() const { return m_tuning; }

bool Calibration::canMeasure(QBTuning& tuning) {
  for (int string = 0; string < kStrings; ++string) {
    const int sounds = noteOfHertz(tuning.computeFrequency(string, 0));
    if (sounds != tuning.largeToneOfString(string) + kMidiOfLargeTone0) return false;
  }
  return true;
}

/// Each place once, with its loudest frequency, as in the chords of the detection.
std::vector<HeardTone> Calibration::tonesIn(std::span<const std::int16_t> samples) const {
  std::vector<HeardTone> tones;
  const auto spectrum = spectrumOf(samples, 0);
  for (const QBFrequency& frequency : spectrum->frequencies(m_tuning)) {
    if (!frequency.isGuitar()) continue;
    const int midi = midiOf(*m_tuning, positionIn(*frequency.matrix()));
    if (std::ranges::find(tones, midi, &HeardTone::midi) == tones.end())
      tones.push_back({midi, frequency.amplitude()});
  }
  return tones;
}

bool Calibration::isReached(int midi) const {
  for (int string = 0; string < kStrings; ++string)
    if (reaches(*m_tuning, string, midi)) return true;
  return false;
}

void Calibration::addBlock(std::span<const HeardTone> tones, int midi) {
  for (int string = 0; string < kStrings; ++string) {
    if (!reaches(*m_tuning, string, midi)) continue;
    String& heard = m_strings.at(static_cast<std::size_t>(string));
    ++heard.blocks;
    for (const HeardTone& tone : tones) {
      Overtone& overtone = heard.overtones[tone.midi - midi];
      ++overtone.hits;
      overtone.amp = mean(overtone.amp, tone.amp, overtone.hits);
    }
  }
}

std::vector<int> Calibration::unknownStrings() const {
  std::vector<int> unknown;
  for (int string = 0; string < kStrings; ++string)
    if (m_strings.at(static_cast<std::size_t>(string)).blocks < kFewestBlocks)
      unknown.push_back(string);
  return unknown;
}

QBInstrument& Calibration::createInstrument(QBTabMgr& db, const std::string& name,
                                            float detailLevel, double smallestShare) const {
  QBInstrument& instrument =
      *db.createInstrument(m_tuning, name, false, true, detailLevel, kFullVolume);
  for (const auto& spectrum : instrument.readAllSpectrums())
    fill(*spectrum, spectrum->string()->order(), smallestShare);
  instrument.defineAsCalibrated();
  return instrument;
}

void Calibration::fill(QBSpectrum& spectrum, int string, double smallestShare) const {
  const String& heard = m_strings.at(static_cast<std::size_t>(string));
  for (const auto& [offset, overtone] : heard.overtones) {
    if (overtone.hits < smallestShare * heard.blocks) continue;
    const Position at = detectedPosition(*m_tuning, string, offset);
    spectrum
        .addOvertone(at.string, at.fret, pitchClass(midiOf(*m_tuning, at)), offset, 0.0,
                     overtone.amp)
        ->setHits(overtone.hits);
  }
  spectrum.cleanupTones();
  spectrum.defineAsCalibrated();
}

}  // namespace korvel
