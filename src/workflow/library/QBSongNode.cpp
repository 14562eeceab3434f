// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/QBSongNode.h"

#include <optional>
#include <stdexcept>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/persistence/UndoManager.h"
#include "platform/sqlite/StoreError.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/arranging/SongOrders.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/NodeVisitor.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using platform::phrase;

/// Writing itself reports nothing, so what it left is read again.
void requireWritten(const std::string& path, const std::string& text) {
  if (platform::readWholeFile(path) != text)
    throw platform::FileError(path, phrase("Message", "could not be written whole"));
}

}  // namespace

QBSongNode::QBSongNode(QBSong* song, std::weak_ptr<AlbumNode> parent, QBSession& session)
    : m_song(song), m_parent(std::move(parent)), m_session(session) {}

QBSongNode::~QBSongNode() = default;

std::string QBSongNode::title() const { return m_song->title(); }

bool QBSongNode::isGone() const { return m_song->isDeleted(); }

QBSong* QBSongNode::song() const { return m_song; }

void QBSongNode::accept(NodeVisitor& visitor) { visitor.visit(*this); }

void QBSongNode::rename(const std::string& title) { renameSong(*m_song, title); }

void QBSongNode::remove() { orderOf(*this, *findSongCommand("deleteSong")); }

bool QBSongNode::perform(std::string_view command) {
  const SongCommand* found = findSongCommand(command);
  if (!found) throw std::invalid_argument("no command \"" + std::string(command) + '"');
  return perform(*found);
}

bool QBSongNode::perform(const SongCommand& command, Manner manner) {
  const auto keep = shared_from_this();  // a deletion takes this node out of the tree
  platform::UndoGroup group(QBTabMgr::of(*m_song).context().undoManager(), undoTitle(command));
  try {
    if (command.make)
      derive(command, manner);
    else if (manner == Manner::forPlayers)
      performForPlayers(command);
    else
      (this->*command.perform)();
    return true;
  } catch (const platform::StoreError&) {
    takeBack(group);
    throw;
  } catch (const EditRefused&) {
    takeBack(group);
    throw;
  } catch (const std::exception& exception) {
    if (manner == Manner::forPlayers) takeBack(group);
    m_session.handleException(command.command, exception);
    return false;
  }
}

/// Songs that are shown, but not stored, would be gone with the program.
void QBSongNode::takeBack(platform::UndoGroup& group) {
  group.rollBack();
  if (const auto parent = m_parent.lock()) parent->followSongs();
  m_session.refreshTree();
  if (m_session.activeSong() && m_session.activeSong()->isDeleted())
    m_session.setActiveSong(m_song);
}

void QBSongNode::performForPlayers(const SongCommand& command) {
  const platform::Ref<QBAlbum> album = &m_song->requireAlbum();
  const std::size_t before = album->songs().size();
  if (command.perform == &QBSongNode::extractChainStandard) requireSound(*m_song, command);
  (this->*command.perform)();
  const auto songs = album->songs().snapshot();
  if (songs.size() <= before) return;
  for (const auto& made : std::span(songs).subspan(before)) keepTimes(*m_song, *made);
  m_session.setActiveSong(songs.back());
}

void QBSongNode::derive(const SongCommand& command, Manner manner) {
  QBSong* made = derived(*m_song, command, manner);
  addSongToParent(made);
  m_session.setActiveSong(made);
  m_session.finish(command.message);
  QBTabMgr::of(*m_song).save();
}

void QBSongNode::addSongToParent(QBSong* song) {
  if (const auto parent = m_parent.lock()) parent->addChild(song);
  m_session.refreshTree();
}

void QBSongNode::mouseClick() {
  m_session.lockTab(false);
  m_session.setActiveSong(m_song);
}

void QBSongNode::extractChainStandard() {
  m_session.addToLog(phrase("Log", "Applying filter chain."));
  QBSong* voices = derivedByLetter(*m_song, "extractSix");
  addSongToParent(voices);
  m_session.finish(phrase("Log", "Leading Six Voices extracted."));
  QBSong* left = derivedByLetter(*voices, "toLeftHand");
  addSongToParent(left);
  m_session.finish(phrase("Log", "Left Hand optimized."));
  addSongToParent(derivedByLetter(*left, "toRightHand"));
  m_session.finish(phrase("Log", "Right Hand optimized."));
  QBTabMgr::of(*m_song).save();
}

void QBSongNode::exportAsFile() {
  SavePanel* panel = m_session.views().savePanel;
  const auto path = panel ? panel->chooseFile(m_song->title() + ".txt") : std::nullopt;
  if (!path) return;
  tofile(*m_song, *path);
  requireWritten(*path, toStringForExport(*m_song));
  m_session.addToLog(platform::UserText::verbatim(*path));
}

void QBSongNode::copySong() {
  const std::string name = nameOf(*m_song).copySong();
  QBSong* copy = m_song->clone();
  copy->setTitle(name);
  if (m_song->isOnBeats()) keepTimes(*m_song, *copy);
  addSongToParent(copy);
  m_session.setActiveSong(copy);
  buildTab(*copy);
  m_session.finish(phrase("Log", "Song was successfully cloned."));
}

void QBSongNode::deleteSong() {
  if (m_session.activeSongNode() == this) m_session.setActiveTreeNode(nullptr);
  if (const auto parent = m_parent.lock()) parent->removeChild(*this);
  takeOutOfAlbum(*m_song);
  m_session.refreshTree();
  m_session.finish(kSongDeleted);
}

}  // namespace korvel
