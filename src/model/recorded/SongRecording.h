// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBSong;

/// A recording that songs were made of: where it lies, what it is, and what was heard in it. The
/// song of an import, and all that were derived from that, share one; it goes with the last.
///
/// What was heard is bytes of a version of its own (`rhythm/HeardBytes.h`), read when asked for.
class SongRecording final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  /// Absolute path of the file, as it was when it was heard.
  const std::string& path() const { return read(m_path); }
  void setPath(std::string value) { assign(m_path, std::move(value)); }
  /// Bytes of the file; with the hash it tells whether a file is still the one that was heard.
  std::int64_t size() const { return read(m_size); }
  void setSize(std::int64_t value) { assign(m_size, value); }
  /// Of the content, in hexadecimal digits (`platform/media/ContentHash.h`); empty when the file
  /// could not be read as one, as a pipe.
  const std::string& hash() const { return read(m_hash); }
  void setHash(std::string value) { assign(m_hash, std::move(value)); }
  /// From the file's tags; may be empty.
  const std::string& title() const { return read(m_title); }
  void setTitle(std::string value) { assign(m_title, std::move(value)); }
  const std::string& artist() const { return read(m_artist); }
  void setArtist(std::string value) { assign(m_artist, std::move(value)); }
  /// Its length.
  double seconds() const { return read(m_seconds); }
  void setSeconds(double value) { assign(m_seconds, value); }
  /// How far its A lies above 440 Hz, in cents.
  double tuningOffset() const { return read(m_tuningOffset); }
  void setTuningOffset(double value) { assign(m_tuningOffset, value); }
  /// The fret that it was heard with a capo at; 0 without one.
  int capo() const { return read(m_capo); }
  void setCapo(int value) { assign(m_capo, value); }
  /// Its chords were heard, as those of several instruments, in place of notes.
  bool isBand() const { return read(m_band); }
  void setBand(bool value) { assign(m_band, value); }
  /// All notes, those that are doubtful too.
  const platform::Bytes& notes() const { return readOnDemand(m_notes); }
  void setNotes(platform::Bytes value) { assign(m_notes, std::move(value)); }
  /// Beats, bars, key and chords, what the user said of them, and what else they may be.
  const platform::Bytes& rhythm() const { return readOnDemand(m_rhythm); }
  void setRhythm(platform::Bytes value) { assign(m_rhythm, std::move(value)); }
  /// In the order of their creation.
  platform::Members<QBSong> songs() const;

 private:
  platform::Attribute<std::string> m_path;
  platform::Attribute<std::int64_t> m_size;
  platform::Attribute<std::string> m_hash;
  platform::Attribute<std::string> m_title;
  platform::Attribute<std::string> m_artist;
  platform::Attribute<double> m_seconds;
  platform::Attribute<double> m_tuningOffset;
  platform::Attribute<int> m_capo;
  platform::Attribute<bool> m_band;
  platform::Attribute<platform::Bytes> m_notes;
  platform::Attribute<platform::Bytes> m_rhythm;
  platform::ToMany<QBSong> m_songs;
};

}  // namespace korvel
