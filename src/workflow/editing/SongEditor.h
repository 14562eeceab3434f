// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arrange/hands/HandShapes.h"
#include "arrange/harmony/ChordName.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "tab/layout/LoopRange.h"
#include "workflow/editing/CopiedChord.h"

namespace korvel {

namespace platform {
struct ActionKind;
}

class QBChord;
class QBHold;
class QBSong;
class QBTabMgr;
class QBTone;
struct TypedChord;

/// Edits of a song in place, as they are made in its tablature.
///
/// Each is one undoable action under a title of its own. When it returns, the tablature is drawn
/// anew, in the song's tuning, and everything is saved; when it throws, as it does with StoreError
/// when that fails, nothing has changed. An edit that would change nothing leaves no action.
///
/// Chords are counted from 0 in order of position, strings from the lowest. std::out_of_range for a
/// chord, string, fret or duration that there is none of. A chord whose tones change gets the name
/// that they have now, unless the song is on beats, where names are those of whole passages.
class SongEditor {
 public:
  static constexpr int kHighestFret = 24;
  static constexpr int kLongestChord = 64;  ///< Sixteenths: four whole notes.

  /// The song is kept in that store.
  SongEditor(QBTabMgr& db, QBSong& song);
  ~SongEditor();

  QBSong& song() const { return *m_song; }

  // Tones. A string has one tone afterwards.
  /// "Change Fret", or "Add Tone" on a silent string: as loud and long as the tones beside it.
  /// One that continues takes the place of the edit just made, as the second digit of a number
  /// does.
  void setFret(int chord, int string, int fret, bool continues = false);
  void removeTone(int chord, int string);
  /// Silences the tones of a string, or lets them sound.
  void setActive(int chord, int string, bool active);

  /// All chords from first to last become that chord in that shape, as loud and long as they were:
  /// "Set Chord".
  void setShape(int first, int last, const ChordName& name, const ChordShape& shape);
  /// To the string above or below it, where it sounds the same. Throws EditRefused where that
  /// string sounds already, or has no such fret.
  void moveTone(int chord, int string, int toString);

  // The name of a chord, until its tones change.
  void setChordName(int chord, const ChordName& name);
  /// Throws NoChordName, too.
  void setChordName(int chord, std::string_view name) {
    setChordName(chord, parseChordName(m_db, name));
  }
  void clearChordName(int chord) { clearChordNames(chord, chord); }
  /// Of all chords from first to last.
  void setChordNames(int first, int last, const ChordName& name);
  void clearChordNames(int first, int last);
  /// The chords of all of these passages at once; without a name theirs go.
  void nameAll(std::span<const ChordSpan> passages, const ChordName* name);

  /// Chords like those, which may be of another song, behind that one: "Paste Chords". Answers the
  /// index of the first of them. A song without chords takes them at 0.
  int pasteAfter(int chord, const std::vector<CopiedChord>& chords);

  /// The same of a tablature that was written elsewhere. Its chords are as loud as the chord there,
  /// and as long.
  int pasteAfter(int chord, const std::vector<TypedChord>& chords);

  // Chords. Those behind move along: in their positions, and from measure to measure where the song
  // has some. In a song on beats they stay where they are, and the bars as long (`BeatBars`): a
  // chord gets its length from those behind it, a new one has half of another's place, and pasted
  // chords take the place of what is there.
  void setDuration(int chord, int sixteenths);
  /// A chord of a song on beats begins that many steps later in its bar, or earlier: a step is a
  /// sixteenth, or in triplets a third of a beat. Answers its index then; throws EditRefused where
  /// there is no room.
  int moveChord(int chord, int steps);
  /// Answer the index of the new, empty chord. A song without chords takes its first one at 0. In a
  /// song on beats EditRefused for a chord that is too short to be divided.
  int insertChordBefore(int chord);
  int insertChordAfter(int chord);
  /// Both included. In a song on beats only whole bars go. The ends of the playback loop move to
  /// the chords that are left between them, and go with the last of these.
  void deleteChords(int first, int last);
  void deleteChord(int chord) { deleteChords(chord, chord); }

 private:
  using Chords = std::vector<platform::Ref<QBChord>>;

  /// Of a tone that has no other one to take it from: a note that is played well.
  static constexpr double kAmp = 1e6;

  void edit(const platform::Phrase& title, const std::function<void()>& work,
            const platform::ActionKind* kind = nullptr);
  QBChord& chordAt(int index);
  QBHold& holdOf(QBChord& chord);
  QBTone* loudestNear(int index);
  void takeShape(int index, const ChordShape& shape);
  void addVoice(int index, int string, int fret);
  void tonesChanged(int index);
  void name(QBChord& chord, const ChordName* name);
  bool isOnBeats() const;
  QBChord& newChordAt(int index);
  int insertAt(int index);
  int insertOnBeats(int index, bool after);
  void pasteOnBeats(int first, const std::vector<CopiedChord>& chords);
  void moveLoopOff(const Chords& chords, int first, int last);

  QBTabMgr& m_db;
  platform::Ref<QBSong> m_song;
};

}  // namespace korvel
