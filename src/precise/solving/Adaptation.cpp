// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/Adaptation.h"

#include <algorithm>
#include <cmath>

#include "precise/seeing/VectorClones.h"
#include "precise/solving/PluckedStrings.h"

namespace korvel::precise {
namespace {

/// The attack, in frames after the onset: from after the pick's noise to 0.15 s.
constexpr Frame kAttackBegin = 3;
constexpr Frame kAttackEnd = 13;
/// A part of a note is learnt from so many frames; from this number on it counts fully.
constexpr Frame kLeastFrames = 3;
constexpr Frame kMostFrames = 60;
constexpr float kFullFrames = 15;

/// A spectrum counts for at most so many times its explanation, and that for at least so much.
constexpr float kLargestRatio = 3;
constexpr float kLeastModel = 0.001F;

/// Neighbours that a pitch learns from; each semitone makes them count half.
constexpr std::ptrdiff_t kNeighbours = 5;
constexpr float kNeighbourDecay = 0.7F;
/// A pitch has learnt all it can from so many notes of its own.
constexpr float kEnough = 3;
/// A pitch that has learnt less than this gets no atom of its own.
constexpr float kLeastTrust = 0.074F;
/// What the atoms for strings in general cost beside those that were learnt.
constexpr float kGeneralPenalty = 0.3F;

/// Adds the owner's part of a spectrum: what it has of the model, scaled as the spectrum exceeds
/// or misses the model.
KORVEL_VECTOR_CLONES
void addMasked(float* sums, const float* spectrum, const float* model, const float* own) {
  for (std::size_t k = 0; k < kBins; ++k) {
    const float ratio = spectrum[k] / (model[k] + kLeastModel);
    sums[k] += (ratio < kLargestRatio ? ratio : kLargestRatio) * own[k];
  }
}

/// Adds values moved up by so many bins; what leaves the scale is lost.
void addMoved(BinRow& sums, float factor, const BinRow& values, std::ptrdiff_t bins) {
  const auto count = static_cast<std::ptrdiff_t>(kBins);
  for (std::ptrdiff_t k = std::max<std::ptrdiff_t>(0, bins); k < std::min(count, count + bins); ++k)
    sums[static_cast<std::size_t>(k)] += factor * values[static_cast<std::size_t>(k - bins)];
}

}  // namespace

Adaptation::Adaptation(const FrameTable& spectra, const Dictionary& dictionary,
                       const CoefficientTable& coefficients, std::size_t step)
    : m_spectra(spectra),
      m_dictionary(dictionary),
      m_coefficients(coefficients),
      m_step(static_cast<Frame>(step)) {}

void Adaptation::learn(const Candidate& note, float share) {
  const Frame sustain = note.onset + kAttackEnd;
  const float weight = share * share;
  learn(note, note.onset + kAttackBegin, std::min(sustain, note.end), weight, m_sound.attacks);
  learn(note, sustain, note.end, weight, m_sound.sustains);
}

void Adaptation::learn(const Candidate& note, Frame first, Frame end, float weight, Part& part) {
  const Frame frames = std::min(end - first, kMostFrames);
  if (frames < kLeastFrames) return;
  BinRow sum{};
  for (Frame t = (first + m_step - 1) / m_step * m_step; t < first + frames; t += m_step)
    addOwned(note.pitch, static_cast<std::size_t>(t), sum);
  normalise(sum);
  Learnt& learnt = part[note.pitch];
  const float counted = weight * std::min(1.0F, static_cast<float>(frames) / kFullFrames);
  addMoved(learnt.sum, counted, sum, 0);
  learnt.weight += counted;
}

void Adaptation::addOwned(std::size_t pitch, std::size_t frame, BinRow& sum) {
  BinRow model{};
  BinRow own{};
  m_modelRows.clear();
  m_ownRows.clear();
  for (const auto& [atom, coefficient] :
       m_coefficients.row(frame / static_cast<std::size_t>(m_step))) {
    const float* shape = m_dictionary.shape(atom).data();
    m_modelRows.collect(coefficient, shape);
    if (m_dictionary.pitch(atom) == pitch) m_ownRows.collect(coefficient, shape);
  }
  m_modelRows.addTo(model.data(), kBins);
  m_ownRows.addTo(own.data(), kBins);
  addMasked(sum.data(), m_spectra.row(frame).data(), model.data(), own.data());
}

void Adaptation::addAtoms(const Part& part, Dictionary& dictionary) {
  const auto pitches = static_cast<std::ptrdiff_t>(kPitches);
  for (std::ptrdiff_t p = 0; p < pitches; ++p) {
    BinRow shape{};
    float trust = 0;
    for (std::ptrdiff_t q = std::max<std::ptrdiff_t>(0, p - kNeighbours);
         q <= std::min(pitches - 1, p + kNeighbours); ++q) {
      const Learnt& learnt = part[static_cast<std::size_t>(q)];
      if (learnt.weight <= 0) continue;
      const float distance = static_cast<float>(std::abs(p - q));
      const float counted =
          std::exp(-kNeighbourDecay * distance) * std::min(learnt.weight, kEnough);
      addMoved(shape, counted / learnt.weight, learnt.sum,
               static_cast<std::ptrdiff_t>(kBinsPerSemitone) * (p - q));
      trust += counted;
    }
    if (trust > kLeastTrust) dictionary.add(static_cast<std::size_t>(p), 0, shape);
  }
}

Dictionary Adaptation::dictionary() const {
  Dictionary learnt;
  addAtoms(m_sound.attacks, learnt);
  addAtoms(m_sound.sustains, learnt);
  learnt.add(pluckedStrings(), kGeneralPenalty);
  return learnt;
}

}  // namespace korvel::precise
