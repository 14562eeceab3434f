// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/StoreSeeding.h"

#include "analysis/instrument/QBMusicXMLParser.h"
#include "arrange/harmony/Parser.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "model/store/SessionServices.h"
#include "platform/files/Resources.h"

namespace korvel {
namespace {

constexpr int kStandardOrder = 1;
constexpr int kDropDOrder = 2;

std::string pathOf(std::string_view name, std::string_view type) {
  const auto path = platform::Resources::ofProgram().locate(name, type);
  if (!path)
    SessionServices::current().logError("The resource " + std::string(name) +
                                        " is missing; install Korvel again.");
  return path.value_or("").string();
}

}  // namespace

bool initializeData(QBTabMgr& db) {
  db.createSettings("./");
  db.loadSettings();
  QBTuning* standard = db.createTuning("Standard", kStandardOrder);
  standard->createStandardStrings();
  db.selectTuning(standard);
  db.createTuning("Drop D", kDropDOrder)->createDropDStrings();
  db.loadTunings();
  Parser(pathOf("ChordDeclarations", "")).parseHarmonies();
  QBMusicXMLParser(pathOf("Classic E-Guitar", "xml")).parse();
  // Offsets in the file are only a hint; those that the filter uses are computed.
  if (db.selectedInstrument()) db.computeOffsets();
  db.initRightHandPatterns();
  db.initLeftHandPatterns();
  const bool saved = db.save();
  if (saved) db.reloadData();
  return saved;
}

}  // namespace korvel
