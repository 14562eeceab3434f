// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/SongPage.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "music/NoteName.h"
#include "music/Pitch.h"
#include "music/Ticks.h"
#include "tab/page/ChordNumber.h"
#include "tab/page/PageGrips.h"
#include "tab/page/PageOfSong.h"
#include "tab/page/PageSections.h"

namespace korvel {
namespace {

using Chord = PageSource::Chord;

std::string letterOf(std::size_t kind) {
  constexpr std::size_t kLetters = 26;
  const std::string last(1, static_cast<char>('A' + kind % kLetters));
  return kind < kLetters ? last : letterOf(kind / kLetters - 1) + last;
}

double beatsOf(int ticks) { return static_cast<double>(ticks) / kTicksOfBeat; }

int movedKey(int key, int halfTones) {
  return pitchClass(key + halfTones) + (key >= kNotesPerOctave ? kNotesPerOctave : 0);
}

/// Makes a page of a song.
class PageMaking {
 public:
  PageMaking(const PageSource& source, const PageOptions& options)
      : m_source(source),
        m_options(options),
        m_capo(std::clamp(options.capo.value_or(source.capo), 0, PageOptions::kHighestCapo)),
        m_key(source.key.value_or(guessedKey(source.chords))),
        m_bars(source.bars) {
    trim();
  }

  SongPage page() {
    SongPage page;
    tellHead(page);
    layOut(page);
    listGrips(page);
    return page;
  }

 private:
  /// Bars without anything before and after the music.
  void trim() {
    const auto isEmpty = [this](const PageSource::Bar& bar) {
      const auto in = [&bar](int from, int to) {
        return from < bar.tick + bar.ticks && to > bar.tick;
      };
      return std::ranges::none_of(m_source.chords,
                                  [&](const Chord& chord) {
                                    return chord.root >= 0 &&
                                           in(chord.tick, chord.tick + chord.ticks);
                                  }) &&
             std::ranges::none_of(
                 m_source.words, [&](const auto& words) { return in(words.tick, words.tick + 1); });
    };
    while (!m_bars.empty() && isEmpty(m_bars.back())) m_bars.pop_back();
    const auto first = std::ranges::find_if_not(m_bars, isEmpty);
    m_bars.erase(m_bars.begin(), first);
  }

  void tellHead(SongPage& page) const {
    page.title = m_source.title;
    page.artist = m_source.artist;
    if (m_key >= 0) {
      page.soundingKey = nameOfKey(movedKey(m_key, m_options.halfTones));
      page.key = nameOfKey(movedKey(m_key, m_options.halfTones - m_capo));
    }
    page.isGuessedKey = !m_source.key && m_key >= 0;
    page.capo = m_capo;
    page.halfTones = m_options.halfTones;
    page.tempo = m_source.tempo;
    page.isInBars = m_source.isInBars;
    page.leftHanded = m_options.leftHanded;
    if (m_source.isInBars && !m_bars.empty())
      page.metre =
          std::to_string(m_bars.front().beat) + '/' + std::to_string(m_bars.front().beattype);
  }

  /// As the key writes it, where the song says one.
  std::string nameOf(const Chord& chord, int halfTones) const {
    if (chord.root < 0) return {};
    const int key = m_source.key ? movedKey(*m_source.key, halfTones) : -1;
    const auto note = [&](int pitch) {
      return std::string(nameInKey(pitchClass(pitch + halfTones), key));
    };
    return note(chord.root) + chord.type + (chord.bass < 0 ? "" : '/' + note(chord.bass));
  }
  std::string soundingName(const Chord& chord) const { return nameOf(chord, m_options.halfTones); }
  std::string shapeName(const Chord& chord) const {
    return nameOf(chord, m_options.halfTones - m_capo);
  }
  std::string shownName(const Chord& chord) const {
    if (m_options.numbers == ChordNumbers::none || m_key < 0 || chord.root < 0)
      return shapeName(chord);
    return chordNumber(chord, m_key, m_options.numbers);
  }

