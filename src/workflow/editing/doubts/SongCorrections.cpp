// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/SongCorrections.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>
#include <utility>

#include "model/instruments/SongTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "precise/Settings.h"
#include "rhythm/stored/NoteCorrections.h"
#include "workflow/editing/doubts/CorrectedChords.h"
#include "workflow/editing/doubts/PassageNames.h"
#include "workflow/editing/doubts/StringChoice.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using platform::phrase;

/// What the detection asks for unless told otherwise.
constexpr double kMiddleThreshold = 0.5;
/// Taken for its stroke, a note is less probable by so much.
constexpr double kShareOfStroke = 0.3;

/// What an import takes; of notes that the company of others decided about it knows more, and these
/// stay as they were found as long as no stricter choice is asked for, or a more lenient one.
bool isWanted(const SongNote& note, double threshold) {
  const auto probability = static_cast<double>(note.note.probability);
  if (!note.wasTaken) return std::min(probability, kMiddleThreshold) > threshold;
  if (probability > kMiddleThreshold) return probability > threshold;
  return threshold <= kMiddleThreshold && probability >= kShareOfStroke * threshold;
}

rhythm::NoteCorrections correctionsOf(const QBSong& song) {
  if (!song.hasCorrections()) return {};
  return rhythm::noteCorrections(song.corrections()).value_or(rhythm::NoteCorrections());
}

void set(std::vector<rhythm::NoteVerdict>& verdicts, const rhythm::NoteVerdict& verdict,
         bool isNeeded) {
  const auto placeOf = [](const rhythm::NoteVerdict& each) {
    return std::tuple(each.onset, each.pitch);
  };
  const auto at = std::ranges::lower_bound(verdicts, placeOf(verdict), {}, placeOf);
  const bool isKnown = at != verdicts.end() && placeOf(*at) == placeOf(verdict);
  if (isKnown && isNeeded)
    *at = verdict;
  else if (isKnown)
    verdicts.erase(at);
  else if (isNeeded)
    verdicts.insert(at, verdict);
}

}  // namespace

/// What is said of some notes, done to the song at once.
class SongCorrections::Work {
 public:
  explicit Work(QBSong& song) : m_song(song), m_notes(song) {}

  const SongNotes& notes() const { return m_notes; }

  void let(std::size_t note, bool isIn, bool isLocked) {
    const auto isIt = [note](const Wish& wish) { return wish.note == note; };
    std::erase_if(m_wishes, isIt);
    m_wishes.push_back(
        {note, isIn, isLocked, {m_notes[note].note.string, m_notes[note].note.fret}});
  }
  bool empty() const { return m_wishes.empty(); }
  /// Notes for which there is no string are left out whoever wants them.
  void leaveOut() { m_mayRefuse = false; }
  void lock(std::size_t note) { let(note, m_notes[note].isIn, true); }

  /// Within an edit. Notes for which there is no string are left out, or refused where they were
  /// wanted by themselves.
  NoteChanges apply() {
    std::ranges::stable_sort(m_wishes, {}, &Wish::note);
    PassageNames names(m_song);
    NoteChanges changes;
    const auto chords = CorrectedChords::of(QBTabMgr::of(m_song), m_song);
    for (const Wish& wish : m_wishes)
      if (!wish.isIn && m_notes[wish.note].isIn) {
        chords->remove(m_notes[wish.note]);
        ++changes.go;
      }
    changes.come = add(*chords);
    chords->finish();
    keep();
    names.follow();
    return changes;
  }

 private:
  struct Wish {
    std::size_t note;
    bool isIn;
    bool isLocked;
    NeckPlace place;
  };

  bool comes(const Wish& wish) const { return wish.isIn && !m_notes[wish.note].isIn; }

  /// What was in the song and stays.
  std::vector<fingering::Note> fixedNotes() const {
    std::vector<fingering::Note> fixed;
    auto wish = m_wishes.begin();
    for (std::size_t note = 0; note < m_notes.size(); ++note) {
      while (wish != m_wishes.end() && wish->note < note) ++wish;
      const bool goes = wish != m_wishes.end() && wish->note == note && !wish->isIn;
      if (m_notes[note].isIn && !goes) fixed.push_back(m_notes[note].note);
    }
    return fixed;
  }

  std::size_t add(CorrectedChords& chords) {
    std::vector<fingering::Note> added;
    for (const Wish& wish : m_wishes)
      if (comes(wish)) added.push_back(m_notes[wish.note].note);
    const auto strings =
        stringChoices(fixedNotes(), added, openStringsOf(&m_song).pitches(), capoOf(m_song));
    std::size_t count = 0;
    auto choice = strings.begin();
    std::erase_if(m_wishes, [&](Wish& wish) {
      if (!comes(wish)) return false;
      const auto place = chords.add(m_notes[wish.note], *choice++);
      if (!place && wish.isLocked && m_mayRefuse)
        throw EditRefused(phrase("Message", "no string is free for that note there"));
      if (!place) return true;
      wish.place = *place;
      ++count;
      return false;
    });
    return count;
  }

