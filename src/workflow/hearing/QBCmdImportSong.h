// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/FoundTuning.h"
#include "analysis/HearingSettings.h"
#include "platform/loop/Slices.h"
#include "workflow/hearing/Detection.h"
#include "workflow/hearing/VoiceSongs.h"
#include "workflow/library/QBCmdAlbum.h"
#include "workflow/session/StoreSaves.h"

namespace korvel {

namespace platform {
class StoreError;
class UndoGroup;
}  // namespace platform
class Hearing;
struct HeardSound;
class Listening;
class QBTabMgr;
class QBTuning;
class SongInWork;

/// Turns a media file into the chords and the tablature of a song. What is wrong with a file shows
/// in the log only; a file without sound leaves a song without chords and without tablature.
/// `stop` between two steps ends an import early, and leaves the song with the chords so far.
/// A stepped import whose song is deleted rests, and goes on when an undo brings the song back.
/// It is heard in the tuning of its song. Until all is heard the song is marked as not whole.
///
/// The recording of a song, whole or not, can be heard again, into a song in no album, which takes
/// the other one's place in the end: one action that can be undone. Nothing does where the file of
/// a whole song turns out to have another content than it had.
class QBCmdImportSong final : public QBCmdAlbum {
 public:
  QBCmdImportSong(std::shared_ptr<AlbumNode> album, std::string file, QBSong* newSong);
  ~QBCmdImportSong() override;

  /// Before `prepare`. Classic is what is chosen otherwise, which needs no settings.
  void setDetection(const Detection& detection, const HearingSettings& settings = {});
  /// Goes on with what listens to the file already, in the tuning that is selected, for a detection
  /// that can. Before `prepare`.
  void setListening(std::shared_ptr<Listening> listening) { m_listening = std::move(listening); }
  /// Whether a copy of the recording is kept beside the store; one of a take is in any case.
  void setKeepsSound(bool keeps) { m_keepsSound = keeps; }

  /// Saves the store now and then, and before the last line of the log, for a front end that goes
  /// on meanwhile. While that fails for want of room, a stepped import goes on and tries it again
  /// every few seconds; it is not over before.
  void setSaving(bool saving) { m_saving = saving; }
  /// The album was made for this import, and goes with the song when the import is dropped.
  void setOwnsAlbum(bool owns) { m_ownsAlbum = owns; }

  /// The new song is to take the place of that one; before `prepare`.
  void setReplaced(QBSong* song);
  bool replaces() const { return m_replaced; }

  /// The action that made the song and perhaps its album, which the import goes on with; before
  /// `prepare`. Otherwise an action of its own begins there, "Import WAV File". It ends with the
  /// import, and is suspended between two steps.
  void joinUndo(std::shared_ptr<platform::UndoGroup> group);

  /// Opens the file.
  void prepare() override;
  void execute() override;
  /// One block of the file. Of the precise detection, once another thread has listened to it, some
  /// blocks. Then parts of the tablature. Stops the command when there is nothing
  /// left to do.
  void nextStep() override;
  void tearDown() override;
  /// What was not heard yet is left out; the precise detection still makes chords of the rest. The
  /// command ends some steps later.
  void stopAndKeep() override;
  /// Deletes the song; there is nothing to undo then.
  void cancelAndDrop() override;
  /// Keeps what `stopAndKeep` does, unless nothing was heard. An hour of sound may take ten
  /// seconds. Throws StoreError when it cannot be saved.
  void endNow() override;
  /// Ends at once without hearing more: the song keeps the chords that it has and stays marked as
  /// not whole, so that its recording can be heard again.
  void leave();
  void storeRenewed() override;
  bool isPaused() const override;
  /// Type and name without a blank between them: the form that the job list shows.
  platform::UserText fullTitle() const override { return typeAndName(); }
  bool usesAsScratch(const QBSong& song) const override;
  const std::string& file() const { return m_file; }
  QBSong* newSong() const;
  /// The song that a user sees: the one whose place the new song takes, while it is there.
  QBSong* shownSong() const { return m_replaced ? m_replaced.get() : newSong(); }
  /// Songs of voices that were heard, too (`HearingSettings::voices`), once the command has ended.
  const std::vector<platform::Ref<QBSong>>& voiceSongs() const { return m_voices.songs(); }
  /// Whether the end of the file was not heard.
  bool isCutShort() const { return m_cutShort; }
  /// Once all was heard: the tuning and the A that it is clearly played in, when that is another
  /// one than it was heard in; of those that the settings name.
  const std::optional<FoundTuning>& otherTuning() const { return m_otherTuning; }

  /// Called after each step with the share of the work that is done, 0..1.
  void onProgress(std::function<void(double)> listener) { m_listener = std::move(listener); }
  /// Called once the song is there, saved and logged; not for an import that is dropped.
  void onFinished(std::function<void()> listener) { m_finished = std::move(listener); }
  /// Called with what to tell the user each time that the store could not be saved.
  void onTrouble(std::function<void(const platform::UserText&)> listener) {
    m_onTrouble = std::move(listener);
  }

 private:
  void begin();
  QBTabMgr& db() const;
  std::unique_ptr<Hearing> hearing() const;
  bool step();
  void expectRecording();
  bool isOther(bool atEnd);
  void refuse();
  void rest();
  bool hearsMore();
  bool waitsForStore(bool hearsMore) const;
  bool atEnd() const;
  void takeChords();
  bool takeNextChord();
  void takeFoundTuning();
  void tellOfTuning();
  bool isSaveDue() const;
  bool saved();
  void tellOf(const platform::StoreError& error);
  bool finishSome();
  void finishNow();
  platform::Slices finish();
  platform::Slices keepingCopy();
  platform::Slices makingVoices(const HeardSound& heard);
  void takePlaces();
  bool isSongGone() const;
  void abandon();
  void dropHearing();
  void dropSong();
  void dropNewSong();

  std::string m_file;
  platform::Ref<QBSong> m_newSong;
  platform::Ref<QBSong> m_replaced;
  const Detection* m_detection = &classicDetection();
  HearingSettings m_settings{};
  bool m_keepsSound = false;
  bool m_copyFailed = false;
  std::shared_ptr<Listening> m_listening;
  VoiceSongs m_voices;
  bool m_saving = false;
  bool m_ownsAlbum = false;
  bool m_cutShort = false;
  std::string m_expected;  ///< What the file has to have in it, until that is proven.
  bool m_isOther = false;  ///< It has something else.
  std::optional<FoundTuning> m_otherTuning{};
  bool m_endsNow = false;
  std::unique_ptr<Hearing> m_hearing;  ///< From `prepare` until the tablature is drawn.
  std::vector<std::unique_ptr<SongInWork>> m_marks;
  StoreSaves m_saves;
  platform::Slices m_finishing;
  std::function<void(double)> m_listener;
  std::function<void()> m_finished;
  std::function<void(const platform::UserText&)> m_onTrouble;
  std::shared_ptr<platform::UndoGroup> m_undo;
};

}  // namespace korvel
