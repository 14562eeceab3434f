// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>

#include "analysis/HearingSettings.h"
#include "music/Neck.h"
#include "platform/loop/Slices.h"
#include "platform/persistence/Ref.h"
#include "rhythm/stored/NoteCorrections.h"
#include "workflow/editing/doubts/SongCorrections.h"
#include "workflow/recordings/RecordingSound.h"

namespace korvel {

class QBSong;
class Transcription;

/// Hears a part of a song's recording again, with other settings, into the same place: what is
/// heard otherwise comes and goes, and what the user has decided stays. Beats and bars do, too.
///
/// Step until it answers false, then finish, on the main thread; to give up, drop it.
class PartHearing {
 public:
  /// By indexes in `allChords`. Listens to the copy that is kept of the recording when that does
  /// not lie where it was, or is another one by now, as the first steps find out. Throws
  /// EditRefused when there is none, as they do, too, and as SongCorrections does.
  ///
  /// playedOn: what the guitar's open strings sound in that part, where they are not the song's.
  /// What such a guitar has not is no note there; the others sound the same on the song's strings.
  PartHearing(QBSong& song, const SongCorrections::Part& part, const HearingSettings& settings,
              const std::optional<OpenPitches>& playedOn = {});
  ~PartHearing();

  bool step();
  double progress() const;
  /// One undoable action, "Hear Part Again", which is saved. Throws EditRefused when the recording
  /// could not be read to the end of the part.
  NoteChanges finish();
  /// Notes that were heard and that the song's strings have not: they are left out.
  std::size_t unreached() const { return m_unreached; }

 private:
  struct Placing;

  std::filesystem::path requireFile(Proof proof) const;
  void beginListening();
  void requireHeard() const;
  void findTimes(const SongCorrections::Part& part);
  rhythm::HeardAgain heard() const;
  void placeOnStrings(rhythm::HeardAgain& part);

  platform::Ref<QBSong> m_song;
  const HearingSettings m_settings;
  const OpenPitches m_playedOn;
  std::size_t m_unreached = 0;
  platform::Slices m_proving;  ///< That its file is the recording.
  double m_shareOfProof = 0;   ///< Of the work; none where nothing has to be read for it.
  double m_from = 0;           ///< Seconds of the recording.
  double m_to = 0;             ///< Likewise.
  double m_begin = 0;          ///< Where it listens from, so that it knows what sounds before.
  std::unique_ptr<Transcription> m_listening;  ///< Once that is proven.
};

}  // namespace korvel
