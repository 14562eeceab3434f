// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QLineEdit;
class QSlider;
class QSpinBox;
class QTabWidget;

namespace korvel::ui {

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
  QSlider* m_sensitivity;
  QComboBox* m_players = nullptr;
  QComboBox* m_grid = nullptr;
  QComboBox* m_position;
  QSpinBox* m_positionFret;
  QSpinBox* m_frets;
  QSpinBox* m_capo;
  QCheckBox* m_keep = nullptr;
  QComboBox* m_output;
  QComboBox* m_input;
  QLineEdit* m_soundFont;
};

/// The folder that is offered for files.
QString offeredWorkFolder();

}  // namespace korvel::ui
