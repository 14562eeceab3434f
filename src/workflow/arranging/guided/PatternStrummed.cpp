// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/PatternStrummed.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "arrange/strumming/StrumPatterns.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/bars/FilledBars.h"
#include "workflow/arranging/guided/ChordSheet.h"
#include "workflow/arranging/guided/EasyGrips.h"
#include "workflow/editing/CopiedChord.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr std::string_view kTagOfPattern = "(Strm)";
constexpr int kFewestOfGrip = 3;

/// While chords of one name last.
struct Passage {
  ChordName name;
  int from = 0;  ///< In ticks.
  int to = 0;
  std::vector<QBChord*> chords{};
};

/// What a hand holds in a passage, and what its strokes sound like.
struct HeldGrip {
  ChordShape shape{};
  std::optional<CopiedChord::Tone> model{};

  int strings() const {
    return static_cast<int>(shape.size() -
                            static_cast<std::size_t>(std::ranges::count(shape, kNotPlayed)));
  }
  unsigned held() const {
    unsigned strings = 0;
    for (std::size_t string = 0; string < shape.size(); ++string)
      if (shape[string] != kNotPlayed) strings |= 1U << string;
    return strings;
  }
};

bool isSame(const ChordName& a, const ChordName& b) {
  return a.baseTone == b.baseTone && a.harmony == b.harmony;
}

std::vector<platform::Ref<QBTone>> playedOf(const QBChord& chord) {
  Tones tones = loudestFirst(chord);
  std::erase_if(tones, [](const auto& tone) {
    return !tone->isActive() || tone->string() < 0 || tone->string() >= kStrings;
  });
  return tones;
}

ChordShape shapeOf(const QBChord& chord) {
  ChordShape shape;
  shape.fill(kNotPlayed);
  for (const auto& tone : playedOf(chord))
    shape[static_cast<std::size_t>(tone->string())] = tone->fret();
  return shape;
}

/// All frets of a passage, if no string has two of them: a grip that is picked.
std::optional<ChordShape> unionOf(const std::vector<QBChord*>& chords) {
  ChordShape all;
  all.fill(kNotPlayed);
  for (const QBChord* chord : chords) {
    const ChordShape shape = shapeOf(*chord);
    for (std::size_t string = 0; string < all.size(); ++string) {
      if (shape[string] == kNotPlayed) continue;
      if (all[string] != kNotPlayed && all[string] != shape[string]) return std::nullopt;
      all[string] = shape[string];
    }
  }
  return all;
}

HeldGrip heldIn(const Passage& passage) {
  HeldGrip grip;
  grip.shape.fill(kNotPlayed);
  for (const QBChord* chord : passage.chords) {
    const HeldGrip other{shapeOf(*chord)};
    if (other.strings() > grip.strings()) grip.shape = other.shape;
    for (const auto& tone : playedOf(*chord))
      if (!grip.model || tone->amp() > grip.model->amp) grip.model.emplace(*tone);
  }
  if (const auto all = unionOf(passage.chords)) grip.shape = *all;
  return grip;
}

/// Whether a hand that holds the one holds the other, too.
bool isPartOf(const ChordShape& part, const ChordShape& whole) {
  for (std::size_t string = 0; string < part.size(); ++string)
    if (part[string] != kNotPlayed && part[string] != whole[string]) return false;
  return true;
}

/// The passages of a song. A chord without tones goes on with what rings there, or is a rest.
std::vector<Passage> passagesOf(QBSong& song, const ChordSheet& sheet, const SongTime& time) {
  std::vector<Passage> passages;
  const auto& chords = song.allChords();
  int rings = time.begin();
  bool goesOn = false;
  for (std::size_t i = 0; i < chords.size(); ++i) {
    const ChordSheet::Step& step = sheet.steps()[i];
    const int from = time.tickOf(i), to = time.tickOf(i + 1);
    if (!step) {
      const Passage* before = goesOn ? &passages.back() : nullptr;
      const bool isNamed = before && chords[i]->harmony() == before->name.harmony &&
                           chords[i]->hasBaseTone() &&
                           chords[i]->baseTone() == before->name.baseTone;
      goesOn = before && (isNamed || rings > from);
      if (goesOn) passages.back().to = to;
      continue;
    }
    if (!goesOn || !isSame(passages.back().name, *step)) passages.push_back({*step, from, to});
    goesOn = true;
    passages.back().to = to;
    passages.back().chords.push_back(chords[i].get());
    for (const auto& tone : playedOf(*chords[i])) rings = std::max(rings, from + tone->ticks());
  }
  return passages;
}

/// When a tick comes by the beats of the song, straight on before and behind those that are known.
class BeatTimes {
 public:
  BeatTimes(QBSong& song, const SongTime& time) {
    const auto& chords = song.allChords();
    for (std::size_t i = 0; i < chords.size(); ++i)
      if (chords[i]->hasBeatTime() && (m_points.empty() || m_points.back().tick < time.tickOf(i)))
        m_points.push_back({time.tickOf(i), static_cast<double>(chords[i]->beatTime())});
  }

