// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>

#include "platform/persistence/Ref.h"

namespace korvel {

class Hearing;
class NewSong;
class QBAlbum;
class QBSong;
class QBTuning;

/// The second hearing of a recording: of its whole take, into a song of its own beside the one that
/// was heard live. In the end it takes that one's place; otherwise its song goes with this object.
///
/// Call begin, then step until it is at its end, then takePlace. Nothing is saved here.
class TakeHearing {
 public:
  /// Makes the song in the live one's album, under a free name.
  TakeHearing(const NewSong& live, QBTuning* tuning);
  TakeHearing(const TakeHearing&) = delete;
  TakeHearing& operator=(const TakeHearing&) = delete;
  ~TakeHearing();

  /// Of the take, into the song made. May throw what beginning a hearing throws.
  void begin(std::unique_ptr<Hearing> hearing);
  /// Takes as many chords as do not delay others.
  void step();
  /// The song takes the live one's place, unless nothing was heard in it. To be saved in one
  /// change, so that the store always has one of the two whole.
  /// take: the file of the take, which the song gets as its recording, with what was heard there.
  void takePlace(NewSong& live, const std::filesystem::path& take);

  /// How much of the take was heard, 0..1.
  double progress() const;
  bool atEnd() const;
  /// What is filled; none once it has taken the other one's place.
  QBSong* song() const { return m_song; }
  /// The one that is now in the live one's place, if it has taken that.
  QBSong* songInPlace() const { return m_inPlace; }

 private:
  const platform::Ref<QBAlbum> m_album;
  platform::Ref<QBSong> m_song;
  platform::Ref<QBSong> m_inPlace;
  std::unique_ptr<Hearing> m_hearing;
};

}  // namespace korvel
