// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/QBTabMgr.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

#include "model/book/QBHarmony.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/store/KorvelModel.h"
#include "model/store/QBSettings.h"
#include "model/store/StoreUnavailable.h"
#include "music/Neck.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/files/Resources.h"
#include "platform/persistence/UndoManager.h"
#include "platform/sqlite/StoreError.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<QBTabMgr>& sharedManager() {
  static std::unique_ptr<QBTabMgr> manager;
  return manager;
}

std::string& chosenStorePath() {
  static std::string path;
  return path;
}

/// First run: the store starts as a copy of the one that comes with the program.
void copySeedTo(const fs::path& store) {
  const auto seed = platform::Resources::ofProgram().locate("Korvel", "sqlite");
  if (!seed)
    throw platform::FileError("Korvel.sqlite",
                              platform::phrase("Message", "the program's own store is missing"));
  if (store.has_parent_path()) platform::makePrivateFolders(store.parent_path());
  storeFile(store.string()).setJournalsAside();
  platform::createAtomically(store, platform::readWholeFile(*seed), platform::Readers::ownerOnly);
}

}  // namespace

QBTabMgr& QBTabMgr::db() {
  if (!sharedManager()) sharedManager().reset(new QBTabMgr);
  return *sharedManager();
}

QBTabMgr& QBTabMgr::of(const platform::ManagedObject& object) {
  const platform::ManagedContext* context = object.context();
  if (!context || !context->owner()) throw std::logic_error("an object of a store that is closed");
  return static_cast<QBTabMgr&>(*context->owner());
}

void QBTabMgr::clearDb() { sharedManager().reset(); }

void QBTabMgr::setStorePath(std::string path) { chosenStorePath() = std::move(path); }

std::string QBTabMgr::storePath() {
  if (!chosenStorePath().empty()) return chosenStorePath();
  return (platform::userDataFolder("korvel") / "Korvel.sqlite").string();
}

QBTabMgr::QBTabMgr() {
  try {
    openStore();
    reloadData();
  } catch (const StoreUnavailable&) {
    throw;
  } catch (const std::exception& error) {
    throw StoreUnavailable(platform::phrase("Message", "Model Store Initialization"), error);
  }
}

QBTabMgr::~QBTabMgr() = default;

void QBTabMgr::openStore() {
  const std::string path = storePath();
  if (!platform::isThere(path)) {
    try {
      copySeedTo(path);
    } catch (const std::exception& error) {
      throw StoreUnavailable(platform::phrase("Message", "Preparing Database"), error);
    }
  }
  m_context = std::make_unique<platform::ManagedContext>(storeFile(path).open(), korvelModel());
  m_context->setOwner(*this);
}

// ---- lists

template <class T>
void QBTabMgr::load(List<T>& list, std::string_view entityName) {
  list.clear();
  list = m_context->fetchAll<T>(entityName);
}

void QBTabMgr::loadTunings() { load(m_tunings, "QBTuning"); }

void QBTabMgr::loadHarmonies() {
  load(m_harmonies, "QBHarmony");
  std::ranges::stable_sort(m_harmonies, std::greater<>(),
                           [](const auto& harmony) { return harmony->order(); });
}

void QBTabMgr::loadInstruments() { load(m_instruments, "QBInstrument"); }

void QBTabMgr::loadPatterns() { load(m_patterns, "QBRightHandPattern"); }

void QBTabMgr::loadAlbums() { load(m_albums, "QBAlbum"); }

void QBTabMgr::loadSettings() { load(m_settings, "QBSettings"); }

void QBTabMgr::loadLeftPatterns() { load(m_lefthandpatterns, "QBLeftHandPattern"); }

void QBTabMgr::reloadData() {
  loadTunings();
  loadHarmonies();
  loadInstruments();
  loadPatterns();
  loadAlbums();
  loadSettings();
  loadLeftPatterns();
}

bool QBTabMgr::isInitialized() {
  try {
    loadSettings();
    return !m_settings.empty();
  } catch (const std::exception&) {
    return false;
  }
}

void QBTabMgr::save() { m_context->save(); }

void QBTabMgr::saveOr(bool (platform::UndoManager::*takeBack)()) {
  try {
    save();
    reloadData();
  } catch (const platform::StoreError&) {
    (m_context->undoManager().*takeBack)();
    reloadData();
    throw;
  }
}

bool QBTabMgr::undo() {
  if (!m_context->undoManager().undo()) return false;
  saveOr(&platform::UndoManager::redo);
  return true;
}

bool QBTabMgr::redo() {
  if (!m_context->undoManager().redo()) return false;
  saveOr(&platform::UndoManager::undo);
  return true;
}

QBSettings* QBTabMgr::selectedSettings() const {
  return m_settings.empty() ? nullptr : m_settings.front().get();
}

QBTuning* QBTabMgr::selectedTuning() const {
  const QBSettings* settings = selectedSettings();
  return settings ? settings->activeTuning() : nullptr;
}

void QBTabMgr::selectTuning(QBTuning* tuning) {
  if (QBSettings* settings = selectedSettings()) settings->setActiveTuning(tuning);
  for (const auto& other : m_tunings) other->setSelected(other.get() == tuning);
}

QBInstrument* QBTabMgr::selectedInstrument() const {
  const auto active =
      std::ranges::find_if(m_instruments, [](const auto& each) { return each->active(); });
  return active == m_instruments.end() ? nullptr : active->get();
}

void QBTabMgr::deselectAllInstruments() {
  for (const auto& instrument : m_instruments) instrument->setActive(false);
}

void QBTabMgr::computeOffsets() {
  QBInstrument* instrument = selectedInstrument();
  if (!instrument) return;
  QBTuning* tuning = selectedTuning();
  const OpenStrings strings = tuning ? tuning->openStrings() : OpenStrings();
  for (int string = 0; string < kStrings; ++string)
    instrument->findSpectrumByString(string)->computeOffsets(strings);
}

}  // namespace korvel
