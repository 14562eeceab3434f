// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace korvel::ui {

/// A line in which the words of a bar are typed, in their place on the page. Only tells when typing
/// is over; its owner takes the words and lets it go.
class WordsLine final : public QLineEdit {
  Q_OBJECT

 public:
  using QLineEdit::QLineEdit;

 signals:
  /// The focus went elsewhere, also as this is hidden.
  void left();
  /// By Enter, or by Escape, which forgets what was typed.
  void ended(bool keep);
  /// By Tab, which goes on with the next bar.
  void nextWanted();

 protected:
  bool event(QEvent* event) override;

 private:
  bool endByKey(int key);
};

}  // namespace korvel::ui
