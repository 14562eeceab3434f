// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/guides/GuideDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/songs/QBSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"

namespace korvel::ui {
namespace {

constexpr int kColumnsShown = 72;
constexpr int kLinesShown = 12;

QFont previewFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (const QString family = Preferences().tabFont(); !family.isEmpty()) font.setFamily(family);
  return font;
}

}  // namespace

GuideDialog::GuideDialog(QBSong& song, const QString& title, const QString& accept, QWidget* parent)
    : QDialog(parent),
      m_song(&song),
      m_form(new QFormLayout),
      m_preview(new QPlainTextEdit),
      m_remark(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
  setWindowTitle(title);
  m_preview->setReadOnly(true);
  m_preview->setTabChangesFocus(true);
  m_preview->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_preview->setFont(previewFont());
  m_preview->setAccessibleName(tr("First line of what comes out"));
  const QFontMetrics metrics(m_preview->font());
  m_preview->setMinimumSize(kColumnsShown * metrics.horizontalAdvance('-'),
                            kLinesShown * metrics.lineSpacing());
  m_remark->setWordWrap(true);
  m_buttons->button(QDialogButtonBox::Ok)->setText(accept);
  auto* column = new QVBoxLayout(this);
  column->addLayout(m_form);
  column->addWidget(m_preview);
  column->addWidget(m_remark);
  column->addWidget(m_buttons);
  m_change.setSingleShot(true);
  connect(&m_change, &QTimer::timeout, this, &GuideDialog::showChosen);
  connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

GuideDialog::~GuideDialog() = default;

QComboBox* GuideDialog::addChoice(const QString& title, const QStringList& texts) {
  auto* box = new QComboBox;
  box->addItems(texts);
  m_form->addRow(title, box);
  connect(box, &QComboBox::currentIndexChanged, this, &GuideDialog::choiceChanged);
  return box;
}

void GuideDialog::showChosen() {
  QString text;
  const QString refusal = refusalOf([&] { text = toText(preview()); });
  m_preview->setPlainText(text);
  m_remark->setText(refusal.isEmpty() ? remark() : refusal);
  m_buttons->button(QDialogButtonBox::Ok)->setEnabled(refusal.isEmpty());
}

}  // namespace korvel::ui
