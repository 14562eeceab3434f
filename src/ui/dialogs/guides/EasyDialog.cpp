// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/guides/EasyDialog.h"

#include <QComboBox>
#include <array>

namespace korvel::ui {
namespace {

// In the order of the entries.
constexpr std::array kTones{EasyTones::chords, EasyTones::bassAndMelody, EasyTones::melody};
constexpr std::array kKeys{EasyKey::asRecorded, EasyKey::transposed, EasyKey::capo};
constexpr std::array kFrets{3, 5};

template <class Values>
auto chosenOf(const Values& values, const QComboBox& box) {
  return values.at(static_cast<std::size_t>(box.currentIndex()));
}

}  // namespace

EasyDialog::EasyDialog(QBSong& song, QWidget* parent)
    : GuideDialog(song, tr("Easy Version"), tr("&Make It"), parent),
      m_tones(
          addChoice(tr("&Play"), {tr("Simple chords"), tr("Bass and melody"), tr("Melody only")})),
      m_key(addChoice(tr("&Key"), {tr("As recorded"), tr("Higher or lower, for open chords"),
                                   tr("With a capo, for open chords")})),
      m_fret(addChoice(tr("&Frets"), {tr("Up to the third"), tr("Up to the fifth")})) {
  choiceChanged();
}

EasyChoices EasyDialog::choices() const {
  return {chosenOf(kTones, *m_tones), chosenOf(kKeys, *m_key), chosenOf(kFrets, *m_fret)};
}

QString EasyDialog::remark() const {
  if (choices().key != EasyKey::capo) return {};
  const int fret = capoOf(choices(), song());
  return fret > 0 ? tr("With a capo on fret %1 it sounds as recorded").arg(fret)
                  : tr("It needs no capo: in no other key it has more open chords");
}

}  // namespace korvel::ui
