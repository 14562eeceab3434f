// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/Engine.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/loop/Slices.h"
#include "precise/Experience.h"
#include "precise/Intake.h"
#include "precise/Observer.h"
#include "precise/Settings.h"
#include "precise/ending/NoteEnds.h"
#include "precise/judging/Candidate.h"
#include "precise/judging/Choice.h"
#include "precise/judging/NoteJudge.h"
#include "precise/judging/OnsetIndex.h"
#include "precise/judging/Tables.h"
#include "precise/judging/Tracker.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"
#include "precise/seeing/FrontEnd.h"
#include "precise/seeing/Levels.h"
#include "precise/seeing/Recording.h"
#include "precise/seeing/Tuning.h"
#include "precise/solving/Explanation.h"
#include "precise/striking/NoteOnsets.h"
#include "precise/striking/OnsetInputs.h"
#include "precise/striking/ReattackFormula.h"
#include "precise/striking/StrikeInputs.h"
#include "precise/striking/StrikeNet.h"

namespace korvel::precise {
namespace {

using platform::Slices;

/// Rows of a table whose memory is given back at once.
constexpr std::size_t kFramesGivenBack = 8192;

double share(std::size_t done, std::size_t all) {
  return static_cast<double>(done) / static_cast<double>(all);
}

}  // namespace

/// The work is a list of passes over the recording, each of which builds on those before.
class Engine::State {
 public:
  State(double sensitivity, Observer* observer)
      : m_threshold(thresholdOf(sensitivity)), m_observer(observer) {}
  State(double sensitivity, Experience& experience)
      : m_threshold(thresholdOf(sensitivity)), m_observer(nullptr), m_experience(experience) {}

  void add(std::span<const float> samples);
  void addHalved(std::span<const float> samples, double energy);
  bool step(double seconds);
  double progress() const;
  Analysis take();

 private:
  struct Pass {
    Slices (State::*run)();
    /// In comparison with the other passes.
    double cost;
  };
  static std::span<const Pass> passes();
  static double totalCost();
  void finishSamples();
  void startPass();
  void finishPass();

  Slices tune();
  Slices see();
  Slices findLevels();
  Slices level();
  Slices solveQuickly() { return m_explanation->solveQuickly(); }
  Slices solveFully() { return m_explanation->solveFully(); }
  Slices trackSureNotes() { return track(kLearningNotes); }
  Slices trackCandidates() { return track(kCandidateNotes); }
  Slices track(TrackerSettings settings);
  Slices learn();
  Slices judgeReattacks();
  Slices judgeNotes();
  Slices findOnsets();
  Slices findEnds();
  Slices giveBack();

  const FrameTable& activations() const { return m_explanation->activations(); }
  Note noteOf(const Candidate& candidate) const;

  double m_threshold;
  Observer* m_observer;
  Experience m_none;
  Experience& m_experience = m_none;
  std::size_t m_lessons = 0;
  Intake m_intake;
  Recording m_recording;
  double m_seconds = 0;
  std::size_t m_frames = 0;

  std::size_t m_pass = 0;
  double m_costDone = 0;
  Slices m_running;
  bool m_started = false;
  bool m_silent = false;

