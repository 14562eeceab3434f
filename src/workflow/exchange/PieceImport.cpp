// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exchange/PieceImport.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>

#include "analysis/beats/ChordsOnBeats.h"
#include "analysis/beats/HeardSound.h"
#include "analysis/beats/SpanNames.h"
#include "analysis/beats/SpanProbabilities.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "exchange/Formats.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/loop/Deadline.h"
#include "platform/persistence/UndoManager.h"
#include "platform/text/UserError.h"
#include "platform/text/Utf8.h"
#include "rhythm/RhythmReader.h"
#include "tab/text/SongDrawing.h"
#include "workflow/exchange/LeftWords.h"
#include "workflow/exchange/PieceChords.h"
#include "workflow/exchange/PieceTracks.h"
#include "workflow/exchange/PieceTuning.h"
#include "workflow/library/NameRules.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;
using platform::phrase;
using platform::UserError;

// Shares of the work.
constexpr double kShareOfSupply = 0.5;
constexpr double kShareOfChords = 0.8;
constexpr double kAllOfPiece = 1;

/// A line break in a title would shift the rows of the tablature.
std::string lineOf(std::string text) {
  constexpr std::size_t kLongest = 100;
  std::ranges::replace_if(
      text, [](unsigned char c) { return std::iscntrl(c); }, ' ');
  const std::string line = platform::printable(text);
  const std::size_t first = line.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  const auto characters =
      platform::characters(line.substr(first, line.find_last_not_of(' ') + 1 - first));
  std::string title;
  for (std::size_t i = 0; i < std::min(characters.size(), kLongest); ++i) title += characters[i];
  return title;
}

/// All that is played there sounds higher then.
void putCapo(int fret, exchange::Track& track) {
  track.capo = fret;
  for (exchange::Note& note : track.notes) note.pitch += fret;
}

/// How far notes lie off the sixteenths and triplets of their beats: whether most are nearer than
/// a player comes without meaning to.
bool areMostOnBeats(const exchange::Track& track) {
  constexpr double kNear = 0.02;  // of a quarter; a fourth of all places are as near
  constexpr double kMost = 0.75;
  constexpr double kPlacesOfQuarter[] = {0, 1 / 4.0, 1 / 3.0, 1 / 2.0, 2 / 3.0, 3 / 4.0, 1};
  const auto isNear = [&](const exchange::Note& note) {
    const double quarters = static_cast<double>(note.at) / exchange::kGrainsOfQuarter;
    const double place = quarters - std::floor(quarters);
    return std::ranges::any_of(kPlacesOfQuarter,
                               [&](double each) { return std::abs(place - each) < kNear; });
  };
  const auto near = std::ranges::count_if(track.notes, isNear);
  return static_cast<double>(near) >= kMost * static_cast<double>(track.notes.size());
}

}  // namespace

PieceImport::PieceImport(std::string file, exchange::Piece piece, PieceChoices choices)
    : m_file(std::move(file)), m_piece(std::move(piece)), m_choices(std::move(choices)) {
  m_type = phrase("Job", "Song Import");
  m_name = ": " + fs::path(m_file).filename().string();
}

PieceImport::~PieceImport() = default;

QBTabMgr& PieceImport::db() const { return QBTabMgr::db(); }

void PieceImport::prepare() {
  try {
    choose();
  } catch (const UserError& error) {
    throw UserError(phrase("Exchange", "%1: %2"), m_file, error.text());
  }
  m_undo = std::make_shared<platform::UndoGroup>(db().context().undoManager(),
                                                 phrase("UndoAction", "Import File"));
  m_undo->suspend();
  tellTrack();
  m_work = work();
}

void PieceImport::choose() {
  if (m_choices.album) requireShortName(*m_choices.album);
  if (m_choices.title) requireShortName(*m_choices.title);
  m_track = chosenTrack(m_piece, m_choices.track);
  if (!isForSixStrings(track()) && !m_choices.fitsStrings)
    throw UserError(phrase("Exchange",
                           "track %1 is for %2 strings, and songs are for six; choose another one, "
                           "or have it fitted to six strings"),
                    numberedName(m_piece, m_track), track().open.size());
  if (track().mayHaveCapo) putCapo(m_choices.capo, m_piece.tracks[m_track]);
  const PieceBars bars(m_piece);  // which there may be too many of
}

// ---- steps

void PieceImport::execute() {
  while (step()) continue;
}

void PieceImport::nextStep() {
  if (db().context().isBeingChecked()) return;
  const platform::Deadline deadline;
  while (step())
    if (deadline.isOver()) return;
  stop();
}

/// Whether there is more to do.
bool PieceImport::step() {
  try {
    const platform::UndoStep part(m_undo);
    const bool more = m_work.next();
    m_percent = static_cast<int>(kAll * m_work.done());
    if (m_onProgress) m_onProgress(m_work.done());
    return more;
  } catch (...) {
    abandonSteps();
    dropSong();
    throw;
  }
}

void PieceImport::tearDown() {
  while (step()) continue;
  m_undo.reset();
  m_percent = kAll;
  tellLeft();
  printOut(phrase("Log", "Song successfully imported."));
  if (m_onFinished) m_onFinished();
}

void PieceImport::endNow() {
  if (isRunning()) stop();
}

void PieceImport::cancelAndDrop() {
  abandonSteps();
  dropSong();
  printOut(phrase("Log", "Import cancelled, nothing was kept."));
}

void PieceImport::dropSong() {
  m_work = {};
  if (m_undo) m_undo->rollBack();
  m_undo.reset();
  m_song = nullptr;
  db().reloadData();
  session().refreshTree();
}

// ---- the work

