// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/TrackDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <algorithm>

#include "ui/desktop/Translated.h"
#include "workflow/exchange/PieceTracks.h"

namespace korvel::ui {
namespace {

QComboBox* tracksOf(const exchange::Piece& piece) {
  auto* tracks = new QComboBox;
  const std::vector<platform::UserText> lines = linesOfTracks(piece);
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (!piece.tracks[i].isDrums && !piece.tracks[i].notes.empty())
      tracks->addItem(translated(lines[i]), static_cast<int>(i));
  tracks->setCurrentIndex(tracks->findData(static_cast<int>(chosenTrack(piece, {}))));
  return tracks;
}

}  // namespace

TrackDialog::TrackDialog(const QString& file, const exchange::Piece& piece, bool isMidi,
                         QWidget* parent)
    : QDialog(parent), m_track(tracksOf(piece)) {
  setWindowTitle(tr("Import %1").arg(QFileInfo(file).fileName()));
  auto* form = new QFormLayout(this);
  form->addRow(tr("&Track"), m_track);
  if (isMidi) {
    m_rhythm = new QComboBox;
    m_rhythm->addItem(tr("As it fits"), static_cast<int>(PieceManner::automatic));
    m_rhythm->addItem(tr("As written"), static_cast<int>(PieceManner::asWritten));
    m_rhythm->addItem(tr("As played"), static_cast<int>(PieceManner::asPlayed));
    form->addRow(tr("&Rhythm"), m_rhythm);
  }
  const auto isForOthers = [](const auto& track) { return !isForSixStrings(track); };
  if (std::ranges::any_of(piece.tracks, isForOthers))
    form->addRow(new QLabel(tr("A track for more or fewer strings is fingered for six.")));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
}

void TrackDialog::tell(PieceChoices& choices) const {
  choices.track = std::to_string(m_track->currentData().toInt() + 1);
  choices.fitsStrings = true;
  if (m_rhythm) choices.manner = static_cast<PieceManner>(m_rhythm->currentData().toInt());
}

}  // namespace korvel::ui
