// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/sheets/SongGrips.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <vector>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "tab/layout/CapoNames.h"
#include "tab/page/PageOfSong.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/CopiedChord.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using platform::phrase;
using Strings = std::vector<int>;

/// Chords that are held in one grip.
struct HeldPassage {
  ChordSpan chords;
  ChordShape shape;  ///< Counted from the nut.
};

Strings stringsOf(const ChordShape& shape) {
  Strings strings;
  for (int string = 0; string < kStrings; ++string)
    if (shape[static_cast<std::size_t>(string)] != kNotPlayed) strings.push_back(string);
  return strings;
}

/// The part of another grip that is the same as what is struck of this one: all of it, its highest
/// strings, its lowest ones, or else those at the same place in it.
Strings strokeIn(const Strings& other, const Strings& held, const Strings& struck) {
  if (struck.size() >= held.size() || held.size() < 2) return other;
  const auto count = static_cast<std::ptrdiff_t>(std::min(struck.size(), other.size()));
  if (std::equal(struck.rbegin(), struck.rend(), held.rbegin()))
    return {other.end() - count, other.end()};
  if (std::equal(struck.begin(), struck.end(), held.begin()))
    return {other.begin(), other.begin() + count};
  Strings strings;
  const double step = double(other.size() - 1) / double(held.size() - 1);
  for (const int string : struck) {
    const auto place = std::ranges::find(held, string) - held.begin();
    const int at = other[static_cast<std::size_t>(std::lround(double(place) * step))];
    if (strings.empty() || strings.back() != at) strings.push_back(at);
  }
  return strings;
}

/// All strings of both, where they do not contradict each other.
std::optional<ChordShape> withStringsOf(ChordShape shape, const ChordShape& other) {
  for (std::size_t string = 0; string < shape.size(); ++string) {
    if (other[string] == kNotPlayed) continue;
    if (shape[string] != kNotPlayed && shape[string] != other[string]) return std::nullopt;
    shape[string] = other[string];
  }
  return shape;
}

class ChordHolding {
 public:
  ChordHolding(QBSong& song, int chord, const ChordShape& shape)
      : m_song(song), m_source(pageSourceOf(song)), m_shape(shape), m_index(chord) {
    for (int& fret : m_shape)
      if (fret != kNotPlayed) fret += m_source.capo;
    m_wanted = chordAtIndex(m_source, chord);
    requireItsNotes();
  }

  int hold(ChordSpan within) {
    findPassages(within);
    if (m_found == 0)
      throw EditRefused(
          phrase("Message", "there is nowhere a grip of %1 that could be another one"), name());
    if (m_passages.empty()) return 0;
    Edit edit(m_song, phrase("UndoAction", "Choose Grip"));
    for (const HeldPassage& passage : m_passages)
      for (int i = passage.chords.first; i <= passage.chords.last; ++i)
        strike(chordAt(i), stringsOf(passage.shape));
    endRinging();
    edit.redraw();
    edit.done(platform::UserText(phrase("Log", "%1 is held as %2 now."), name(), shapeText()));
    return static_cast<int>(std::ssize(m_passages));
  }

 private:
  QBChord& chordAt(int index) const {
    return *m_song.allChords().at(static_cast<std::size_t>(index));
  }
  std::string name() const {
    const CapoName name = capoNameOf(chordAt(m_index), m_source.capo);
    return name.shape.empty() ? name.sounding : name.shape;
  }
  std::string shapeText() const {
    ChordShape shape = m_shape;
    for (int& fret : shape)
      if (fret != kNotPlayed) fret -= m_source.capo;
    return shorthandOf(shape);
  }
  bool isItsNote(int string, int fret) const {
    const int note = pitchClass(m_source.open[static_cast<std::size_t>(string)] + fret);
    return (m_wanted->pitchClasses >> note & 1U) != 0 || note == m_wanted->bass;
  }

  void requireItsNotes() const {
    const auto isWrong = [this](int string) {
      return !isItsNote(string, m_shape[static_cast<std::size_t>(string)]);
    };
    const Strings strings = stringsOf(m_shape);
    if (!m_wanted || m_wanted->root < 0 || strings.empty() || std::ranges::any_of(strings, isWrong))
      throw EditRefused(phrase("Message", "%1 sounds other notes than %2"), shapeText(), name());
  }

