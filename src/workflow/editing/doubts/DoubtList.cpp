// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/DoubtList.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <utility>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBSong.h"
#include "workflow/editing/doubts/DoubtWords.h"

namespace korvel {
namespace {

/// What starts so soon after one another is one place, in seconds.
constexpr double kTogether = 0.05;
/// Candidates that belong to a place.
constexpr double kAroundPlace = 0.1;
/// A note rings through a place if it lasts so much longer on both sides.
constexpr double kRinging = 0.08;
/// A note that starts where one of its pitch ends.
constexpr double kRestrikeGap = 0.03;

/// The logarithm of the number of notes that are wrong at a place: fitted by Poisson regression on
/// 23 clips of four guitars and a recording of one in a room, of which the notes are known.
constexpr double kWrongAnywhere = -4.439;
constexpr double kWrongOfChord = 1.583;       ///< Where several notes are struck.
constexpr double kWrongOfImprobable = 1.970;  ///< For each note that surely is none.
constexpr double kWrongOfCandidates = 1.117;  ///< For each candidate that surely is a note.
constexpr double kWrongOfRinging = 0.383;     ///< For each note that rings through.
constexpr double kWrongOfSpread = 5.791;      ///< For each second from the first note to the last.
constexpr double kWrongOfFaint = 1.994;       ///< Times 1 / (0.3 + strength).
constexpr double kStrengthOfFaint = 0.3;
constexpr double kWrongOfPause = -0.486;  ///< For each second since the place before, at most 1.
/// A candidate where nothing else is struck is a note half as often as it looks.
constexpr double kShareOfLone = 0.5;

/// A look is worth it where so many notes are expected to be wrong: seven of ten that are wrong
/// are found so by looking at one in seven.
constexpr double kLeastBenefit = 0.19;
constexpr double kMostVisited = 0.25;
/// A candidate that is named where something else is doubted.
constexpr float kLeastOfCandidate = 0.15F;

/// Where to listen to around a place.
constexpr double kShortestListening = 0.6;
constexpr double kLongestListening = 1.5;

constexpr std::array kOvertones{12, 19, 24, 28, 31};

bool isOvertone(int pitch, int of) {
  return std::ranges::find(kOvertones, pitch - of) != kOvertones.end();
}

/// Notes that start together, in order of time.
struct Place {
  std::vector<std::size_t> struck;
  std::vector<std::size_t> candidates;
  double seconds = 0;  ///< Of the middle note.
  double pause = 1;    ///< Since the place before.
  int ringing = 0;
};

class Places {
 public:
  explicit Places(const SongNotes& notes) : m_notes(notes) {
    gather();
    addCandidates();
    countRinging();
  }

  const std::vector<Place>& all() const { return m_places; }

 private:
  const fingering::Note& at(std::size_t note) const { return m_notes[note].note; }

  void gather() {
    for (std::size_t i = 0; i < m_notes.size(); ++i) {
      if (!m_notes[i].isIn) continue;
      const bool isNew =
          m_places.empty() || at(i).onset - at(m_places.back().struck.back()).onset > kTogether;
      if (isNew) m_places.emplace_back();
      m_places.back().struck.push_back(i);
    }
    for (std::size_t i = 0; i < m_places.size(); ++i) {
      const auto& struck = m_places[i].struck;
      m_places[i].seconds = at(struck[struck.size() / 2]).onset;
      if (i == 0) continue;
      const double before = at(m_places[i - 1].struck.back()).onset;
      m_places[i].pause = std::min(m_places[i].seconds - before, 1.0);
    }
  }

  bool has(const Place& place, int pitch) const {
    return std::ranges::any_of(place.struck,
                               [&](std::size_t note) { return at(note).pitch == pitch; });
  }

