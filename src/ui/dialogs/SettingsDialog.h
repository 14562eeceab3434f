// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QLineEdit;
class QTabWidget;

namespace korvel::ui {

class HearingChoice;

/// What a user may choose once and for all. Nothing changes before the dialog is accepted.
class SettingsDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit SettingsDialog(QWidget* parent = nullptr);

  /// "general", "detection" or "sound".
  void showPage(const char* name);
  void accept() override;

 private:
  QWidget* generalPage();
  QWidget* detectionPage();
  QWidget* soundPage();
  void keepDetection() const;

  QTabWidget* m_pages;
  QLineEdit* m_folder;
  QComboBox* m_language;
  QComboBox* m_theme;
  QCheckBox* m_ownFont;
  QFontComboBox* m_font;
  QComboBox* m_detection;
  QComboBox* m_players = nullptr;
  QComboBox* m_voices = nullptr;
  QComboBox* m_grid = nullptr;
  HearingChoice* m_hearing = nullptr;
  QCheckBox* m_keep = nullptr;
  QComboBox* m_output;
  QComboBox* m_input;
  QLineEdit* m_soundFont;
};

/// The folder that is offered for files.
QString offeredWorkFolder();

}  // namespace korvel::ui
