// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/judging/ReadingSearch.h"

#include <algorithm>
#include <cmath>

#include "rhythm/beats/BeatFit.h"
#include "rhythm/judging/CueContrast.h"
#include "rhythm/judging/OnsetPhases.h"
#include "rhythm/judging/PlaceFit.h"
#include "rhythm/judging/ReadingWeights.h"

namespace korvel::rhythm {
namespace {

constexpr std::size_t kMostTracks = 14;
/// How exactly notes are played, in seconds, while tracks are chosen.
constexpr double kWidthOfChoice = 0.030;
constexpr double kUsualTempo = 108;
constexpr double kUsualBar = 2.1;  // seconds

double octavesFromUsual(double tempo) { return std::log2(tempo / kUsualTempo); }

/// How probable a tempo is before anything is heard.
double priorOfTempo(double tempo) {
  const double far = octavesFromUsual(tempo) / 0.55;
  return -4.5 * far * far;
}

double bendOf(const BeatTrack& track) {
  double sum = 0;
  for (std::size_t i = 0; i + 2 < track.size(); ++i) {
    sum += std::abs(std::log((track[i + 2] - track[i + 1]) / (track[i + 1] - track[i])));
  }
  const auto count = static_cast<double>(std::max<std::size_t>(1, track.size() - 2));
  return 60 * sum / count / medianBeat(track);
}

bool isOnBar(const Phase& phase, const Bars& bars) {
  constexpr float kNear = 0.2F;
  if (phase.share <= kNear) return bars.of(phase.beat) == 0;
  return phase.share >= 1 - kNear && bars.of(phase.beat + 1) == 0;
}

/// Who plays to a click often cuts the take at a bar line: how near one is to its beginning, 0..1.
double nearnessOfStart(const BeatTrack& track, const Bars& bars) {
  constexpr double kWidth = 0.04;  // seconds
  constexpr double kMostBars = 3;
  if (track.size() < 2 || bars.first >= track.size()) return 0;
  const double bar = (track[1] - track[0]) * static_cast<double>(bars.beats);
  const double line = track[bars.first];
  if (line > kMostBars * bar) return 0;
  const double off = std::remainder(line, bar) / kWidth;
  return std::exp(-off * off / 2);
}

Feature featureOfMetre(Division division, std::size_t beats) {
  const bool binary = division == Division::binary;
  if (beats == 2) return binary ? Feature::binaryTwo : Feature::ternaryTwo;
  if (beats == 3) return binary ? Feature::binaryThree : Feature::ternaryThree;
  return binary ? Feature::binaryFour : Feature::ternaryFour;
}

double scoreOf(const ReadingFeatures& features) {
  double sum = 0;
  for (std::size_t i = 0; i < kFeatures; ++i) sum += kReadingWeights[i] * features.values()[i];
  return sum;
}

}  // namespace

/// What says how many notes and chords a beat has.
void ReadingSearch::setTextures(ReadingFeatures& features, const Candidate& candidate,
                                const DivisionUse& use, const PlaceFit& fit) const {
  constexpr double kUsualOnsets = 1.5, kUsualChanges = 0.7;
  const double seconds = std::max(1.0, m_onsets.back().time - m_onsets.front().time);
  const double beats = seconds * candidate.tempo / 60;
  const double bars = beats / static_cast<double>(candidate.bars.beats);
  const auto changes = static_cast<double>(m_changes.times().size()) + 0.5;
  const double onsets =
      std::log2(static_cast<double>(m_onsets.size()) / (beats + 1) / kUsualOnsets);
  const double changing = std::clamp(std::log2(changes / (bars + 0.5) / kUsualChanges), -3.0, 3.0);
  const bool ternary = candidate.division == Division::ternary;
  features[Feature::ternaryTempo] = ternary ? octavesFromUsual(candidate.tempo) : 0;
  features[Feature::sixTempo] =
      ternary && candidate.bars.beats == 2 ? octavesFromUsual(candidate.tempo) : 0;
  features[Feature::onsetsOfBeat] = onsets;
  features[Feature::onsetsOfBeatSquared] = onsets * onsets;
  features[Feature::emptyBeats] = use.emptyBeats;
  features[Feature::changesOfBar] = changing;
  features[Feature::changesOfBarSquared] = changing * changing;
  features[Feature::beatFit] = fit.score;
}

/// What says how beats are divided, which tells 6/8 from triplets and from swing.
void ReadingSearch::setDivisions(ReadingFeatures& features, const Candidate& candidate,
                                 const DivisionUse& use) const {
  features[Feature::fine] = use.fine;
  if (candidate.division != Division::ternary) return;
  features[Feature::idleTernary] = use.firstThird + use.secondThird < 0.05;
  features[Feature::halfInTernary] = use.half;
  if (candidate.bars.beats == 2) {
    features[Feature::notSix] = !use.hasBothThirds() || use.half > 0.05;
    features[Feature::thirdsOfSix] = use.firstThird;
  } else {
    features[Feature::thirdsOfTriplets] = use.firstThird;
  }
}

/// What says whether the recording begins and ends with whole bars.
void ReadingSearch::setEdges(ReadingFeatures& features, const Candidate& candidate,
                             const OnsetPhases& phases) const {
  const Bars& bars = candidate.bars;
  features[Feature::startsOnBar] = isOnBar(phases.all().front(), bars);
  features[Feature::endsOnBar] = isOnBar(phases.all().back(), bars);
  features[Feature::takeOnBar] = nearnessOfStart(m_tracks[candidate.track], bars);
}

/// What says which onsets are on beats, and which beats are bar lines.
void ReadingSearch::setContrasts(ReadingFeatures& features, const OnsetPhases& phases,
                                 const Bars& bars) const {
  constexpr float kOnBeat = 0.12F, kOffBeat = 0.2F;
  CueContrast beats, lines;
  for (std::size_t i = 0; i < m_onsets.size(); ++i) {
    const Phase& phase = phases.all()[i];
    const float off = std::min(phase.share, 1 - phase.share);
    if (off <= kOnBeat) {
      beats.add(m_onsets[i], true);
      lines.add(m_onsets[i], bars.of(phase.beat + (phase.share > 0.5F)) == 0);
    } else if (off >= kOffBeat) {
      beats.add(m_onsets[i], false);
    }
  }
  features.setFrom(Feature::beatLoud, beats.result());
  features.setFrom(Feature::barLoud, lines.result());
}

bool Candidate::isOther(const Candidate& than) const {
  constexpr double kOneTempo = 0.04;
  return std::abs(std::log(tempo / than.tempo)) > kOneTempo || metre() != than.metre() ||
         feel != than.feel;
}

ReadingSearch::ReadingSearch(std::span<const Onset> onsets, const ChordChanges& changes,
                             const ReadingLimits& limits)
    : m_onsets(onsets), m_changes(changes), m_limits(limits) {}

std::vector<Division> ReadingSearch::divisions() const {
  if (m_limits.metre && m_limits.metre->compound) return {Division::ternary};
  if (!m_limits.feel) return {Division::binary, Division::ternary};
  return {*m_limits.feel == Feel::straight ? Division::binary : Division::ternary};
}

std::vector<BeatTrack> ReadingSearch::variants(const BeatTrack& track) const {
  const double from = m_onsets.front().time, to = m_onsets.back().time;
  std::vector<BeatTrack> result;
  if (!m_limits.keepsBeats) result = multiplesOf(track, m_limits.lengths, from, to);
  if (!result.empty()) return result;
  result.push_back(track);
  extend(result.back(), from, to);
  return result;
}

platform::Slices ReadingSearch::run(std::vector<BeatTrack> tracks) {
  constexpr double kShareOfChoice = 0.6;
  std::vector<Rated> all;
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    for (BeatTrack& track : variants(tracks[i])) {
      all.push_back(rated(std::move(track)));
      co_yield kShareOfChoice* static_cast<double>(i) / static_cast<double>(tracks.size());
    }
  }
  keepBest(all);
  for (std::size_t i = 0; i < m_tracks.size(); ++i) {
    const double done = static_cast<double>(i) / static_cast<double>(m_tracks.size());
    for (const Division division : divisions()) {
      co_yield kShareOfChoice + (1 - kShareOfChoice) * done;
      scoreTrack(i, division);
    }
  }
  rank();
}

