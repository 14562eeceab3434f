// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/midi/MusicPlayer.h"
#include "platform/midi/MusicSequence.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "playback/ChordTimes.h"
#include "playback/OwnPart.h"

namespace korvel {

class QBChord;
class QBSong;
class QBTone;

/// What comes between the rounds of a loop.
enum class BetweenRounds { nothing, silence, clicks };

/// How a loop is practised.
struct RoundsOfLoop {
  BetweenRounds between = BetweenRounds::nothing;
  std::optional<platform::SpeedRamp> ramp{};
};

/// A song as one MIDI sequence, and its playing. Made for one playing: fill the sequence, start,
/// stop, drop. A step is kSecondsOfChord; the first chord sounds after one. When the others do is
/// what `ChordTimes` has: a step later each, or as it is written in a song on beats.
class QBMIDIPlayer {
 public:
  /// General MIDI's steel-string acoustic guitar.
  static constexpr int kProgram = 25;

  /// Without a player the sequence can be filled, but not played. The tempo is that of a song on
  /// beats.
  QBMIDIPlayer(QBSong& song, std::unique_ptr<platform::MusicPlayer> player,
               SongTime::Tempo tempo = SongTime::Tempo::asRecorded);

  // Filling the sequence.
  /// Adds a note at the present time; the string does not matter. duration: in steps.
  bool playNote(int string, int note, double duration);
  /// Goes on to when the chord is played and adds the active tones there.
  QBChord& playChord(QBChord& chord);
  /// The chord at an index; none beyond the end.
  QBChord* chordAtIndex(int index) const;
  /// Adds the first chord, or the one after the last added: its index, or -1 when there is none.
  int first();
  int next();
  /// Adds all chords.
  void scanFull();
  /// Adds the chords of positions from..to, both included, one after another.
  void scan(int from, int to);
  /// Adds a track of clicks for the same chords; before it is started.
  void addMetronome(int from, int to);
  /// Whether the clicks are heard, which they are at first; also while it plays.
  void setMetronome(bool heard);
  /// How loud the clicks are, those before the beginning too: 1 as they come; also while it plays.
  void setClickVolume(double factor);
  /// Adds the clicks that are heard before the first of the chords from that position on, by who
  /// begins with `goToBeginning`; before it is started.
  void addCountIn(int from);
  bool repeatAsLoop() const { return m_loop; }
  /// Has what was added begin again in time at its end, as often as it comes; before it is started.
  /// Without effect on steps, whose player is told to `rewind`.
  void turnBackAtEnd();
  /// Has the recording of the song play along; the notes follow it. In a loop, where there are
  /// rounds, it turns back at the end by itself, whatever the song. Without a sound, or where the
  /// chords have no times of it, it is silent. Once all else was added, before it is started.
  void addRecording(std::shared_ptr<const platform::DecodedSound> sound,
                    const std::optional<RoundsOfLoop>& rounds);
  /// How the recording lies beside the chords that were added.
  platform::DeckPlan deckPlan(const std::optional<RoundsOfLoop>& rounds) const;
  bool hasDeck() const { return m_player && m_player->hasDeck(); }
  /// Whether the chords that were added have times of the recording, one after another.
  bool hasRecordedTimes() const { return m_times->recordedSecondsAt(0).has_value(); }
  /// The tones of this part are added apart; before the chords are.
  void setPart(const OwnPart& part) { m_part = tonesOfPart(m_chords, part); }
  /// Whether they are heard, which they are at first; also while it plays.
  void setPartHeard(bool heard);
  /// Of a recording that plays along, and of the guitar beside it; also while it plays.
  void setLevels(const platform::DeckLevels& levels);
  void setPitch(double cents);
  /// Changes the General MIDI program at time 0.
  bool changeProgram(int program);
  const platform::MusicSequence& sequence() const { return m_sequence; }

  // Playing.
  /// False when the device cannot be played on; `problem` tells why.
  bool start();
  const platform::UserText& problem() const { return m_problem; }
  /// Disposes of the notes too.
  bool stop();
  /// Without effect: nothing is left after stop.
  void dispose() {}
  bool isPlaying() const;
  /// The device went away while it played.
  bool isLost() const;
  /// Where what is played begins: with the clicks before it, if there are any.
  void goToBeginning();
  /// To the first chord.
  void rewind();
  /// To the chord of that index among those that were added; in steps to a step before it.
  void setPlaybackPosition(int index);
  /// The index of the chord that is heard; 0 when it does not play, -1 where findIndex has none.
  int playbackPosition() const;
  /// The second of the recording that is heard; none when it does not play, and in strict tempo.
  std::optional<double> recordedSeconds() const;
  /// The chord that a time belongs to, in beats: in steps chord i from i + 1 to i + 2 of them, and
  /// -1 before the first and from the last one on; on beats also while the last one lasts.
  int findIndex(double time) const { return m_times->indexAt(time); }
  const ChordTimes& times() const { return *m_times; }
  void setPlaybackRate(float rate);
  /// All chords have been heard, the empty ones too, and all notes; it goes on in silence until it
  /// is stopped.
  bool isOver() const;
  /// The last chord has had its duration: a loop is to begin again here. Never of what turns back.
  bool isPastChords() const;

 private:
  bool addNote(platform::MusicTrack* track, int note, double length);
  platform::MusicTrack* trackOf(const QBTone& tone);

  std::vector<platform::Ref<QBChord>> m_chords;
  std::unique_ptr<ChordTimes> m_times;
  platform::MusicSequence m_sequence;
  platform::MusicTrack* m_track;
  platform::MusicTrack* m_partTrack = nullptr;  ///< None without tones of the part.
  platform::MusicTrack* m_clicks = nullptr;     ///< None without a metronome.
  platform::MusicTrack* m_countIn = nullptr;    ///< None without clicks before the beginning.
  double m_leadIn = 0;                          ///< In beats.
  OwnTones m_part;
  bool m_partHeard = true;
  int m_from = 0;  ///< Position of the first chord.
  std::unique_ptr<platform::MusicPlayer> m_player;
  int m_cursor = 0;
  double m_timestamp = 0;  ///< When the last chord was added, in beats.
  bool m_loop = false;
  bool m_turnsBack = false;
  int m_to = 0;
  platform::UserText m_problem;
};

}  // namespace korvel
