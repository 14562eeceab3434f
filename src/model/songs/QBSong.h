// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBAlbum;
class QBChord;
class QBChordVisitor;
class QBMeasure;
class QBTuning;
class SongRecording;

/// One recorded or derived piece: chords in order of `position`, laid into measures or not.
///
/// The order of chords is computed once per object and kept, so that cursors and filters see one
/// sequence; chords added or removed later do not change what `allChords` answers. The position
/// counters start at 0 whenever a song is read from the store.
class QBSong final : public platform::ManagedObject {
 public:
  static constexpr double kStraight = 0.5;

  static platform::EntityDescription describe();
  QBSong();
  ~QBSong() override;

  const std::string& title() const { return read(m_title); }
  void setTitle(std::string value) { assign(m_title, std::move(value)); }
  /// Name of the instrument that the song was made with: a copy, not a relationship.
  const std::string& instrument() const { return read(m_instrument); }
  void setInstrument(std::string value) { assign(m_instrument, std::move(value)); }
  bool hasInstrument() const { return has(m_instrument); }
  /// Kept for stores that carry it; nothing reads or writes it.
  double avgrate() const { return read(m_avgrate); }
  void setAvgrate(double value) { assign(m_avgrate, value); }
  /// Playback rate; 1.0 is the speed of the recording.
  float tempoRate() const { return read(m_tempoRate); }
  void setTempoRate(float value) { assign(m_tempoRate, value); }
  /// The text tablature as it was last built; unset before.
  const std::string& tabulature() const { return readOnDemand(m_tabulature); }
  void setTabulature(std::string value) { assign(m_tabulature, std::move(value)); }
  void clearTabulature() { unset(m_tabulature); }
  bool hasTabulature() const { return hasOnDemand(m_tabulature); }
  const std::string& descr() const { return read(m_descr); }
  void setDescr(std::string value) { assign(m_descr, std::move(value)); }
  /// File of the recording that the song is not all of yet: its end was not heard, or it was heard
  /// live only. Unset for a song that is whole.
  const std::string& unheard() const { return read(m_unheard); }
  void setUnheard(std::string file) { assign(m_unheard, std::move(file)); }
  void clearUnheard() { unset(m_unheard); }
  bool isWhole() const { return !has(m_unheard); }
  /// A song on beats: beats a minute of the music as it is written. Unset for a song of slices, the
  /// chords of which have no ticks either.
  double tempo() const { return read(m_tempo); }
  void setTempo(double value) { assign(m_tempo, value); }
  bool isOnBeats() const { return has(m_tempo); }
  /// Where the second eighth of a beat is played, as a share of the beat; unset when it is not
  /// swung. It is written as a straight eighth.
  double swing() const { return has(m_swing) ? read(m_swing) : kStraight; }
  void setSwing(double value) { assign(m_swing, value); }
  void clearSwing() { unset(m_swing); }
  bool isSwung() const { return has(m_swing); }
  /// Its key: the pitch class of the tonic, 12 more in minor. Unset when it is not known.
  int key() const { return read(m_key); }
  void setKey(int value) { assign(m_key, value); }
  bool hasKey() const { return has(m_key); }
  /// What it was heard in; none for a song that was not, or before recordings were kept.
  SongRecording* recording() const;
  void setRecording(SongRecording* value);
  /// How it was practised last, in words of `workflow/playing/PracticeMemory.h`; may be empty.
  const std::string& practice() const { return read(m_practice); }
  void setPractice(std::string value) { assign(m_practice, std::move(value)); }
  /// Who it is by, of a song that was not heard in a recording; may be empty.
  const std::string& artist() const { return read(m_artist); }
  void setArtist(std::string value) { assign(m_artist, std::move(value)); }
  /// The fret of the capo of a song that was not heard in a recording, or got another one since; 0
  /// without one. Frets count from the nut all the same. `capoOf` knows that of any song.
  int capo() const { return has(m_capo) ? read(m_capo) : 0; }
  bool hasCapo() const { return has(m_capo); }
  void setCapo(int value) { assign(m_capo, value); }
  /// The words that are sung to it, in lines of their own kind (`model/songs/SongLyrics.h`); may be
  /// empty.
  const std::string& lyrics() const { return readOnDemand(m_lyrics); }
  void setLyrics(std::string value) { assign(m_lyrics, std::move(value)); }
  /// What the song has otherwise than its recording was heard, as bytes of a version of their own
  /// (`rhythm/stored/NoteCorrections.h`); unset when it has all as it was heard.
  const platform::Bytes& corrections() const { return readOnDemand(m_corrections); }
  void setCorrections(platform::Bytes value) { assign(m_corrections, std::move(value)); }
  void clearCorrections() { unset(m_corrections); }
  bool hasCorrections() const { return hasOnDemand(m_corrections); }
  /// Takes tempo, swing, key, capo, recording and corrections from another song.
  void takeRhythmOf(const QBSong& other);
  /// Takes artist and lyrics from another song with the same bars, or chords.
  void takeWordsOf(const QBSong& other);
  /// Is not on beats any more: without tempo, swing and key. The chords keep what they have.
  void clearRhythm();
  QBAlbum* album() const;
  void setAlbum(QBAlbum* value);
  QBTuning* tuning() const;
  void setTuning(QBTuning* value);
  /// Bounds of the playback loop; either may be unset, or point at a chord that was deleted.
  QBChord* fromChord() const;
  void setFromChord(QBChord* value);
  QBChord* toChord() const;
  void setToChord(QBChord* value);
  /// In creation order; `allChords` is in order of position.
  platform::Members<QBChord> chords() const;
  platform::Members<QBMeasure> measures() const;