/// What it costs that beats are not where they are wished.
double ReadingSearch::penalty(const BeatTrack& track) const {
  constexpr double kPriceOfBeat = 60;
  const double length = medianBeat(track);
  const auto price = [&](double time) {
    const double far = std::abs(track[nearestBeat(track, time)] - time) / length;
    return kPriceOfBeat * std::min(0.25, far * far);
  };
  double sum = m_limits.barLine ? price(*m_limits.barLine) : 0;
  for (const double time : m_limits.fixedBeats) sum += price(time);
  return sum;
}

ReadingSearch::Rated ReadingSearch::rated(BeatTrack track) const {
  OnsetPhases phases(m_onsets, track);
  phases.setWidth(kWidthOfChoice);
  Rated result{std::move(track), -1e30, Division::binary};
  for (const Division division : divisions()) {
    const double score = placeFit(m_onsets, phases.all(), division).score;
    if (score <= result.score) continue;
    result.score = score;
    result.division = division;
  }
  result.score += priorOfTempo(60 / medianBeat(result.track)) - penalty(result.track);
  return result;
}

/// Of tracks that are alike, the best one.
void ReadingSearch::keepBest(std::vector<Rated>& all) {
  std::ranges::stable_sort(all, std::greater{}, &Rated::score);
  for (Rated& one : all) {
    if (m_tracks.size() == kMostTracks) break;
    const auto isLike = [&](const BeatTrack& other) { return areAlike(one.track, other); };
    if (std::ranges::any_of(m_tracks, isLike)) continue;
    m_tracks.push_back(one.track);
    BeatFitSettings settings;
    settings.division = one.division;
    settings.fixed = m_limits.fixedBeats;
    fitBeats(m_tracks.back(), m_onsets, settings);
    extend(m_tracks.back(), m_onsets.front().time, m_onsets.back().time);
  }
}