  /// To the nearest place; one that is near to none is one for itself.
  void addCandidates() {
    std::vector<Place> lone;
    for (std::size_t i = 0; i < m_notes.size(); ++i) {
      if (m_notes[i].isIn || m_notes[i].isLocked || m_notes[i].chord < 0) continue;
      const double onset = at(i).onset;
      auto place = std::ranges::lower_bound(m_places, onset, {}, &Place::seconds);
      if (place == m_places.end() ||
          (place != m_places.begin() && onset - std::prev(place)->seconds < place->seconds - onset))
        if (place != m_places.begin()) --place;
      if (place == m_places.end() || std::abs(place->seconds - onset) > kAroundPlace)
        lone.push_back({{}, {i}, onset});
      else if (!has(*place, at(i).pitch))
        place->candidates.push_back(i);
    }
    m_places.insert(m_places.end(), lone.begin(), lone.end());
    std::ranges::stable_sort(m_places, {}, &Place::seconds);
  }

  void countRinging() {
    std::vector<std::size_t> sounding;
    std::size_t next = 0;
    for (Place& place : m_places) {
      for (; next < m_notes.size() && at(next).onset < place.seconds - kRinging; ++next)
        if (m_notes[next].isIn) sounding.push_back(next);
      std::erase_if(sounding,
                    [&](std::size_t note) { return at(note).end <= place.seconds + kRinging; });
      place.ringing = static_cast<int>(std::ranges::count_if(
          sounding, [&](std::size_t note) { return !has(place, at(note).pitch); }));
    }
  }

  const SongNotes& m_notes;
  std::vector<Place> m_places;
};

double expectedWrong(const Place& place, const SongNotes& notes) {
  double candidates = 0;
  for (const std::size_t i : place.candidates)
    candidates += static_cast<double>(notes[i].note.probability);
  if (place.struck.empty()) return kShareOfLone * candidates;
  double improbable = 0;
  double strongest = 0;
  for (const std::size_t i : place.struck) {
    if (!notes[i].isLocked) improbable += 1 - static_cast<double>(notes[i].note.probability);
    strongest = std::max(strongest, static_cast<double>(notes[i].note.strength));
  }
  const double spread =
      notes[place.struck.back()].note.onset - notes[place.struck.front()].note.onset;
  return std::exp(kWrongAnywhere + (place.struck.size() > 1 ? kWrongOfChord : 0) +
                  kWrongOfImprobable * improbable + kWrongOfCandidates * candidates +
                  kWrongOfRinging * place.ringing + kWrongOfSpread * spread +
                  kWrongOfFaint / (kStrengthOfFaint + strongest) + kWrongOfPause * place.pause);
}

/// What of a place may be wrong, the least probable first.
class Doubts {
 public:
  Doubts(const Place& place, const SongNotes& notes) : m_place(place), m_notes(notes) {}

  std::vector<Doubt> list() const {
    std::vector<Doubt> doubts;
    for (const std::size_t i : m_place.struck)
      if (!m_notes[i].isLocked && m_notes[i].note.probability < SongNotes::kDoubtful)
        doubts.push_back(doubtOf(i));
    for (const std::size_t i : m_place.candidates)
      if (m_notes[i].note.probability >= kLeastOfCandidate && !isNamed(doubts, i))
        doubts.push_back({i, Doubt::Kind::missing});
    if (doubts.empty()) addLeastProbable(doubts);
    return doubts;
  }

 private:
  static bool isNamed(const std::vector<Doubt>& doubts, std::size_t candidate) {
    return std::ranges::any_of(doubts, [=](const Doubt& each) { return each.other == candidate; });
  }

  /// Of a place where all notes are probable in themselves.
  void addLeastProbable(std::vector<Doubt>& doubts) const {
    const auto probability = [this](std::size_t note) { return m_notes[note].note.probability; };
    std::vector<std::size_t> open;
    for (const std::size_t i : m_place.struck)
      if (!m_notes[i].isLocked) open.push_back(i);
    const auto least = std::ranges::min_element(open, {}, probability);
    if (least == open.end()) return;
    const bool isChord = m_place.struck.size() > 1;
    doubts.push_back(isChord ? Doubt{*least, Doubt::Kind::chord} : doubtOf(*least));
  }

