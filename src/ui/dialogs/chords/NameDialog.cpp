// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/chords/NameDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <cmath>
#include <utility>

#include "arrange/harmony/WrittenName.h"
#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "tab/layout/ChordSearch.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "workflow/editing/NamedPassages.h"

namespace korvel::ui {

NameDialog::NameDialog(QBSong& song, const NamedPassages& passages, ChordSpan chosen,
                       bool isSelection, QWidget* parent)
    : QDialog(parent),
      m_name(new QLineEdit),
      m_offers(new QListWidget),
      m_scope(new QComboBox),
      m_problem(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
  setWindowTitle(tr("Set Chord Name"));
  m_name->setText(toText(shownName(*song.allChords()[static_cast<std::size_t>(chosen.first)])));
  m_name->selectAll();
  m_problem->setWordWrap(true);
  m_offers->setToolTip(tr("What explains best the notes that sound, and how probable it is"));
  auto* form = new QFormLayout(this);
  form->addRow(tr("&Name, such as F#m7; none takes the name away:"), m_name);
  form->addRow(tr("&It may be:"), m_offers);
  form->addRow(tr("&Applies to:"), m_scope);
  form->addRow(m_problem);
  form->addRow(m_buttons);

  const ChordSpan passage = isSelection ? chosen : passages.around(chosen.first);
  if (isSelection)
    addScope(tr("Selected chords"), {chosen});
  else
    addScope(tr("This chord"), {chosen});
  if (passage.first != chosen.first || passage.last != chosen.last)
    addScope(tr("All chords around it with its name"), {passage});
  addScope(tr("All passages with the same notes"), passages.alike(passage));
  // Names of a song on beats are those of whole passages.
  m_scope->setCurrentIndex(!isSelection && song.isOnBeats() && m_scope->count() > 2 ? 1 : 0);
  listOffers(song, passages, passage);

  connect(m_name, &QLineEdit::textChanged, this, &NameDialog::check);
  connect(m_offers, &QListWidget::itemSelectionChanged, this, &NameDialog::takeOffer);
  connect(m_offers, &QListWidget::itemActivated, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  check();
}

void NameDialog::addScope(const QString& text, std::vector<ChordSpan> passages) {
  m_scope->addItem(passages.size() > 1 ? tr("%1 (%2)").arg(text).arg(passages.size()) : text);
  m_scopes.push_back(std::move(passages));
}

void NameDialog::listOffers(QBSong& song, const NamedPassages& passages, ChordSpan passage) {
  for (const WeighedName& offer : passages.offers(passage)) {
    const QString name = toText(writtenName(offer.name, &song));
    auto* item =
        new QListWidgetItem(tr("%1  (%2 %)").arg(name).arg(std::lround(100 * offer.weight)));
    item->setData(Qt::UserRole, name);
    m_offers->addItem(item);
  }
  m_offers->setVisible(m_offers->count() > 0);
}

void NameDialog::takeOffer() {
  const auto chosen = m_offers->selectedItems();
  if (!chosen.isEmpty()) m_name->setText(chosen.front()->data(Qt::UserRole).toString());
}

void NameDialog::check() {
  m_problem->clear();
  try {
    name();
  } catch (const NoChordName& problem) {
    m_problem->setText(translated(problem));
  }
  m_buttons->button(QDialogButtonBox::Ok)->setEnabled(m_problem->text().isEmpty());
}

std::optional<ChordName> NameDialog::name() const {
  if (m_name->text().trimmed().isEmpty()) return {};
  return parseChordName(QBTabMgr::db(), m_name->text().toStdString());
}

const std::vector<ChordSpan>& NameDialog::passages() const {
  return m_scopes.at(static_cast<std::size_t>(m_scope->currentIndex()));
}

}  // namespace korvel::ui