void ReadingSearch::scoreTrack(std::size_t track, Division division) {
  OnsetPhases phases(m_onsets, m_tracks[track]);
  const DivisionUse use = useOf(m_onsets, phases.all());
  const PlaceFit fit = bestPlaceFit(m_onsets, phases, division);
  Candidate candidate;
  candidate.track = track;
  candidate.division = division;
  candidate.tempo = 60 / medianBeat(m_tracks[track]);
  candidate.penalty = penalty(m_tracks[track]);
  const auto wished = m_limits.metre ? static_cast<std::size_t>(m_limits.metre->beats) : 0;
  for (std::size_t beats = wished ? wished : 2; beats <= (wished ? wished : 4); ++beats) {
    for (std::size_t first = 0; first < beats; ++first) {
      candidate.bars = {beats, first};
      scoreBars(candidate, phases, fit, use);
    }
  }
}

/// Who moves a bar line or a beat wants the same reading with others: tempo and metre stay if they
/// can.
void ReadingSearch::rank() {
  std::ranges::stable_sort(m_candidates, std::greater{}, &Candidate::score);
  if (!m_limits.barLine && m_limits.fixedBeats.empty()) return;
  constexpr double kBonusOfSame = 20;
  const Candidate free = m_candidates.front();
  std::erase_if(m_candidates, [&](const Candidate& one) { return !allows(one); });
  for (Candidate& one : m_candidates) {
    if (!one.isOther(free)) one.score += kBonusOfSame;
    one.score -= one.penalty;
  }
  std::ranges::stable_sort(m_candidates, std::greater{}, &Candidate::score);
}

bool ReadingSearch::allows(const Candidate& candidate) const {
  if (!m_limits.barLine) return true;
  return candidate.bars.of(nearestBeat(m_tracks[candidate.track], *m_limits.barLine)) == 0;
}

void ReadingSearch::scoreBars(Candidate candidate, const OnsetPhases& phases, const PlaceFit& fit,
                              const DivisionUse& use) {
  const BeatTrack& track = m_tracks[candidate.track];
  const Bars& bars = candidate.bars;
  const bool ternary = candidate.division == Division::ternary;
  const bool six = ternary && bars.beats == 2 && use.isSixEight() && !m_limits.feel;
  candidate.compound = m_limits.metre ? m_limits.metre->compound : six;
  if (ternary && !candidate.compound) candidate.feel = m_limits.feel.value_or(use.ternaryFeel());
  ReadingFeatures& features = candidate.features;
  const double tempo = octavesFromUsual(candidate.tempo);
  const double bar = std::log2(60 / candidate.tempo * static_cast<double>(bars.beats) / kUsualBar);
  features[Feature::barFit] = barFit(m_onsets, phases.all(), fit, bars);
  features[Feature::chordFit] = m_changes.fit(track, bars);
  features[Feature::tempo] = tempo;
  features[Feature::tempoSquared] = tempo * tempo;
  features[Feature::barLength] = bar;
  features[Feature::barLengthSquared] = bar * bar;
  features[Feature::bend] = bendOf(track);
  features[featureOfMetre(candidate.division, bars.beats)] = 1;
  setTextures(features, candidate, use, fit);
  setDivisions(features, candidate, use);
  setEdges(features, candidate, phases);
  setContrasts(features, phases, bars);
  candidate.score = scoreOf(features);
  m_candidates.push_back(candidate);
}

}  // namespace korvel::rhythm
