// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/PageOfSong.h"

#include <algorithm>
#include <bit>

#include "analysis/beats/SpanProbabilities.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongLyrics.h"
#include "model/songs/ToneOrder.h"
#include "music/Pitch.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"
#include "rhythm/stored/HeardBytes.h"
#include "tab/layout/CapoNames.h"
#include "tab/layout/SongBars.h"
#include "tab/page/SongPage.h"

namespace korvel {
namespace {

constexpr int kFewestOfShape = 3;

bool hasItsName(const QBChord& chord) {
  return chord.harmony() && chord.hasBaseTone() && chord.baseTone() == pitchClass(chord.baseTone());
}

unsigned tonesOfHarmony(const QBChord& chord) {
  unsigned tones = 0;
  for (int note = 0; note < kNotesPerOctave; ++note)
    if (chord.harmony()->includesNote(chord.baseTone(), note)) tones |= 1U << note;
  return tones;
}

/// The pitch class of the lowest tone of a chord; none where nothing sounds.
std::optional<int> bassOf(const QBChord& chord, const OpenPitches& open) {
  std::optional<int> lowest;
  for (const auto& tone : tonesOf(chord)) {
    if (!tone->isActive() || tone->string() < 0 || tone->string() >= kStrings) continue;
    const int pitch = open[static_cast<std::size_t>(tone->string())] + tone->fret();
    lowest = std::min(lowest.value_or(pitch), pitch);
  }
  return lowest ? std::optional(pitchClass(*lowest)) : std::nullopt;
}

/// What was heard of the chords of a recording beside their names.
class HeardSpans {
 public:
  explicit HeardSpans(const QBSong& song) {
    if (!song.recording()) return;
    if (auto stored = rhythm::storedRhythm(song.recording()->rhythm()))
      m_reading = std::move(stored->rhythm.reading);
  }

  /// Only where the song has the chord that was heard there: it may have been corrected, or moved
  /// to another key.
  void tell(const QBChord& chord, const OpenPitches& open, PageSource::Chord& named) const {
    const std::int64_t sample = chord.hasBeatTime() ? chord.beatTime() : chord.timestamp();
    const double seconds = static_cast<double>(sample) / platform::kSampleRate;
    const double tick = m_reading.beats.empty() ? 0 : m_reading.tickOf(seconds) + kNear;
    const auto span = std::ranges::upper_bound(m_reading.chords, tick, {},
                                               [](const auto& each) { return double(each.to); });
    if (span == m_reading.chords.end() || span->root != named.root) return;
    named.isDoubtful = !chord.isEdited() && span->probability < kSureName;
    // A grip that was chosen may have it, too.
    const bool hasBass = !chord.isEdited() || bassOf(chord, open) == span->bass;
    if (hasBass && span->bass != span->root) named.bass = span->bass;
  }

 private:
  static constexpr double kNear = 0.5;  ///< Ticks: times are rounded to samples.

  rhythm::Reading m_reading;
};

/// What a chord is played with when that is a grip of all that is wanted.
std::optional<ChordShape> shapeOf(const QBChord& chord, const PageSource::Chord& named,
                                  const OpenPitches& open) {
  ChordShape shape;
  shape.fill(kNotPlayed);
  unsigned sounding = 0;
  int played = 0;
  for (const auto& tone : tonesOf(chord)) {
    if (!tone->isActive() || tone->string() < 0 || tone->string() >= kStrings) continue;
    const auto string = static_cast<std::size_t>(tone->string());
    if (shape[string] != kNotPlayed || tone->fret() < 0) return std::nullopt;
    shape[string] = tone->fret();
    sounding |= 1U << pitchClass(open[string] + tone->fret());
    ++played;
  }
  const unsigned wanted = named.pitchClasses | (named.bass < 0 ? 0U : 1U << named.bass);
  const bool hasRoot = (sounding >> named.root & 1U) != 0;
  const int enough = std::min(kFewestOfShape, std::popcount(wanted));
  if (!hasRoot || (sounding & ~wanted) != 0 || played < enough) return std::nullopt;
  if (std::popcount(sounding) < enough) return std::nullopt;
  // Two tones alone are a grip on neighbouring strings only.
  const auto isPlayed = [](int fret) { return fret != kNotPlayed; };
  const auto first = std::ranges::find_if(shape, isPlayed);
  const auto end = std::find_if_not(first, shape.end(), isPlayed);
  const bool isWhole = played >= kFewestOfShape || end - first == played;
  return isWhole ? std::optional(shape) : std::nullopt;
}

/// Gathers the chords of a song along its time.
class Gathering {
 public:
  Gathering(QBSong& song, PageSource& source) : m_song(song), m_source(source), m_heard(song) {}

