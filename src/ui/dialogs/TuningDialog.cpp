// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/TuningDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>

#include "model/instruments/QBTuning.h"
#include "music/NoteName.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

QComboBox* notesOf(int string, int pitch) {
  auto* notes = new QComboBox;
  const PitchRange range = pitchRangeOf(string);
  for (int each = range.lowest; each <= range.highest; ++each)
    notes->addItem(toText(noteName(each)), each);
  notes->setCurrentIndex(notes->findData(pitch));
  return notes;
}

}  // namespace

TuningDialog::TuningDialog(QBTuning& tuning, QWidget* parent) : QDialog(parent) {
  setWindowTitle(tr("Strings of %1").arg(toText(tuning.descr())));
  auto* form = new QFormLayout(this);
  const OpenPitches now = tuning.openStrings().pitches();
  for (int string = kStrings - 1; string >= 0; --string) {
    const auto i = static_cast<std::size_t>(string);
    m_notes[i] = notesOf(string, now[i]);
    form->addRow(tr("String &%1").arg(kStrings - string), m_notes[i]);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
}

OpenPitches TuningDialog::pitches() const {
  OpenPitches pitches{};
  for (std::size_t string = 0; string < pitches.size(); ++string)
    pitches[string] = m_notes[string]->currentData().toInt();
  return pitches;
}

}  // namespace korvel::ui
