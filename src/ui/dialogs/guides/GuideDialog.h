// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QTimer>
#include <string>

#include "platform/persistence/Ref.h"

class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QPlainTextEdit;

namespace korvel {
class QBSong;
}

namespace korvel::ui {

/// A few choices about a song, above the first line of the tablature that comes of them, which
/// follows each choice. What cannot be made says why in its place, and cannot be accepted.
class GuideDialog : public QDialog {
  Q_OBJECT

 public:
  /// One line on what is chosen, also once it is accepted; empty for none.
  virtual QString remark() const { return {}; }

 protected:
  GuideDialog(QBSong& song, const QString& title, const QString& accept, QWidget* parent);
  ~GuideDialog() override;

  QBSong& song() const { return *m_song; }
  /// Where the choices stand.
  QFormLayout& form() { return *m_form; }
  /// A choice of several, in their order.
  QComboBox* addChoice(const QString& title, const QStringList& texts);
  /// What is chosen is shown after the events that wait, once for all changes until then. To be
  /// called when the choices are made, too.
  void choiceChanged() { m_change.start(); }
  /// Throws UserError when nothing can be made of the choices.
  virtual std::string preview() const = 0;

 private:
  void showChosen();

  platform::Ref<QBSong> m_song;
  QFormLayout* m_form;
  QPlainTextEdit* m_preview;
  QLabel* m_remark;
  QDialogButtonBox* m_buttons;
  QTimer m_change;
};

}  // namespace korvel::ui
