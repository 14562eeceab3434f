// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBBlock;
class QBFFT;
class QBGroup;
class QBHarmony;
class QBHold;
class QBLeftHandPattern;
class QBMeasure;
class QBRightHandPattern;
class QBSong;
class QBTone;

/// Everything that sounds at one time step of a song; its `hold` is the fingering.
///
/// Caches are filled on first use and never renewed: `readAllTones` keeps the tones of that moment,
/// and may hand out tones that were deleted since.
class QBChord final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();
  QBChord();
  ~QBChord() override;

  /// Place in the song, counted from 1.
  int position() const { return read(m_position); }
  void setPosition(int value) { assign(m_position, value); }
  /// In sixteenths.
  int duration() const { return read(m_duration); }
  void setDuration(int value) { assign(m_duration, value); }
  bool hasDuration() const { return has(m_duration); }
  /// In a song on beats its exact length, in ticks of a twelfth of a beat (`SongTime.h`), which the
  /// duration is rounded from, to 0 for some that are shorter than a sixteenth. A chord without
  /// tones is a rest, unless a tone before it lasts longer.
  int ticks() const { return read(m_ticks); }
  void setTicks(int value) { assign(m_ticks, value); }
  bool hasTicks() const { return has(m_ticks); }
  /// The sample of the recording at which its written place comes when the beats are kept; swing is
  /// not in it. The time stamp is when it was struck. Unset for one that was not heard there.
  std::int64_t beatTime() const { return read(m_beatTime); }
  void setBeatTime(std::int64_t value) { assign(m_beatTime, value); }
  void clearBeatTime() { unset(m_beatTime); }
  bool hasBeatTime() const { return has(m_beatTime); }
  /// The user changed it, so that it stays as it is when the rhythm is read anew, and its tones
  /// where they are when those around it are fingered anew.
  bool isEdited() const { return read(m_edited); }
  void setEdited(bool value) { assign(m_edited, value); }
  /// From this chord on the first finger of the hand is about that fret, or wherever notes are
  /// easiest when it is 0, until another chord says otherwise. Unset for most.
  int handFret() const { return read(m_handFret); }
  void setHandFret(int value) { assign(m_handFret, value); }
  void clearHandFret() { unset(m_handFret); }
  bool hasHandFret() const { return has(m_handFret); }
  /// Time stamp of the recording.
  std::int64_t timestamp() const { return read(m_timestamp); }
  void setTimestamp(std::int64_t value) { assign(m_timestamp, value); }
  bool hasTimestamp() const { return has(m_timestamp); }
  /// Root of the harmony, 0..11 with C = 0.
  int baseTone() const { return read(m_baseTone); }
  void setBaseTone(int value) { assign(m_baseTone, value); }
  void clearBaseTone() { unset(m_baseTone); }
  bool hasBaseTone() const { return has(m_baseTone); }
  /// Index of the group of recurring chords.
  int groupNumber() const { return read(m_groupNumber); }
  void setGroupNumber(int value) { assign(m_groupNumber, value); }
  bool hasGroupNumber() const { return has(m_groupNumber); }
  QBSong* song() const;
  void setSong(QBSong* value);
  QBMeasure* measure() const;
  void setMeasure(QBMeasure* value);
  QBHarmony* harmony() const;
  void setHarmony(QBHarmony* value);
  QBRightHandPattern* pattern() const;
  void setPattern(QBRightHandPattern* value);
  QBLeftHandPattern* leftpattern() const;
  void setLeftpattern(QBLeftHandPattern* value);
  QBHold* hold() const;
  void setHold(QBHold* value);
  /// The recorded samples, if kept.
  QBBlock* block() const;
  void setBlock(QBBlock* value);

  void forgetCaches() override;

  // Tones and names.
  /// The tones of the hold, unsorted, as they were at the first call.
  const std::vector<platform::Ref<QBTone>>& readAllTones();
  QBLeftHandPattern* readLeftPattern() const { return leftpattern(); }
  /// Root and type, such as "Am7"; the type alone when the root is none.
  std::string fullHarmonyName() const;
  /// The harmony's name as first asked for; none without a harmony.
  const std::optional<std::string>& toKey();

  // Comparing and copying.
  /// Same number of tones, each found in the other's hold by string and fret.
  bool equals(const QBChord& other) const;
  /// A copy in another song, at its next position.
  QBChord* clone(QBSong* owner);
  /// Adds the tones of the other chord that this one lacks, on beats with their lengths.
  void mergeWith(const QBChord& other);
  /// Keeps the smallest duration offered, in sixteenths; 0 counts as none.
  void setDurationValue(int duration);
  /// Score for ranking candidates.
  int weight() const;

  /// Spectrum that the chord was read from, while it is being recorded.
  const std::shared_ptr<QBFFT>& m_fft() const { return m_spectrum; }
  void setM_fft(std::shared_ptr<QBFFT> spectrum) { m_spectrum = std::move(spectrum); }

  // Scratch values of analysis, filters and drawing; never stored.
  int m_xPosInMatrix = 0;  ///< Cell in the text tablature; both 0 until first drawn.
  int m_yPosInMatrix = 0;
  int m_hits = 0;
  std::weak_ptr<QBGroup> m_group;  ///< The recurring chords it is of; the group's builder owns it.

 private:
  platform::Attribute<int> m_position;
  platform::Attribute<int> m_duration;
  platform::Attribute<std::int64_t> m_timestamp;
  platform::Attribute<int> m_ticks;
  platform::Attribute<std::int64_t> m_beatTime;
  platform::Attribute<bool> m_edited;
  platform::Attribute<int> m_handFret;
  platform::Attribute<int> m_baseTone;
  platform::Attribute<int> m_groupNumber;
  platform::ToOne<QBSong> m_song;
  platform::ToOne<QBMeasure> m_measure;
  platform::ToOne<QBHarmony> m_harmony;
  platform::ToOne<QBRightHandPattern> m_pattern;
  platform::ToOne<QBLeftHandPattern> m_leftpattern;
  platform::ToOneInverse<QBHold> m_hold;
  platform::ToOneInverse<QBBlock> m_block;

  std::shared_ptr<QBFFT> m_spectrum;
  std::optional<std::vector<platform::Ref<QBTone>>> m_scannedTones;
  std::optional<std::string> m_key;
};

}  // namespace korvel