  /// What is named otherwise than before begins a chord.
  void add(int index, int tick, bool isRest, int ticks, int longestRest) {
    const QBChord& chord = *m_song.allChords()[static_cast<std::size_t>(index)];
    m_end = tick + ticks;
    if (hasItsName(chord)) {
      m_rest = 0;
      if (!isSame(chord)) begin(chord, index, tick);
      tellShape(chord);
    } else if (isRest) {
      if (m_rest == 0) m_restAt = tick;
      m_rest += ticks;
      if (m_rest >= longestRest) beginNone(m_restAt, index);
    } else {
      m_rest = 0;
    }
    if (m_source.chords.empty()) beginNone(tick, index);
  }

  void finish() {
    auto& chords = m_source.chords;
    for (std::size_t i = 0; i < chords.size(); ++i)
      chords[i].ticks = (i + 1 < chords.size() ? chords[i + 1].tick : m_end) - chords[i].tick;
  }

 private:
  bool isSame(const QBChord& chord) const {
    if (m_source.chords.empty() || m_source.chords.back().root < 0) return false;
    return chord.harmony() == m_harmony && chord.baseTone() == m_source.chords.back().root;
  }

  void begin(const QBChord& chord, int index, int tick) {
    m_harmony = chord.harmony();
    PageSource::Chord named{tick, 0, chord.baseTone(), m_harmony->type(), tonesOfHarmony(chord)};
    named.index = index;
    m_heard.tell(chord, m_source.open, named);
    m_source.chords.push_back(std::move(named));
  }

  void beginNone(int tick, int index) {
    if (!m_source.chords.empty() && m_source.chords.back().root < 0) return;
    PageSource::Chord none;
    none.tick = tick;
    none.index = index;
    m_source.chords.push_back(none);
  }

  /// Of what was typed or read from a file, the grip tells the bass, which no name has.
  void tellShape(const QBChord& chord) {
    PageSource::Chord& named = m_source.chords.back();
    if (named.shape) return;
    const bool isHeard = m_song.recording() != nullptr;
    const int heardBass = named.bass;
    if (!isHeard) named.bass = bassOf(chord, m_source.open).value_or(named.root);
    if (named.bass == named.root) named.bass = -1;
    named.shape = shapeOf(chord, named, m_source.open);
    if (!named.shape) named.bass = heardBass;
  }

