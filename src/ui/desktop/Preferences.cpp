// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Preferences.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

constexpr int kMostRecentFiles = 10;

/// The same for every spelling of a file's path, unless it is gone.
QString placeOf(const QString& file) {
  const QString place = QFileInfo(file).canonicalFilePath();
  return place.isEmpty() ? file : place;
}

/// Windows on several stores have the same preferences.
QString keyOfRunning() {
  const QByteArray path = QByteArray::fromStdString(QBTabMgr::storePath());
  return "running/" + QCryptographicHash::hash(path, QCryptographicHash::Md5).toHex();
}

/// Tells that it is chosen. There is none for the precise one, which is what is chosen otherwise.
QString keyOf(const Detection& detection) { return "detection/" + toText(detection.name); }

}  // namespace

void Preferences::addRecentFile(const QString& file) {
  QStringList files = recentFiles();
  files.removeIf([&](const QString& each) { return placeOf(each) == placeOf(file); });
  files.prepend(file);
  m_store.setValue("recentFiles", files.mid(0, kMostRecentFiles));
}

const Detection& Preferences::detection() const {
  for (const Detection* each : detections())
    if (each != &preciseDetection() && m_store.value(keyOf(*each)).toBool()) return *each;
  return preciseDetection();
}

HearingSettings Preferences::detectionSettings() const {
  HearingSettings settings = settingsOfFrontEnds();
  if (m_store.value("detection/slices").toBool()) settings.grid = Grid::slices;
  settings.players = static_cast<Players>(m_store.value("detection/players").toInt());
  if (settings.players == Players::band) settings.grid = Grid::beats;
  const std::string voices = m_store.value("detection/voices").toString().toStdString();
  settings.voices = chords::voicesNamed(voices).value_or(chords::Voices());
  settings.sensitivity = m_store.value("detection/sensitivity", settings.sensitivity).toDouble();
  settings.concertA = m_store.value("detection/concertA", settings.concertA).toDouble();
  auto& fingering = settings.fingering;
  fingering.frets = m_store.value("detection/frets", fingering.frets).toInt();
  fingering.capo = m_store.value("detection/capo", fingering.capo).toInt();
  fingering.position.kind =
      static_cast<precise::Position::Kind>(m_store.value("detection/position").toInt());
  fingering.position.fret = m_store.value("detection/fret", fingering.position.fret).toInt();
  return settings;
}

void Preferences::setDetection(const Detection& detection, const HearingSettings& settings) {
  for (const Detection* each : detections())
    if (each != &preciseDetection()) m_store.setValue(keyOf(*each), each == &detection);
  m_store.setValue("detection/slices", settings.grid == Grid::slices);
  m_store.setValue("detection/players", static_cast<int>(settings.players));
  m_store.setValue("detection/voices", toText(chords::namesOf(settings.voices)));
  m_store.setValue("detection/sensitivity", settings.sensitivity);
  m_store.setValue("detection/concertA", settings.concertA);
  m_store.setValue("detection/frets", settings.fingering.frets);
  m_store.setValue("detection/capo", settings.fingering.capo);
  m_store.setValue("detection/position", static_cast<int>(settings.fingering.position.kind));
  m_store.setValue("detection/fret", settings.fingering.position.fret);
}

std::vector<ImportUnderWay> Preferences::runningImports() const {
  std::vector<ImportUnderWay> imports;
  for (const QVariant& each : m_store.value(keyOfRunning()).toList()) {
    const QVariantList parts = each.toList();
    if (parts.size() >= 3)
      imports.push_back({parts[0].toString().toStdString(), parts[1].toLongLong(),
                         parts[2].toString().toStdString(), parts.value(3).toBool()});
  }
  return imports;
}

/// At once, for it is read by the next start after one that was killed.
void Preferences::setRunningImports(const std::vector<ImportUnderWay>& imports) {
  QVariantList list;
  for (const ImportUnderWay& each : imports) {
    const QVariantList parts{toText(each.file), qlonglong(each.song), toText(each.title),
                             each.goesOn};
    list.append(QVariant(parts));
  }
  if (list.isEmpty())
    m_store.remove(keyOfRunning());
  else
    m_store.setValue(keyOfRunning(), list);
  m_store.sync();
}

/// The working directory at first, or the home folder when none was chosen.
QString Preferences::folder(const QString& key) const {
  const QBSettings* settings = QBTabMgr::db().selectedSettings();
  const QString work = settings ? toText(settings->workDir()) : QString();
  return m_store.value(key, QDir::isAbsolutePath(work) ? work : QDir::homePath()).toString();
}

}  // namespace korvel::ui
