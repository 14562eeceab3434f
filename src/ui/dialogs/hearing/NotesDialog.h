// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>

class QLabel;
class QSlider;

namespace korvel::ui {

/// Asks whether a song is to have fewer of the notes that were heard in its recording, or more, and
/// says how many would come and go.
class NotesDialog final : public QDialog {
  Q_OBJECT

 public:
  /// Answers what a sensitivity, 0..1, would change, in words.
  using Preview = std::function<QString(double)>;

  /// sensitivity: the one that it begins at; part: whether it is about what is selected only.
  NotesDialog(Preview preview, double sensitivity, bool part, QWidget* parent = nullptr);

  double sensitivity() const;

 private:
  void showChanges();

  Preview m_preview;
  QSlider* m_slider;
  QLabel* m_changes;
};

}  // namespace korvel::ui
