// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/StoreSeeding.h"

#include <algorithm>

#include "analysis/instrument/QBMusicXMLParser.h"
#include "arrange/harmony/Parser.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "model/store/SessionServices.h"
#include "model/store/StoreUnavailable.h"
#include "platform/files/Resources.h"
#include "platform/sqlite/StoreError.h"

namespace korvel {
namespace {

constexpr int kStandardOrder = 1;
constexpr int kDropDOrder = 2;

std::string pathOf(std::string_view name, std::string_view type) {
  const auto path = platform::Resources::ofProgram().locate(name, type);
  if (!path)
    SessionServices::current().logError(
        {platform::phrase("Log", "The resource %1 is missing; install Korvel again."), name});
  return path.value_or("").string();
}

void addSettings(QBTabMgr& db) {
  if (!db.settings().empty()) return;
  db.createSettings("./");
  db.loadSettings();
}

QBTuning& tuningOf(QBTabMgr& db, const std::string& name, int order,
                   void (QBTuning::*createStrings)()) {
  if (QBTuning* known = db.findTuningByOrder(order)) return *known;
  QBTuning* made = db.createTuning(name, order);
  (made->*createStrings)();
  return *made;
}

/// The active tuning is named by the settings; with them gone the mark at the tuning still tells.
void addTunings(QBTabMgr& db) {
  QBTuning& standard = tuningOf(db, "Standard", kStandardOrder, &QBTuning::createStandardStrings);
  tuningOf(db, "Drop D", kDropDOrder, &QBTuning::createDropDStrings);
  if (!db.selectedTuning()) {
    const auto marked =
        std::ranges::find_if(db.tunings(), [](const auto& tuning) { return tuning->selected(); });
    db.selectTuning(marked == db.tunings().end() ? &standard : marked->get());
  }
  db.loadTunings();
}

void addInstrument(QBTabMgr& db) {
  if (!db.instruments().empty()) return;
  QBMusicXMLParser(db, pathOf("Classic E-Guitar", "xml")).parse();
  // Offsets in the file are only a hint; those that the filter uses are computed.
  if (db.selectedInstrument()) db.computeOffsets();
}

}  // namespace

void prepareStore() {
  QBTabMgr& db = QBTabMgr::db();
  if (db.isInitialized()) return;
  try {
    initializeData(db);
  } catch (const platform::StoreError& error) {
    throw StoreUnavailable(platform::phrase("Message", "Model Store Initialization"), error);
  }
}

void initializeData(QBTabMgr& db) {
  addSettings(db);
  addTunings(db);
  if (db.harmonies().empty()) Parser(db, pathOf("ChordDeclarations", "")).parseHarmonies();
  addInstrument(db);
  if (db.patterns().empty()) db.initRightHandPatterns();
  if (db.lefthandpatterns().empty()) db.initLeftHandPatterns();
  db.save();
  db.reloadData();
}

}  // namespace korvel