  double m_tuningOffset = 0;
  double m_energy = 0;
  FrameTable m_spectra;
  FrameTable m_turns;
  std::optional<Flux> m_flux;
  Levels m_levels;
  std::optional<Explanation> m_explanation;  ///< Once the spectra are levelled.
  std::vector<Candidate> m_candidates;
  std::vector<Candidate> m_doubtful;  ///< What may be a note but is not among the candidates.
  std::optional<NoteJudge> m_judge;   ///< From when notes are judged until their ends are found.
};

std::span<const Engine::State::Pass> Engine::State::passes() {
  static constexpr std::array kPasses = {
      Pass{&State::tune, 0.1},
      Pass{&State::see, 0.45},
      Pass{&State::findLevels, 0.1},
      Pass{&State::level, 0.05},
      Pass{&State::solveQuickly, 0.5},
      Pass{&State::trackSureNotes, 0.05},
      Pass{&State::learn, 0.1},
      Pass{&State::solveQuickly, 0.45},
      Pass{&State::trackSureNotes, 0.05},
      Pass{&State::learn, 0.05},
      Pass{&State::solveFully, 0.55},
      Pass{&State::trackCandidates, 0.05},
      Pass{&State::judgeReattacks, 0.05},
      Pass{&State::judgeNotes, 0.1},
      Pass{&State::findOnsets, 0.02},
      Pass{&State::findEnds, 0.5},
      Pass{&State::giveBack, 0.02},
  };
  return kPasses;
}

double Engine::State::totalCost() {
  double sum = 0;
  for (const Pass& pass : passes()) sum += pass.cost;
  return sum;
}

void Engine::State::add(std::span<const float> samples) {
  constexpr std::size_t kPiece = 4096;
  while (!samples.empty()) {
    const auto piece = samples.first(std::min(samples.size(), kPiece));
    const auto halved = m_intake.add(piece);
    addHalved(halved, m_intake.energy());
    samples = samples.subspan(piece.size());
  }
}

void Engine::State::addHalved(std::span<const float> samples, double energy) {
  assert(!m_started);
  m_recording.add(samples);
  m_energy = energy;
}

void Engine::State::finishSamples() {
  m_started = true;
  m_recording.add(m_intake.finish());
  m_recording.finish();
  m_seconds = static_cast<double>(m_recording.full().size()) / kRate;
  m_frames = (m_recording.full().size() + kHop - 1) / kHop;
  startPass();
}

void Engine::State::startPass() {
  m_running = m_pass < passes().size() ? (this->*passes()[m_pass].run)() : Slices();
}

/// When nothing was recorded, the rest of the work is left out.
void Engine::State::finishPass() {
  m_costDone = m_silent ? totalCost() : m_costDone + passes()[m_pass].cost;
  m_pass = m_silent ? passes().size() : m_pass + 1;
  startPass();
}

bool Engine::State::step(double seconds) {
  if (!m_started) finishSamples();
  const double target = progress() + seconds / std::max(m_seconds, 1e-3);
  while (m_pass < passes().size() && progress() < target)
    if (!m_running.next()) finishPass();
  return m_pass < passes().size();
}

double Engine::State::progress() const {
  const double current = m_pass < passes().size() ? passes()[m_pass].cost * m_running.done() : 0;
  return (m_costDone + current) / totalCost();
}

Slices Engine::State::tune() {
  Tuning tuning;
  const std::size_t windows = Tuning::windows(m_recording.full().size());
  for (std::size_t i = 0; i < windows; i += 2) {
    tuning.look(m_recording.full(), i);
    co_yield share(i, windows);
  }
  m_tuningOffset = Tuning::nearest(tuning.offset(m_experience.tuning), m_experience.expectedOffset);
}

Slices Engine::State::see() {
  FrontEnd frontEnd(m_tuningOffset);
  m_spectra = FrameTable(m_frames, kBins);
  m_turns = FrameTable(m_frames, kOnsetBins);
  m_flux.emplace(m_frames);
  for (std::size_t t = 0; t < m_frames; t += 2) {
    const auto frame = static_cast<Frame>(t);
    frontEnd.look(m_recording, frame);
    for (std::size_t i = 0; i < std::min<std::size_t>(2, m_frames - t); ++i) {
      std::ranges::copy(frontEnd.spectrum(i), m_spectra.row(t + i).begin());
      std::ranges::copy(frontEnd.turns(i), m_turns.row(t + i).begin());
      m_flux->add(frontEnd.onsetSpectrum(i));
    }
    m_recording.release(frame * static_cast<Frame>(kHop) - FrontEnd::kReach);
    co_yield share(t, m_frames);
  }
  m_flux->settle(m_experience.flux);
  m_recording = Recording();
}

Slices Engine::State::findLevels() {
  Slices measuring = m_levels.measure(m_spectra, m_energy / std::max(kInputRate * m_seconds, 1.0),
                                      m_experience.levels);
  while (measuring.next()) co_yield measuring.done();
  m_silent = m_levels.ref() == 0;
}

Slices Engine::State::level() {
  for (std::size_t t = 0; t < m_frames; ++t) {
    m_levels.apply(m_spectra.row(t).first<kBins>());
    co_yield share(t, m_frames);
  }
  m_explanation.emplace(m_spectra);
}

Slices Engine::State::track(TrackerSettings settings) {
  m_candidates.clear();
  Tracker tracker(activations(), *m_flux, settings);
  Slices tracking = tracker.track(m_candidates);
  while (tracking.next()) co_yield tracking.done();
}

Slices Engine::State::learn() {
  sortByOnset(m_candidates);
  keepSixStrongest(m_candidates);
  Slices learning = m_explanation->learn(m_candidates, m_experience.sounds.at(m_lessons++));
  while (learning.next()) co_yield learning.done();
}

/// Joins what was not struck again to the candidate before it. They are still in order of pitch.
Slices Engine::State::judgeReattacks() {
  const OnsetIndex onsets(m_candidates);
  const ReattackFormula formula(activations(), *m_flux, onsets);
  const StrikeInputs inputs(activations(), m_turns, *m_flux);
  if (m_observer) m_observer->tracked(m_candidates);
  std::vector<Candidate> kept;
  for (std::size_t i = 0; i < m_candidates.size(); ++i) {
    const Candidate& candidate = m_candidates[i];
    const bool continues = candidate.reattack && !kept.empty() &&
                           kept.back().pitch == candidate.pitch &&
                           kept.back().end == candidate.onset;
    bool struck = true;
    if (continues) {
      const auto known = inputs.of(candidate, formula.features(candidate, m_candidates[i - 1]));
      if (m_observer) m_observer->reattack(candidate, known);
      struck = isStruckAgain(known);
    }
    if (struck)
      kept.push_back(candidate);
    else
      kept.back().end = candidate.end;
    co_yield share(i, m_candidates.size());
  }
  m_candidates = std::move(kept);
}

Slices Engine::State::judgeNotes() {
  m_judge.emplace(
      NoteJudge::Seen{.activations = activations(), .spectra = m_spectra, .flux = *m_flux},
      m_threshold, m_observer);
  Slices judging = m_judge->judge(m_candidates);
  while (judging.next()) co_yield judging.done();
  co_yield 1;
  Choice choice(m_candidates, m_judge->probable(), m_threshold, *m_flux);
  m_candidates = std::move(choice.notes);
  m_doubtful = std::move(choice.doubtful);
}

Slices Engine::State::findOnsets() {
  const NoteOnsets noteOnsets(m_candidates);
  std::vector<Frame> onsets(m_candidates.size());
  for (std::size_t i = 0; i < onsets.size(); ++i) {
    const OnsetInputs known(activations(), m_turns, *m_flux, m_candidates[i]);
    if (m_observer) m_observer->onset(m_candidates[i], known);
    onsets[i] = noteOnsets.onsetOf(i, known);
    co_yield share(i, onsets.size());
  }
  for (std::size_t i = 0; i < onsets.size(); ++i) m_candidates[i].onset = onsets[i];
  sortByOnset(m_candidates);
}

Slices Engine::State::findEnds() {
  const NoteEnds noteEnds({.activations = activations(),
                           .loudest = m_judge->loudest(),
                           .spectra = m_spectra,
                           .flux = *m_flux,
                           .gains = m_levels.gains()},
                          m_candidates, m_observer);
  std::vector<Frame> ends(m_candidates.size());
  for (std::size_t i = 0; i < ends.size(); ++i) {
    ends[i] = noteEnds.endOf(i);
    co_yield share(i, ends.size());
  }
  for (std::size_t i = 0; i < ends.size(); ++i) m_candidates[i].end = ends[i];
  dropWhatSoundsWith(m_candidates, m_doubtful);
}

/// What nobody needs any more: of an hour it would take long to give it all back at once.
Slices Engine::State::giveBack() {
  m_judge.reset();
  co_yield 0.1;
  m_flux.reset();
  for (std::size_t end = 0; end < m_frames; end += kFramesGivenBack) {
    m_spectra.release(end);
    m_turns.release(end);
    co_yield 0.3 + 0.7 * share(end, m_frames);
  }
  m_spectra = {};
  m_turns = {};
}

Note Engine::State::noteOf(const Candidate& candidate) const {
  return {.onset = static_cast<double>(candidate.onset) / kFramesPerSecond,
          .end = static_cast<double>(candidate.end) / kFramesPerSecond,
          .pitch = static_cast<int>(candidate.pitch) + Analysis::kLowestPitch,
          .strength = candidate.peak,
          .probability = static_cast<float>(candidate.probability),
          .amplitude = static_cast<float>(Analysis::amplitude(candidate.peak, m_levels.ref()))};
}

Analysis Engine::State::take() {
  assert(m_started && m_pass == passes().size());
  Analysis analysis;
  analysis.frames = m_frames;
  analysis.ref = m_levels.ref();
  analysis.tuningOffset = m_tuningOffset;
  analysis.activations =
      m_silent ? FrameTable(m_frames, kPitches) : m_explanation->takeActivations();
  for (const Candidate& note : m_candidates) analysis.notes.push_back(noteOf(note));
  for (const Candidate& note : m_doubtful) analysis.doubtful.push_back(noteOf(note));
  return analysis;
}

Engine::Engine(double sensitivity, Observer* observer)
    : m_state(std::make_unique<State>(sensitivity, observer)) {}
Engine::Engine(double sensitivity, Experience& experience)
    : m_state(std::make_unique<State>(sensitivity, experience)) {}
Engine::Engine(Engine&&) noexcept = default;
Engine& Engine::operator=(Engine&&) noexcept = default;
Engine::~Engine() = default;

void Engine::add(std::span<const float> samples) { m_state->add(samples); }

void Engine::addHalved(std::span<const float> samples, double energy) {
  m_state->addHalved(samples, energy);
}

bool Engine::step(double seconds) { return m_state->step(seconds); }

double Engine::progress() const { return m_state->progress(); }

Analysis Engine::take() { return m_state->take(); }

}  // namespace korvel::precise
