// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "arrange/harmony/ChordName.h"
#include "tab/layout/LoopRange.h"

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace korvel {
class NamedPassages;
class QBSong;
}  // namespace korvel

namespace korvel::ui {

/// Asks how the chords of a passage are called: offers the names that explain best what sounds,
/// takes any other, and asks whether all passages with the same notes are meant.
class NameDialog final : public QDialog {
  Q_OBJECT

 public:
  /// Of chords that are selected; without a selection, of the one at the cursor, which stands for
  /// all around it that have its name.
  NameDialog(QBSong& song, const NamedPassages& passages, ChordSpan chosen, bool isSelection,
             QWidget* parent = nullptr);

  // Once accepted.
  /// None when the name is to be taken away.
  std::optional<ChordName> name() const;
  const std::vector<ChordSpan>& passages() const;

 private:
  void addScope(const QString& text, std::vector<ChordSpan> passages);
  void listOffers(QBSong& song, const NamedPassages& passages, ChordSpan passage);
  void takeOffer();
  void check();

  QLineEdit* m_name;
  QListWidget* m_offers;
  QComboBox* m_scope;
  QLabel* m_problem;
  QDialogButtonBox* m_buttons;
  std::vector<std::vector<ChordSpan>> m_scopes;  ///< As the box lists them.
};

}  // namespace korvel::ui
