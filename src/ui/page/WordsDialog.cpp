// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/WordsDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace korvel::ui {
namespace {

constexpr int kColumns = 60;
constexpr int kRows = 24;

}  // namespace

WordsDialog::WordsDialog(const QString& words, QWidget* parent)
    : QDialog(parent), m_words(new QPlainTextEdit(words)) {
  setWindowTitle(tr("Lyrics"));
  m_words->setAccessibleName(tr("Lyrics of the song"));
  const QFontMetrics letters(m_words->font());
  m_words->setMinimumSize(kColumns * letters.averageCharWidth(), kRows / 2 * letters.lineSpacing());
  auto* hint = new QLabel(
      tr("A line of lyrics for each line of the page, which has four bars. “|” goes on to the next "
         "bar, alone in a line it leaves a line of the page out, and “9:” begins at bar 9."));
  hint->setWordWrap(true);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(hint);
  rows->addWidget(m_words, 1);
  rows->addWidget(buttons);
  resize(kColumns * letters.averageCharWidth(), kRows * letters.lineSpacing());
}

QString WordsDialog::words() const { return m_words->toPlainText(); }

}  // namespace korvel::ui
