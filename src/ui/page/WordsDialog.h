// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QPlainTextEdit;

namespace korvel::ui {

/// Asks for all words of a song as one text.
class WordsDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit WordsDialog(const QString& words, QWidget* parent = nullptr);

  QString words() const;

 private:
  QPlainTextEdit* m_words;
};

}  // namespace korvel::ui