  PageBar barOf(const PageSource::Bar& bar) const {
    PageBar made{bar.number, bar.beat, bar.beattype, beatsOf(bar.ticks), false,
                 {},         {},       {},           bar.ticks};
    const int end = bar.tick + bar.ticks;
    for (const Chord& chord : m_source.chords) {
      const int from = std::max(chord.tick, bar.tick);
      const int to = std::min(chord.tick + chord.ticks, end);
      if (from >= to) continue;
      made.chords.push_back({beatsOf(from - bar.tick), beatsOf(to - from), shownName(chord),
                             soundingName(chord), chord.isDoubtful, chord.tick < bar.tick,
                             chord.index});
    }
    return made;
  }

  std::vector<PageWords> wordsOf(const PageSource::Bar& bar) const {
    std::vector<PageWords> words;
    for (const PageSource::Words& each : m_source.words)
      if (each.tick >= bar.tick && each.tick < bar.tick + bar.ticks)
        words.push_back({beatsOf(each.tick - bar.tick), each.text});
    return words;
  }

  /// Equal for bars with the same chords, negative for those with one.
  std::vector<int> contents(const std::vector<PageBar>& bars) const {
    std::map<std::string, int> known;
    std::vector<int> contents;
    for (const PageBar& bar : bars) {
      std::string text = std::to_string(bar.beat) + '/' + std::to_string(bar.beattype);
      if (m_source.isInBars) text += ' ' + std::to_string(bar.beats);
      for (const PageChord& chord : bar.chords)
        text += ' ' + (m_source.isInBars ? std::to_string(chord.beat) + ':' : "") + chord.name;
      const int number = known.try_emplace(text, static_cast<int>(known.size()) + 1).first->second;
      contents.push_back(bar.chords.size() > 1 ? number : -number);
    }
    return contents;
  }

  void layOut(SongPage& page) const {
    std::vector<PageBar> bars;
    for (const PageSource::Bar& bar : m_bars) bars.push_back(barOf(bar));
    for (std::size_t i = 0; i < bars.size(); ++i)
      bars[i].showsTime = m_source.isInBars && i > 0 &&
                          std::tie(bars[i].beat, bars[i].beattype) !=
                              std::tie(bars[i - 1].beat, bars[i - 1].beattype);
    const bool hasPickUp = m_source.isInBars && !bars.empty() && bars.front().number == 0;
    const std::size_t first = hasPickUp ? 1 : 0;
    if (hasPickUp) page.sections.push_back(sectionOf(bars, {0, 1, 1, 0}, ""));
    const std::vector<int> all = contents(bars);
    std::size_t shown = 0;
    for (FoldedBars folded : foldedBars(std::span(all).subspan(first))) {
      folded.first += first;
      PageSection section = sectionOf(bars, folded, letterOf(folded.kind));
      section.isAgain = folded.kind < shown;
      shown = std::max(shown, folded.kind + 1);
      page.sections.push_back(std::move(section));
    }
  }

  PageSection sectionOf(const std::vector<PageBar>& bars, const FoldedBars& folded,
                        const std::string& letter) const {
    PageSection section{letter, folded.times, false, {}};
    for (std::size_t i = 0; i < folded.count; ++i) {
      PageBar bar = bars[folded.first + i];
      for (int time = 0; time < folded.times; ++time) {
        const std::size_t at = folded.first + i + static_cast<std::size_t>(time) * folded.count;
        bar.words.push_back(wordsOf(m_bars[at]));
        bar.ticks.push_back(m_bars[at].tick);
        // A name that is sure one time is sure.
        for (std::size_t c = 0; c < bar.chords.size(); ++c)
          bar.chords[c].isDoubtful = bar.chords[c].isDoubtful && bars[at].chords[c].isDoubtful;
      }
      section.bars.push_back(std::move(bar));
    }
    return section;
  }