  void findPassages(ChordSpan within) {
    for (std::size_t i = 0; i < m_source.chords.size(); ++i) {
      const PageSource::Chord& chord = m_source.chords[i];
      if (!isCalledAlike(chord, *m_wanted)) continue;
      const bool isLast = i + 1 == m_source.chords.size();
      const int end =
          isLast ? static_cast<int>(std::ssize(m_song.allChords())) : m_source.chords[i + 1].index;
      findGrips({std::max(chord.index, within.first), std::min(end - 1, within.last)});
    }
    m_found = m_passages.size();
    std::erase_if(m_passages, [this](const auto& each) { return each.shape == m_shape; });
  }

  /// Bar by bar, so that a melody in one leaves the others. Bars that strike parts of one grip are
  /// a passage.
  void findGrips(ChordSpan chords) {
    const std::size_t known = m_passages.size();
    for (int first = chords.first; first <= chords.last;) {
      int last = first;
      while (last < chords.last && chordAt(last + 1).measure() == chordAt(first).measure()) ++last;
      if (const auto held = heldIn({first, last})) {
        const bool isNew = m_passages.size() == known;
        const auto both = isNew ? std::nullopt : withStringsOf(m_passages.back().shape, *held);
        if (both && m_passages.back().chords.last + 1 == first)
          m_passages.back() = {{m_passages.back().chords.first, last}, *both};
        else
          m_passages.push_back({{first, last}, *held});
      }
      first = last + 1;
    }
  }

  /// What all chords of a passage are parts of, if that is a grip of the chord.
  std::optional<ChordShape> heldIn(ChordSpan span) const {
    constexpr std::ptrdiff_t kFewestOfGrip = 2;
    ChordShape held;
    held.fill(kNotPlayed);
    for (int i = span.first; i <= span.last; ++i)
      for (const auto& tone : tonesOf(chordAt(i))) {
        if (!tone->isActive()) continue;
        if (tone->string() < 0 || tone->string() >= kStrings) return std::nullopt;
        int& fret = held[static_cast<std::size_t>(tone->string())];
        const bool isOther = fret != kNotPlayed && fret != tone->fret();
        if (isOther || !isItsNote(tone->string(), tone->fret())) return std::nullopt;
        fret = tone->fret();
      }
    const bool isGrip = std::ssize(stringsOf(held)) >= kFewestOfGrip;
    return isGrip ? std::optional(held) : std::nullopt;
  }

  /// As loud and long as the tones at the same place of the stroke.
  void strike(QBChord& chord, const Strings& held) const {
    std::vector<CopiedChord::Tone> old;
    Strings struck;
    for (const auto& tone : byStringAndFret(chord)) {
      if (!tone->isActive() || (!struck.empty() && struck.back() == tone->string())) continue;
      old.emplace_back(*tone);
      struck.push_back(tone->string());
    }
    if (old.empty()) return;
    QBHold& hold = *chord.hold();
    hold.forgetCaches();
    for (const auto& tone : hold.tones().snapshot()) hold.deleteTone(tone);
    const Strings strings = strokeIn(stringsOf(m_shape), held, struck);
    const double step =
        double(old.size() - 1) / double(std::max<std::size_t>(strings.size(), 2) - 1);
    for (std::size_t i = 0; i < strings.size(); ++i)
      old[static_cast<std::size_t>(std::lround(double(i) * step))].addTo(
          hold, strings[i], m_shape[static_cast<std::size_t>(strings[i])]);
    chord.setEdited(true);
    regroup(chord);
  }

  /// What rings on a string ends where another tone is struck there now, behind a passage too.
  void endRinging() {
    m_song.forgetCaches();
    if (BeatBars::areIn(m_song)) BeatBars(QBTabMgr::of(m_song), m_song).finish();
  }

  QBSong& m_song;
  const PageSource m_source;
  ChordShape m_shape;  ///< Counted from the nut.
  int m_index;
  const PageSource::Chord* m_wanted = nullptr;
  std::size_t m_found = 0;
  std::vector<HeldPassage> m_passages;
};

}  // namespace

int holdChord(QBSong& song, int chord, const ChordShape& shape, ChordSpan within) {
  if (SongInWork::is(song))
    throw EditRefused(phrase("Message", "%1: is still being heard; edit it when that has ended"),
                      song.title());
  return ChordHolding(song, chord, shape).hold(within);
}

}  // namespace korvel
