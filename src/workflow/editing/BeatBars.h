// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/editing/CopiedChord.h"

namespace korvel {

class QBChord;
class QBMeasure;
class QBSong;
class QBTabMgr;

/// The bars of a song on beats while its chords change: they stay as long as they are, and what
/// comes later stays where it is. What one chord gets others in the way give, and what one gives
/// becomes a chord without tones. Positions and durations are right after `finish`, the bars are
/// counted from 1, and no tone rings on where its string sounds again.
///
/// Chords are counted from 0 in order of position.
class BeatBars {
 public:
  /// The song has bars, as `areIn` tells.
  BeatBars(QBTabMgr& db, QBSong& song);
  ~BeatBars();

  /// Whether a song is on beats and each of its chords is in a bar and has a length.
  static bool areIn(QBSong& song);

  /// How many chords there are now.
  std::size_t size() const { return m_chords.size(); }
  /// In simple time a sixteenth has three ticks, in compound time two.
  int ticksOfSixteenthAt(std::size_t chord) const;
  /// How long a chord is written: itself, and those without tones through which all of its own
  /// ring.
  int writtenTicks(std::size_t chord) const;

  /// At most to the end of the song. Beyond a bar line it goes on as chords without tones; what it
  /// covers goes, or begins later.
  void setTicks(std::size_t chord, int ticks);
  /// A new chord without tones has the second half of one, at the index behind that. Tones that
  /// ended with it still do. False for one that is too short.
  bool divide(std::size_t chord);
  /// The same with the first half, in which the chord is not heard any more.
  bool divideBefore(std::size_t chord);
  bool areInOneBar(std::size_t chord, std::size_t other) const;
  /// Both included. Full bars go, though one is left without chords; in others the chord before
  /// lasts longer, and what begins a bar becomes a rest.
  void remove(std::size_t first, std::size_t last);
  /// Its beginning moves by that, later when positive; the chord before it lasts longer or shorter,
  /// and so does a rest behind it or else itself. Answers its index then; none where there is no
  /// room in the bar.
  std::optional<std::size_t> move(std::size_t chord, int ticks);
  /// A step of `move`: a sixteenth, or a third of a beat for a chord that is not among those.
  int stepOf(std::size_t chord) const;
  /// What is there from a chord on gives way to copies, which fill new bars behind the last one.
  /// Answers them, without what goes on behind bar lines.
  std::vector<QBChord*> write(std::size_t from, const std::vector<CopiedChord>& copies);

  /// The chord that begins so many ticks behind the beginning of the first one; one that lasts
  /// through there is divided, and its tones that ended with it do so there. None outside of the
  /// song.
  std::optional<std::size_t> beginAt(int ticks);
  /// What is before a chord without tones lasts through it, as far as its bar.
  void joinToBefore(std::size_t chord);
  QBChord& chord(std::size_t index) const { return at(index); }
  /// The chord is one of them.
  std::size_t indexOf(const QBChord& chord) const;

  /// To be called once, at the end.
  void finish();

 private:
  using Time = std::optional<std::int64_t>;

  QBChord& at(std::size_t chord) const { return *m_chords[chord]; }
  std::size_t beginOfBar(std::size_t chord) const;
  std::size_t endOfBar(std::size_t chord) const;
  bool isFollowedInBar(std::size_t chord) const;
  bool isRestBehind(std::size_t chord) const;
  int ticksOf(std::size_t first, std::size_t end) const;
  int runOf(std::size_t chord) const;
  int halfOf(std::size_t chord) const;
  int placeInBar(std::size_t chord) const;
  double samplesOfTick(std::size_t chord) const;
  Time timeAt(std::size_t chord, int ticks) const;
  QBChord& insert(std::size_t before, QBMeasure* measure, int ticks, Time time);
  void erase(std::size_t chord);
  void eraseBar(std::size_t first, std::size_t end);
  void leaveLoop(std::size_t chord);
  void beginLater(std::size_t chord, int ticks);
  void shorten(std::size_t chord, int ticks);
  void lengthen(std::size_t chord, int ticks);
  void goOnBehindBar(std::size_t next, int ticks);
  void takeFrom(std::size_t chord, int ticks);
  void removeInBar(std::size_t first, std::size_t last);
  void removeFirstOfBar(std::size_t chord);
  void moveLater(std::size_t& chord, int ticks);
  void moveEarlier(std::size_t& chord, int ticks);
  bool hasRoom(std::size_t chord, int ticks) const;
  void addBar();
  void numberBars();
  void endAtNextStrikes();
  void layDurations();
  void mendLoop();

  QBTabMgr& m_db;
  QBSong& m_song;
  std::vector<platform::Ref<QBChord>> m_chords;
  bool m_hadLoop;
};

}  // namespace korvel
