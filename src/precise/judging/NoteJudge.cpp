// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/NoteJudge.h"

#include <algorithm>
#include <cstddef>

#include "precise/Observer.h"
#include "precise/judging/Company.h"
#include "precise/judging/NoteFormula.h"
#include "precise/judging/OnsetIndex.h"
#include "precise/judging/Tables.h"

namespace korvel::precise {
namespace {

using platform::Slices;

/// A candidate whose own probability is less than this share of the one that is asked for is no
/// note in any company.
constexpr double kShareByItself = 0.4;
/// One that is so probable by itself, and probable enough in company to the formula, is one unless
/// the networks leave it less than this share of what is asked for.
constexpr double kSureByItself = 0.7;
constexpr double kShareOfSure = 0.75;
/// Progress: the share of judging that is spent on looking at each note by itself.
constexpr double kShareOfEach = 0.7;
/// Progress: the share of that which is spent on finding the loudest pitch of each frame.
constexpr double kShareOfLoudest = 0.1;
/// Progress: the shares of judging in company that are spent on finding out which notes sound
/// together, and on writing it into their features.
constexpr double kShareOfMeeting = 0.4;
constexpr double kShareOfAdding = 0.3;

double share(std::size_t done, std::size_t all) {
  return static_cast<double>(done) / static_cast<double>(all);
}

}  // namespace

NoteJudge::NoteJudge(const Seen& seen, double threshold, Observer* observer)
    : m_seen(seen), m_threshold(threshold), m_observer(observer) {}

Slices NoteJudge::judge(std::span<Candidate> candidates) {
  Slices judging = judgeEach(candidates);
  while (judging.next()) co_yield judging.done() * kShareOfEach;
  judging = judgeInCompany(candidates);
  while (judging.next()) co_yield kShareOfEach + judging.done() * (1 - kShareOfEach);
}

Slices NoteJudge::findLoudest() {
  const std::size_t frames = m_seen.activations.frames();
  m_loudest.resize(frames);
  for (std::size_t t = 0; t < frames; ++t) {
    m_loudest[t] = std::ranges::max(m_seen.activations.row(t));
    co_yield share(t, frames);
  }
}

Slices NoteJudge::judgeEach(std::span<Candidate> candidates) {
  Slices finding = findLoudest();
  while (finding.next()) co_yield finding.done() * kShareOfLoudest;
  const OnsetIndex onsets(candidates);
  const NoteFormula formula(m_seen.activations, m_seen.spectra, m_seen.flux, onsets, m_loudest);
  m_known.resize(candidates.size());
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    m_known[i] = formula.features(candidates[i]);
    candidates[i].probability = logistic(noteTerms(), m_known[i]);
    co_yield kShareOfLoudest + (1 - kShareOfLoudest) * share(i, candidates.size());
  }
}

Slices NoteJudge::judgeInCompany(std::span<Candidate> candidates) {
  Company company(candidates);
  Slices meeting = company.meetAll();
  while (meeting.next()) co_yield meeting.done() * kShareOfMeeting;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    company.add(i, m_known[i]);
    if (m_observer) m_observer->note(candidates[i], m_known[i]);
    co_yield kShareOfMeeting + share(i, candidates.size()) * kShareOfAdding;
  }
  m_probable.resize(candidates.size());
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    const double inCompany = probabilityInCompany(m_known[i]);
    m_probable[i] = isProbable(candidates[i].probability, inCompany, m_known[i]);
    candidates[i].probability = inCompany;
    co_yield kShareOfMeeting + kShareOfAdding +
        (1 - kShareOfMeeting - kShareOfAdding) * share(i, candidates.size());
  }
}

bool NoteJudge::isProbable(double byItself, double inCompany,
                           const Features<NoteFeature>& known) const {
  const bool isSure = byItself > kSureByItself && logistic(companyTerms(), known) > m_threshold;
  return byItself >= kShareByItself * m_threshold &&
         inCompany > (isSure ? kShareOfSure : 1) * m_threshold;
}

}  // namespace korvel::precise