  /// The shape that a chord is played with most often, counted from the capo; none where the page
  /// has another capo or key than the song.
  std::optional<ChordShape> playedShape(const std::string& name) const {
    if (m_options.halfTones != 0 || m_capo != m_source.capo) return std::nullopt;
    std::map<ChordShape, int> ticks;
    for (const Chord& chord : m_source.chords)
      if (chord.shape && shownName(chord) == name) ticks[*chord.shape] += chord.ticks;
    if (ticks.empty()) return std::nullopt;
    ChordShape shape =
        std::ranges::max_element(ticks, {}, [](const auto& each) { return each.second; })->first;
    for (int& fret : shape)
      if (fret != kNotPlayed) fret -= m_capo;
    return shape;
  }

  void listGrips(SongPage& page) const {
    PageGrips grips(m_source.open, m_capo);
    for (const Chord& chord : m_source.chords) {
      const std::string name = shownName(chord);
      if (name.empty() || std::ranges::find(page.grips, name, &PageGrip::name) != page.grips.end())
        continue;
      PageGrip grip{name, shapeName(chord), soundingName(chord)};
      if (!grips.hold(movedChord(chord, m_options.halfTones), playedShape(name), grip)) continue;
      grip.index = chord.index;
      if (m_options.leftHanded) mirror(grip);
      page.grips.push_back(std::move(grip));
    }
  }

  const PageSource& m_source;
  const PageOptions& m_options;
  int m_capo;
  int m_key;  ///< -1 when nobody can tell.
  std::vector<PageSource::Bar> m_bars;
};

/// What is written on a count: the chords that begin on it, or a point.
std::string countText(const PageBar& bar, int count) {
  std::string text;
  for (const PageChord& chord : bar.chords) {
    const bool isFirst = chord.goesOn && count == 0;
    const double begin = chord.beat * bar.countsOfBeat();
    if (!isFirst && (begin < count || begin >= count + 1)) continue;
    if (!text.empty()) text += '~';
    text += (chord.name.empty() ? "-" : chord.name) + (chord.isDoubtful ? "?" : "");
  }
  return text.empty() ? "." : text;
}

}  // namespace

int PageBar::countsOfBeat() const {
  constexpr int kQuarter = 4;
  const bool hasWholeBeats = ticksOfBar(beat, beattype) % kTicksOfBeat == 0;
  return hasWholeBeats ? 1 : std::max(1, beattype / kQuarter);
}

std::string PageBar::chordText() const {
  const bool isNone =
      std::ranges::all_of(chords, [](const PageChord& chord) { return chord.name.empty(); });
  if (isNone) return "-";
  if (beattype == 0) return countText(*this, 0);
  std::string text;
  const int last = std::max(1, static_cast<int>(std::ceil(beats * countsOfBeat())));
  for (int at = 0; at < last; ++at) {
    if (at > 0) text += ' ';
    text += countText(*this, at);
  }
  return text;
}

std::string PageBar::wordText(std::size_t time) const {
  std::string text;
  if (time < words.size())
    for (const PageWords& each : words[time]) text += (text.empty() ? "" : " ") + each.text;
  return text;
}

bool PageSection::hasWords() const {
  return std::ranges::any_of(bars, [](const PageBar& bar) {
    return std::ranges::any_of(bar.words, [](const auto& words) { return !words.empty(); });
  });
}

bool SongPage::hasWords() const { return std::ranges::any_of(sections, &PageSection::hasWords); }

bool SongPage::hasDoubts() const {
  const auto isDoubtful = [](const PageBar& bar) {
    return std::ranges::any_of(bar.chords, &PageChord::isDoubtful);
  };
  return std::ranges::any_of(sections, [&](const PageSection& section) {
    return section.showsBars() && std::ranges::any_of(section.bars, isDoubtful);
  });
}

SongPage pageOf(const PageSource& source, const PageOptions& options) {
  return PageMaking(source, options).page();
}

SongPage pageOf(QBSong& song, const PageOptions& options) {
  return pageOf(pageSourceOf(song), options);
}

}  // namespace korvel
