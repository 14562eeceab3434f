// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/store/StandardStore.h"

#include "model/store/QBSettings.h"
#include "music/ConcertPitch.h"

namespace korvel::test {
namespace {

constexpr double kAmp = 1000000;

int fretOf(char c) { return c >= 'a' ? c - 'a' + 10 : c - '0'; }

char drawn(const QBTone& tone) {
  if (!tone.isActive()) return '-';
  return static_cast<char>(tone.fret() < 10 ? '0' + tone.fret() : 'a' + tone.fret() - 10);
}

}  // namespace

StandardStore::StandardStore() {
  QBTabMgr& db = QBTabMgr::db();
  db.createTuning("Standard", 1)->createStandardStrings();
  db.createTuning("Drop D", 2)->createDropDStrings();
  db.createSettings("./");
  db.loadSettings();
  db.selectTuning(standard());
}

QBTuning* StandardStore::standard() const { return QBTabMgr::db().findTuningByOrder(1); }

QBTuning* StandardStore::dropD() const { return QBTabMgr::db().findTuningByOrder(2); }

QBSong* StandardStore::song(const std::string& title) const {
  return QBTabMgr::db().createSong(title, standard(), nullptr, nullptr);
}

QBTuning* addTuning(const std::string& name, const OpenPitches& pitches) {
  QBTabMgr& db = QBTabMgr::db();
  QBTuning* tuning = db.createTuning(name, static_cast<int>(db.tunings().size()) + 1);
  for (int string = 0; const int pitch : pitches)
    db.createString(tuning, pitchClass(pitch), string++, static_cast<float>(hertzOfNote(pitch)));
  return tuning;
}

QBChord* addChord(QBSong* song, std::string_view frets, int duration) {
  QBChord* chord = song->createChord();
  chord->setDuration(duration);
  for (int string = 0; const char c : frets) {
    if (c != 'x') chord->hold()->addTone(string, fretOf(c), kAmp);
    ++string;
  }
  return chord;
}

std::string fretsOf(const QBChord& chord) {
  std::string text;
  for (int string = 0; string < 6; ++string) {
    std::string frets;
    for (const auto& tone : chord.hold()->allTonesOfString(string)) frets += drawn(*tone);
    text += frets.empty() ? "x" : frets.size() == 1 ? frets : '[' + frets + ']';
  }
  return text;
}

std::string fretsOf(const QBSong& song) {
  std::string text;
  for (const QBChord* chord : song.chords()) text += fretsOf(*chord) + ' ';
  return text;
}

}  // namespace korvel::test
