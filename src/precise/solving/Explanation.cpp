// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/Explanation.h"

#include <algorithm>
#include <array>

#include "precise/solving/NonNegativeSolver.h"
#include "precise/solving/PluckedStrings.h"

namespace korvel::precise {
namespace {

using platform::Slices;

/// While the instrument is learnt, every second frame is enough.
constexpr std::size_t kLearningStep = 2;
/// Frames are explained so far that rounding decides next to nothing.
constexpr float kTolerance = 0.001F;
/// Frames whose largest activation a learnt note is compared with.
constexpr Frame kAttackFrames = 8;

double share(std::size_t done, std::size_t all) {
  return static_cast<double>(done) / static_cast<double>(all);
}

}  // namespace

Explanation::Explanation(const FrameTable& spectra)
    : m_spectra(spectra), m_dictionary(pluckedStrings()) {}

Slices Explanation::solveQuickly() { return solve(kLearningStep); }

Slices Explanation::solveFully() { return solve(1); }

/// Shows the solver the next frames that it is to solve.
void Explanation::lookAhead(NonNegativeSolver& solver, std::size_t frame, std::size_t step) const {
  std::array<const float*, NonNegativeSolver::kTogether> rows;
  std::size_t count = 0;
  for (; count < rows.size() && frame < m_spectra.frames(); frame += step)
    rows[count++] = m_spectra.row(frame).data();
  solver.look(std::span(rows).first(count));
}

Slices Explanation::solve(std::size_t step) {
  const std::size_t frames = m_spectra.frames();
  NonNegativeSolver solver(m_dictionary, kTolerance);
  std::span<const float> solution;
  m_coefficients = CoefficientTable();
  if (m_activations.frames() != frames) m_activations = FrameTable(frames, kPitches);
  for (std::size_t t = 0; t < frames; ++t) {
    if (t % (NonNegativeSolver::kTogether * step) == 0) lookAhead(solver, t, step);
    if (t % step == 0) {
      solution = solver.solve(t / step % NonNegativeSolver::kTogether);
      if (step > 1) m_coefficients.add(solution);
    }
    const auto row = m_activations.row(t);
    std::ranges::fill(row, 0.0F);
    for (std::size_t a = 0; a < m_dictionary.size(); ++a) row[m_dictionary.pitch(a)] += solution[a];
    co_yield share(t, frames);
  }
}

/// The note's peak in relation to the loudest pitch at its attack.
float Explanation::shareAtAttack(const Candidate& note) const {
  float loudest = note.peak;
  const Frame end = std::min(note.onset + kAttackFrames, static_cast<Frame>(m_spectra.frames()));
  for (Frame t = note.onset; t < end; ++t)
    loudest = std::max(loudest, std::ranges::max(m_activations.row(static_cast<std::size_t>(t))));
  return note.peak / loudest;
}

Slices Explanation::learn(std::span<const Candidate> notes, Adaptation::Sound& known) {
  Adaptation adaptation(m_spectra, m_dictionary, m_coefficients, kLearningStep);
  adaptation.recall(known);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    adaptation.learn(notes[i], shareAtAttack(notes[i]));
    co_yield share(i, notes.size());
  }
  known = adaptation.sound();
  m_dictionary = adaptation.dictionary();
}

}  // namespace korvel::precise