  void keep() {
    rhythm::NoteCorrections corrections = correctionsOf(m_song);
    for (const Wish& wish : m_wishes) {
      const SongNote& note = m_notes[wish.note];
      const rhythm::NoteVerdict verdict{rhythm::sampleOfOnset(note.note),
                                        note.note.pitch,
                                        wish.isIn,
                                        wish.isLocked,
                                        wish.isIn ? wish.place.string : -1,
                                        wish.isIn ? wish.place.fret : -1};
      set(corrections.verdicts, verdict, wish.isLocked || wish.isIn != note.wasTaken);
    }
    if (corrections.empty())
      m_song.clearCorrections();
    else
      m_song.setCorrections(rhythm::bytesOf(corrections));
  }

  QBSong& m_song;
  const SongNotes m_notes;
  std::vector<Wish> m_wishes;
  bool m_mayRefuse = true;
};

SongCorrections::SongCorrections(QBSong& song) : m_song(&song) {
  if (SongInWork::is(song))
    throw EditRefused(phrase("Message", "%1: is still being heard; edit it when that has ended"),
                      song.title());
  if (const auto why = SongNotes::refusal(song)) throw EditRefused(*why);
}

SongCorrections::~SongCorrections() = default;

NoteChanges SongCorrections::done(const platform::Phrase& title, Work& work) {
  Edit edit(*m_song, title);
  const NoteChanges changes = work.apply();
  edit.redraw();
  edit.save();
  return changes;
}

void SongCorrections::accept(std::size_t note) {
  Work work(*m_song);
  if (work.notes()[note].isIn && work.notes()[note].isLocked) return;
  work.let(note, true, true);
  done(phrase("UndoAction", "Take Note"), work);
}

void SongCorrections::drop(std::size_t note) {
  Work work(*m_song);
  if (!work.notes()[note].isIn && work.notes()[note].isLocked) return;
  work.let(note, false, true);
  done(phrase("UndoAction", "Drop Note"), work);
}

void SongCorrections::confirm(std::span<const std::size_t> notes) {
  Work work(*m_song);
  std::size_t open = 0;
  for (const std::size_t note : notes) {
    if (work.notes()[note].isLocked) continue;
    work.lock(note);
    ++open;
  }
  if (open == 0) return;
  done(open == 1 ? phrase("UndoAction", "Confirm Note") : phrase("UndoAction", "Confirm Notes"),
       work);
}

void SongCorrections::replace(std::size_t note, std::size_t by) {
  Work work(*m_song);
  work.let(note, false, true);
  work.let(by, true, true);
  done(phrase("UndoAction", "Take Other Note"), work);
}

void SongCorrections::correct(std::span<const std::size_t> accepted,
                              std::span<const std::size_t> dropped,
                              std::span<const std::size_t> confirmed) {
  Work work(*m_song);
  for (const std::size_t note : accepted) work.let(note, true, true);
  for (const std::size_t note : dropped) work.let(note, false, true);
  for (const std::size_t note : confirmed) work.lock(note);
  done(phrase("UndoAction", "Correct Notes"), work);
}

bool SongCorrections::carry(QBSong& from, QBSong& to) {
  Work work(to);
  work.leaveOut();
  const SongNotes before(from);
  for (const SongNote& known : before.all()) {
    if (!known.isLocked) continue;
    const auto same = std::ranges::find_if(work.notes().all(), [&known](const SongNote& note) {
      return note.note.pitch == known.note.pitch &&
             std::abs(note.note.onset - known.note.onset) <= SongNotes::kWithChord;
    });
    if (same != work.notes().all().end())
      work.let(static_cast<std::size_t>(same - work.notes().all().begin()), known.isIn, true);
  }
  if (!work.empty()) work.apply();
  return !work.empty();
}

template <class Change>
void SongCorrections::eachChange(const SongNotes& notes, double sensitivity,
                                 const std::optional<Part>& part, const Change& change) {
  const double threshold = precise::thresholdOf(sensitivity);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const SongNote& note = notes[i];
    if (note.isLocked || note.isLeftOut || note.chord < 0) continue;
    if (part && (note.chord < part->first || note.chord > part->last)) continue;
    if (const bool wanted = isWanted(note, threshold); wanted != note.isIn) change(i, wanted);
  }
}

NoteChanges SongCorrections::preview(double sensitivity, const std::optional<Part>& part) const {
  NoteChanges changes;
  eachChange(SongNotes(*m_song), sensitivity, part,
             [&](std::size_t, bool isIn) { ++(isIn ? changes.come : changes.go); });
  return changes;
}

double SongCorrections::presentSensitivity(const std::optional<Part>& part) const {
  const SongNotes notes(*m_song);
  const auto at = [](int step) { return static_cast<double>(step) / kSensitivities; };
  const auto costOf = [&](int step) {
    std::size_t changes = 0;
    eachChange(notes, at(step), part, [&](std::size_t, bool) { ++changes; });
    return std::pair(changes, std::abs(2 * step - kSensitivities));
  };
  int best = kSensitivities / 2;
  for (int step = 0; step <= kSensitivities; ++step)
    if (costOf(step) < costOf(best)) best = step;
  return at(best);
}

NoteChanges SongCorrections::decideAnew(double sensitivity, const std::optional<Part>& part) {
  Work work(*m_song);
  bool any = false;
  eachChange(work.notes(), sensitivity, part, [&](std::size_t note, bool isIn) {
    work.let(note, isIn, false);
    any = true;
  });
  if (!any) return {};
  return done(phrase("UndoAction", "More or Fewer Notes"), work);
}

}  // namespace korvel