  QBSong& m_song;
  PageSource& m_source;
  HeardSpans m_heard;
  const QBHarmony* m_harmony = nullptr;
  int m_end = 0;
  int m_restAt = 0;
  int m_rest = 0;  ///< Ticks.
};

bool isInBars(const QBSong& song) { return song.isOnBeats() || !song.measures().empty(); }

int ticksWritten(const SongBars::Bar& bar) {
  return bar.events.back().from + bar.events.back().ticks - bar.events.front().from;
}

/// Where it lies from the beginning of the song.
int firstBarLine(const SongBars& written) {
  const SongBars::Bar& first = written.bars().front();
  return first.number == 0 ? ticksWritten(first) : 0;
}

void gatherBars(QBSong& song, PageSource& source) {
  const SongBars written(song);
  if (written.bars().empty()) return;  // as while its first bar is being heard
  Gathering gathering(song, source);
  const int zero = firstBarLine(written);
  for (const SongBars::Bar& bar : written.bars()) {
    const int tick = bar.events.front().from - zero;
    source.bars.push_back({tick, ticksWritten(bar), bar.beat, bar.beattype, bar.number});
    for (const SongBars::Event& event : bar.events)
      gathering.add(event.chord, event.from - zero, event.kind == BarEvent::Kind::rest, event.ticks,
                    ticksOfBar(bar.beat, bar.beattype));
  }
  gathering.finish();
}

/// Where nothing has a name before the first chord, nothing is shown.
void gatherChanges(QBSong& song, PageSource& source) {
  constexpr int kLongestRest = 8;  // chords: three seconds
  Gathering gathering(song, source);
  int index = 0;
  for (const auto& chord : song.allChords()) {
    gathering.add(index, index, !chord->hold() || chord->hold()->isEmpty(), 1, kLongestRest);
    ++index;
  }
  gathering.finish();
  std::erase_if(source.chords, [&source](const auto& chord) {
    return chord.root < 0 && &chord == &source.chords.front();
  });
  int number = 0;
  for (const PageSource::Chord& chord : source.chords)
    source.bars.push_back({chord.tick, chord.ticks, 0, 0, ++number});
}

/// The lowest fret of a chord that sounds; none where nothing does.
std::optional<int> lowestFret(const QBChord& chord) {
  std::optional<int> lowest;
  for (const auto& tone : tonesOf(chord))
    if (tone->isActive()) lowest = std::min(lowest.value_or(tone->fret()), tone->fret());
  return lowest;
}

/// The capo that the song is played with. Where nobody has said it, the fret that all chords have
/// as their lowest one, as open strings are behind a capo.
int capoOfSong(QBSong& song) {
  if (song.recording() || song.hasCapo() || capoOf(song) > 0) return capoOfTablature(song);
  std::optional<int> lowest;
  bool isOfAll = true;
  for (const auto& chord : song.allChords()) {
    const auto fret = lowestFret(*chord);
    if (!fret) continue;
    isOfAll = isOfAll && *fret == lowest.value_or(*fret);
    lowest = std::min(lowest.value_or(*fret), *fret);
  }
  const bool isCapo = isOfAll && lowest && *lowest > 0 && *lowest <= PageOptions::kHighestCapo;
  return isCapo ? *lowest : 0;
}

}  // namespace

PageSource pageSourceOf(QBSong& song) {
  PageSource source;
  source.title = song.title();
  source.artist = song.artist();
  if (source.artist.empty() && song.recording()) source.artist = song.recording()->artist();
  if (song.hasKey()) source.key = song.key();
  source.capo = capoOfSong(song);
  source.tempo = song.isOnBeats() ? song.tempo() : 0;
  source.open = openStringsOf(&song).pitches();
  source.isInBars = isInBars(song);
  for (SungWords& words : lyricsOf(song))
    source.words.push_back({words.tick, std::move(words.text)});
  if (song.allChords().empty()) return source;
  if (source.isInBars)
    gatherBars(song, source);
  else
    gatherChanges(song, source);
  return source;
}

std::vector<int> ticksOfChords(QBSong& song) {
  const std::size_t count = song.allChords().size();
  std::vector<int> ticks;
  if (count == 0 || !isInBars(song)) {
    for (std::size_t i = 0; i <= count; ++i) ticks.push_back(static_cast<int>(i));
    return ticks;
  }
  const SongBars written(song);
  const int zero = firstBarLine(written);
  for (const SongBars::Bar& bar : written.bars())
    for (const SongBars::Event& event : bar.events) ticks.push_back(event.from - zero);
  const SongBars::Event& last = written.bars().back().events.back();
  ticks.push_back(last.from + last.ticks - zero);
  return ticks;
}

}  // namespace korvel
