// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>

#include "workflow/hearing/ImportDesk.h"
#include "workflow/takes/LiveRecording.h"

class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace korvel::ui {

class InputList;

/// Records a guitar: device, level, start and stop, and the chords as they are heard.
class RecordPanel final : public QWidget {
  Q_OBJECT

 public:
  explicit RecordPanel(QWidget* parent = nullptr);
  ~RecordPanel() override;

  bool isBusy() const;
  /// Whether something is played at the moment.
  bool isRecording() const;
  /// Ends the recording; what was played is stored, at least as it was heard live. Answers what the
  /// next start has to hear of it.
  std::optional<ImportUnderWay> finish();
  /// To be called after a change of the settings.
  void showChosenDevice();

 signals:
  void recorded(QBSong* song);
  /// One line with what to do.
  void refused(const QString& text);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void start();
  void stop();
  void enter(LiveRecording::State state);
  void showChord(QBChord& chord);
  void tick();
  void conclude();

  InputList* m_device;
  QPushButton* m_start;
  QPushButton* m_stop;
  QProgressBar* m_level;
  QLabel* m_time;
  QPlainTextEdit* m_chords;
  QTimer m_clock;
  std::unique_ptr<LiveRecording> m_recording;
};

}  // namespace korvel::ui
