// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/PartHearing.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "analysis/chords/Transcription.h"
#include "fingering/Fingering.h"
#include "model/instruments/SongTuning.h"
#include "model/recorded/ConcertA.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/doubts/CorrectedChords.h"
#include "workflow/editing/doubts/PartOfTrack.h"
#include "workflow/editing/doubts/PassageNames.h"
#include "workflow/editing/doubts/StringChoice.h"
#include "workflow/editing/rhythm/EditedChords.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using fingering::Note;
using platform::phrase;

/// What is heard on both sides of a part, in seconds, to know the sound of the guitar by.
constexpr double kAroundPart = 10;
/// A note of the same pitch that is so near is the same one.
constexpr double kSameNote = 0.06;
/// A part begins so long before its first chord.
constexpr double kBeforeChord = 0.06;
/// Decoders differ about the end of a file, in seconds.
constexpr double kMostUnheard = 0.5;
/// What of the progress tells that a long file is read, to know it for the recording.
constexpr double kProgressOfProof = 0.3;

std::size_t sampleAt(double seconds) {
  return static_cast<std::size_t>(std::max(seconds, 0.0) * platform::kSampleRate);
}

const Note* sameAs(const Note& note, const std::vector<Note>& notes) {
  const auto found = std::ranges::find_if(notes, [&note](const Note& other) {
    return other.pitch == note.pitch && std::abs(other.onset - note.onset) <= kSameNote;
  });
  return found == notes.end() ? nullptr : &*found;
}

/// Those that were heard before give way to a new one.
void insert(std::vector<rhythm::HeardAgain>& parts, rhythm::HeardAgain&& added) {
  std::vector<rhythm::HeardAgain> kept;
  const auto keep = [&kept](rhythm::HeardAgain part, double from, double to) {
    if (from >= to) return;
    part.from = from;
    part.to = to;
    for (auto* notes : {&part.notes.taken, &part.notes.doubtful})
      std::erase_if(*notes, [=](const Note& n) { return n.onset < from || n.onset >= to; });
    kept.push_back(std::move(part));
  };
  for (const rhythm::HeardAgain& part : parts) {
    keep(part, part.from, std::min(part.to, added.from));
    keep(part, std::max(part.from, added.to), part.to);
  }
  kept.push_back(std::move(added));
  std::ranges::sort(kept, {}, &rhythm::HeardAgain::from);
  parts = std::move(kept);
}

/// A part is as far off as the whole was, by whole half tones, too.
HearingSettings inPitchOf(const QBSong& song, HearingSettings settings) {
  settings.concertA = recordedAOf(song);
  return settings;
}

}  // namespace

PartHearing::PartHearing(QBSong& song, const SongCorrections::Part& part,
                         const HearingSettings& settings,
                         const std::optional<OpenPitches>& playedOn)
    : m_song(&song),
      m_settings(inPitchOf(song, settings)),
      m_playedOn(playedOn.value_or(openStringsOf(&song).pitches())) {
  const SongCorrections allowed(song);
  const std::filesystem::path file = requireFile(Proof::atOnce);
  if (file == song.recording()->path()) m_proving = readingContent(file);
  findTimes(part);
}

PartHearing::~PartHearing() = default;

std::filesystem::path PartHearing::requireFile(Proof proof) const {
  const auto file = m_song->isWhole() ? fileOfRecording(*m_song->recording(), proof) : std::nullopt;
  if (!file)
    throw EditRefused(phrase("Message", "%1: its recording is not where it was, or was changed"),
                      m_song->title());
  return *file;
}

void PartHearing::beginListening() {
  m_begin = std::max(m_from - kAroundPart, 0.0);
  const auto source = std::make_shared<PartOfTrack>(requireFile(Proof::content), sampleAt(m_begin),
                                                    sampleAt(m_to + kAroundPart));
  source->startRecord(0);
  m_listening = std::make_unique<Transcription>(source, m_playedOn, m_settings);
}

/// From the first chord to the one behind the last.
void PartHearing::findTimes(const SongCorrections::Part& part) {
  const auto& chords = m_song->allChords();
  const auto secondsOf = [&](int chord) {
    const auto index = static_cast<std::size_t>(std::max(chord, 0));
    if (index >= chords.size()) return m_song->recording()->seconds();
    const double struck = static_cast<double>(chords[index]->timestamp()) / platform::kSampleRate;
    return std::min(recordedSecondsOf(*chords[index]).value_or(struck), struck) - kBeforeChord;
  };
  m_from = std::max(secondsOf(part.first), 0.0);
  m_to = std::max(secondsOf(part.last + 1), m_from + kBeforeChord);
}

bool PartHearing::step() {
  if (m_proving.next()) {
    m_shareOfProof = kProgressOfProof;
    return true;
  }
  if (!m_listening) beginListening();
  return m_listening->step();
}

double PartHearing::progress() const {
  if (!m_listening) return m_shareOfProof * m_proving.done();
  return m_shareOfProof + (1 - m_shareOfProof) * m_listening->progress();
}

rhythm::HeardAgain PartHearing::heard() const {
  rhythm::HeardAgain part{
      m_from, m_to, {m_listening->result().notes, m_listening->result().doubtful}};
  for (auto* notes : {&part.notes.taken, &part.notes.doubtful}) {
    for (Note& note : *notes) {
      note.onset += m_begin;
      note.end += m_begin;
    }
    std::erase_if(*notes, [this](const Note& note) {
      return sampleAt(note.onset) < sampleAt(m_from) || note.onset >= m_to;
    });
  }
  return part;
}

