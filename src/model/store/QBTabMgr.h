// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/persistence/ManagedContext.h"

namespace korvel {

class QBAlbum;
class QBBlock;
class QBChord;
class QBFFT;
class QBHarmony;
class QBHold;
class QBInstrument;
class QBLeftHandPattern;
class QBMeasure;
class QBOvertone;
class QBRightHandPattern;
class QBSample;
class QBSettings;
class QBSong;
class QBSpectrum;
class QBString;
class QBTone;
class QBToneOfHarmony;
class QBTuning;
class SongRecording;

/// The one gateway to the stored graph: opens the store, keeps the lists of top-level
/// objects, creates, deletes and finds every entity. Main thread only.
///
/// Created objects live in memory until `save`. Delete operations take dependent objects with them,
/// depth first, but leave a song's measures and a chord's block, which the next opening sweeps.
class QBTabMgr : private platform::ContextOwner {
 public:
  template <class T>
  using List = std::vector<platform::Ref<T>>;

  /// The shared manager; opens the store on first use. Throws StoreUnavailable when that fails.
  static QBTabMgr& db();
  /// The manager of the store that the object is from. std::logic_error when that is closed.
  static QBTabMgr& of(const platform::ManagedObject& object);
  static void clearDb();
  static void deleteAll() { clearDb(); }
  /// The file that the next first use of `db` opens, instead of the one in the user's data folder.
  static void setStorePath(std::string path);
  static std::string storePath();

  QBTabMgr(const QBTabMgr&) = delete;
  QBTabMgr& operator=(const QBTabMgr&) = delete;
  ~QBTabMgr();

  // Lists.
  /// These throw StoreError for a store that cannot be read; the list is empty then.
  void reloadData();
  /// Whether the store holds settings; false too when they cannot be read.
  bool isInitialized();
  /// Writes all changes at once. Throws StoreError; the changes are kept for another try then, or
  /// for an undo group to roll back.
  void save();
  /// Takes the latest action back, or does it again, saves, and loads the lists anew. False when
  /// there is no such action. Throws StoreError when it cannot be saved, and has not happened then.
  bool undo();
  bool redo();

  const List<QBTuning>& tunings() const { return m_tunings; }
  const List<QBHarmony>& harmonies() const { return m_harmonies; }
  const List<QBInstrument>& instruments() const { return m_instruments; }
  const List<QBRightHandPattern>& patterns() const { return m_patterns; }
  const List<QBLeftHandPattern>& lefthandpatterns() const { return m_lefthandpatterns; }
  const List<QBAlbum>& albums() const { return m_albums; }
  const List<QBSettings>& settings() const { return m_settings; }
  void setTunings(List<QBTuning> list) { m_tunings = std::move(list); }
  void setHarmonies(List<QBHarmony> list) { m_harmonies = std::move(list); }
  void setInstruments(List<QBInstrument> list) { m_instruments = std::move(list); }
  void setPatterns(List<QBRightHandPattern> list) { m_patterns = std::move(list); }
  void setLefthandpatterns(List<QBLeftHandPattern> list) { m_lefthandpatterns = std::move(list); }
  void setAlbums(List<QBAlbum> list) { m_albums = std::move(list); }
  void setSettings(List<QBSettings> list) { m_settings = std::move(list); }

  void loadTunings();
  /// By order, descending.
  void loadHarmonies();
  void loadInstruments();
  void loadPatterns();
  void loadAlbums();
  void loadSettings();
  void loadLeftPatterns();

  QBSettings* selectedSettings() const;
  /// The tuning that new songs get; none without settings. A song counts by its own.
  QBTuning* selectedTuning() const;
  /// Makes it the active tuning and the only one marked as selected.
  void selectTuning(QBTuning* tuning);
  /// The first active one, or none.
  QBInstrument* selectedInstrument() const;
  void deselectAllInstruments();
  /// Overtone offsets of all six strings of the selected instrument.
  void computeOffsets();
  /// Frets of the first position that detection searches.
  int endFret() const { return 5; }

