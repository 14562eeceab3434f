// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace korvel::ui {

class TablatureView;

/// Looks for chords by their names in the tablature; hidden until it is asked for.
class FindBar final : public QWidget {
  Q_OBJECT

 public:
  explicit FindBar(TablatureView& tablature, QWidget* parent = nullptr);

  void open();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void find(bool forward);

  TablatureView& m_tablature;
  QLineEdit* m_name;
  QLabel* m_answer;
};

}  // namespace korvel::ui