  std::optional<std::int64_t> at(int tick) const {
    if (m_points.size() < 2) return std::nullopt;
    auto next = std::ranges::upper_bound(m_points, tick, {}, &Point::tick);
    next = std::clamp(next, m_points.begin() + 1, m_points.end() - 1);
    const Point& a = *(next - 1);
    const double share = static_cast<double>(tick - a.tick) / (next->tick - a.tick);
    return std::max<std::int64_t>(std::llround(std::lerp(a.sample, next->sample, share)), 0);
  }

 private:
  struct Point {
    int tick;
    double sample;
  };

  std::vector<Point> m_points;
};

class PatternStrummer {
 public:
  PatternStrummer(QBSong& song, const StrumPattern& pattern, QBSong& made)
      : m_song(song),
        m_pattern(pattern),
        m_made(made),
        m_time(song, SongTime::Tempo::strict),
        m_beats(song, m_time),
        m_grips(openStringsOf(&song)) {}

  void strumAll(const ChordSheet& sheet) {
    const std::vector<BarSpan> bars = barsOf(m_song);
    const std::vector<Passage> passages = passagesOf(m_song, sheet, m_time);
    std::vector<HeldGrip> grips;
    for (const Passage& passage : passages) grips.push_back(gripOf(passage));
    int end = m_time.begin();
    for (std::size_t i = 0; i < passages.size(); ++i) {
      if (passages[i].from > end) place(end);  // a rest
      for (std::size_t other = 0; other < passages.size(); ++other)
        if (isSame(passages[i].name, passages[other].name) &&
            isPartOf(grips[i].shape, grips[other].shape))
          grips[i].shape = grips[other].shape;
      play(passages[i], grips[i], bars);
      end = passages[i].to;
    }
    if (end < m_time.end()) place(end);
    fillBars(m_made, m_placed, bars);
    endTonesAtNextStrike(m_made);
  }

 private:
  HeldGrip gripOf(const Passage& passage) {
    HeldGrip grip = heldIn(passage);
    if (grip.strings() < kFewestOfGrip)
      if (const auto& easiest = m_grips.gripOf(passage.name)) grip.shape = *easiest;
    return grip;
  }

  void play(const Passage& passage, const HeldGrip& grip, const std::vector<BarSpan>& bars) {
    if (!grip.model) return;
    for (const BarSpan& bar : bars) {
      const HeldPart part{bar.beat,
                          bar.beattype,
                          &bar == bars.data() ? bar.end - bar.fullTicks() : bar.begin,
                          std::max(passage.from, bar.begin),
                          std::min(passage.to, bar.end),
                          passage.from >= bar.begin};
      if (part.from < part.to) playBar(passage, grip, part, bar.isInCompoundTime());
    }
  }

  void playBar(const Passage& passage, const HeldGrip& grip, const HeldPart& part, bool compound) {
    int silent = part.from;
    const auto rest = [&](int until) {
      if (silent < until) nameAs(passage, place(silent));
    };
    for (const Strike& strike : strikesOf(m_pattern, part, grip.held())) {
      rest(strike.tick);
      QBChord& chord = place(strike.tick);
      nameAs(passage, chord);
      for (const Strike::String& each : strike.strings) {
        CopiedChord::Tone tone = *grip.model;
        tone.amp *= strike.loudness;
        tone.duration = sixteenthsAlone(strike.tick, strike.tick + each.ticks, compound);
        tone.addTo(*chord.hold(), each.string, grip.shape[static_cast<std::size_t>(each.string)]);
        chord.hold()->findToneByString(each.string)->setTicks(each.ticks);
      }
      silent = strike.tick + strike.ticks;
    }
    rest(part.to);
  }

  QBChord& place(int tick) {
    QBChord* chord = m_made.createChord();
    if (const auto sample = m_beats.at(tick)) {
      chord->setBeatTime(*sample);
      chord->setTimestamp(*sample);
    }
    m_placed.push_back({platform::Ref<QBChord>(chord), tick});
    return *chord;
  }

  static void nameAs(const Passage& passage, QBChord& chord) {
    chord.setHarmony(passage.name.harmony);
    chord.setBaseTone(passage.name.baseTone);
  }

  QBSong& m_song;
  const StrumPattern& m_pattern;
  QBSong& m_made;
  const SongTime m_time;
  const BeatTimes m_beats;
  EasyGrips m_grips;
  std::vector<PlacedChord> m_placed;
};

QBSong* strummedIn(QBSong& song, const StrumPattern& pattern) {
  if (!song.isOnBeats())
    throw EditRefused(
        phrase("Message", "%1: it is not written in beats, so no pattern of strokes fits it"),
        song.title());
  const ChordSheet sheet(song, false);
  sheet.requireNames(song);
  const std::string title = nameOf(song).tagged(kTagOfPattern);
  QBSong* made = emptyBeside(song, title);
  made->takeWordsOf(song);
  PatternStrummer(song, pattern, *made).strumAll(sheet);
  return finished(made, title);
}

}  // namespace

SongGuide strummedBy(const StrumPattern& pattern) {
  return {phrase("UndoAction", "Strum"), phrase("Log", "Song strummed."),
          [&pattern](QBSong& song, QBSong&) { return strummedIn(song, pattern); }};
}

}  // namespace korvel
