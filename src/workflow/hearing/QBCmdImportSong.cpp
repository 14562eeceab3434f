// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/QBCmdImportSong.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "analysis/beats/HeardSound.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "platform/loop/Deadline.h"
#include "platform/persistence/UndoManager.h"
#include "platform/sqlite/StoreError.h"
#include "recording/hearing/Hearing.h"
#include "tab/text/SongDrawing.h"
#include "workflow/editing/rhythm/RhythmWords.h"
#include "workflow/exchange/PieceTuning.h"
#include "workflow/hearing/KeptRecording.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/hearing/WholeSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"
#include "workflow/takes/TakeFiles.h"
#include "workflow/takes/Takes.h"

namespace korvel {
namespace {

using platform::phrase;

/// Share of the end's work after which the song is saved, in a step of its own.
constexpr double kAllButSaved = 1;

bool hasOtherSongs(const QBAlbum& album, const QBSong* song) {
  return std::ranges::any_of(album.songs().snapshot(),
                             [song](const auto& each) { return each.get() != song; });
}

/// A song without chords, as nothing was heard, has no tablature.
bool drawMore(platform::Slices& building) {
  try {
    return building.next();
  } catch (const std::out_of_range&) {
    return false;
  }
}

}  // namespace

QBCmdImportSong::QBCmdImportSong(std::shared_ptr<AlbumNode> album, std::string file,
                                 QBSong* newSong)
    : QBCmdAlbum(std::move(album)), m_file(std::move(file)), m_newSong(newSong) {
  m_type = phrase("Job", "Song Import");
}

QBCmdImportSong::~QBCmdImportSong() = default;

void QBCmdImportSong::setDetection(const Detection& detection, const HearingSettings& settings) {
  m_detection = &detection;
  m_settings = settings;
}

void QBCmdImportSong::setReplaced(QBSong* song) { m_replaced = song; }

void QBCmdImportSong::joinUndo(std::shared_ptr<platform::UndoGroup> group) {
  m_undo = std::move(group);
  m_undo->suspend();
}

void QBCmdImportSong::prepare() {
  if (!m_undo && !m_replaced)
    joinUndo(std::make_shared<platform::UndoGroup>(db().context().undoManager(),
                                                   phrase("UndoAction", "Import WAV File")));
  begin();
}

void QBCmdImportSong::begin() {
  const platform::UndoStep part(m_undo);
  printOut(phrase("Log", "(1/3) importing file ....."));
  m_hearing = hearing();
  m_hearing->begin();
  m_newSong->setUnheard(std::filesystem::absolute(m_file).string());
  expectRecording();
  for (QBSong* song : {m_newSong.get(), m_replaced.get()})
    if (song) m_marks.push_back(std::make_unique<SongInWork>(song, SongInWork::Filler::job));
  // What a killed program leaves in no album goes when the store is opened next.
  if (m_saving) m_hearing->scratch()->setAlbum(nullptr);
  printOut(phrase("Log", "(2/3) scanning chords ....."));
}

/// Of a song that was not whole nothing is known.
void QBCmdImportSong::expectRecording() {
  const SongRecording* recording = m_replaced ? m_replaced->recording() : nullptr;
  if (!recording || !m_replaced->isWhole() || recording->path() != m_file) return;
  m_expected = recording->hash();
  readAhead(m_file);
}

std::unique_ptr<Hearing> QBCmdImportSong::hearing() const {
  return m_detection->ofFile(m_file, {m_newSong, m_source->album(), tuningOf(m_newSong),
                                      db().selectedInstrument(), m_settings, m_listening});
}

QBTabMgr& QBCmdImportSong::db() const { return QBTabMgr::of(*m_newSong); }

QBSong* QBCmdImportSong::newSong() const { return m_newSong; }

bool QBCmdImportSong::usesAsScratch(const QBSong& song) const {
  return m_hearing && m_hearing->scratch() == &song;
}

void QBCmdImportSong::execute() {
  const platform::UndoStep part(m_undo);
  printOut(phrase("Log", ".. scanning chords."));
  while (true) {
    m_hearing->wait();
    m_hearing->readAhead();
    if (atEnd()) return;
    takeNextChord();
  }
}

void QBCmdImportSong::nextStep() {
  bool more = false;
  try {
    more = step();
  } catch (...) {
    abandon();
    m_undo.reset();
    throw;
  }
  if (m_isOther) return refuse();
  if (!more && isRunning()) stop();
}

/// What another file has is not to take the song's place.
void QBCmdImportSong::refuse() {
  const platform::UserText text(
      phrase("Message", "%1: its recording is another one by now, and so the song stays as it was"),
      m_replaced->title());
  printOut(text);
  if (m_onTrouble) m_onTrouble(text);
  cancelAndDrop();
}

/// Found out as soon as the file has been read, and at the end in any case.
bool QBCmdImportSong::isOther(bool atEnd) {
  if (m_expected.empty()) return false;
  const auto content = atEnd ? std::optional(contentOf(m_file)) : knownContent(m_file);
  if (content == m_expected) m_expected.clear();
  return content && !m_expected.empty();
}

/// Whether there was something to do.
bool QBCmdImportSong::step() {
  const platform::UndoStep part(m_undo);
  if (isSongGone()) {
    rest();
    return true;
  }
  if (!m_finishing.isUnderWay()) {
    const bool hears = hearsMore();
    m_isOther = isOther(!hears);
    if (hears || m_isOther) return true;
    m_finishing = finish();
  }
  return finishSome();
}

bool QBCmdImportSong::hearsMore() {
  if (m_hearing) m_hearing->readAhead();
  const bool more = !atEnd();
  if (waitsForStore(more)) return true;
  if (more) takeChords();
  return more;
}

/// The first change of a store comes after a check of it, which takes long when it is large.
bool QBCmdImportSong::waitsForStore(bool hearsMore) const {
  return m_saving && !m_endsNow && (isSaveDue() || !hearsMore) && db().context().isBeingChecked();
}

bool QBCmdImportSong::finishSome() {
  const platform::Deadline deadline;
  while (m_finishing.next())
    if (deadline.isOver() || m_finishing.done() == kAllButSaved) return true;
  return false;
}

/// What is heard of a song that comes back would be half of it, if the import ended here.
void QBCmdImportSong::rest() {
  abandonSteps();
  printOut(phrase("Log", "Import paused, its song was deleted; undo that to go on."));
}

bool QBCmdImportSong::isSongGone() const {
  return m_newSong->isDeleted() || (m_replaced && m_replaced->isDeleted());
}

bool QBCmdImportSong::isPaused() const {
  return isStepped() && !isRunning() && (m_hearing || m_finishing.isUnderWay());
}

void QBCmdImportSong::storeRenewed() {
  if (!isPaused() || isSongGone()) return;
  printOut(phrase("Log", "Import goes on."));
  beginSteps();
}

/// Saving chords takes longer than making those that cost next to nothing.
void QBCmdImportSong::takeChords() {
  if (isSaveDue() && saved()) return;
  const bool several = m_hearing->hasCheapChords();
  const platform::Deadline deadline;
  while (takeNextChord()) {
    m_saves.count();
    if (!several || isSaveDue() || deadline.isOver()) break;
  }
}

/// Whether the store has it all. While there is no room in it the import hears on; one that is to
/// end at once cannot wait.
bool QBCmdImportSong::saved() {
  return m_saves.save(db(), isRunning() && !m_endsNow,
                      [this](const platform::StoreError& error) { tellOf(error); });
}

void QBCmdImportSong::tellOf(const platform::StoreError& error) {
  const platform::UserText text(
      phrase("Message", "%1. The import goes on, and is stored as soon as that works."),
      error.text());
  printOut(text);
  if (m_onTrouble) m_onTrouble(text);
}

bool QBCmdImportSong::isSaveDue() const { return m_saving && m_saves.isDue(); }

void QBCmdImportSong::tearDown() {
  try {
    finishNow();
  } catch (...) {
    abandon();
    m_undo.reset();
    throw;
  }
  m_undo.reset();
  m_percent = kAll;
  if (m_saving && !m_cutShort && !m_copyFailed) removeIfTake(m_file);
  if (m_cutShort) session().refreshTree();  // which marks the song
  printOut(phrase("Log", "Song successfully imported."));
  if (m_finished) m_finished();
}

/// Does at once what the steps have left of finishing.
void QBCmdImportSong::finishNow() {
  const platform::UndoStep part(m_undo);
  if (m_hearing && !m_finishing.isUnderWay()) m_finishing = finish();
  m_finishing.finish();
}

platform::Slices QBCmdImportSong::finish() {
  m_hearing->end();
  if (!m_cutShort) m_newSong->clearUnheard();
  printOut(phrase("Log", "(3/3) building tabulature ....."));
  m_newSong->clearTabulature();
  platform::Slices building = buildingTab(*m_newSong);
  if (const HeardSound* heard = m_hearing->heard()) {
    if (m_settings.players == Players::automatic)
      printOut(heard->isBand ? phrase("Log", "it sounds like a band: its chords were heard")
                             : phrase("Log", "it sounds like one guitar: its notes were heard"));
    m_otherTuning = heard->otherTuning;
    if (m_otherTuning) tellOfTuning();
    platform::Slices keeping = keepingRecording(QBTabMgr::db(), *m_newSong, m_file, *heard);
    while (keeping.next()) co_yield 0;
    platform::Slices copying = keepingCopy();
    while (copying.next()) co_yield 0;
    platform::Slices voices = makingVoices(*heard);
    while (voices.next()) co_yield 0;
    if (m_settings.grid == Grid::beats && !m_newSong->isOnBeats() && hasTones(*m_newSong))
      printOut(phrase("Log",
                      "its rhythm is too free to be read in bars, so the song is in slices of "
                      "0.37 s; with its tempo or taps it can be laid into bars"));
    if (const auto missed = missedTempoText(heard->rhythm.reading, heard->wishes);
        missed && m_newSong->isOnBeats())
      printOut(*missed);
  }
  // A user who edits the song between two steps has it drawn, and then this drawing is outdated.
  while (!m_newSong->hasTabulature() && drawMore(building)) co_yield 0;
  dropHearing();
  co_yield kAllButSaved;
  takePlaces();
  while (m_saving && !saved()) co_yield kAllButSaved;
  co_yield kAllButSaved;  // what the window shows of the end takes its time, too
}

/// Of a recording that is to be heard further they are not all of it yet.
platform::Slices QBCmdImportSong::makingVoices(const HeardSound& heard) {
  if (m_cutShort || !m_newSong->isOnBeats() || !hasTones(*m_newSong)) co_return;
  platform::Slices making = m_voices.making(
      *m_newSong, heard, [this](const platform::UserText& line) { printOut(line); });
  while (making.next()) co_yield 0;
}

/// The songs come to where the user sees them, all of them in one action.
void QBCmdImportSong::takePlaces() {
  const platform::Ref<QBAlbum> album = shownSong()->album();
  std::optional<platform::UndoGroup> action;
  if (m_replaced && !m_voices.songs().empty())
    action.emplace(db().context().undoManager(), phrase("UndoAction", "Hear Again"));
  if (m_replaced) m_newSong = takePlace(m_newSong, std::exchange(m_replaced, nullptr), session());
  m_voices.putInto(*album);
  if (!m_voices.songs().empty()) session().refreshTree();
}

/// A song without a copy is whole all the same.
platform::Slices QBCmdImportSong::keepingCopy() {
  if (!m_keepsSound && !isTakeFile(m_file)) co_return;
  platform::Slices keeping = keepingSound(*m_newSong->recording(), m_file);
  try {
    while (keeping.next()) co_yield 0;
  } catch (const platform::FileError& error) {
    m_copyFailed = true;
    printOut(error.text());
  }
}

void QBCmdImportSong::stopAndKeep() {
  if (!m_hearing || m_finishing.isUnderWay()) return;  // it is only to be saved
  // A second cut finds nothing more to leave out.
  if (m_hearing->cutShort()) m_cutShort = true;
}

void QBCmdImportSong::endNow() {
  m_endsNow = true;  // saving waits for the check of the store, if it has to
  stopAndKeep();
  while (isRunning()) {
    if (m_hearing) m_hearing->wait();
    nextStep();
  }
  if (!m_newSong->isDeleted() && !hasTones(*m_newSong)) cancelAndDrop();
}

void QBCmdImportSong::leave() {
  abandon();
  if (m_replaced) {
    dropNewSong();
  } else if (hasTones(*m_newSong)) {
    const platform::UndoStep part(m_undo);
    buildTab(*m_newSong);
  }
  m_undo.reset();
  if (m_saving) db().save();
}

void QBCmdImportSong::cancelAndDrop() {
  abandon();
  dropSong();
  session().refreshTree();
  if (m_saving) db().save();
  printOut(phrase("Log", "Import cancelled, nothing was kept."));
}

void QBCmdImportSong::abandon() {
  abandonSteps();
  m_finishing = {};
  const platform::UndoStep part(m_undo);
  if (m_hearing) m_hearing->end();
  dropHearing();
}

/// The job stays listed; what it has read of the file need not.
void QBCmdImportSong::dropHearing() {
  if (m_hearing) m_hearing->dropSound();
  m_hearing.reset();
  m_marks.clear();
}

/// The album stays when the user has put other songs there meanwhile, and with it the action that
/// made it: rolled back it would take their album from them.
void QBCmdImportSong::dropSong() {
  if (m_replaced) return dropNewSong();
  const platform::Ref<QBAlbum> album = m_source->album();
  if (session().activeSong() == m_newSong) session().setActiveSong(nullptr);
  if (m_ownsAlbum && hasOtherSongs(*album, m_newSong)) {
    const platform::UndoStep part(m_undo);
    if (!m_newSong->isDeleted()) album->deleteSong(m_newSong);
  } else if (m_undo) {
    m_undo->rollBack();
  }
  m_undo.reset();
  if (!m_newSong->isDeleted()) album->deleteSong(m_newSong);
  if (m_ownsAlbum && !album->isDeleted() && album->songs().empty()) db().deleteAlbum(album);
  db().loadAlbums();
}

/// Nobody has seen it yet.
void QBCmdImportSong::dropNewSong() {
  if (!m_newSong->isDeleted()) db().deleteSong(m_newSong);
  m_replaced = nullptr;
}

/// Before the first chord comes, which is on its strings.
void QBCmdImportSong::takeFoundTuning() {
  const HeardSound* heard = m_hearing->heard();
  if (!heard || !heard->otherTuning || !m_settings.takesTuning) return;
  QBTuning* tuning = tuningFor(db(), heard->otherTuning->open);
  for (QBSong* song : {m_newSong.get(), m_hearing->scratch()})
    if (song) song->setTuning(tuning);
}

void QBCmdImportSong::tellOfTuning() {
  const std::string name = nameOfTuning(*m_otherTuning);
  printOut(m_settings.takesTuning
               ? platform::UserText(phrase("Log", "it was played in %1, and is heard so"), name)
               : platform::UserText(phrase("Log", "it seems to be played in %1"), name));
}

bool QBCmdImportSong::atEnd() const { return !m_hearing || m_hearing->atEnd(); }

/// Whether there was one.
bool QBCmdImportSong::takeNextChord() {
  const bool taken = m_hearing->next() != nullptr;
  if (!taken) takeFoundTuning();
  const double share = m_hearing->progress();
  m_percent = static_cast<int>(kAll * share);
  if (m_listener) m_listener(share);
  return taken;
}

}  // namespace korvel