  // Create. Only the values named are set.
  platform::ManagedObject* createInstance(std::string_view entityName);
  QBAlbum* createAlbum(const std::string& name, bool locked);
  QBSong* createSong(const std::string& title, QBTuning* tuning, QBInstrument* instrument,
                     QBAlbum* album);
  SongRecording* createRecording(const std::string& path);
  QBMeasure* createMeasure(QBSong* song, int beat, int beattype);
  QBChord* createChord(QBSong* song, std::shared_ptr<QBFFT> fft, std::int64_t timestamp);
  QBHold* createHold();
  QBTone* createTone(QBHold* hold, int string, int fret, int note, double amp);
  QBBlock* createBlock(QBChord* chord);
  QBSample* createSample(QBBlock* block, std::int16_t value);
  QBSettings* createSettings(const std::string& workDir);
  QBTuning* createTuning(const std::string& descr, int order);
  QBString* createString(QBTuning* tuning, int baseTone, int order, float frequency);
  /// With one empty spectrum for each of the six strings; std::out_of_range when the tuning lacks
  /// one.
  QBInstrument* createInstrument(QBTuning* tuning, const std::string& name, bool active,
                                 bool editable, float detaillevel, float volume);
  QBSpectrum* createSpectrum(QBInstrument* instrument, QBString* string);
  QBOvertone* createOvertone(QBSpectrum* spectrum, int string, int fret, int note, int offset,
                             double frequency, double amp);
  QBHarmony* createHarmony(const std::string& type, int order);
  QBToneOfHarmony* createToneOfHarmony(QBHarmony* harmony, int order, int step);
  QBRightHandPattern* createPattern(int order);
  QBString* createPatternString(QBRightHandPattern* pattern, int order);
  QBLeftHandPattern* createLeftPattern(int order);
  QBString* createLeftPatternString(QBLeftHandPattern* pattern, int order, int baseTone);
  /// Patterns from six characters, the first for string 5: "x" strikes the string (right hand), a
  /// digit is the finger that stops it (left hand). std::invalid_argument for another length.
  QBRightHandPattern* addPattern(std::string_view text, int order);
  QBLeftHandPattern* addLeftPattern(std::string_view text, int order);
  void initRightHandPatterns();
  void initLeftHandPatterns();

  // Delete.
  void deleteInstance(platform::ManagedObject* object);
  void deleteAlbum(QBAlbum* album);
  void deleteSong(QBSong* song);
  void deleteChord(QBChord* chord);
  void deleteHold(QBHold* hold);
  void deleteTone(QBTone* tone);
  void deleteBlock(QBBlock* block);
  void deleteSpectrum(QBSpectrum* spectrum);
  void deleteOvertone(QBOvertone* overtone);
  void deleteInstrumentAtIndex(std::size_t index);

  // Find. Indexes beyond a list: std::out_of_range.
  QBAlbum* findAlbumByIndex(std::size_t index) const { return m_albums.at(index); }
  QBInstrument* findInstrumentByIndex(std::size_t index) const { return m_instruments.at(index); }
  QBHarmony* findHarmonyByIndex(std::size_t index) const { return m_harmonies.at(index); }
  QBLeftHandPattern* findLeftHandByIndex(std::size_t index) const {
    return m_lefthandpatterns.at(index);
  }
  QBAlbum* findAlbumByName(const std::string& name) const;
  QBTuning* findTuningByOrder(int order) const;

  platform::ManagedContext& context() const { return *m_context; }

 private:
  QBTabMgr();
  void openStore();
  void saveOr(bool (platform::UndoManager::*takeBack)());
  template <class T>
  T* create(std::string_view entityName);
  template <class T>
  void load(List<T>& list, std::string_view entityName);

  std::unique_ptr<platform::ManagedContext> m_context;
  List<QBTuning> m_tunings;
  List<QBHarmony> m_harmonies;
  List<QBInstrument> m_instruments;
  List<QBRightHandPattern> m_patterns;
  List<QBLeftHandPattern> m_lefthandpatterns;
  List<QBAlbum> m_albums;
  List<QBSettings> m_settings;
};

}  // namespace korvel
