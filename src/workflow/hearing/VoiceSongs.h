// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "platform/loop/Slices.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"

namespace korvel {

class QBAlbum;
class QBSong;
struct HeardSound;

/// Songs of the voices that were heard in the recording of a band: beside its song of chords, on
/// the same beats, and of the same recording.
class VoiceSongs {
 public:
  using Tell = std::function<void(const platform::UserText&)>;

  /// Makes one of each voice that is clear, "Title (melody)", in no album yet, and tells what
  /// became of each. The song, which has its recording, and what was heard stay until it is done.
  platform::Slices making(const QBSong& song, const HeardSound& heard, Tell tell);
  /// Has them in the album, under titles that are free there.
  void putInto(QBAlbum& album);

  const std::vector<platform::Ref<QBSong>>& songs() const { return m_songs; }

 private:
  std::vector<platform::Ref<QBSong>> m_songs;
};

}  // namespace korvel