  Doubt doubtOf(std::size_t note) const {
    const int pitch = m_notes[note].note.pitch;
    for (const std::size_t other : m_place.candidates)
      if (isOvertone(m_notes[other].note.pitch, pitch) ||
          isOvertone(pitch, m_notes[other].note.pitch))
        return {note, Doubt::Kind::octave, other};
    for (const std::size_t other : m_place.struck)
      if (isOvertone(pitch, m_notes[other].note.pitch)) return {note, Doubt::Kind::overtone, other};
    return {note, isRestrike(note) ? Doubt::Kind::restrike : Doubt::Kind::note};
  }

  bool isRestrike(std::size_t note) const {
    for (std::size_t before = note; before-- > 0;) {
      if (!m_notes[before].isIn || m_notes[before].note.pitch != m_notes[note].note.pitch) continue;
      return m_notes[before].note.end >= m_notes[note].note.onset - kRestrikeGap;
    }
    return false;
  }

  const Place& m_place;
  const SongNotes& m_notes;
};

/// From its first note to the place behind it.
DoubtfulPlace listenedTo(const Place& place, const SongNotes& notes, double benefit) {
  DoubtfulPlace found;
  const std::size_t first = place.struck.empty() ? place.candidates.front() : place.struck.front();
  found.chord = notes[first].chord;
  found.seconds = notes[first].note.onset;
  double end = found.seconds;
  for (const auto* some : {&place.struck, &place.candidates})
    for (const std::size_t note : *some) end = std::max(end, notes[note].note.end);
  found.length = std::clamp(end - found.seconds, kShortestListening, kLongestListening);
  found.benefit = benefit;
  found.doubts = Doubts(place, notes).list();
  return found;
}

/// A slow strum is one chord with the notes of two places.
void addPlace(std::vector<DoubtfulPlace>& places, DoubtfulPlace&& place) {
  if (places.empty() || places.back().chord != place.chord) {
    places.push_back(std::move(place));
    return;
  }
  DoubtfulPlace& one = places.back();
  one.length =
      std::min(std::max(one.length, place.seconds + place.length - one.seconds), kLongestListening);
  one.benefit += place.benefit;
  one.doubts.insert(one.doubts.end(), place.doubts.begin(), place.doubts.end());
}

}  // namespace

DoubtList::DoubtList(QBSong& song, const SongNotes& notes) {
  const Places places(notes);
  std::size_t inSong = 0;
  for (const Place& place : places.all()) {
    inSong += place.struck.size();
    const double benefit = expectedWrong(place, notes);
    if (benefit < kLeastBenefit) continue;
    DoubtfulPlace found = listenedTo(place, notes, benefit);
    if (!found.doubts.empty() && found.chord >= 0) addPlace(m_places, std::move(found));
  }
  const auto most = static_cast<std::size_t>(kMostVisited * static_cast<double>(inSong)) + 1;
  if (m_places.size() > most) {
    std::ranges::stable_sort(m_places, std::greater(), &DoubtfulPlace::benefit);
    m_places.resize(most);
    std::ranges::stable_sort(m_places, {}, &DoubtfulPlace::seconds);
  }
  const OpenPitches open = openStringsOf(&song).pitches();
  for (DoubtfulPlace& place : m_places)
    for (Doubt& doubt : place.doubts) doubt.reason = reasonOf(doubt, notes, open);
}

const DoubtfulPlace* DoubtList::next(int chord) const {
  const auto found = std::ranges::find_if(
      m_places, [chord](const DoubtfulPlace& place) { return place.chord > chord; });
  return found == m_places.end() ? nullptr : &*found;
}

const DoubtfulPlace* DoubtList::previous(int chord) const {
  const DoubtfulPlace* found = nullptr;
  for (const DoubtfulPlace& place : m_places)
    if (place.chord < chord) found = &place;
  return found;
}

const DoubtfulPlace* DoubtList::at(int chord) const {
  const auto found = std::ranges::find(m_places, chord, &DoubtfulPlace::chord);
  return found == m_places.end() ? nullptr : &*found;
}

}  // namespace korvel
