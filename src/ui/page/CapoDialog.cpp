// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/CapoDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <cmath>

#include "tab/page/CapoTable.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

constexpr int kFretRole = Qt::UserRole;

}  // namespace

CapoDialog::CapoDialog(const PageSource& source, int capo, QWidget* parent)
    : QDialog(parent), m_table(new QTreeWidget) {
  setWindowTitle(tr("Which Capo?"));
  m_table->setAccessibleName(windowTitle());
  m_table->setRootIsDecorated(false);
  m_table->setHeaderLabels({tr("Capo"), tr("Shapes of"), tr("Open chords"), tr("Of the time")});
  const auto table = capoTable(source);
  const int best = bestCapo(table);
  for (const CapoChoice& choice : table) {
    const QString fret = choice.fret == 0 ? tr("None") : tr("Fret %1").arg(choice.fret);
    auto* row = new QTreeWidgetItem(
        m_table, {choice.fret == best ? tr("%1: the best", "a capo").arg(fret) : fret,
                  toText(choice.key), tr("%1 of %2").arg(choice.openNames).arg(choice.names),
                  tr("%1 %").arg(std::lround(choice.open * 100))});
    row->setData(0, kFretRole, choice.fret);
    QFont font = row->font(0);
    font.setBold(choice.fret == best);
    for (int column = 0; column < m_table->columnCount(); ++column) row->setFont(column, font);
    if (choice.fret == capo || !m_table->currentItem()) m_table->setCurrentItem(row);
  }
  for (int column = 0; column < m_table->columnCount(); ++column)
    m_table->resizeColumnToContents(column);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_table, &QTreeWidget::itemActivated, this, &QDialog::accept);
  auto* hint = new QLabel(
      tr("With a capo the song sounds as before and is played in the shapes of another key."));
  hint->setWordWrap(true);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(hint);
  rows->addWidget(m_table);
  rows->addWidget(buttons);
  resize(sizeHint().expandedTo({m_table->header()->length() + 40, 320}));
}

int CapoDialog::capo() const {
  const QTreeWidgetItem* row = m_table->currentItem();
  return row ? row->data(0, kFretRole).toInt() : 0;
}

}  // namespace korvel::ui
