// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "workflow/hearing/CalibrateCommand.h"
#include "workflow/takes/NoteRecording.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace korvel::ui {

class InputList;

/// Makes an instrument of single notes: tells what to play, takes a file or records, shows which
/// notes were heard, and asks for a name.
class CalibrationDialog final : public QDialog {
  Q_OBJECT

 public:
  /// Throws EditRefused when no instrument can be calibrated in the selected tuning.
  explicit CalibrationDialog(QWidget* parent = nullptr);
  ~CalibrationDialog() override;

  void hearFile(const QString& file);

 public slots:
  /// Stores the instrument.
  void accept() override;
  void reject() override;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QWidget* instructions();
  QGroupBox* sources();
  QWidget* results();
  void listNotes();
  void chooseFile();
  void toggleRecording();
  void record();
  void hearRecording();
  void hear(std::shared_ptr<QBSampleSource> source, const std::string& name);
  void cancelHearing();
  void showHeard();
  void tick();
  void say(const QString& text);
  void updateButtons();

  const platform::Ref<QBTuning> m_tuning;
  const std::vector<CalibrationNote> m_wanted;
  QPushButton* m_browse;
  InputList* m_device;
  QPushButton* m_record;
  QProgressBar* m_level;
  QLabel* m_time;
  QTreeWidget* m_notes;
  QProgressBar* m_progress;
  QLabel* m_status;
  QLineEdit* m_name;
  QPushButton* m_create;
  QTimer m_clock;
  std::unique_ptr<NoteRecording> m_recording;
  std::shared_ptr<CalibrateCommand> m_job;
};

}  // namespace korvel::ui
