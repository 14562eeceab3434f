// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "arrange/hands/HandShapes.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace korvel::ui {

/// Asks for the name of a chord, and which of its shapes is meant, by pictures of them.
class ShapeDialog final : public QDialog {
  Q_OBJECT

 public:
  ShapeDialog(const OpenStrings& strings, const QString& name, QWidget* parent = nullptr);

  /// Only the shape is asked for.
  void keepName();

  /// Once accepted.
  ChordName name() const;
  ChordShape shape() const;

 private:
  void showShapes();

  OpenStrings m_strings;
  QLineEdit* m_name;
  QListWidget* m_list;
  QLabel* m_problem;
  QDialogButtonBox* m_buttons;
  std::vector<ChordShape> m_shapes;
};

}  // namespace korvel::ui
