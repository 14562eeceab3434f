// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMenu>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "platform/text/UserError.h"
#include "ui/desktop/Text.h"
#include "ui/library/LibraryActions.h"
#include "ui/library/SongFormats.h"
#include "ui/library/SongGuides.h"
#include "ui/library/SongMenu.h"
#include "workflow/arranging/SongOrders.h"
#include "workflow/exporting/ExportAlbumCommand.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/hearing/WholeSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/InstrumentNode.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/library/TuningNode.h"
#include "workflow/session/NodeVisitor.h"
#include "workflow/session/SongInWork.h"

namespace korvel::ui {

void LibraryActions::fillRootMenu(QMenu& menu) {
  menu.addAction(tr("Import WAV File"), this, [this] { chooseAndImport(); });
  menu.addAction(tr("New Album"), this, &LibraryActions::createAlbum);
}

void LibraryActions::fillTuningsMenu(QMenu& menu) {
  for (const KnownTuning from : knownTunings())
    menu.addAction(tr("New from %1").arg(nameOf(from)), this,
                   [this, from] { attempt([from] { newTuning(from); }); });
}

void LibraryActions::fillInstrumentsMenu(QMenu& menu) {
  menu.addAction(tr("Import Definition File ..."), this, &LibraryActions::chooseInstrument);
  menu.addAction(tr("Calibrate From Recorded Notes ..."), this,
                 &LibraryActions::calibrateInstrument);
}

class LibraryActions::MenuOfNode final : public NodeVisitor {
 public:
  MenuOfNode(LibraryActions& actions, QMenu& menu) : m_actions(actions), m_menu(menu) {}

  void visit(QBSongNode& node) override { m_actions.fillSongMenu(m_menu, node.shared_from_this()); }
  void visit(AlbumNode& node) override {
    m_actions.addRename(m_menu, node);
    m_actions.fillAlbumMenu(m_menu, [album = node.shared_from_this()] { return album->album(); });
  }
  void visit(TuningNode& node) override {
    m_actions.addRename(m_menu, node);
    m_actions.fillTuningMenu(m_menu, *node.tuning());
  }
  void visit(InstrumentNode& node) override {
    m_actions.addRename(m_menu, node);
    m_actions.fillInstrumentMenu(m_menu, *node.instrument());
  }

 private:
  LibraryActions& m_actions;
  QMenu& m_menu;
};

void LibraryActions::fillMenu(QMenu& menu, TreeNode& node) {
  MenuOfNode filled(*this, menu);
  node.accept(filled);
}

void LibraryActions::fillSongMenu(QMenu& menu, const std::shared_ptr<QBSongNode>& node) {
  if (!node->song()->isWhole()) fillUnheardMenu(menu, *node->song());
  m_guides.addTo(menu, [node] { return node->song(); });
  addSongCommands(menu, [this, node](const SongCommand& command) {
    attempt([&] { orderOf(*node, command); });
  });
  if (node->song()->isWhole()) addHearAgain(menu, *node->song());
}

void LibraryActions::fillUnheardMenu(QMenu& menu, QBSong& song) {
  const platform::Ref<QBSong> kept(&song);
  const bool isHeard = SongInWork::is(song);
  menu.addAction(tr("Go On Hearing"), this,
                 [this, kept] { follow(m_desk.hearAgain(*kept), toText(kept->unheard())); })
      ->setEnabled(canHearAgain(song));
  menu.addAction(tr("Take As Whole"), this, [this, kept] { attempt([&] { takeAsWhole(*kept); }); })
      ->setEnabled(!isHeard);
  menu.addSeparator();
}

/// By the settings that there are now, but for what plays.
void LibraryActions::addHearAgain(QMenu& menu, QBSong& song) {
  if (!song.recording()) return;
  const platform::Ref<QBSong> kept(&song);
  menu.addSeparator();
  const auto add = [&](const QString& title, std::optional<Players> players,
                       const chords::Voices& voices = {}) {
    menu.addAction(title, this,
                   [this, kept, players, voices] { hearAgain(*kept, players, voices); })
        ->setEnabled(canHearAnew(song));
  };
  add(tr("Hear Again"), std::nullopt);
  if (!song.recording()->isBand()) return add(tr("Hear Again as a Band"), Players::band);
  add(tr("Hear Again with Melody and Bass"), Players::band,
      {chords::Voice::melody, chords::Voice::bass});
  add(tr("Hear Again as One Guitar"), Players::guitar);
}

void LibraryActions::hearAgain(QBSong& song, std::optional<Players> players,
                               const chords::Voices& voices) {
  const QString file = toText(recordingFileOf(song));
  follow(m_desk.hearAgain(song, {players, voices}), file);
}

void LibraryActions::fillAlbumMenu(QMenu& menu, const std::function<QBAlbum*()>& album) {
  const auto add = [&](QMenu& place, const QString& title, const auto& act) {
    place.addAction(title, this, [this, album, act] {
      const platform::Ref<QBAlbum> chosen = album();
      if (chosen) attempt([&] { act(*chosen); });
    });
  };
  add(menu, tr("Clone"), [](QBAlbum& each) { cloneAlbum(each); });
  add(menu, tr("Delete"), [](QBAlbum& each) { deleteAlbum(each); });
  menu.addSeparator();
  add(menu, tr("Import Into ..."), [this](QBAlbum& each) { chooseAndImport(&each); });
  QMenu& all = *menu.addMenu(tr("Export All As"));
  for (const FormatName& format : kFormats)
    add(all, nameOf(format), [this, format](QBAlbum& each) { exportAll(each, format.format); });
}

void LibraryActions::fillSongsMenu(QMenu& menu, const Songs& songs) {
  QMenu& all = *menu.addMenu(tr("Export All As"));
  for (const FormatName& format : kFormats)
    all.addAction(nameOf(format), this, [this, songs, format] {
      attempt([&] {
        exportInto([&](const std::string& folder) {
          return std::make_shared<ExportAlbumCommand>(songs, format.format, folder);
        });
      });
    });
}

void LibraryActions::fillTuningMenu(QMenu& menu, QBTuning& tuning) {
  const platform::Ref<QBTuning> kept(&tuning);
  menu.addAction(tr("Select As Active"), this,
                 [this, kept] { attempt([&] { selectTuning(*kept); }); });
  menu.addAction(tr("Edit Strings ..."), this, [this, kept] { editStrings(*kept); });
  menu.addAction(tr("Delete"), this, [this, kept] { attempt([&] { deleteTuning(*kept); }); });
  menu.addSeparator();
  fillTuningsMenu(menu);
}

void LibraryActions::fillInstrumentMenu(QMenu& menu, QBInstrument& instrument) {
  const platform::Ref<QBInstrument> kept(&instrument);
  menu.addAction(tr("Select As Active"), this,
                 [this, kept] { attempt([&] { selectInstrument(*kept); }); });
  menu.addAction(tr("Export Definition File ..."), this, [this, kept] { exportInstrument(*kept); });
  menu.addAction(tr("Delete"), this, [this, kept] { attempt([&] { deleteInstrument(*kept); }); });
  menu.addSeparator();
  fillInstrumentsMenu(menu);
}

void LibraryActions::addRename(QMenu& menu, const TreeNode& node) {
  menu.addAction(tr("Rename"), this, [this, &node] { emit renameWanted(&node); });
}

}  // namespace korvel::ui