platform::Slices PieceImport::work() {
  platform::Slices part = supplying();
  while (part.next()) co_yield kShareOfSupply* part.done();
  m_song =
      db().createSong("", tuningFor(db(), m_notes->open()), db().selectedInstrument(), nullptr);
  if (m_notes->capo() > 0) m_song->setCapo(m_notes->capo());
  part = filling();
  while (part.next()) co_yield kShareOfSupply + (kShareOfChords - kShareOfSupply) * part.done();
  nameSong();      // which is drawn, too
  putIntoAlbum();  // the tablature begins with its title
  part = buildingTab(*m_song);
  while (part.next()) co_yield kShareOfChords + (kAllOfPiece - kShareOfChords) * part.done();
  co_yield kAllOfPiece;  // saving takes its time, too
  db().save();
  session().refreshTree();
}

platform::Slices PieceImport::supplying() {
  const bool isPlayed = isPlayedFreely();
  const auto times = isPlayed ? TrackNotes::Times::played : TrackNotes::Times::written;
  m_notes.emplace(m_piece, track(), times, guitar());
  platform::Slices part = m_notes->placing();
  while (part.next()) co_yield part.done();
  m_left = m_notes->left();
  if (m_notes->areStringsFound())
    printOut({phrase("Log", "it names no tuning; by its low notes it is in %1"),
              nameOfTuning(m_notes->open())});
  requireNotes();
  if (isPlayed) {
    part = readingRhythm();
    while (part.next()) co_yield part.done();
  }
  if (m_chords) co_return;
  auto chords = std::make_unique<PieceChords>(db(), m_piece, track(), *m_notes);
  for (const auto& [what, count] : chords->left()) m_left[what] += count;
  m_chords = std::move(chords);
}

TrackNotes::Guitar PieceImport::guitar() const {
  TrackNotes::Guitar guitar{.fingering = m_choices.fingering};
  if (QBTuning* tuning = m_choices.tuning) guitar.open = tuning->openStrings().pitches();
  if (QBTuning* selected = db().selectedTuning()) guitar.usual = selected->openStrings().pitches();
  guitar.lower = pitchesOfKnownTunings();
  return guitar;
}

void PieceImport::requireNotes() const {
  const auto isPlayable = [](const fingering::Note& note) { return note.string >= 0; };
  if (std::ranges::none_of(m_notes->notes(), isPlayable))
    throw UserError(phrase("Exchange", "%1: has no notes that a guitar could play"), m_file);
}

bool PieceImport::isPlayedFreely() const {
  if (m_choices.manner != PieceManner::automatic) return m_choices.manner == PieceManner::asPlayed;
  return exchange::formatOfFile(m_file) == exchange::Format::midi && !areMostOnBeats(track());
}

/// No chords come of what is too free to be read.
platform::Slices PieceImport::readingRhythm() {
  rhythm::RhythmReader reader(m_notes->notes(), m_choices.rhythm);
  while (reader.step()) co_yield reader.progress();
  HeardSound heard;
  heard.notes = m_notes->notes();
  heard.rhythm = reader.take();
  heard.wishes = m_choices.rhythm;
  heard.capo = m_notes->capo();
  rhythm::Reading& reading = heard.rhythm.reading;
  if (heard.rhythm.isFree || reading.events.empty()) {
    printOut(phrase("Log", "its rhythm is too free to be read in bars; it is taken as written"));
    co_return;
  }
  printOut(phrase("Log", "its rhythm was read from how it was played, not as it is written"));
  tellPitchClasses(heard.notes, reading);
  tellProbabilities(heard.notes, reading);
  m_chords = std::make_unique<ChordsOnBeats>(heard);
}

platform::Slices PieceImport::filling() {
  const std::size_t count = m_chords->size();
  for (std::size_t i = 0; i < count; ++i) {
    QBToneGroupBuilder(m_chords->make(m_song)).build();
    co_yield static_cast<double>(i) / static_cast<double>(count);
  }
  m_song->forgetCaches();
}

/// As imports of recordings do it: what tags are to those, title and artist are here.
void PieceImport::nameSong() {
  const std::string artist = lineOf(m_piece.artist);
  if (!artist.empty()) m_song->setArtist(artist);
  std::string name = lineOf(m_piece.title);
  if (name.empty()) name = lineOf(fs::path(m_file).stem().string());
  std::optional<std::string> wanted = m_choices.album;
  if (!wanted && !artist.empty()) wanted = artist;
  m_album = wanted ? *wanted : QBNameMgr(nullptr, name).newAlbumName(db());
  const std::string title = m_choices.title.value_or(wanted ? name : m_album);
  QBAlbum* album = db().findAlbumByName(m_album);
  m_song->setTitle(album ? QBNameMgr(album, title).newName() : title);
}

void PieceImport::putIntoAlbum() {
  QBAlbum* album = db().findAlbumByName(m_album);
  m_song->setAlbum(album ? album : db().createAlbum(m_album, false));
}

// ---- what the user is told

void PieceImport::tellTrack() {
  if (m_piece.tracks.size() < 2) return;
  std::string others;
  for (std::size_t i = 0; i < m_piece.tracks.size(); ++i)
    if (i != m_track) others += (others.empty() ? "" : ", ") + numberedName(m_piece, i);
  printOut({phrase("Log", "track %1 is imported; there are also %2"),
            numberedName(m_piece, m_track), others});
}

void PieceImport::tellLeft() {
  for (const LeftOut& left : {m_piece.left, track().left})
    for (const auto& [what, count] : left) m_left[what] += count;
  if (!m_left.empty()) printOut({phrase("Log", "not kept as it was: %1"), textOfLeft(m_left)});
}

}  // namespace korvel
