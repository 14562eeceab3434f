// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibrate/Calibration.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <stdexcept>

#include "analysis/QBChordAnalyserGame.h"
#include "analysis/QBFrequencyMatrix.h"
#include "audio/QBMediaTrack.h"
#include "model/Pitch.h"
#include "model/QBChord.h"
#include "model/QBHold.h"
#include "model/QBInstrument.h"
#include "model/QBOvertone.h"
#include "model/QBSong.h"
#include "model/QBSpectrum.h"
#include "model/QBString.h"
#include "model/QBTabMgr.h"
#include "model/QBTone.h"
#include "model/QBTuning.h"
#include "platform/FileError.h"

namespace korvel::tools {
namespace {

using platform::FileError;

constexpr int kLastFret = 12;
constexpr int kMidiOfLargeTone0 = 36;
constexpr int kSampleRate = 44100;

struct Position {
  int string;
  int fret;
};

int largeToneOf(const Position& position) {
  return QBInstrument::largeToneOfStringS(position.string) + position.fret;
}

/// Where the detection puts a note that lies `offset` above an open string; beyond its range, the
/// fret that the string would need.
Position detectedPosition(int string, int offset) {
  const Position own{string, offset};
  const float open = QBTabMgr::db().selectedTuning()->computeFrequency(string, 0);
  const float frequency = open * std::exp2(static_cast<float>(offset) / kNotesPerOctave);
  const auto place = QBFrequencyMatrix::infoByFrequencyComputed(frequency);
  if (!place) return own;
  const Position found{static_cast<int>(place->getFloat(2, 0)),
                       static_cast<int>(place->getFloat(1, 0))};
  return largeToneOf(found) == largeToneOf(own) ? found : own;
}

/// The detection reads a file's samples as one channel of 44.1 kHz, whatever they are: any other
/// file would be measured at a wrong pitch.
void requireDetectableFormat(const std::filesystem::path& file) {
  const platform::MediaAsset asset(file);
  if (!asset.hasTrackList()) throw std::runtime_error(asset.problem());
  const auto track = std::ranges::find(asset.tracks(), platform::MediaTrack::Media::sound,
                                       &platform::MediaTrack::media);
  if (track == asset.tracks().end()) throw FileError(file, "has no sound track");
  if (track->sampleRate == kSampleRate && track->channels == 1) return;
  throw FileError(file,
                  "has " + std::to_string(track->channels) + " channel(s) at " +
                      std::to_string(track->sampleRate) +
                      " Hz; needed is one at 44100 Hz (ffmpeg -i IN -ac 1 -ar 44100 OUT.wav)");
}

/// The next mean of values of which this is the last and n-th.
double mean(double before, double value, int n) { return before + (value - before) / n; }

}  // namespace

Calibration::Calibration(const std::string& name, float detailLevel) {
  QBTabMgr& db = QBTabMgr::db();
  m_instrument = db.createInstrument(db.selectedTuning(), name, false, true, detailLevel, 1.0F);
  m_heard = db.createSong(name, db.selectedTuning(), m_instrument.get(), nullptr);
}

void Calibration::addNote(const std::filesystem::path& file, int midi) {
  const int largeTone = midi - kMidiOfLargeTone0;
  const int lowest = QBInstrument::largeToneOfStringS(0);
  const int highest = QBInstrument::largeToneOfStringS(kStrings - 1) + kLastFret;
  if (largeTone < lowest || largeTone > highest)
    throw FileError(file, "no string reaches the note " + std::to_string(midi));
  requireDetectableFormat(file);

  const auto track = std::make_shared<QBMediaTrack>(file);
  track->startRecord(0.0F);
  QBChordAnalyserGame analyser(track, QBTabMgr::db().selectedTuning());
  bool heard = false;
  while (!track->eof()) {
    const QBChord* chord = analyser.nextChord(m_heard.get());
    if (!chord) continue;
    countBlock(*chord->hold(), largeTone);
    heard = true;
  }
  if (!heard) throw FileError(file, "nothing is loud enough to be heard in it");
}

void Calibration::countBlock(const QBHold& hold, int largeTone) {
  for (int string = 0; string < kStrings; ++string) {
    const int fret = largeTone - QBInstrument::largeToneOfStringS(string);
    if (fret < 0 || fret > kLastFret) continue;
    ++m_blocks[static_cast<std::size_t>(string)];
    for (const QBTone* tone : hold.tones()) {
      const int heard = largeToneOf({tone->string(), tone->fret()});
      QBOvertone& overtone = overtoneAt(string, heard - largeTone);
      const int hits = overtone.increaseHits();
      overtone.setAmp(mean(overtone.amp(), tone->amp(), hits));
    }
  }
}

QBOvertone& Calibration::overtoneAt(int string, int offset) {
  const Position at = detectedPosition(string, offset);
  QBSpectrum& spectrum = *m_instrument->findSpectrumByString(string);
  if (QBOvertone* known = spectrum.findOvertone(at.string, at.fret)) return *known;
  return *spectrum.addOvertone(at.string, at.fret, pitchClass(largeToneOf(at)), offset, 0.0, 0.0);
}

QBInstrument& Calibration::finish(double smallestShare) {
  for (const auto& spectrum : m_instrument->readAllSpectrums()) {
    const int string = spectrum->string()->order();
    const int blocks = m_blocks[static_cast<std::size_t>(string)];
    if (blocks == 0)
      throw std::runtime_error("no recording holds a note of string " + std::to_string(string));
    for (const auto& overtone : spectrum->overtones().snapshot())
      if (overtone->hits() < smallestShare * blocks) spectrum->deleteOvertone(overtone.get());
    spectrum->cleanupTones();
    spectrum->computeOffsets();
    spectrum->defineAsCalibrated();
  }
  m_instrument->defineAsCalibrated();
  return *m_instrument;
}

}  // namespace korvel::tools
