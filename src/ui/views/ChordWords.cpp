// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/ChordWords.h"

#include "model/book/QBHarmony.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"
#include "music/Pitch.h"
#include "tab/layout/CapoNames.h"
#include "tab/layout/ChordSearch.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {

ChordWords::ChordWords(QBTuning* tuning) {
  m_notes = QStringList(kStrings);
  m_pitchClasses = QList<int>(kStrings);
  if (!tuning) return;
  for (const QBString* string : tuning->strings()) {
    const int order = string->order();
    if (order < 0 || order >= kStrings) continue;
    m_notes[order] = toText(QBHarmony::noteAsString(string->baseTone()).value_or(""));
    m_pitchClasses[order] = string->baseTone();
  }
}

QString ChordWords::noteAt(int string, int fret) const {
  const int note = pitchClass(m_pitchClasses.value(string) + fret);
  return toText(QBHarmony::noteAsString(note).value_or(""));
}

QString ChordWords::string(int string) const {
  const QString name = note(string);
  const int number = kStrings - string;
  if (name.isEmpty()) return tr("string %1").arg(number);
  return m_notes.count(name) > 1 ? tr("%1 string (%2)").arg(name).arg(number)
                                 : tr("%1 string").arg(name);
}

QString ChordWords::place(QBSong& song, int chord, int string) const {
  const auto& chords = song.allChords();
  if (chord < 0 || chord >= static_cast<int>(chords.size())) return {};
  const QBChord& here = *chords[static_cast<std::size_t>(chord)];
  QStringList words;
  if (const QBMeasure* bar = here.measure()) words << barWords(song, *bar);
  words << tr("chord %1 of %2").arg(chord + 1).arg(chords.size());
  if (!shownName(here).empty()) words << toText(capoNameOf(here, capoOfTablature(song)).text());
  const QString played = tones(here, string);
  words << this->string(string) << (played.isEmpty() ? tr("silent") : played);
  if (here.hasHandFret())
    words << (here.handFret() == 0 ? tr("hand anywhere from here")
                                   : tr("hand near fret %1 from here").arg(here.handFret()));
  QString text = words.join(tr(", "));
  text[0] = text[0].toUpper();
  return text;
}

/// As the tablature counts them: a pick-up is none.
QString ChordWords::barWords(QBSong& song, const QBMeasure& bar) {
  const bool hasPickUp = song.isOnBeats() && SongTime(song).begin() < 0;
  const int number = bar.position() - (hasPickUp ? 1 : 0);
  return number > 0 ? tr("bar %1").arg(number) : tr("pick-up");
}

QString ChordWords::grip(const QBChord& chord) const {
  QStringList words;
  for (int string = 0; string < kStrings; ++string)
    if (const QString played = tones(chord, string); !played.isEmpty())
      words << tr("%1 %2", "a string, what is played on it").arg(this->string(string), played);
  const QString text = words.isEmpty() ? tr("silent") : words.join(tr(", "));
  const std::string name = shownName(chord);
  return name.empty() ? text : tr("%1: %2", "a chord, its tones").arg(toText(name), text);
}

QString ChordWords::tones(const QBChord& chord, int string) {
  QStringList words;
  for (const auto& tone : byStringAndFret(chord)) {
    if (tone->string() != string) continue;
    const QString fret = tone->fret() == 0 ? tr("open") : tr("fret %1").arg(tone->fret());
    words << (tone->isActive() ? fret : tr("%1 (inactive)").arg(fret));
  }
  return words.join(tr(" and "));
}

}  // namespace korvel::ui