  /// The next `allChords` is in order again, and drawing gives every chord its place anew.
  void forgetCaches() override;

  // Order and lookup.
  const std::vector<platform::Ref<QBChord>>& allChords();
  std::vector<platform::Ref<QBMeasure>> allMeasures() const;
  /// Counts up from 1 for as long as this object lives.
  int nextChordPosition() { return ++m_chordPos; }
  int nextMeasurePosition() { return ++m_measPos; }
  /// Chords of index [from, to); to is clamped to the number of chords.
  std::vector<platform::Ref<QBChord>> chordsInRange(int from, int to);
  QBChord* createChord();
  void deleteChord(QBChord* chord);
  /// Moves one end of the playback loop to the chord: the nearer one when it lies inside.
  void setChordInLoop(QBChord* chord);
  /// How many chords from index on are drawn as a group: 1, 2 or 4.
  int lookupGroupSize(int index);
  /// Hands previous, current and next chord to the visitor, for every chord in order.
  void iterate(QBChordVisitor& visitor);

  // Copies, without measures and tablature, made with the instrument that is selected now.
  QBSong* cloneToAlbum(QBAlbum* album);
  QBSong* clone();

  /// The album; std::logic_error for a song that is in none, as after its deletion.
  QBAlbum& requireAlbum() const;

 private:
  platform::Attribute<std::string> m_title;
  platform::Attribute<std::string> m_instrument;
  platform::Attribute<double> m_avgrate;
  platform::Attribute<float> m_tempoRate;
  platform::Attribute<std::string> m_tabulature;
  platform::Attribute<std::string> m_descr;
  platform::Attribute<std::string> m_unheard;
  platform::Attribute<double> m_tempo;
  platform::Attribute<double> m_swing;
  platform::Attribute<int> m_key;
  platform::Attribute<platform::Bytes> m_corrections;
  platform::Attribute<std::string> m_practice;
  platform::Attribute<std::string> m_artist;
  platform::Attribute<std::string> m_lyrics;
  platform::Attribute<int> m_capo;
  platform::ToOne<SongRecording> m_recording;
  platform::ToOne<QBAlbum> m_album;
  platform::ToOne<QBTuning> m_tuning;
  platform::ToOne<QBChord> m_fromChord;
  platform::ToOne<QBChord> m_toChord;
  platform::ToMany<QBChord> m_chords;
  platform::ToMany<QBMeasure> m_measures;

  int m_chordPos = 0;
  int m_measPos = 0;
  std::optional<std::vector<platform::Ref<QBChord>>> m_sortedChords;
};

}  // namespace korvel
