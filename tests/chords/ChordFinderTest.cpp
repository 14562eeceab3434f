// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/ChordFinder.h"

#include <cmath>
#include <random>
#include <sstream>

#include "chords/BandEar.h"
#include "chords/judging/Repeats.h"
#include "support/Testing.h"
#include "support/sound/PlayedBand.h"

namespace korvel::chords {
namespace {

constexpr int kRate = 44100;
constexpr double kBeat = 0.5;
constexpr int kBeatsOfChord = 4;

using Sound = std::vector<float>;

/// "9:m7" is Am7, "0:/4" is C over E.
Chord parsed(const std::string& text) {
  Chord chord{std::stoi(text), Kind::count};
  const std::string type = text.substr(text.find(':') + 1, text.find('/') - text.find(':') - 1);
  for (std::size_t i = kKinds; i-- > 0;)
    if (of(static_cast<Kind>(i)).type == type) chord.kind = static_cast<Kind>(i);
  if (text.find('/') != std::string::npos) chord.bass = std::stoi(text.substr(text.find('/') + 1));
  return chord;
}

std::string textOf(const Chord& chord) {
  if (chord.isNone()) return "N";
  const std::string text = std::to_string(chord.root) + ":" + std::string(of(chord.kind).type);
  return chord.bass < 0 ? text : text + "/" + std::to_string(chord.bass);
}

/// Each chord a bar long, its tones from C4 on and its bass below, struck on every beat, with a
/// drum: noise that dies away.
Sound played(const std::string& progression) {
  std::istringstream words(progression);
  std::vector<Chord> chords;
  for (std::string word; words >> word;) chords.push_back(parsed(word));
  Sound sound(chords.size() * static_cast<std::size_t>(kBeat * kBeatsOfChord * kRate));
  std::minstd_rand random(7);
  for (std::size_t i = 0; i < chords.size() * kBeatsOfChord; ++i) {
    const double time = static_cast<double>(i) * kBeat;
    const Chord& chord = chords[i / kBeatsOfChord];
    for (int step = 0; step < 12; ++step)
      if ((of(chord.kind).tones >> step & 1U) != 0)
        test::addTone(sound, time, 60 + (chord.root + step) % 12, 0.1);
    test::addTone(sound, time, 36 + (chord.bass < 0 ? chord.root : chord.bass), 0.2);
    const auto first = static_cast<std::size_t>(time * kRate);
    for (std::size_t k = 0; k < std::size_t{kRate} / 10; ++k)
      sound[first + k] += static_cast<float>(random() % 2000) / 10000 *
                          std::exp(-static_cast<float>(k) / 800) * 0.5F;
  }
  return sound;
}

FoundChords heard(const Sound& sound) {
  BandEar ear;
  for (std::size_t from = 0; from < sound.size(); from += 10000)
    ear.add(std::span(sound).subspan(from, std::min<std::size_t>(10000, sound.size() - from)));
  const BandSound taken = ear.take();
  std::vector<double> times;
  for (double time = 0; time <= static_cast<double>(sound.size()) / kRate + 0.01; time += kBeat)
    times.push_back(time);
  std::vector<BeatEvidence> beats = evidenceOf(taken, times);
  for (std::size_t i = 0; i < beats.size(); i += kBeatsOfChord) beats[i].onBarLine = true;
  return findChords(beats);
}

std::string namesOf(const FoundChords& found) {
  std::string names;
  for (const FoundSpan& span : found.spans)
    names += (names.empty() ? "" : " ") + textOf(span.chord);
  return names;
}

TEST(ChordFinder, namesProgressions) {
  const struct {
    std::string chords;
    int tonic;
    Mode mode;
  } cases[] = {
      {"0: 7: 9:m 5: 0: 7: 9:m 5: 0:", 0, Mode::major},
      {"9:m 2:m 4:7 9:m 5: 2:m 4:7 9:m", 9, Mode::minor},
      {"2:m 7:7 0: 9:m 2:m 7:7 0:", 0, Mode::major},
      {"2: 7: 9:sus4 9: 2: 7: 9:sus4 9: 2:", 2, Mode::major},
      {"0: 7:/11 9:m 5: 0: 7:/11 9:m 5: 0:", 0, Mode::major},
      {"4:m 6:dim 11:7 4:m 6:dim 11:7 4:m", 4, Mode::minor},
      {"4:7 9:7 4:7 11:7 9:7 4:7 9:7 4:7", 4, Mode::blues},
  };
  for (const auto& [chords, tonic, mode] : cases) {
    const FoundChords found = heard(played(chords));
    EXPECT_EQ(namesOf(found), chords);
    EXPECT_EQ(found.tonic, tonic) << chords;
    EXPECT_EQ(found.mode, mode) << chords;
    for (const FoundSpan& span : found.spans) {
      EXPECT_EQ(span.from % kBeatsOfChord, 0U) << chords;
      EXPECT_GT(span.probability, 0.4) << chords;
    }
  }
}

TEST(ChordFinder, namesPowerChordsAndOneChordThroughout) {
  EXPECT_EQ(namesOf(heard(played("9:5 7:5 2:5 9:5 7:5 2:5 9:5"))), "9:5 7:5 2:5 9:5 7:5 2:5 9:5");
  std::string bars;
  for (int bar = 0; bar < 15; ++bar) bars += "4:m ";
  EXPECT_EQ(namesOf(heard(played(bars))), "4:m");
}

TEST(ChordFinder, passagesThatComeAgainWitnessForEachOther) {
  constexpr std::size_t kRound = 16, kFaint = 22, kOther = 40;
  std::vector<BeatEvidence> evidence(3 * kRound);
  std::vector<ScoredBeat> beats(evidence.size());
  std::vector<Scores> probable(evidence.size());
  const auto bestOf = [](const ScoredBeat& beat) {
    return static_cast<std::size_t>(std::ranges::max_element(beat.scores) - beat.scores.begin());
  };
  for (std::size_t i = 0; i < beats.size(); ++i) {
    evidence[i].onBarLine = i % kBeatsOfChord == 0;
    // Faintly heard in one round, and clearly another chord in the next one.
    const std::size_t chord = i == kOther ? 3 : i % kRound / kBeatsOfChord * kSearchedKinds * 2;
    beats[i].scores[chord] = i == kFaint ? 0 : 9;
    if (i == kFaint) beats[i].scores[5] = 0.1F;
    probable[i][chord] = 1;
  }
  const std::vector<ScoredBeat> shared = withRepeats(evidence, beats, probable, {});
  EXPECT_EQ(bestOf(shared[kFaint]), bestOf(beats[kFaint - kRound]));
  EXPECT_EQ(bestOf(shared[kOther]), 3U);
}

TEST(ChordFinder, namesNoChordWhereThereIsNone) {
  EXPECT_EQ(namesOf(heard({})), "");
  EXPECT_EQ(namesOf(heard(Sound(std::size_t{4} * kRate))), "N");
  std::minstd_rand random(3);
  Sound noise(std::size_t{20} * kRate);
  for (float& sample : noise) sample = static_cast<float>(random() % 2000) / 2000 - 0.5F;
  for (const FoundSpan& span : heard(noise).spans)
    EXPECT_TRUE(span.chord.isNone() || span.probability < 0.5) << textOf(span.chord);
  noise[5] = std::numeric_limits<float>::quiet_NaN();
  heard(noise);
}

}  // namespace
}  // namespace korvel::chords
