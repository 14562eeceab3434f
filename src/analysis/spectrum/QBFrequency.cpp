// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFrequency.h"

#include "analysis/spectrum/QBFrequencyMatrix.h"
#include "matrix/CellText.h"
#include "model/songs/QBTone.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

/// How far in Hz the search through the octaves goes beyond the neighbouring semitone.
constexpr double kOctaveSlack = 4.0;

/// One semitone up or down, in single precision.
float above(float f) { return static_cast<float>(f * kSemitoneExact); }
float below(float f) { return static_cast<float>(f / kSemitoneExact); }

float raised(float f, int semitones) {
  for (int i = 0; i < semitones; ++i) f = above(f);
  return f;
}

/// Half a semitone around a frequency.
struct Window {
  double lower;
  double upper;

  explicit Window(float f)
      : lower(f - (static_cast<double>(f) - below(f)) / 2),
        upper(f + (static_cast<double>(above(f)) - f) / 2) {}
  bool contains(double f) const { return lower <= f && f <= upper; }
};

}  // namespace

QBFrequency::QBFrequency(float f, double amp, QBTuning* tuning)
    : m_f(f), m_amp(amp), m_matrix(QBFrequencyMatrix::infoByFrequencyComputed(f, tuning)) {}

bool QBFrequency::equalsTone(const QBTone& tone) const {
  const int places = m_matrix ? m_matrix->height() : 0;
  for (int row = 0; row < places; ++row) {
    if (truncated(m_matrix->getFloat(kFretColumn, row)) == tone.fret() &&
        truncated(m_matrix->getFloat(kStringColumn, row)) == tone.string())
      return true;
  }
  return false;
}

int QBFrequency::stepByString(int string) {
  static constexpr int kSteps[] = {20, 25, 30, 35, 39, 44};
  return string < 0 || string > 5 ? 0 : kSteps[string];
}

bool QBFrequency::isInterval(int semitones, const QBFrequency& other) const {
  const Window window(other.m_f);
  return window.contains(raised(m_f, semitones)) ||
         window.contains(raised(m_f, kNotesPerOctave - semitones));
}

bool QBFrequency::isIntervalOld(int semitones, const QBFrequency& other) const {
  const Window window(other.m_f);
  const float start = raised(m_f, semitones);
  for (double f = start; f > 0 && f <= above(other.m_f) + kOctaveSlack; f *= 2)
    if (window.contains(f)) return true;
  for (double f = start; f > 0 && f >= below(other.m_f) - kOctaveSlack; f /= 2)
    if (window.contains(f)) return true;
  return false;
}

}  // namespace korvel
