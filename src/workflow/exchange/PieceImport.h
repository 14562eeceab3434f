// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "analysis/chords/ChordSupply.h"
#include "exchange/Piece.h"
#include "fingering/FingeringOptions.h"
#include "platform/loop/Slices.h"
#include "platform/persistence/Ref.h"
#include "rhythm/Reading.h"
#include "workflow/exchange/TrackNotes.h"
#include "workflow/session/QBCommand.h"

namespace korvel {

namespace platform {
class UndoGroup;
}
class QBSong;
class QBTabMgr;
class QBTuning;

/// How the places of notes become those of a song: as the file has them in its bars, or read from
/// their times as those of a recording are. Automatic takes them as written, but for notes of a
/// MIDI file that mostly do not lie on its beats.
enum class PieceManner { automatic, asWritten, asPlayed };

/// What the user wants of a file.
struct PieceChoices {
  std::optional<std::string> track{};  ///< As `chosenTrack` takes it.
  PieceManner manner = PieceManner::automatic;
  platform::Ref<QBTuning> tuning{};         ///< To play it in; that of the file without.
  fingering::FingeringOptions fingering{};  ///< For notes that the file names no place of.
  int capo = 0;                             ///< Of a tablature that does not tell of it.
  rhythm::Wishes rhythm{};                  ///< For one that is read as it was played.
  /// A track of another number of strings is played on six.
  bool fitsStrings = false;
  std::optional<std::string> album{};  ///< Of that name; otherwise after the artist, or the song.
  std::optional<std::string> title{};
};

/// Makes a song of a track of a file of another program: one action that can be undone. The song is
/// in no album until it is whole, so that a program that is killed leaves nothing. It has no
/// recording.
class PieceImport final : public QBCommand {
 public:
  PieceImport(std::string file, exchange::Piece piece, PieceChoices choices);
  ~PieceImport() override;

  /// Throws a UserError that names the file when no song can be made of it.
  void prepare() override;
  void execute() override;
  void nextStep() override;
  void tearDown() override;
  /// There is no half of it that would be worth keeping; it takes a moment only.
  void stopAndKeep() override { endNow(); }
  void cancelAndDrop() override;
  void endNow() override;
  platform::UserText fullTitle() const override { return typeAndName(); }
  bool usesAsScratch(const QBSong& song) const override { return isRunning() && &song == m_song; }

  const std::string& file() const { return m_file; }
  /// In its album once the command is done.
  QBSong* song() const { return m_song; }

  /// Called after each step with the share of the work that is done, 0..1.
  void onProgress(std::function<void(double)> listener) { m_onProgress = std::move(listener); }
  /// Called once the song is there, saved and logged.
  void onFinished(std::function<void()> listener) { m_onFinished = std::move(listener); }

 private:
  QBTabMgr& db() const;
  void choose();
  const exchange::Track& track() const { return m_piece.tracks[m_track]; }
  bool isPlayedFreely() const;
  TrackNotes::Guitar guitar() const;
  void requireNotes() const;
  platform::Slices work();
  platform::Slices supplying();
  platform::Slices readingRhythm();
  platform::Slices filling();
  void nameSong();
  void putIntoAlbum();
  bool step();
  void dropSong();
  void tellTrack();
  void tellLeft();

  std::string m_file;
  exchange::Piece m_piece;
  PieceChoices m_choices;
  std::size_t m_track = 0;
  std::optional<TrackNotes> m_notes;
  std::unique_ptr<ChordSupply> m_chords;
  LeftOut m_left;
  platform::Ref<QBSong> m_song;
  std::string m_album;      ///< Its name; it may have to be made.
  platform::Slices m_work;  ///< Ends before what it works on.
  std::shared_ptr<platform::UndoGroup> m_undo;
  std::function<void(double)> m_onProgress;
  std::function<void()> m_onFinished;
};

}  // namespace korvel
