// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <vector>

#include "analysis/HearingSettings.h"
#include "ui/desktop/Appearance.h"
#include "ui/desktop/SongOrder.h"
#include "workflow/hearing/Detection.h"
#include "workflow/hearing/ImportDesk.h"

namespace korvel::ui {

/// What the window remembers of its user from one start to the next, in the desktop's usual place.
/// Objects are cheap, and all of them read and write the same values.
class Preferences {
 public:
  QByteArray windowGeometry() const { return m_store.value("window/geometry").toByteArray(); }
  void setWindowGeometry(const QByteArray& value) { m_store.setValue("window/geometry", value); }
  QByteArray windowState() const { return m_store.value("window/state").toByteArray(); }
  void setWindowState(const QByteArray& value) { m_store.setValue("window/state", value); }
  /// Percent of the font's size.
  int zoom() const { return m_store.value("tab/zoom", 100).toInt(); }
  void setZoom(int percent) { m_store.setValue("tab/zoom", percent); }
  /// "Album/Title" of the song that was shown last; empty at first.
  QString lastSong() const { return m_store.value("lastSong").toString(); }
  void setLastSong(const QString& name) { m_store.setValue("lastSong", name); }

  /// What is open in the library; its three groups at first.
  QStringList openBranches() const {
    return m_store.value("tree/open", QStringList{"0", "1", "2"}).toStringList();
  }
  void setOpenBranches(const QStringList& keys) { m_store.setValue("tree/open", keys); }

  SongOrder songOrder() const {
    return static_cast<SongOrder>(m_store.value("tree/order").toInt());
  }
  void setSongOrder(SongOrder order) { m_store.setValue("tree/order", static_cast<int>(order)); }

  /// Files that were imported, the latest first.
  QStringList recentFiles() const { return m_store.value("recentFiles").toStringList(); }
  void addRecentFile(const QString& file);

  Theme theme() const { return static_cast<Theme>(m_store.value("theme").toInt()); }
  void setTheme(Theme theme) { m_store.setValue("theme", static_cast<int>(theme)); }
  /// Such as "de"; empty for the desktop's.
  QString language() const { return m_store.value("language").toString(); }
  void setLanguage(const QString& language) { m_store.setValue("language", language); }
  /// Family of the tablature's font; empty for the desktop's monospaced one.
  QString tabFont() const { return m_store.value("tab/font").toString(); }
  void setTabFont(const QString& family) { m_store.setValue("tab/font", family); }
  /// Shapes of chords are drawn above the tablature.
  bool showsDiagrams() const { return m_store.value("tab/diagrams").toBool(); }
  void setShowsDiagrams(bool on) { m_store.setValue("tab/diagrams", on); }
  /// Diagrams and the fretboard are those of a left hand's guitar.
  bool leftHanded() const { return m_store.value("leftHanded").toBool(); }
  void setLeftHanded(bool on) { m_store.setValue("leftHanded", on); }
  // Names of sound devices; empty for the system's default.
  QString output() const { return m_store.value("sound/output").toString(); }
  void setOutput(const QString& device) { m_store.setValue("sound/output", device); }
  QString input() const { return m_store.value("sound/input").toString(); }
  void setInput(const QString& device) { m_store.setValue("sound/input", device); }
  /// Percent.
  int volume() const { return m_store.value("sound/volume", 100).toInt(); }
  void setVolume(int percent) { m_store.setValue("sound/volume", percent); }
  /// Clicks are heard beside a song.
  bool metronome() const { return m_store.value("sound/metronome").toBool(); }
  void setMetronome(bool on) { m_store.setValue("sound/metronome", on); }
  /// Percent; 70 as loud as they come.
  int clickVolume() const { return m_store.value("sound/clickVolume", 70).toInt(); }
  void setClickVolume(int percent) { m_store.setValue("sound/clickVolume", percent); }
  /// Percent, from the recording of a song alone to its guitar alone.
  int soundMix() const { return m_store.value("sound/mix", 100).toInt(); }
  void setSoundMix(int percent) { m_store.setValue("sound/mix", percent); }
  /// The recording is heard on the left and the guitar on the right.
  bool soundApart() const { return m_store.value("sound/apart").toBool(); }
  void setSoundApart(bool on) { m_store.setValue("sound/apart", on); }
  /// A click on a note plays its moment of the recording.
  bool hearsClicks() const { return m_store.value("sound/hearsClicks", true).toBool(); }
  void setHearsClicks(bool on) { m_store.setValue("sound/hearsClicks", on); }
  /// Copies of imported recordings are kept beside the store; asked at the first import.
  bool keepsRecordings() const { return m_store.value("keepRecordings").toBool(); }
  bool askedToKeep() const { return m_store.contains("keepRecordings"); }
  void setKeepsRecordings(bool on) { m_store.setValue("keepRecordings", on); }
  /// Clicks are heard before a song.
  bool countIn() const { return m_store.value("sound/countIn").toBool(); }
  void setCountIn(bool on) { m_store.setValue("sound/countIn", on); }
  /// Songs on beats are played in strict tempo.
  bool strictTempo() const { return m_store.value("sound/strictTempo").toBool(); }
  void setStrictTempo(bool on) { m_store.setValue("sound/strictTempo", on); }
  /// The ends of loops are those of bars.
  bool loopsBars() const { return m_store.value("loop/bars").toBool(); }
  void setLoopsBars(bool on) { m_store.setValue("loop/bars", on); }
  /// File of the SoundFont; empty for one that is found.
  QString soundFont() const { return m_store.value("sound/soundFont").toString(); }
  void setSoundFont(const QString& file) { m_store.setValue("sound/soundFont", file); }
  const Detection& detection() const;
  /// Of a guitar with 19 frets at first, the fewest that are common.
  HearingSettings detectionSettings() const;
  void setDetection(const Detection& detection, const HearingSettings& settings);
  /// The user was asked for a working directory once.
  bool askedForFolder() const { return m_store.value("askedForFolder").toBool(); }
  void setAskedForFolder() { m_store.setValue("askedForFolder", true); }
  /// Imports into the open store that were running when this was last written, or were left to the
  /// next start.
  std::vector<ImportUnderWay> runningImports() const;
  void setRunningImports(const std::vector<ImportUnderWay>& imports);

  /// Files left by recordings that did not end, of which the user knows.
  QStringList knownTakes() const { return m_store.value("knownTakes").toStringList(); }
  void setKnownTakes(const QStringList& files) { m_store.setValue("knownTakes", files); }

  QString importFolder() const { return folder("folders/import"); }
  void setImportFolder(const QString& path) { m_store.setValue("folders/import", path); }
  QString exportFolder() const { return folder("folders/export"); }
  void setExportFolder(const QString& path) { m_store.setValue("folders/export", path); }

 private:
  QString folder(const QString& key) const;

  QSettings m_store;
};

}  // namespace korvel::ui
