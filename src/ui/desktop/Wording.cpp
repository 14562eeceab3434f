// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Wording.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace korvel::ui {
namespace {

/// What lower layers say, with names and numbers left open. The first that fits is taken, so what
/// would fit nearly all stands last.
constexpr const char* kLines[] = {
    QT_TRANSLATE_NOOP("Wording", "An album needs a name; type one"),
    QT_TRANSLATE_NOOP("Wording", "A song needs a name; type one"),
    QT_TRANSLATE_NOOP("Wording", "An instrument needs a name; type one"),
    QT_TRANSLATE_NOOP("Wording", "A tuning needs a name; type one"),
    QT_TRANSLATE_NOOP("Wording", "%1: there is an album of that name already; choose another name"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: the album has a song of that title already; choose another title"),
    QT_TRANSLATE_NOOP("Wording", "%1: is still being heard; edit it when that has ended"),
    QT_TRANSLATE_NOOP("Wording", "%1: is being recorded; stop the recording, then delete it"),
    QT_TRANSLATE_NOOP("Wording", "%1: there is a tuning of that name already; choose another name"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: there is an instrument of that name already; choose another name"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: an instrument is calibrated in Standard or Drop D; select one of them, "
                      "and tune the guitar to it"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: a definition file cannot hold that name; rename the instrument without "
                      "apostrophes and \"<\""),
    QT_TRANSLATE_NOOP("Wording",
                      "The recording is longer than ten minutes; choose one that holds the single "
                      "notes only"),
    QT_TRANSLATE_NOOP("Wording",
                      "Nothing is heard in the recording; check the microphone or choose another "
                      "file"),
    QT_TRANSLATE_NOOP("Wording",
                      "No single note is heard in the recording; play one note at a time, louder, "
                      "and mute it before the next one"),
    QT_TRANSLATE_NOOP("Wording",
                      "String %1 was not heard long enough; record its notes once more, and let "
                      "each ring for three seconds"),
    QT_TRANSLATE_NOOP("Wording", "%1: is empty"),
    QT_TRANSLATE_NOOP("Wording", "%1: is a folder; name a sound file"),
    QT_TRANSLATE_NOOP("Wording", "%1: has no sound track"),
    QT_TRANSLATE_NOOP("Wording", "%1: no sound could be decoded; is the file complete?"),
    QT_TRANSLATE_NOOP("Wording", "%1: the song has no chords, so there is nothing to export"),
    QT_TRANSLATE_NOOP("Wording", "%1: the song has no chords, so \"%2\" has nothing to do"),
    QT_TRANSLATE_NOOP("Wording", "%1: is no instrument definition file; nothing was imported"),
    QT_TRANSLATE_NOOP("Wording", "%1: is the only instrument; import another one first"),
    QT_TRANSLATE_NOOP("Wording", "String %1 cannot be tuned that far; choose a nearer note"),
    QT_TRANSLATE_NOOP("Wording",
                      "String %1 must be higher than the string below it; choose another note"),
    QT_TRANSLATE_NOOP(
        "Wording", "%1: songs or instruments are written in it; make a new tuning and edit that"),
    QT_TRANSLATE_NOOP("Wording", "fret %1 is not within %2 to %3"),
    QT_TRANSLATE_NOOP("Wording", "%1 is sound"),
    QT_TRANSLATE_NOOP("Wording", "%1: the store is damaged (%2); restore a backup of it"),
    QT_TRANSLATE_NOOP("Wording", "the demo recording is read"),
    QT_TRANSLATE_NOOP("Wording", "the demo recording is missing; install Korvel again"),
    QT_TRANSLATE_NOOP("Wording", "%1 cannot be decoded; install FFmpeg's libraries with Vorbis"),
    QT_TRANSLATE_NOOP("Wording", "a tone of 110 Hz is found"),
    QT_TRANSLATE_NOOP("Wording", "a tone of 110 Hz is not found; install FFTW's libraries again"),
    QT_TRANSLATE_NOOP("Wording", "the open low E string is played with %1"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: its guitar does not sound as it should; choose another SoundFont"),
    QT_TRANSLATE_NOOP("Wording", "%1 to play on, %2 to record from"),
    QT_TRANSLATE_NOOP("Wording",
                      "no sound server can be reached and there is no sound card; start PipeWire, "
                      "PulseAudio or JACK, or plug a device in"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: the sound device cannot be opened; check that it is plugged in and that "
                      "no other program keeps it"),
    QT_TRANSLATE_NOOP("Wording",
                      "SoundFont: none was found to play with; install one (apt install "
                      "timgm6mb-soundfont) or choose a file"),
    QT_TRANSLATE_NOOP("Wording", "%1: there is no such SoundFont; choose another one"),
    QT_TRANSLATE_NOOP("Wording", "%1: is no SoundFont; choose a file of type sf2 or sf3"),
    QT_TRANSLATE_NOOP("Wording", "%1: the SoundFont cannot be read; check its rights"),
    QT_TRANSLATE_NOOP("Wording", "%1: is a damaged SoundFont; fetch it anew or choose another one"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: nothing sounds in these chords, so there is nothing to export"),
    QT_TRANSLATE_NOOP(
        "Wording", "%1: the folder cannot be made: %2; check the rights of the one that it is in"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: the store is in use by another program; close that one first"),
    QT_TRANSLATE_NOOP(
        "Wording",
        "%1: cannot read or write the store: database or disk is full; make room on the "
        "disk and try again"),
    QT_TRANSLATE_NOOP(
        "Wording",
        "%1: cannot change the store: database or disk is full; make room on the disk and "
        "try again"),
    QT_TRANSLATE_NOOP(
        "Wording",
        "%1: cannot change the store: %2; look at the permissions of the store and its "
        "folder"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot change the store: %2"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot read or write the store: %2"),
    QT_TRANSLATE_NOOP("Wording",
                      "\"%1\" is no chord name: it has to begin with a note from A to G"),
    QT_TRANSLATE_NOOP("Wording",
                      "\"%1\" is no chord name: after the note comes nothing or one of %2"),
    QT_TRANSLATE_NOOP("Wording", "the song was deleted while it was recorded"),
    QT_TRANSLATE_NOOP("Wording",
                      "the sound device is gone; choose another one or plug it in, and play again"),
    QT_TRANSLATE_NOOP("Wording", "no sound output \"%1\"; there is %2"),
    QT_TRANSLATE_NOOP("Wording", "no sound input \"%1\"; there is %2"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot write: %2; make room or choose another place"),
    QT_TRANSLATE_NOOP("Wording",
                      "%1: cannot write: %2; look at its permissions or choose another place"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot write: %2; choose another place"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot write: %2; choose a shorter name"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot make the folder: %2"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot be written: %2"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot read: %2"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot write: it holds songs; choose another file"),
    QT_TRANSLATE_NOOP("Wording", "%1: cannot write: %2"),
    QT_TRANSLATE_NOOP("Wording", "System default"),
    QT_TRANSLATE_NOOP("Wording", "Song Import: %1"),
    QT_TRANSLATE_NOOP("Wording", "Calibration: %1"),
    QT_TRANSLATE_NOOP("Wording", "Album Export: %1"),
    QT_TRANSLATE_NOOP("Wording", "WAV Export: %1"),
};

QRegularExpression matching(const char* line) {
  static const QRegularExpression open("\\\\%\\d");
  QString pattern = QRegularExpression::escape(QString::fromUtf8(line));
  return QRegularExpression('^' + pattern.replace(open, "(.*)") + '$',
                            QRegularExpression::DotMatchesEverythingOption);
}

QString filled(const QString& text, const QStringList& names) {
  if (names.isEmpty()) return text;
  if (names.size() == 1) return text.arg(names[0]);
  return names.size() == 2 ? text.arg(names[0], names[1]) : text.arg(names[0], names[1], names[2]);
}

}  // namespace

QString worded(const QString& line) {
  for (const char* each : kLines) {
    const auto match = matching(each).match(line);
    if (match.hasMatch())
      return filled(QCoreApplication::translate("Wording", each), match.capturedTexts().mid(1));
  }
  return line;
}

}  // namespace korvel::ui