/// From the strings that it was played on to those of the song. What the guitar had not may be
/// something else, and stays doubtful.
void PartHearing::placeOnStrings(rhythm::HeardAgain& part) {
  const OpenPitches strings = openStringsOf(m_song.get()).pitches();
  if (m_playedOn == strings) return;
  std::vector<Note>& taken = part.notes.taken;
  std::vector<Note>& doubtful = part.notes.doubtful;
  const auto hasNoString = [](const Note& note) { return note.string < 0; };
  std::ranges::copy_if(taken, std::back_inserter(doubtful), hasNoString);
  std::erase_if(taken, hasNoString);
  std::ranges::stable_sort(doubtful, {}, &Note::onset);
  fingering::Fingering(strings, m_settings.fingering).place(taken);
  m_unreached = static_cast<std::size_t>(std::ranges::count_if(taken, hasNoString));
}

/// From what the song has to what was heard now.
struct PartHearing::Placing {
  QBSong& song;
  const std::vector<Note>& heard;
  double from;
  double to;
  int capo;
  SongNotes before;

  bool isIn(const SongNote& note) const { return note.note.onset >= from && note.note.onset < to; }

  /// What the user has decided is said of the notes that are the same.
  void keepVerdicts(rhythm::NoteCorrections& corrections) const {
    std::erase_if(corrections.verdicts, [this](const rhythm::NoteVerdict& verdict) {
      const double onset = static_cast<double>(verdict.onset) / platform::kSampleRate;
      return onset >= from && onset < to;
    });
    for (const SongNote& note : before.all()) {
      if (!isIn(note) || !note.isLocked) continue;
      if (const Note* same = sameAs(note.note, heard))
        corrections.verdicts.push_back({rhythm::sampleOfOnset(*same), same->pitch, note.isIn, true,
                                        note.note.string, note.note.fret});
    }
    const auto place = [](const rhythm::NoteVerdict& each) {
      return std::pair(each.onset, each.pitch);
    };
    std::ranges::sort(corrections.verdicts, {}, place);
    auto& verdicts = corrections.verdicts;
    const auto isSame = [&](const auto& a, const auto& b) { return place(a) == place(b); };
    verdicts.erase(std::unique(verdicts.begin(), verdicts.end(), isSame), verdicts.end());
  }

  NoteChanges place() const {
    const SongNotes now(song, SongNotes::Arranged::hasSome);
    const auto chords = CorrectedChords::of(QBTabMgr::of(song), song);
    NoteChanges changes;
    for (const SongNote& note : before.all()) {
      if (!isIn(note) || !note.isIn || note.isLocked || stays(note, now)) continue;
      chords->remove(note);
      ++changes.go;
    }
    for (const SongNote& note : now.all()) {
      const Note* same = note.wasTaken && isIn(note) && !note.isLocked ? find(note) : nullptr;
      const bool isThere = note.isIn && same && note.note.string == same->string;
      if (!same || same->string < 0 || isThere) continue;
      if (chords->add(note, choiceFor(*same))) ++changes.come;
    }
    chords->finish();
    return changes;
  }

 private:
  const Note* find(const SongNote& note) const {
    const auto found = std::ranges::find_if(heard, [&note](const Note& each) {
      return each.pitch == note.note.pitch &&
             rhythm::sampleOfOnset(each) == rhythm::sampleOfOnset(note.note);
    });
    return found == heard.end() ? nullptr : &*found;
  }

  /// It was heard again, and is played on the same string.
  bool stays(const SongNote& note, const SongNotes& now) const {
    const auto again = now.noteOf(note.chord, note.note.string);
    if (!again || !now[*again].wasTaken) return false;
    const Note* same = find(now[*again]);
    return same && same->string == note.note.string;
  }

  StringChoice choiceFor(const Note& note) const {
    const OpenPitches open = openStringsOf(&song).pitches();
    StringChoice choice;
    choice.wished = note.string;
    choice.hand = note.fret;
    for (std::size_t string = 0; string < choice.frets.size(); ++string) {
      const int fret = note.pitch - open[string];
      choice.frets[string] =
          fret >= capo && fret <= fingering::FingeringOptions::kMostFrets ? fret : -1;
    }
    return choice;
  }
};

/// Where a file ended early, as on a disk that was unplugged, nothing is known of the notes there.
void PartHearing::requireHeard() const {
  const double heard =
      m_begin + static_cast<double>(m_listening->samples()) / platform::kSampleRate;
  if (heard < std::min(m_to, m_song->recording()->seconds()) - kMostUnheard)
    throw EditRefused(
        phrase("Message", "%1: its recording could not be read to the end; nothing was changed"),
        m_song->title());
}

NoteChanges PartHearing::finish() {
  requireHeard();
  QBSong& song = *m_song;
  Edit edit(song, phrase("UndoAction", "Hear Part Again"));
  rhythm::HeardAgain part = heard();
  placeOnStrings(part);
  const std::vector<Note> taken = part.notes.taken;
  const Placing placing{song, taken, m_from, m_to, m_settings.fingering.capo, SongNotes(song)};
  PassageNames names(song);
  rhythm::NoteCorrections corrections;
  if (song.hasCorrections())
    corrections = rhythm::noteCorrections(song.corrections()).value_or(rhythm::NoteCorrections());
  insert(corrections.again, std::move(part));
  placing.keepVerdicts(corrections);
  song.setCorrections(rhythm::bytesOf(corrections));
  const NoteChanges changes = placing.place();
  names.follow();
  edit.redraw();
  edit.done({phrase("Log", "%1: notes that come: %2, that go: %3."), song.title(), changes.come,
             changes.go});
  return changes;
}

}  // namespace korvel
